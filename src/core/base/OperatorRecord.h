#pragma once

#include <cstdint>
#include <string>

namespace tarnbridge {

/// How to reach one network operator's packet service.
struct OperatorRecord {
    int32_t number = 0;  ///< the n of its key `operatorN` in the file
    std::u16string name;
    std::u16string apn;
    std::u16string dialNumber;
    std::u16string username;
    std::u16string password;   ///< stands in the clear in the file
    std::u16string groupName;  ///< empty: belongs to all groups

    bool operator==(const OperatorRecord&) const = default;
};

}  // namespace tarnbridge
