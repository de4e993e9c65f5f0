#include "messaging/SmsRecord.h"

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

bool SmsRecord::LacksParts() const {
    const auto element = FindConcat(userDataHeader);
    return element && static_cast<size_t>(element->total) > rawParts.size();
}

bool SmsRecord::MergeFrom(const SmsRecord& other, const CodePage& page) {
    if (other.handsetIndices.empty()) return false;
    handsetIndices.push_back(other.handsetIndices.front());
    if (!other.rawParts.empty()) rawParts.push_back(other.rawParts.front());
    if (!text8.empty())
        text8 += other.TextAsBytes(page);
    else
        text16 += other.TextAsWide(page);
    return true;
}

}  // namespace tarnbridge
