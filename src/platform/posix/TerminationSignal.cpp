#include "platform/TerminationSignal.h"

#include <array>
#include <csignal>

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>

#include "platform/Thread.h"
#include "platform/posix/FileDescriptor.h"

namespace tarnbridge {

struct TerminationSignal::State {
    sigset_t before{};
    struct sigaction pipeBefore {};
    FileDescriptor signals;
    FileDescriptor stop;
    Thread thread;
};

TerminationSignal::TerminationSignal() : state_(std::make_unique<State>()) {
    sigset_t wanted{};
    sigemptyset(&wanted);
    sigaddset(&wanted, SIGINT);
    sigaddset(&wanted, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &wanted, &state_->before);
    struct sigaction ignore {};
    ignore.sa_handler = SIG_IGN;
    ::sigaction(SIGPIPE, &ignore, &state_->pipeBefore);
    state_->signals = FileDescriptor(::signalfd(-1, &wanted, SFD_NONBLOCK | SFD_CLOEXEC));
    state_->stop = FileDescriptor(::eventfd(0, EFD_CLOEXEC));
    state_->thread.Start("signals", [this] {
        for (;;) {
            std::array<pollfd, 2> polled{
                {{state_->signals.Get(), POLLIN, 0}, {state_->stop.Get(), POLLIN, 0}}};
            if (::poll(polled.data(), polled.size(), -1) < 0) continue;
            signalfd_siginfo information{};
            while (::read(state_->signals.Get(), &information, sizeof information) > 0)
                requested_.Set();
            if (polled[1].revents != 0) return;
        }
    });
}

TerminationSignal::~TerminationSignal() {
    ::eventfd_write(state_->stop.Get(), 1);
    state_->thread.Join();
    ::sigaction(SIGPIPE, &state_->pipeBefore, nullptr);
    pthread_sigmask(SIG_SETMASK, &state_->before, nullptr);
}

}  // namespace tarnbridge
