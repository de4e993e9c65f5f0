#pragma once

#include <string>

namespace tarnbridge {

/// A dial-up entry that this program made.
struct ConnectionEntry {
    bool operator==(const ConnectionEntry&) const = default;

    std::u16string name;          ///< of the dial-up entry: "GPRS_" and the operator's name
    std::u16string operatorName;  ///< as the list of operators shows it
    std::u16string apn;           ///< the access point name that was in force when the entry was made
};

}  // namespace tarnbridge
