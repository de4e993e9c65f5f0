#pragma once

#include <string>

#include "messaging/MessageEditor.h"
#include "messaging/ems/EmsSupport.h"

namespace tarnbridge {

inline constexpr EmsTextFormat boldFormat{.bold = 1};
inline constexpr FormatChange bold{.bold = 1};
inline constexpr FormatChange italic{.italic = 1};
inline constexpr FormatChange centred{.alignment = 1};

/// What is shown as one line: the text with ¶ for a line end and o for an object, each run in front of which
/// a look begins that isn't the default one with its letters in brackets: b i u s, L or S for the size, 0 to
/// 2 for the alignment, f and g with the foreground and background.
std::string Seen(const ShownMessage& shown);

/// An editor that must be there.
MessageEditor MakeEditor(const EditorOptions& options = {}, const EmsMessage* content = nullptr);

/// Types at the end.
EmsResult Type(MessageEditor& editor, std::u16string_view text);

/// The counter's figures: "used/left/segments".
std::string Figures(const MessageEditor& editor);

/// What must hold of any editor: runs and objects that fit the text, a caret in it, a consistent message.
void CheckEditor(MessageEditor& editor);

}  // namespace tarnbridge
