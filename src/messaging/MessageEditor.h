#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/Settings.h"
#include "messaging/Arrival.h"
#include "messaging/EditHistory.h"
#include "messaging/FormatChange.h"
#include "messaging/MessageFragment.h"
#include "messaging/ShownMessage.h"
#include "messaging/ems/EmsResult.h"

namespace tarnbridge {

/// What the user's settings say of new and changed messages.
struct EditorOptions {
    static EditorOptions From(const Settings& settings);

    bool longSms = true;    ///< false: one segment
    bool automatic = true;  ///< false: a message is never made UCS2 for its characters
};

/// One message being written, with everything that a text control needs, on one thread. Positions and ranges
/// are those of Shown(); what is out of range is brought into it, and a range that cuts a surrogate pair
/// takes in the whole of it.
///
/// A change is made whole or not at all: unless its result is Done, the message is as it was. After each
/// change the coding follows the text: a character above 127 makes the message UCS2, which undoes the change
/// if it doesn't fit, and without any it is 7-bit again. A message that was received in 7-bit coding with
/// such characters, and is too long for UCS2, stays as it is until it fits.
class MessageEditor {
public:
    /// With a copy of `content`, or empty. Nothing when there is no free message slot. Overlapping formats
    /// become such as don't overlap. Content longer than the options allow stays, but can't grow.
    static std::optional<MessageEditor> Make(const EditorOptions& options,
                                             const EmsMessage* content = nullptr);

    /// As it stands; valid until the next change.
    const EmsMessage& Message() const { return *live_.Get(); }
    const ShownMessage& Shown() const { return shown_; }

    /// What will arrive of it as it stands.
    ArrivingText Arriving() const { return ArrivingTextOf(Message(), shown_); }

    /// What goes under the text: characters used and left, and the number of segments.
    std::u16string CounterText() const;

    /// What to tell the user of a result; empty for Done.
    std::u16string WordsFor(EmsResult result) const;

    /// Puts text in the place of a range, in the format of the range or the one of what is typed there. Text
    /// goes through CleanText. The results are those of AddText and AddObject.
    EmsResult Replace(int from, int to, std::u16string_view text);
    EmsResult Replace(int from, int to, const MessageFragment& content);
    EmsResult Insert(int position, const MessageObject& object) {
        return Replace(position, position, {object});
    }
    EmsResult Delete(int from, int to) { return Replace(from, to, MessageFragment()); }

    /// Changes the look of a range, or of what is typed next at an empty one. An alignment goes to all lines
    /// of the range or position. InvalidObject for a value out of range.
    EmsResult ApplyFormat(int from, int to, const FormatChange& change);

    /// What a text typed at the position will look like.
    EmsTextFormat TypingFormat(int position) const;

    /// What the characters of a range have in common; for an empty range, all of TypingFormat.
    FormatChange CommonFormat(int from, int to) const;

    /// A copy of a range. To cut is to copy and Delete, to paste to Replace.
    MessageFragment Fragment(int from, int to) const;

    /// Where the caret belongs after the last change; MoveCaret tells where the user has put it, which ends a
    /// step of typing and forgets a format for what is typed next.
    int Caret() const { return caret_; }
    void MoveCaret(int position);

    bool CanUndo() const { return history_.CanUndo(); }
    bool CanRedo() const { return history_.CanRedo(); }

    /// One step of at most EditHistory::depth back, or forth again; nothing happens where there is none.
    void Undo();
    void Redo();

    /// Whether the content differs from that at the start or at the last MarkSaved.
    bool Modified() const { return revision_ != savedRevision_; }
    void MarkSaved() { savedRevision_ = revision_; }

private:
    struct Range {
        int from;
        int to;

        bool IsEmpty() const { return from == to; }
    };

    /// Characters of a range without objects that get a new look.
    struct Restyled {
        Range range;
        EmsTextFormat format;
    };

    explicit MessageEditor(const EditorOptions& options) : options_(options) {}

    bool Open(const EmsMessage* content);
    void Flatten();
    Range Snapped(int from, int to) const;
    Range LinesOf(Range range) const;
    void PlaceCursor(int unit);
    bool ChooseCoding(bool isTextToComeSevenBit);
    void TightenSegments();
    EmsResult Put(Range range, const MessageFragment& content);
    EmsResult Restyle(const std::vector<Restyled>& pieces);
    template <typename Change, typename GoesOn>
    EmsResult Try(Change change, GoesOn goesOn, std::optional<int> caret = {});
    void Keep(EmsHandle before);
    void Show(EditState state);
    EditState Present();

    EditorOptions options_;
    EmsHandle live_;
    EmsHandle spare_;  ///< takes the state before a change
    ShownMessage shown_;
    EditHistory history_;
    int caret_ = 0;
    std::optional<EmsTextFormat> nextFormat_;  ///< of what is typed at the caret, if the user chose it
    uint64_t revision_ = 0;
    uint64_t lastRevision_ = 0;
    uint64_t savedRevision_ = 0;
};

}  // namespace tarnbridge
