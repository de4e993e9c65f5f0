#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Clock.h"

namespace tarnbridge::simulator {

/// The fields of a message PDU as they stand in it, 3GPP TS 23.040 9.2.2.
struct PduFields {
    bool submit = false;  ///< SMS-SUBMIT, otherwise SMS-DELIVER
    bool hasHeader = false;
    std::string address;  ///< TP-OA or TP-DA: length octet, type octet and digits
    char protocol = 0;
    char coding = 0;       ///< TP-DCS
    std::string time;      ///< TP-SCTS, 7 octets; empty in a SUBMIT
    int length = 0;        ///< TP-UDL
    std::string userData;  ///< TP-UD with its header
};

/// Bytes of an even number of digits 0-9 and A-F; anything else, lower-case digits too, is nothing.
std::optional<std::string> BytesOfHex(std::string_view hex);

/// Takes a PDU with its service centre apart. Nothing unless the TPDU behind the service centre has
/// `tpduLength` octets and every field its full length, with nothing left over.
std::optional<PduFields> ReadPdu(std::string_view bytes, size_t tpduLength);

/// How many octets of a PDU are its service centre.
size_t ServiceCentreLength(std::string_view bytes);

/// A message to be written as a PDU.
struct MessageText {
    std::string number;    ///< dialling characters with + if international; other characters: a name
    std::u16string text;   ///< goes as GSM text when it can and `ucs2` is off, else as UCS2
    std::string elements;  ///< information elements of the user data header, or empty
    bool ucs2 = false;
    LocalTime time;         ///< of a DELIVER
    int reference = 0;      ///< of a SUBMIT
    int messageClass = -1;  ///< 0 to 3 makes TP-DCS name it
};

/// Upper-case hex of an SMS-DELIVER that came through `serviceCentre`.
std::string WriteDeliver(const MessageText& message, const std::string& serviceCentre);

/// Upper-case hex of an SMS-SUBMIT without a service centre.
std::string WriteSubmit(const MessageText& message);

/// The SMS-DELIVER that the receiver of a SUBMIT gets.
std::string WriteDelivered(const PduFields& submit, const std::string& sender,
                           const std::string& serviceCentre, const LocalTime& time);

/// Whether the address field of a PDU names this number.
bool IsAddressOf(const std::string& address, const std::string& number);

}  // namespace tarnbridge::simulator
