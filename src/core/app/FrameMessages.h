#pragma once

#include "core/base/MessageTarget.h"

namespace tarnbridge {

// What the main frame receives, beside WorkerResult and HandsetConnected.

inline constexpr MessageId RepaintToolbar{1024};  ///< the tool bar pane is to be painted anew
inline constexpr MessageId FormNotice{1026};      ///< passed on to the form view
inline constexpr MessageId FormUpdate{1027};      ///< passed on to the form view

/// The handset answers no more; the counterpart of HandsetConnected.
inline constexpr MessageId HandsetDisconnected{1030};
/// A step on the teardown thread has ended; carries the SerialOpenFailure of a port that couldn't be opened.
inline constexpr MessageId LinkStepDone{1040};
/// What the user keeps has changed and is to be saved soon.
inline constexpr MessageId ProfileChanged{1041};
/// The document is closed: the program can end.
inline constexpr MessageId DocumentClosed{1042};

}  // namespace tarnbridge
