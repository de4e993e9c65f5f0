#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/app/TeardownThread.h"
#include "core/base/BackgroundWorker.h"
#include "core/base/UserInteraction.h"
#include "link/HandsetLink.h"

namespace tarnbridge {

/// Where the handset is to be found.
struct LinkAddress {
    std::string portName;  ///< as HandsetLink::Connect takes it
    uint32_t baudRate = 115200;
    FlowControl flowControl = FlowControl::Hardware;

    bool operator==(const LinkAddress&) const = default;
};

/// Keeps the link to the handset up: opens the port when it can be opened, asks again and again whether the
/// handset answers, and takes a dead link apart so that it can come back. All that may take long runs on the
/// teardown thread or on the worker; what is called here belongs to the interface thread and returns at once.
///
/// | State | Tick | answer yes | answer no | step done |
/// |---|---|---|---|---|
/// | closed | opening | - | - | - |
/// | opening, recovering | - | - | - | open, which is checked, or closed |
/// | open | check | connected | recovering | - |
class LinkWatch {
public:
    /// `address` is asked each time the port is opened. All must outlive this.
    LinkWatch(HandsetLink& link, BackgroundWorker& worker, UserInteraction& user,
              std::function<LinkAddress()> address);

    /// Who is told, by WorkerResult after a check and by LinkStepDone. Before all else.
    void SetWindow(std::weak_ptr<MessageTarget> window) { window_ = std::move(window); }

    /// What is due every three seconds: open the port, or have the handset checked. Nothing while a step runs
    /// or the worker is busy.
    void Tick();

    /// What an answer to a check means for who shows the connection.
    enum class News { None, Connected, StillConnected, Disconnected };

    /// To be called with each answer of the worker to a check.
    News TakeAnswer(bool answers);

    /// To be called with each LinkStepDone and what it carries.
    void StepDone(const SerialOpenFailure& failure);

    /// Why the port couldn't be opened the last time; no fault if it could.
    const SerialOpenFailure& OpenFailure() const { return openFailure_; }

    bool IsPortOpen() const { return link_.IsPortOpen(); }

    /// Opens the port anew, since the address has changed. Nothing if it hasn't.
    void Reconnect();

    /// From now on nothing is opened or checked. `steps` runs on the teardown thread after all that is under
    /// way.
    void Close(TeardownThread::Step steps);

    /// Whether the handset has answered the last check.
    bool IsConnected() const { return connected_; }

private:
    SerialOpenFailure Open();
    void TakeApart();
    void Do(const std::function<SerialOpenFailure()>& step);

    HandsetLink& link_;
    BackgroundWorker& worker_;
    UserInteraction& user_;
    const std::function<LinkAddress()> address_;
    std::weak_ptr<MessageTarget> window_;
    LinkAddress used_;  // left alone while a step is under way
    SerialOpenFailure openFailure_;
    bool stepUnderWay_ = false;
    bool connected_ = false;
    bool closing_ = false;
    TeardownThread thread_;
};

}  // namespace tarnbridge
