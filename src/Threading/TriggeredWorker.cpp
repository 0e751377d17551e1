#include "Threading/TriggeredWorker.h"

#include <utility>

namespace Threading {

TriggeredWorker::TriggeredWorker(std::function<void()> work) : work(std::move(work)) {}

TriggeredWorker::~TriggeredWorker() {
    Stop();
}

void TriggeredWorker::Trigger() {
    StartOnce();
    {
        const std::lock_guard lock(workerMutex);
        pending = true;
    }
    changed.notify_all();
}

void TriggeredWorker::RunAndWait() {
    StartOnce();
    std::unique_lock lock(workerMutex);
    pending = true;
    done = false;
    changed.notify_all();
    changed.wait(lock, [this] { return done || stop || stopped; });
}

void TriggeredWorker::Stop() {
    {
        std::unique_lock lock(workerMutex);
        stop = true;
        if (!thread.joinable()) {
            stopped = true; // never started, or already stopped
            return;
        }
        changed.notify_all();
        changed.wait(lock, [this] { return stopped; });
    }
    thread.join();
}

void TriggeredWorker::StartOnce() {
    const std::lock_guard lock(workerMutex);
    if (!stop && !thread.joinable())
        thread = std::thread([this] { Loop(); });
}

void TriggeredWorker::Loop() {
    std::unique_lock lock(workerMutex);
    while (true) {
        changed.wait(lock, [this] { return pending || stop; });
        if (stop)
            break;
        lock.unlock();
        work();
        lock.lock();
        done = true;
        pending = false; // a trigger during the run is covered by it
        changed.notify_all();
    }
    stopped = true;
    changed.notify_all();
}

} // namespace Threading
