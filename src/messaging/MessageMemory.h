#pragma once

#include <array>
#include <string>
#include <string_view>

namespace tarnbridge {

class HandsetLink;

// The handset's message memories (3GPP TS 27.005, clauses 3.2.2 and 3.2.3): "SM" is the SIM, "ME" the
// handset, "MT" the union of both, where the locations of "SM" are numbered first. A location keeps its
// number whichever memory is selected. Every function is one exchange at most, unless it says more, and may
// be called from any thread.

/// Why an exchange failed. Of one that didn't fail it says nothing.
struct Refusal {
    bool answered = false;  ///< whether the handset said anything
    int error = -1;         ///< the number that it gave, or -1
};

/// How full a memory is.
struct MemoryUsage {
    int total = 0;
    int used = 0;
};

/// The memories for reading, for writing, and for received messages.
using MemorySelection = std::array<std::string, 3>;

/// Selects a memory for all three uses. Sends nothing if it is the one last selected, unless `force`.
bool SelectMessageMemory(HandsetLink& link, std::u16string_view name, bool force = false,
                         Refusal* refusal = nullptr);

/// Asks how full a memory is, and then selects "ME": two exchanges.
bool QueryMessageMemory(HandsetLink& link, std::u16string_view name, MemoryUsage& usage,
                        Refusal* refusal = nullptr);

/// What is selected on the handset now.
bool GetMessageMemories(HandsetLink& link, MemorySelection& names);

/// Selects what GetMessageMemories gave.
bool RestoreMessageMemories(HandsetLink& link, const MemorySelection& names);

}  // namespace tarnbridge
