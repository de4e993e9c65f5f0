#include "messaging/FormatChange.h"

#include <utility>

namespace tarnbridge {
namespace {

constexpr std::pair<std::optional<uint8_t> FormatChange::*, uint8_t EmsTextFormat::*> attributes[] = {
    {&FormatChange::size, &EmsTextFormat::size},
    {&FormatChange::alignment, &EmsTextFormat::alignment},
    {&FormatChange::bold, &EmsTextFormat::bold},
    {&FormatChange::italic, &EmsTextFormat::italic},
    {&FormatChange::underline, &EmsTextFormat::underline},
    {&FormatChange::strikethrough, &EmsTextFormat::strikethrough},
    {&FormatChange::background, &EmsTextFormat::background},
    {&FormatChange::foreground, &EmsTextFormat::foreground}};

}  // namespace

FormatChange FormatChange::AllOf(const EmsTextFormat& format) {
    FormatChange all;
    for (const auto& [changed, attribute] : attributes)
        all.*changed = format.*attribute;
    return all;
}

EmsTextFormat FormatChange::AppliedTo(EmsTextFormat format) const {
    for (const auto& [changed, attribute] : attributes)
        format.*attribute = (this->*changed).value_or(format.*attribute);
    return format;
}

void FormatChange::KeepCommon(const EmsTextFormat& format) {
    for (const auto& [changed, attribute] : attributes) {
        if (this->*changed != format.*attribute) (this->*changed).reset();
    }
}

}  // namespace tarnbridge
