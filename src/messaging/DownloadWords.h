#pragma once

#include <string>

#include "messaging/MessageDownload.h"

namespace tarnbridge {

/// What the user is told when a reading has ended: that the handset is gone, has no memory, or what the list
/// lacks; a line each. Empty when there is nothing to tell, and after a cancel, which the user knows of.
std::u16string DownloadWords(const MessageDownload::Report& report, bool lost, bool cancelled);

/// Whether nothing is known to be missing.
bool IsWhole(const MessageDownload::Report& report, bool lost, bool cancelled);

}  // namespace tarnbridge
