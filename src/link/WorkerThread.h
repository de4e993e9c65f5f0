#pragma once

#include "platform/Event.h"
#include "platform/Thread.h"

namespace tarnbridge {

/// A class that is one thread. Start and stop belong to the owner's thread; the owner stops the thread before
/// it destroys the object.
class WorkerThread {
public:
    virtual ~WorkerThread() = default;

    /// False when the thread runs already or the system refuses one.
    bool StartThread();

    /// Asks the thread to end, by whatever means the class has, and waits for it without limit.
    virtual void StopThread();

protected:
    /// The thread's body.
    virtual void Run() = 0;

    /// The name that debuggers show, of at most 15 bytes.
    virtual const char* ThreadName() const = 0;

private:
    Thread thread_;
};

}  // namespace tarnbridge
