#include "platform/Thread.h"

#include <cassert>
#include <system_error>
#include <utility>

#include <pthread.h>

namespace tarnbridge {

Thread::~Thread() {
    assert(!Started());
}

bool Thread::Start(const std::string& name, std::function<void()> function) {
    if (Started()) return false;
    try {
        thread_ = std::thread(std::move(function));
    } catch (const std::system_error&) {
        return false;
    }
    pthread_setname_np(thread_.native_handle(), name.substr(0, 15).c_str());
    return true;
}

void Thread::Join() {
    if (Started()) thread_.join();
}

}  // namespace tarnbridge
