#include "link/WorkerThread.h"

namespace tarnbridge {

bool WorkerThread::StartThread() {
    return thread_.Start(ThreadName(), [this] { Run(); });
}

void WorkerThread::StopThread() {
    thread_.Join();
}

}  // namespace tarnbridge
