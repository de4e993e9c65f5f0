#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "platform/Clock.h"
#include "platform/Result.h"

namespace tarnbridge::simulator {

/// Bytes as text that can be read: control characters and bytes beyond ASCII as `<CR>`, `<LF>`, `<1A>`.
std::string MakeVisible(std::string_view bytes);

/// The dialogue as a file that grows: one line for each thing said, with the time and who said it: `>` the
/// PC, `<` the handset, `~` the handset with what comes later by a fault, `!` what happened to the plug. One
/// thread at a time.
class DialogueLog {
public:
    /// Without a file everything is ignored.
    DialogueLog() = default;

    /// Begins the file anew.
    Outcome Open(const std::filesystem::path& file);

    void Note(char who, std::string_view bytes, const LocalTime& time);

private:
    std::ofstream file_;
};

}  // namespace tarnbridge::simulator
