#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <thread>

namespace tarnbridge::bench {

/// A pseudo-terminal reached by plain system calls, the yardstick of the link: whatever the link does on top
/// costs.
class RawPty {
public:
    RawPty();
    RawPty(const RawPty&) = delete;
    RawPty& operator=(const RawPty&) = delete;
    ~RawPty();

    const std::string& Path() const { return path_; }

    /// Starts a thread at the far end that gives `reply` each time a text that ends in CR has come.
    void Answer(std::string reply);

    /// Opens the near end, for the two calls below.
    void OpenNear();

    /// Writes and waits with poll until `replySize` bytes have come. Gives false if the far end has gone.
    bool Exchange(std::string_view text, size_t replySize);

private:
    void Serve();

    int far_ = -1;
    int near_ = -1;
    int stop_[2] = {-1, -1};
    std::string path_;
    std::string reply_;
    std::thread server_;
};

}  // namespace tarnbridge::bench
