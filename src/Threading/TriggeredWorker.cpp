#include "Threading/TriggeredWorker.h"

#include <utility>

namespace Threading {

TriggeredWorker::TriggeredWorker(std::function<void()> work) : work(std::move(work)), thread([this] { Loop(); }) {}

TriggeredWorker::~TriggeredWorker() {
    Stop();
}

void TriggeredWorker::Trigger() {
    {
        const std::lock_guard lock(workerMutex);
        pending = true;
    }
    changed.notify_all();
}

void TriggeredWorker::RunAndWait() {
    std::unique_lock lock(workerMutex);
    pending = true;
    done = false;
    changed.notify_all();
    changed.wait(lock, [this] { return done || stop || stopped; });
}

void TriggeredWorker::Stop() {
    if (!thread.joinable())
        return; // stopped before
    {
        std::unique_lock lock(workerMutex);
        stop = true;
        changed.notify_all();
        changed.wait(lock, [this] { return stopped; });
    }
    thread.join();
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
        pending = false; // a trigger that came during the run has had its run
        changed.notify_all();
    }
    stopped = true;
    changed.notify_all();
}

} // namespace Threading
