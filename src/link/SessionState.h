#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace tarnbridge {

/// What the handset was found able to do. Filled by the handshake; valid while a session stands.
struct HandsetFeatures {
    int32_t maxChunk = 64;          ///< bytes of file data a write, 64 to 4,096
    bool hasEfsCheck = false;       ///< it can count the entries of a folder
    bool hasStoreQuery = false;     ///< it told the whole range of message states that it can store
    bool canStoreReceived = false;  ///< it stores messages in the form in which they were received
    bool hasPackedUcs2 = false;     ///< it knows the character set "UCS2_0x81"
    bool hasVCard = false;          ///< it keeps details of its phonebook entries as vCards
    bool hasMeStore = false;        ///< it has a message memory of its own, "ME"
    bool hasSimMemory = false;      ///< its SIM has one, "SM"
};

/// One entry of a folder listing: name, size in bytes, attributes. True means that the line was used up.
using ListingCallback = std::function<bool(const std::u16string& name, int32_t size, int32_t attributes)>;

/// What operations remember of the handset for one session. Guarded by the link's lock, the listing callback
/// apart, which HandsetLink sets through a call.
struct SessionState {
    /// What was last selected on the handset; empty if unknown.
    std::u16string currentMessageStore;
    std::u16string currentPhonebookStore;
    std::u16string currentCharset;

    /// Cached counts of the two message memories, used in the high half and total in the low; -1 unknown.
    int32_t storeUsageSM = -1;
    int32_t storeUsageME = -1;
};

}  // namespace tarnbridge
