#pragma once

#include <QColor>
#include <QTextCharFormat>

#include "core/base/StringTable.h"
#include "messaging/ems/EmsObject.h"

class QPalette;

namespace tarnbridge {

inline constexpr int messageColours = 16;

/// A colour of messages as phones show it.
QColor MessageColour(int index);
Word NameOfMessageColour(int index);

/// A text of this look, without its alignment. The default colours are those of the palette; one that stands
/// beside a default one is shifted in lightness until it can be read on it.
QTextCharFormat CharacterFormat(const EmsTextFormat& format, const QPalette& palette);

/// The alignment of a line that begins with a character of this look.
Qt::Alignment LineAlignment(const EmsTextFormat& format);

}  // namespace tarnbridge
