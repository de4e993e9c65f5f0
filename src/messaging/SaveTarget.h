#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/base/UserInteraction.h"
#include "messaging/MessageTree.h"

namespace tarnbridge {

/// Where the user wants messages to be put.
struct SaveTarget {
    MessageFolder* folder = nullptr;
    std::u16string memory{};  ///< "ME" or "SM" for a folder of the handset, otherwise empty
};

/// What the choice begins with, and what it offers.
struct SaveOffer {
    std::vector<std::u16string> memories{};  ///< of the handset; empty: its folders aren't offered
    std::u16string preferredMemory{};
    const MessageFolder* suggested = nullptr;
};

/// Asks for a folder and, for the handset, its memory ("Save to..."). Nothing where the user gave up.
std::optional<SaveTarget> AskSaveTarget(const MessageTree& tree, const SaveOffer& offer,
                                        UserInteraction& user);

}  // namespace tarnbridge
