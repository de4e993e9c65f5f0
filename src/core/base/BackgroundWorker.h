#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "core/base/MessageTarget.h"
#include "link/HandsetRecord.h"
#include "link/WorkerThread.h"
#include "platform/Event.h"

namespace tarnbridge {

class HandsetLink;

/// What a job of the worker was; travels with its WorkerResult.
struct WorkerAnswer {
    int kind = 0;
    int error = -1;  ///< the handset's number if it gave one
};

/// One thread that talks to the handset for others. It does one job at a time and keeps no queue: a request
/// is refused, with false, while a job is under way or when the thread doesn't run. An accepted job is
/// answered by the message WorkerResult with the slot in `wParam`, the result in `lParam` and a WorkerAnswer,
/// posted when the worker is free again; one that Stop overtakes is dropped without an answer.
///
/// Start and Stop are called by one thread at a time, never by a job; all else by any thread.
class BackgroundWorker : private WorkerThread {
public:
    /// Kinds of jobs. Those of the features begin at FirstFeatureJob.
    enum JobKind : int {
        ReadMessage = 0,
        RemoveMessage = 1,
        ReadContact = 2,
        ReadDetails = 3,
        FirstFeatureJob
    };

    using Target = std::weak_ptr<MessageTarget>;
    using Record = std::shared_ptr<HandsetRecord>;

    /// Work on the handset: a bool, or a count with -1. `error` is -1 before, and the handset's number after,
    /// if it gave one.
    using Job = std::function<int(HandsetLink& link, int& error)>;

    BackgroundWorker() = default;
    ~BackgroundWorker() override;

    /// `link` must outlive the thread. False when the thread runs already or the system refuses one.
    bool Start(HandsetLink& link);

    /// Lets the job under way come to its end, without limit, drops one that hasn't begun, and ends the
    /// thread. Nothing if it doesn't run. Start may follow.
    void Stop();

    /// Whether requests can be accepted: from Start until Stop begins.
    bool IsRunning();

    /// Reads a record from place `slot` of a memory. Nobody else touches the record until the answer.
    /// \param kind  ReadMessage or ReadContact
    bool RequestRead(Target target, Record record, std::u16string storage, int slot,
                     JobKind kind = ReadMessage);

    /// Takes a record off the handset.
    bool RequestRemove(Target target, Record record, int slot = 0);

    /// Any other work; what it needs and what it brings belongs to the function, which is destroyed before
    /// the answer is posted.
    bool RequestJob(Target target, int kind, int slot, Job job);

    /// Asks whether the handset answers. Refused while a job or a check is under way. The answer has `wParam`
    /// 0 and no WorkerAnswer.
    bool RequestSessionCheck(Target target);

    bool IsBusy() const { return busy || checkBusy; }

    /// Whether the user waits for the end of what is done: see HandsetLink::SetHurried. Nothing while it
    /// doesn't run.
    void SetHurried(bool hurried);

private:
    void Run() override;
    const char* ThreadName() const override { return "background"; }
    void RunJob();
    void RunCheck();

    Event stopEvent{ResetMode::Manual};
    Event jobEvent{ResetMode::Automatic};
    Event checkEvent{ResetMode::Automatic};

    // Written by those who ask, under the mutex and only while the flag before them is off; then the event
    // hands them to the thread.
    std::mutex requestMutex_;
    bool running_ = false;
    HandsetLink* link = nullptr;
    std::atomic<bool> busy{false};
    Target jobWindow;
    int jobSlot = 0;
    int jobKind = 0;
    Job job_;
    std::atomic<bool> checkBusy{false};
    Target checkWindow;
};

}  // namespace tarnbridge
