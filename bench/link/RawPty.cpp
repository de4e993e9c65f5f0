#include "link/RawPty.h"

#include <array>
#include <cstdlib>

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace tarnbridge::bench {
namespace {

void MakeRaw(int descriptor) {
    termios settings{};
    ::tcgetattr(descriptor, &settings);
    ::cfmakeraw(&settings);
    ::tcsetattr(descriptor, TCSANOW, &settings);
}

bool WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count <= 0) return false;
        bytes.remove_prefix(static_cast<size_t>(count));
    }
    return true;
}

}  // namespace

RawPty::RawPty() : far_(::posix_openpt(O_RDWR | O_NOCTTY)) {
    ::grantpt(far_);
    ::unlockpt(far_);
    path_ = ::ptsname(far_);
    MakeRaw(far_);
    if (::pipe(stop_) != 0) std::abort();
}

RawPty::~RawPty() {
    ::close(stop_[1]);
    if (server_.joinable()) server_.join();
    if (near_ >= 0) ::close(near_);
    ::close(far_);
    ::close(stop_[0]);
}

void RawPty::Answer(std::string reply) {
    reply_ = std::move(reply);
    server_ = std::thread([this] { Serve(); });
}

void RawPty::Serve() {
    std::array<char, 4096> buffer;
    for (;;) {
        pollfd waits[] = {{far_, POLLIN, 0}, {stop_[0], POLLIN, 0}};
        if (::poll(waits, 2, -1) <= 0) continue;
        if (waits[1].revents != 0) return;
        // Before the near end is opened and after it was closed there is a hang-up only.
        if ((waits[0].revents & POLLIN) == 0) {
            ::usleep(100);
            continue;
        }
        const ssize_t count = ::read(far_, buffer.data(), buffer.size());
        if (count > 0 && buffer[static_cast<size_t>(count) - 1] == '\r') WriteAll(far_, reply_);
    }
}

void RawPty::OpenNear() {
    near_ = ::open(path_.c_str(), O_RDWR | O_NOCTTY);
    MakeRaw(near_);
}

bool RawPty::Exchange(std::string_view text, size_t replySize) {
    if (!WriteAll(near_, text)) return false;
    std::array<char, 4096> buffer;
    for (size_t received = 0; received < replySize;) {
        pollfd readable{near_, POLLIN, 0};
        ::poll(&readable, 1, -1);
        const ssize_t count = ::read(near_, buffer.data(), buffer.size());
        if (count <= 0) return false;
        received += static_cast<size_t>(count);
    }
    return true;
}

}  // namespace tarnbridge::bench
