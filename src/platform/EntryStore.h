#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Result.h"

namespace tarnbridge {

/// The per-user store of settings: texts under a section and an entry, both ASCII. It is the registry on
/// Windows and an ini file elsewhere. Every change is written at once, and reading sees the changes of other
/// processes. All operations may be called from any thread.
class EntryStore {
public:
    virtual ~EntryStore() = default;

    /// Nothing if there is no such entry, or its text is `Empty`, which stands for a missing value.
    virtual std::optional<std::u16string> GetText(const std::string& section,
                                                  const std::string& entry) const = 0;

    virtual Outcome SetText(const std::string& section, const std::string& entry,
                            std::u16string_view text) = 0;

    /// Success also when there was no such entry.
    virtual Outcome Remove(const std::string& section, const std::string& entry) = 0;

    /// The names of a section's entries, sorted.
    virtual std::vector<std::string> Entries(const std::string& section) const = 0;

    /// A decimal number; nothing if the entry is missing or is no number of 32 bits.
    std::optional<int32_t> GetNumber(const std::string& section, const std::string& entry) const;
    Outcome SetNumber(const std::string& section, const std::string& entry, int32_t value);

    /// Bytes, kept as hexadecimal digits; nothing if the entry is missing or holds something else.
    std::optional<std::string> GetBytes(const std::string& section, const std::string& entry) const;
    Outcome SetBytes(const std::string& section, const std::string& entry, std::string_view bytes);
};

/// The store of the user who runs the program.
std::unique_ptr<EntryStore> OpenUserStore();

}  // namespace tarnbridge
