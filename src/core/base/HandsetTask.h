#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <string>

#include "core/base/BackgroundWorker.h"
#include "core/base/MessageTarget.h"

namespace tarnbridge {

/// A long piece of work on the handset, as jobs of the background worker, one after the other. All that lies
/// between two of them is done by the thread that hands over the worker's answers, the only one that touches
/// a task: so progress shows and a cancel takes effect between two jobs, and what is changed beside the
/// handset belongs to that thread. A task runs once.
class HandsetTask {
public:
    /// Where a task stands.
    struct Standing {
        int done = 0;
        int total = 0;         ///< 0: not known
        std::u16string words;  ///< what is being done; may be empty
    };

    /// The worker must outlive the task.
    explicit HandsetTask(BackgroundWorker& worker) : worker_(worker) {}
    HandsetTask(const HandsetTask&) = delete;
    HandsetTask& operator=(const HandsetTask&) = delete;
    virtual ~HandsetTask() = default;

    /// Begins; a task that needs no handset has ended on return. The target hands each WorkerResult to Take.
    /// False if the worker refuses the first job; then nothing has been done, and onEnd isn't called.
    bool Start(BackgroundWorker::Target target);

    /// The answer to a job; one that isn't this task's is passed over.
    void Take(Message& answer);

    /// The task ends after the job under way, which is hurried, and leaves things in order.
    void Cancel();

    bool WasCancelled() const { return cancelled_; }
    bool HasEnded() const { return ended_; }

    /// Whether the handset was found not to answer any more. What was left to do then isn't tried.
    bool LostHandset() const { return *lost_; }

    /// Called inside Start and Take. Neither may destroy the task.
    std::function<void(const Standing&)> onProgress;
    std::function<void()> onEnd;

protected:
    /// What a job gave, and the handset's number or -1.
    using Next = std::function<void(int result, int error)>;
    using LostFlag = std::shared_ptr<std::atomic<bool>>;

    /// The next job, and what follows. A job may outlive the task, so it holds what it works on. When the
    /// worker refuses it, somebody else has the handset or the program ends: so does the task.
    void Do(BackgroundWorker::Job job, Next next, int kind = BackgroundWorker::FirstFeatureJob, int slot = 0);

    /// A job after whose failure without a number the handset is asked whether it answers at all.
    BackgroundWorker::Job OrLose(BackgroundWorker::Job job) const;

    /// What LostHandset tells, for a job that finds out by itself.
    LostFlag GetLostFlag() const { return lost_; }

    void Show(Standing standing) const;

    /// To be called last.
    void End();

private:
    virtual void Begin() = 0;

    BackgroundWorker& worker_;
    BackgroundWorker::Target target_;
    const LostFlag lost_ = std::make_shared<std::atomic<bool>>(false);
    Next next_;
    int kind_ = 0;  // of the job under way, with the slot
    int slot_ = 0;
    bool begun_ = false;
    bool hadJobs_ = false;
    bool refused_ = false;  // the first job
    bool cancelled_ = false;
    bool ended_ = false;
};

/// Runs a task to its end on this thread, for programs without an event loop. Now and then it asks whether to
/// cancel. False if the task couldn't begin.
bool RunTask(HandsetTask& task, const std::function<bool()>& cancelled = {});

}  // namespace tarnbridge
