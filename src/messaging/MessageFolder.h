#pragma once

#include "messaging/FolderNode.h"
#include "messaging/SmsRecord.h"

namespace tarnbridge {

/// A folder of messages: on the PC, or the mirror of one on the handset.
using MessageFolder = FolderNode<SmsRecord>;

}  // namespace tarnbridge
