#include "messaging/SmsRecord.h"

#include <algorithm>

#include "messaging/ConcatHeader.h"

namespace tarnbridge {
namespace {

/// The status as the keys of parts know it.
int ReducedStatus(int status) {
    switch (status) {
        case smsUnread:
        case smsRead:
        case smsSent:
            return status;
        case smsOutbox:
            return 5;
        default:
            return 2;
    }
}

}  // namespace

int StatusOfStat(int stat) {
    switch (stat) {
        case 1:
            return smsRead;
        case 2:
            return smsDraft;
        case 3:
            return smsSent;
        case 4:
            return 5;
        case 5:
            return smsOutbox;
        default:
            return smsUnread;
    }
}

std::string SmsRecord::TextAsBytes(const CodePage& page) const {
    return dcs == 8 ? page.ToBytes(text16) : text8;
}

std::u16string SmsRecord::TextAsWide(const CodePage& page) const {
    return dcs == 8 ? text16 : page.ToText(text8);
}

std::optional<uint32_t> SmsRecord::ConcatKey() const {
    const auto element = FindConcat(userDataHeader);
    if (!element) return std::nullopt;
    const unsigned kind = ReducedStatus(status) == smsRead ? 1 : 2;
    const unsigned reference = static_cast<unsigned>(element->reference);
    const unsigned first = element->wide ? reference >> 8 : reference;
    const unsigned second = element->wide ? reference & 0xFF : kind;
    return first | second << 8 | static_cast<unsigned>(element->total) << 16 |
           static_cast<unsigned>(element->sequence) << 24;
}

void SmsRecord::TakeLocation(const SmsRecord& other, size_t place) {
    handsetPdus.resize(handsetIndices.size());
    handsetIndices.push_back(other.handsetIndices[place]);
    handsetPdus.push_back(place < other.handsetPdus.size() ? other.handsetPdus[place] : std::string());
}

void SmsRecord::AddDouble(const SmsRecord& other) {
    for (size_t i = 0; i < other.handsetIndices.size(); ++i)
        TakeLocation(other, i);
}

size_t SmsRecord::PartCount() const {
    return std::max<size_t>(1, rawParts.empty() ? handsetIndices.size() : rawParts.size());
}

bool SmsRecord::LacksParts() const {
    const auto element = FindConcat(userDataHeader);
    return element && static_cast<size_t>(element->total) > PartCount();
}

bool SmsRecord::MergeFrom(const SmsRecord& other, const CodePage& page) {
    if (other.handsetIndices.empty()) return false;
    TakeLocation(other, 0);
    if (!other.rawParts.empty()) rawParts.push_back(other.rawParts.front());
    if (!text8.empty())
        text8 += other.TextAsBytes(page);
    else
        text16 += other.TextAsWide(page);
    return true;
}

}  // namespace tarnbridge
