#include "core/base/HandsetTask.h"

#include <utility>

#include "core/base/MessageQueue.h"
#include "link/HandsetLink.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;

constexpr Milliseconds cancelInterval = 50ms;

}  // namespace

bool HandsetTask::Start(BackgroundWorker::Target target) {
    if (std::exchange(begun_, true)) return false;
    target_ = std::move(target);
    Begin();
    return !refused_;
}

void HandsetTask::Do(BackgroundWorker::Job job, Next next, int kind, int slot) {
    next_ = std::move(next);
    kind_ = kind;
    slot_ = slot;
    if (worker_.RequestJob(target_, kind, slot, std::move(job))) {
        hadJobs_ = true;
    } else if (hadJobs_) {
        End();
    } else {
        next_ = nullptr;
        refused_ = true;
    }
}

BackgroundWorker::Job HandsetTask::OrLose(BackgroundWorker::Job job) const {
    return [job = std::move(job), lost = lost_](HandsetLink& link, int& error) {
        const int result = job(link, error);
        if (result <= 0 && error < 0) *lost = !link.Ping();
        return result;
    };
}

void HandsetTask::Cancel() {
    if (ended_ || std::exchange(cancelled_, true)) return;
    worker_.SetHurried(true);
}

void HandsetTask::Take(Message& answer) {
    if (!next_ || answer.id != WorkerResult || answer.wParam != slot_) return;
    const auto* const details = answer.payload.Get<WorkerAnswer>();  // none of a session check
    if (details == nullptr || details->kind != kind_) return;
    std::exchange(next_, nullptr)(static_cast<int>(answer.lParam), details->error);
}

void HandsetTask::Show(Standing standing) const {
    if (onProgress) onProgress(standing);
}

void HandsetTask::End() {
    if (std::exchange(ended_, true)) return;
    if (cancelled_) worker_.SetHurried(false);
    next_ = nullptr;
    if (onEnd) onEnd();
}

bool RunTask(HandsetTask& task, const std::function<bool()>& cancelled) {
    const auto queue = std::make_shared<MessageQueue>([&task](Message& message) {
        task.Take(message);
        return intptr_t{0};
    });
    if (!task.Start(queue)) return false;
    while (!task.HasEnded()) {
        if (cancelled && cancelled()) task.Cancel();
        queue->ProcessOne(cancelInterval);
    }
    return true;
}

}  // namespace tarnbridge
