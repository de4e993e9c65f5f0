#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "link/HandsetRecord.h"
#include "messaging/SmsAddress.h"
#include "phonebook/ContactDate.h"
#include "platform/CodePage.h"

namespace tarnbridge {

inline constexpr std::u16string_view simStorage = u"SM";
inline constexpr std::u16string_view phoneStorage = u"ME";
inline constexpr std::u16string_view pcStorage = u"PC";

/// How a name goes to the handset.
enum NameEncoding : uint8_t {
    plainName = 0,       ///< as it is, in the character set "IRA"
    ucs2Name = 1,        ///< UCS-2 in hexadecimal
    packedUcs2Name = 2,  ///< against a half page, in the character set "UCS2_0x81"
};

/// What only the handset's own memory and the PC keep of a contact.
struct ContactDetails {
    bool operator==(const ContactDetails&) const = default;

    std::u16string home;
    std::u16string company;  ///< carried along, never shown, in no file
    std::u16string email;
    std::u16string office;
    std::u16string fax;
    std::u16string extra1;  ///< extra1 to extra4 are carried along and never filled
    std::u16string extra2;
    std::u16string extra3;
    std::u16string extra4;
    ContactDate anniversary;  ///< carried along, never shown, in no file
    ContactDate birthday;
    std::u16string memo;
};

/// One record of the phonebook, wherever it is stored. It can't be read from the handset or written to it
/// yet: these operations return false, as Remove does for every contact.
class Contact : public HandsetRecord {
public:
    /// Takes the name without its CR LF pairs, and the number, narrowed, by the rule of SmsAddress.
    void SetNameNumber(std::u16string_view newName, std::u16string_view numberText, uint8_t encoding,
                       const CodePage& page = CodePage::System());

    /// The name, and the digits with their leading `+`.
    void GetNameNumber(std::u16string& nameOut, std::u16string& numberText,
                       const CodePage& page = CodePage::System()) const;

    SmsAddress number;
    std::u16string name;  ///< without CR LF pairs
    int32_t index = 1;    ///< the place on the handset; means nothing on the PC
    std::u16string storage{pcStorage};
    uint8_t nameEncoding = ucs2Name;
    ContactDetails details;
    bool detailsLoaded = false;  ///< the details are the handset's, or there are none to fetch
};

}  // namespace tarnbridge
