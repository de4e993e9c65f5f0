#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "messaging/MessageObject.h"
#include "messaging/ems/EmsMessage.h"

namespace tarnbridge {

/// What stands in a shown text for an object, and never for anything else.
inline constexpr char16_t objectCharacter = u'\uFFFC';

/// Whether a unit can't be shown for itself: a control character other than a tab, one that text controls
/// give a meaning of their own, or objectCharacter. Line ends count too.
bool IsUnshowable(char16_t unit);

/// A stretch of one look, in positions of the shown text. `format.length` means nothing.
struct ShownRun {
    int begin = 0;
    int end = 0;
    EmsTextFormat format;
};

struct ShownObject {
    int position = 0;
    MessageObject object;
};

/// What a reader sees of a message, which may be one from anywhere: a text in which the marks 0x1B are left
/// out, the bytes of the default alphabet are the characters that they stand for, a line end of either kind
/// or of both is one U+000A, an object is one objectCharacter, and a character that has no place in a text is
/// U+FFFD. Positions are those of the text's units, 0 to Length(). It is a copy, and stays what it is when
/// the message changes.
class ShownMessage {
public:
    ShownMessage() : ShownMessage(EmsMessage()) {}
    explicit ShownMessage(const EmsMessage& message);

    const std::u16string& Text() const { return text_; }
    std::u16string_view TextOf(int from, int to) const {
        return std::u16string_view(text_).substr(static_cast<size_t>(from), static_cast<size_t>(to - from));
    }
    int Length() const { return static_cast<int>(text_.size()); }

    /// They cover the whole text, in order; neighbours differ. Where formats of the message overlap, the last
    /// one holds. An object has the format of the character behind it.
    const std::vector<ShownRun>& Runs() const { return runs_; }

    /// In order.
    const std::vector<ShownObject>& Objects() const { return objects_; }

    /// The format of the unit behind the position, the default one at the end.
    EmsTextFormat FormatAt(int position) const;

    /// The object behind the position, or null.
    const MessageObject* ObjectAt(int position) const;

    /// The first position of the line that the position is in, and the one behind its line end or at the end
    /// of the text.
    int LineStart(int position) const;
    int LineEnd(int position) const;

    /// Where a position is in the message: in its units, of which a hidden mark is one too, and in its
    /// characters; the position is one of 0 to Length(). Marks belong to what is shown behind them, and those
    /// at the very end to nothing.
    struct Place {
        int unit = 0;
        int character = 0;
    };

    Place PlaceOf(int position) const { return places_[static_cast<size_t>(position)]; }

    /// All units of the message, hidden ones included.
    int UnitCount() const { return unitCount_; }

    /// The first position whose place isn't in front of the unit.
    int PositionOf(int unit) const;

private:
    class Builder;

    std::u16string text_;
    std::vector<ShownRun> runs_;
    std::vector<ShownObject> objects_;
    std::vector<Place> places_;  ///< of each position, the end included
    int unitCount_ = 0;
};

}  // namespace tarnbridge
