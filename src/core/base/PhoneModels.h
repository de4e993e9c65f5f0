#pragma once

#include <map>
#include <string>
#include <string_view>

#include "core/base/PhoneModelInfo.h"
#include "platform/CodePage.h"

namespace tarnbridge {

/// The models of handset that the program knows, by their keys in the order of their units. There is always
/// one: `Tarnbridge.ini` that is missing or names none gives the two built-in ones.
class PhoneModels {
public:
    using Map = std::map<std::u16string, PhoneModelInfo>;

    /// The built-in models.
    PhoneModels();

    /// Reads `Tarnbridge.ini`, wherever FindData finds it.
    void Load();

    /// The same with the content of a file. A section `[KEY]` for each model holds lines `name = value` with
    /// a blank before the `=`; names are `phonemodel`, `baudrate`, `flowcontrol` (hardware, software,
    /// noflowcontrol), `mms` and `filemanager` (true, false), `lcd_width`, `lcd_height`. A key holds no
    /// blank. What isn't understood is passed over; a rate that no port has becomes 115200.
    void Load(std::string_view content, const CodePage& codePage = CodePage::System());

    /// Whether there is a model of that key, in whatever case it is written.
    bool Find(std::u16string_view key, PhoneModelInfo& info) const;

    /// The model in use when the settings name `key`: that one, whatever its case, or else the first.
    const Map::value_type& InUse(std::u16string_view key) const;

    const Map& All() const { return models_; }

private:
    Map::const_iterator Locate(std::u16string_view key) const;

    Map models_;
};

}  // namespace tarnbridge
