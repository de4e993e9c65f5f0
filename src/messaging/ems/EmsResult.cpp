#include "messaging/ems/EmsResult.h"

namespace tarnbridge {

std::u16string_view EmsResultWord(EmsResult result, bool oneSegmentAllowed) {
    switch (result) {
        case EmsResult::Done:
            return {};
        case EmsResult::InvalidObject:
            return u"Invalid Object!";
        case EmsResult::NoRoom:
            return oneSegmentAllowed ? u"Not support long SMS, last input maybe lost."
                                     : u"The message is too long (more than 10 SMS)!Last input may be lost!";
        case EmsResult::InvalidDcs:
            return u"Invalid DCS!";
        case EmsResult::ColourNotSupported:
            return u"Not Support Color Picture!";
        case EmsResult::NullPointer:
            return u"Null Pointer!";
        case EmsResult::NoMemory:
            return u"No memory or number of EMS object exceeds!";
        default:
            return u"Unspecified Error!";
    }
}

}  // namespace tarnbridge
