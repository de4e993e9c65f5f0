#include "messaging/ShownMessage.h"

#include <algorithm>
#include <optional>

#include "messaging/GsmAlphabet.h"
#include "messaging/SmsRecord.h"
#include "messaging/ems/Ems.h"
#include "messaging/ems/EmsFormats.h"
#include "messaging/ems/EmsObjects.h"

namespace tarnbridge {
namespace {

constexpr char16_t mark = gsmEscape;
constexpr char16_t replacement = u'\uFFFD';

char16_t ShownCharacter(char16_t unit) {
    if (unit == u'\u2028' || unit == u'\u2029') return u'\n';
    return IsUnshowable(unit) ? replacement : unit;
}

std::u16string CharactersOf(const EmsMessage& message) {
    std::u16string text = EmsText(message);
    if (IsSeptetCoding(message.dcs)) std::transform(text.begin(), text.end(), text.begin(), CharacterOfPart);
    return text;
}

}  // namespace

bool IsUnshowable(char16_t unit) {
    const bool isControl = (unit < 0x20 && unit != u'\t') || (unit >= 0x7F && unit < 0xA0);
    const bool isNoCharacter = (unit >= 0xFDD0 && unit <= 0xFDEF) || unit >= 0xFFFE;
    return isControl || isNoCharacter || unit == objectCharacter;
}

class ShownMessage::Builder {
public:
    Builder(ShownMessage& shown, const EmsMessage& message)
        : shown_(shown), text_(CharactersOf(message)), formats_(text_.size(), nullptr) {
        for (const EmsObject* node = message.first; node; node = node->next) {
            if (node->kind != EmsKind::TextFormat) continue;
            const size_t begin = std::min<size_t>(node->position / 2, text_.size());
            const size_t end = std::min<size_t>(FormatEnd(*node) / 2, text_.size());
            for (size_t at = begin; at < end; ++at)
                formats_[at] = &node->format;
        }
        shown_.text_.reserve(text_.size());
        shown_.places_.reserve(text_.size() + 1);
    }

    void Build(const EmsObject* node) {
        while (at_ < text_.size() || node) {
            if (node && (at_ == text_.size() || node->position / 2u <= at_)) {
                if (node->kind != EmsKind::TextFormat) ShowObject(*node);
                node = node->next;
            } else if (text_[at_] == mark) {
                Hide();
            } else {
                const bool isPair =
                    text_[at_] == u'\r' && at_ + 1 < text_.size() && text_[at_ + 1] == u'\n' &&
                    !(node && node->position / 2u == at_ + 1 && node->kind != EmsKind::TextFormat);
                const bool isLineEnd = text_[at_] == u'\r' || text_[at_] == u'\n';
                Show(isLineEnd ? u'\n' : ShownCharacter(text_[at_]));
                Pass();
                if (isPair) Pass();
            }
        }
        shown_.places_.push_back(due_.value_or(Now()));
        shown_.unitCount_ = unit_;
    }

private:
    Place Now() const { return {unit_, static_cast<int>(at_)}; }

    void Pass() {
        ++at_;
        ++unit_;
    }

    void Hide() {
        if (!due_) due_ = Now();
        Pass();
    }

    void Show(char16_t unit) {
        const EmsTextFormat* const format = at_ < text_.size() ? formats_[at_] : nullptr;
        const int position = shown_.Length();
        shown_.places_.push_back(due_.value_or(Now()));
        due_.reset();
        shown_.text_.push_back(unit);
        static constexpr EmsTextFormat plain;
        const EmsTextFormat& look = format ? *format : plain;
        if (shown_.runs_.empty() || !SameFormat(shown_.runs_.back().format, look)) {
            shown_.runs_.push_back({position, position, look});
            shown_.runs_.back().format.length = 0;
        }
        shown_.runs_.back().end = position + 1;
    }

    void ShowObject(const EmsObject& node) {
        shown_.objects_.push_back({shown_.Length(), MessageObject::Of(node)});
        Show(objectCharacter);
        ++unit_;
    }

    ShownMessage& shown_;
    const std::u16string text_;
    std::vector<const EmsTextFormat*> formats_;  ///< of each character, null for the default one
    size_t at_ = 0;
    int unit_ = 0;
    std::optional<Place> due_;  ///< of the hidden units that what comes next begins with
};

ShownMessage::ShownMessage(const EmsMessage& message) {
    Builder(*this, message).Build(message.first);
}

EmsTextFormat ShownMessage::FormatAt(int position) const {
    const auto run = std::upper_bound(runs_.begin(), runs_.end(), position,
                                      [](int value, const ShownRun& other) { return value < other.end; });
    return run == runs_.end() ? EmsTextFormat{} : run->format;
}

const MessageObject* ShownMessage::ObjectAt(int position) const {
    const auto found =
        std::lower_bound(objects_.begin(), objects_.end(), position,
                         [](const ShownObject& object, int value) { return object.position < value; });
    return found != objects_.end() && found->position == position ? &found->object : nullptr;
}

int ShownMessage::LineStart(int position) const {
    while (position > 0 && text_[static_cast<size_t>(position) - 1] != u'\n')
        --position;
    return position;
}

int ShownMessage::LineEnd(int position) const {
    const size_t end = text_.find(u'\n', static_cast<size_t>(position));
    return end == std::u16string::npos ? Length() : static_cast<int>(end) + 1;
}

int ShownMessage::PositionOf(int unit) const {
    const auto found = std::lower_bound(places_.begin(), places_.end(), unit,
                                        [](const Place& place, int value) { return place.unit < value; });
    return found == places_.end() ? Length() : static_cast<int>(found - places_.begin());
}

}  // namespace tarnbridge
