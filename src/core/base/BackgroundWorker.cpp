#include "core/base/BackgroundWorker.h"

#include <exception>

#include "link/HandsetLink.h"

namespace tarnbridge {

BackgroundWorker::~BackgroundWorker() {
    Stop();
}

bool BackgroundWorker::Start(HandsetLink& handsetLink) {
    const std::lock_guard guard(requestMutex_);
    if (running_) return false;
    link = &handsetLink;
    running_ = StartThread();
    return running_;
}

void BackgroundWorker::Stop() {
    {
        const std::lock_guard guard(requestMutex_);
        if (!running_) return;
        running_ = false;
        stopEvent.Set();
    }
    StopThread();
    const std::lock_guard guard(requestMutex_);
    stopEvent.Reset();
    // What was asked for and not begun must not run after the next Start.
    jobEvent.Reset();
    checkEvent.Reset();
    job_ = nullptr;
    busy = false;
    checkBusy = false;
}

bool BackgroundWorker::IsRunning() {
    const std::lock_guard guard(requestMutex_);
    return running_;
}

bool BackgroundWorker::RequestRead(Target target, Record record, std::u16string storage, int slot,
                                   JobKind kind) {
    if (!record) return false;
    return RequestJob(
        std::move(target), kind, slot,
        [record = std::move(record), storage = std::move(storage), slot](HandsetLink& handset, int& error) {
            return record->Read(handset, storage, slot, error) ? 1 : 0;
        });
}

bool BackgroundWorker::RequestRemove(Target target, Record record, int slot) {
    if (!record) return false;
    return RequestJob(std::move(target), RemoveMessage, slot,
                      [record = std::move(record)](HandsetLink& handset, int& error) {
                          return record->Remove(handset, error) ? 1 : 0;
                      });
}

bool BackgroundWorker::RequestJob(Target target, int kind, int slot, Job job) {
    const std::lock_guard guard(requestMutex_);
    if (!running_ || busy || !job) return false;
    jobWindow = std::move(target);
    jobKind = kind;
    jobSlot = slot;
    job_ = std::move(job);
    busy = true;
    jobEvent.Set();
    return true;
}

bool BackgroundWorker::RequestSessionCheck(Target target) {
    const std::lock_guard guard(requestMutex_);
    if (!running_ || busy || checkBusy) return false;
    checkWindow = std::move(target);
    checkBusy = true;
    checkEvent.Set();
    return true;
}

void BackgroundWorker::SetHurried(bool hurried) {
    const std::lock_guard guard(requestMutex_);
    if (running_) link->SetHurried(hurried);
}

void BackgroundWorker::Run() {
    Event* const events[] = {&stopEvent, &jobEvent, &checkEvent};
    for (;;) {
        switch (Event::WaitAny(events, forever)) {
            case 1:
                RunJob();
                break;
            case 2:
                RunCheck();
                break;
            default:
                return;
        }
    }
}

void BackgroundWorker::RunJob() {
    WorkerAnswer answer{jobKind, -1};
    const int slot = jobSlot;
    const Target target = std::move(jobWindow);
    int result = 0;
    try {
        result = job_(*link, answer.error);
    } catch (const std::exception&) {
        // Nothing that a handset says may end the process: a job that lets an exception out has failed.
    }
    job_ = nullptr;
    busy = false;
    if (const auto window = target.lock())
        window->Post({WorkerResult, slot, result, MessagePayload::Of(answer)});
}

void BackgroundWorker::RunCheck() {
    const Target target = std::move(checkWindow);
    const bool answers = link->Ping();
    checkBusy = false;
    if (const auto window = target.lock()) window->Post({WorkerResult, 0, answers ? 1 : 0});
}

}  // namespace tarnbridge
