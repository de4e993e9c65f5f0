#include "messaging/MessageEditor.h"

#include <algorithm>
#include <utility>

#include "core/base/StringTable.h"
#include "messaging/ems/Ems.h"
#include "messaging/ems/EmsFormats.h"
#include "messaging/ems/EmsObjects.h"

namespace tarnbridge {
namespace {

constexpr uint8_t sevenBit = 0;
constexpr uint8_t eightBit = 4;
constexpr uint8_t ucs2 = 8;

bool IsUcs2(const EmsMessage& message) {
    return message.dcs == ucs2;
}

bool IsTextSevenBit(const EmsMessage& message) {
    for (int at = 0; at < message.textLength; at += 2) {
        if (message.text[at] != 0 || message.text[at + 1] > 127) return false;
    }
    return true;
}

bool IsTextSevenBit(const MessageFragment& content) {
    return IsSevenBit(PlainText(content));
}

int CursorUnit(const EmsMessage& message) {
    int unit = message.cursor / 2;
    for (const EmsObject* node = message.current; node; node = node->prev) {
        if (node->kind != EmsKind::TextFormat) ++unit;
    }
    return unit;
}

bool IsOverfull(const EmsMessage& message) {
    return message.segmentsUsed > message.state->segmentsAllowed;
}

bool HasOverlappingFormats(const EmsMessage& message) {
    int end = 0;
    for (const EmsObject* node = message.first; node; node = node->next) {
        if (node->kind != EmsKind::TextFormat) continue;
        if (node->position < end) return true;
        end = FormatEnd(*node);
    }
    return false;
}

bool IsPairCut(std::u16string_view text, int position) {
    const auto at = static_cast<size_t>(position);
    return at > 0 && at < text.size() && (text[at - 1] & 0xFC00) == 0xD800 && (text[at] & 0xFC00) == 0xDC00;
}

/// Whether the text is one character as the user sees it.
bool IsOneCharacter(std::u16string_view text) {
    return text.size() == 1 || (text.size() == 2 && IsPairCut(text, 1));
}

EmsResult Add(EmsMessage& message, const MessageObject& object) {
    const EmsObjectData data = object.Data();
    return AddObject(&message, object.kind, &data, object.number);
}

EmsResult Add(EmsMessage& message, const FormattedText& piece) {
    const std::u16string text = MessageText(piece.text, IsUcs2(message));
    return text.empty() ? EmsResult::Done : AddText(&message, text, &piece.format);
}

Word WordOf(EmsResult result, bool longSms) {
    switch (result) {
        case EmsResult::InvalidObject:
            return Word::EmsInvalidObject;
        case EmsResult::NoRoom:
            return longSms ? Word::EmsMessageTooLong : Word::EmsLongSmsOff;
        case EmsResult::InvalidDcs:
            return Word::EmsInvalidDcs;
        case EmsResult::ColourNotSupported:
            return Word::EmsNoColourPicture;
        case EmsResult::NullPointer:
            return Word::EmsNullPointer;
        case EmsResult::NoMemory:
            return Word::EmsNoMemory;
        default:
            return Word::EmsUnspecified;
    }
}

}  // namespace

EditorOptions EditorOptions::From(const Settings& settings) {
    return {.longSms = settings.GetText(SettingIndex::LongSms) == u"TRUE",
            .automatic = settings.GetText(SettingIndex::SevenBitSms) != u"TRUE"};
}

std::optional<MessageEditor> MessageEditor::Make(const EditorOptions& options, const EmsMessage* content) {
    MessageEditor editor(options);
    if (!editor.Open(content)) return std::nullopt;
    return editor;
}

bool MessageEditor::Open(const EmsMessage* content) {
    live_ = EmsHandle::Make(sevenBit);
    spare_ = EmsHandle::Make(sevenBit);
    if (!live_ || !spare_) return false;
    if (content && EmsCopy(live_.Get(), content) != EmsResult::Done) return false;
    // What is written here is text, never data.
    if (Message().dcs == eightBit) EmsSetDcs(live_.Get(), sevenBit);
    EmsAllowSegments(live_.Get(), emsSegments);
    TightenSegments();
    ChooseCoding(true);
    TightenSegments();
    Flatten();
    shown_ = ShownMessage(Message());
    return true;
}

void MessageEditor::Flatten() {
    if (!HasOverlappingFormats(Message())) return;
    shown_ = ShownMessage(Message());
    std::vector<Restyled> pieces;
    for (const ShownRun& run : shown_.Runs()) {
        int begin = run.begin;
        for (int at = run.begin; at <= run.end; ++at) {
            if (at < run.end && !shown_.ObjectAt(at)) continue;
            if (at > begin) pieces.push_back({{begin, at}, run.format});
            begin = at + 1;
        }
    }
    EmsCopy(spare_.Get(), live_.Get());
    if (Restyle(pieces) != EmsResult::Done) std::swap(live_, spare_);
}

std::u16string MessageEditor::CounterText() const {
    const EmsMessage& message = Message();
    const int used = message.segmentSize * message.segmentsUsed - message.lastSegmentLeft;
    return Words(message.first ? Word::EmsCounter : Word::SmsCounter,
                 {used, message.lastSegmentLeft, Words(Word::CounterTotal), message.segmentsUsed});
}

std::u16string MessageEditor::WordsFor(EmsResult result) const {
    return result == EmsResult::Done ? std::u16string() : Words(WordOf(result, options_.longSms));
}

MessageEditor::Range MessageEditor::Snapped(int from, int to) const {
    const int length = shown_.Length();
    const int first = std::clamp(from, 0, length);
    const int last = std::clamp(to, first, length);
    const int begin = IsPairCut(shown_.Text(), first) ? first - 1 : first;
    if (first == last) return {begin, begin};
    return {begin, IsPairCut(shown_.Text(), last) ? last + 1 : last};
}

/// Without the line that a range ends in front of.
MessageEditor::Range MessageEditor::LinesOf(Range range) const {
    const bool endsWithLine = !range.IsEmpty() && shown_.LineStart(range.to) == range.to;
    return {shown_.LineStart(range.from), endsWithLine ? range.to : shown_.LineEnd(range.to)};
}

void MessageEditor::PlaceCursor(int unit) {
    EmsResetCursor(live_.Get());
    MoveCursorForward(live_.Get(), unit);
}

/// Makes the coding right for the text that is there and the one to come. False when it must be UCS2 for what
/// comes, and can't.
bool MessageEditor::ChooseCoding(bool isTextToComeSevenBit) {
    if (!options_.automatic) return true;
    if (isTextToComeSevenBit && IsTextSevenBit(Message())) {
        if (IsUcs2(Message())) EmsSetDcs(live_.Get(), sevenBit);
        return true;
    }
    return EmsSetDcs(live_.Get(), ucs2) == EmsResult::Done || isTextToComeSevenBit;
}

/// With long messages off, a message may have as many segments as it came with and not more.
void MessageEditor::TightenSegments() {
    if (options_.longSms || IsOverfull(Message())) return;
    if (Message().segmentsUsed < Message().state->segmentsAllowed)
        EmsAllowSegments(live_.Get(), Message().segmentsUsed);
}

EmsResult MessageEditor::Replace(int from, int to, std::u16string_view text) {
    const Range range = Snapped(from, to);
    const bool followsRange = !range.IsEmpty() && !shown_.ObjectAt(range.from);
    const EmsTextFormat format = followsRange ? shown_.FormatAt(range.from) : TypingFormat(range.from);
    return Replace(from, to, MessageFragment{FormattedText{std::u16string(text), format}});
}

EmsResult MessageEditor::Replace(int from, int to, const MessageFragment& content) {
    const Range range = Snapped(from, to);
    const bool latinOnly = !options_.automatic && !IsUcs2(Message());
    MessageFragment clean;
    for (auto piece : content) {
        auto* const formatted = std::get_if<FormattedText>(&piece);
        if (formatted) formatted->text = CleanText(formatted->text, latinOnly);
        if (!formatted || !formatted->text.empty()) clean.push_back(std::move(piece));
    }
    if (range.IsEmpty() && clean.empty()) return EmsResult::Done;
    const auto* const typed = clean.size() == 1 ? std::get_if<FormattedText>(&clean.front()) : nullptr;
    const bool isTyping = range.IsEmpty() && typed && IsOneCharacter(typed->text);
    const bool isDeleting =
        clean.empty() && IsOneCharacter(shown_.TextOf(range.from, range.to)) && !shown_.ObjectAt(range.from);
    const auto goesOn = [&] {
        if (isTyping) return history_.GoesOnTyping(range.from, typed->text);
        if (isDeleting) return history_.GoesOnDeleting(range.from, range.to);
        history_.EndStep();
        return false;
    };
    return Try([&] { return Put(range, clean); }, goesOn);
}

EmsResult MessageEditor::Put(Range range, const MessageFragment& content) {
    EmsMessage& message = *live_.Get();
    const int begin = shown_.PlaceOf(range.from).unit;
    // Marks at the very end belong to nothing that is shown, so they go with the last that is.
    const bool isToEnd = !range.IsEmpty() && range.to == shown_.Length();
    const int end = isToEnd ? shown_.UnitCount() : shown_.PlaceOf(range.to).unit;
    PlaceCursor(end);
    Backspace(&message, end - begin);
    if (!ChooseCoding(IsTextSevenBit(content))) return EmsResult::NoRoom;
    for (const auto& piece : content) {
        const EmsResult result = std::visit([&](const auto& part) { return Add(message, part); }, piece);
        if (result != EmsResult::Done) return result;
    }
    return EmsResult::Done;
}

EmsResult MessageEditor::ApplyFormat(int from, int to, const FormatChange& change) {
    if (!IsValidFormat(change.AppliedTo({}))) return EmsResult::InvalidObject;
    const Range range = Snapped(from, to);
    const Range reach = change.alignment ? LinesOf(range) : range;
    const EmsTextFormat next = change.AppliedTo(TypingFormat(range.from));
    const FormatChange ofLines{.alignment = change.alignment};
    std::vector<Restyled> pieces;
    for (int at = reach.from; at < reach.to; ++at) {
        if (shown_.ObjectAt(at)) continue;
        const EmsTextFormat before = shown_.FormatAt(at);
        const bool isInRange = at >= range.from && at < range.to;
        const EmsTextFormat after = (isInRange ? change : ofLines).AppliedTo(before);
        if (SameFormat(before, after)) continue;
        if (pieces.empty() || pieces.back().range.to != at || !SameFormat(pieces.back().format, after))
            pieces.push_back({{at, at}, after});
        pieces.back().range.to = at + 1;
    }
    if (!pieces.empty()) {
        const auto endsStep = [this] {
            history_.EndStep();
            return false;
        };
        const EmsResult result = Try([&] { return Restyle(pieces); }, endsStep, range.to);
        if (result != EmsResult::Done) return result;
    }
    if (range.IsEmpty()) {
        history_.EndStep();
        caret_ = range.from;
        nextFormat_ = next;
    }
    return EmsResult::Done;
}

/// All characters are taken out before the first is put back, so that what lies between is never larger than
/// what comes out of it.
EmsResult MessageEditor::Restyle(const std::vector<Restyled>& pieces) {
    EmsMessage& message = *live_.Get();
    const std::u16string text = EmsText(message);
    const auto unitsOf = [this](Range range) {
        return shown_.PlaceOf(range.to).unit - shown_.PlaceOf(range.from).unit;
    };
    for (auto piece = pieces.rbegin(); piece != pieces.rend(); ++piece) {
        PlaceCursor(shown_.PlaceOf(piece->range.to).unit);
        Backspace(&message, unitsOf(piece->range));
    }
    for (const Restyled& piece : pieces) {
        const ShownMessage::Place place = shown_.PlaceOf(piece.range.from);
        PlaceCursor(place.unit);
        const auto characters = std::u16string_view(text).substr(static_cast<size_t>(place.character),
                                                                 static_cast<size_t>(unitsOf(piece.range)));
        const EmsResult result = AddText(&message, characters, &piece.format);
        if (result != EmsResult::Done) return result;
    }
    return EmsResult::Done;
}

/// Makes a change, and takes it back when it fails. The caret comes to `caret` or else where the cursor is
/// then; `goesOn` tells whether the change belongs to the step before.
template <typename Change, typename GoesOn>
EmsResult MessageEditor::Try(Change change, GoesOn goesOn, std::optional<int> caret) {
    const bool wasOverfull = IsOverfull(Message());
    if (const EmsResult result = EmsCopy(spare_.Get(), live_.Get()); result != EmsResult::Done) return result;
    EmsResult result = change();
    if (result == EmsResult::Done && IsOverfull(Message()) && !wasOverfull) result = EmsResult::NoRoom;
    if (result != EmsResult::Done) {
        std::swap(live_, spare_);
        return result;
    }
    TightenSegments();
    const int cursor = CursorUnit(Message());
    shown_ = ShownMessage(Message());
    nextFormat_.reset();
    if (goesOn()) {
        history_.ForgetUndone();
    } else {
        Keep(std::exchange(spare_, EmsHandle()));
    }
    caret_ = caret.value_or(shown_.PositionOf(cursor));
    revision_ = ++lastRevision_;
    return EmsResult::Done;
}

/// Where all slots are taken, the oldest steps give up theirs.
void MessageEditor::Keep(EmsHandle before) {
    history_.Add({std::move(before), caret_, revision_});
    spare_ = EmsHandle::Make(sevenBit);
    if (!spare_) spare_ = history_.GiveUpOldest();
}

EmsTextFormat MessageEditor::TypingFormat(int position) const {
    const int at = Snapped(position, position).from;
    if (nextFormat_ && at == caret_) return *nextFormat_;
    const int lineStart = shown_.LineStart(at);
    const int lineEnd = shown_.LineEnd(at);
    const auto firstCharacter = [this](int from, int to) {
        while (from < to && shown_.ObjectAt(from))
            ++from;
        return from;
    };
    int model = at - 1;
    while (model >= lineStart && shown_.ObjectAt(model))
        --model;
    if (model < lineStart) model = firstCharacter(at, lineEnd);
    // A line of no characters goes on as the one before ended.
    if (model == lineEnd) model = lineStart - 1;
    if (model < 0) return {};
    EmsTextFormat format = shown_.FormatAt(model);
    const int first = firstCharacter(lineStart, lineEnd);
    if (first < lineEnd) format.alignment = shown_.FormatAt(first).alignment;
    return format;
}

FormatChange MessageEditor::CommonFormat(int from, int to) const {
    const Range range = Snapped(from, to);
    std::optional<FormatChange> common;
    for (int at = range.from; at < range.to; ++at) {
        if (shown_.ObjectAt(at)) continue;
        const EmsTextFormat format = shown_.FormatAt(at);
        if (common) {
            common->KeepCommon(format);
        } else {
            common = FormatChange::AllOf(format);
        }
    }
    return common ? *common : FormatChange::AllOf(TypingFormat(range.from));
}

MessageFragment MessageEditor::Fragment(int from, int to) const {
    const Range range = Snapped(from, to);
    MessageFragment fragment;
    for (int at = range.from; at < range.to;) {
        if (const MessageObject* const object = shown_.ObjectAt(at)) {
            fragment.emplace_back(*object);
            ++at;
            continue;
        }
        FormattedText piece{.text = {}, .format = shown_.FormatAt(at)};
        while (at < range.to && !shown_.ObjectAt(at) && SameFormat(shown_.FormatAt(at), piece.format))
            piece.text.push_back(shown_.Text()[static_cast<size_t>(at++)]);
        fragment.emplace_back(std::move(piece));
    }
    return fragment;
}

void MessageEditor::MoveCaret(int position) {
    const int caret = Snapped(position, position).from;
    if (caret == caret_) return;
    caret_ = caret;
    nextFormat_.reset();
    history_.EndStep();
}

EditState MessageEditor::Present() {
    return {std::move(live_), caret_, revision_};
}

void MessageEditor::Show(EditState state) {
    live_ = std::move(state.message);
    caret_ = state.caret;
    revision_ = state.revision;
    shown_ = ShownMessage(Message());
    nextFormat_.reset();
}

void MessageEditor::Undo() {
    if (CanUndo()) Show(history_.Undo(Present()));
}

void MessageEditor::Redo() {
    if (CanRedo()) Show(history_.Redo(Present()));
}

}  // namespace tarnbridge
