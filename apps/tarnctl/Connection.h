#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <thread>

#include "link/HandsetLink.h"
#include "platform/Clock.h"
#include "platform/EntryStore.h"
#include "platform/PortMap.h"
#include "platform/TerminationSignal.h"
#include "tarnctl/Command.h"
#include "tarnctl/Output.h"

namespace tarnbridge {

/// The handset for one run of a command: the port opened, the session made, and at the end both handed back.
/// Ctrl-C breaks off the exchange under way, unless the command is patient; the command looks at Cancelled
/// between two steps.
class Connection {
public:
    explicit Connection(const GlobalOptions& options);
    ~Connection();

    /// Opens the port and makes the session. When that fails the user has been told why.
    bool Open();

    HandsetLink& Link() { return link_; }
    /// Whether to stop: the user wants it, or nobody gets what is printed.
    bool Cancelled() const { return cancelled_ || OutputFailed(); }

    /// While patient, the first Ctrl-C lets the exchange under way come to its end, hurried, since what a
    /// broken one has done on the handset isn't known; only the second breaks it off. For any thread.
    void SetPatient(bool patient) { patient_ = patient; }

    /// What stands behind the port: a device path, or the name under which it was asked for.
    const std::string& Device() const { return device_; }
    LinkKind Kind() const { return kind_; }

private:
    bool OpenPort();
    void WatchForCancel();

    const GlobalOptions options_;
    TerminationSignal signal_;
    Event ended_{ResetMode::Manual};
    std::atomic<bool> cancelled_{false};
    std::atomic<bool> patient_{false};
    std::atomic<bool> handingBack_{false};
    const std::unique_ptr<EntryStore> store_ = OpenUserStore();
    PortMap ports_{*store_};
    SystemClock clock_;
    std::string device_;
    LinkKind kind_ = LinkKind::Other;
    HandsetLink link_;
    Thread watcher_;
};

/// Why a port couldn't be opened, and what can be done about it, as one line.
std::string ExplainOpenFailure(const SerialOpenFailure& failure);

/// Why an exchange gave no result or an error: the handset's number where there is one.
std::string ExplainResult(HandsetLink& link, const ATResult& result);

}  // namespace tarnbridge
