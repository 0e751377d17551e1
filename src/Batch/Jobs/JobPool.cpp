#include "Batch/Jobs/JobAnswer.h"
#include "Batch/Jobs/WorkerProcess.h"
#include "Utils/NonAssignable.h"

#include <algorithm>
#include <map>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace Batch {

namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

/// The most that one wait counts for a worker: the time while this process was stopped, or was using a result, is not
/// the worker's.
constexpr milliseconds kLongestWait{1'000};

struct Worker {
    std::unique_ptr<WorkerProcess> process;
    std::optional<std::size_t> index; ///< of its aircraft
    bool hasAnswered = false;
    milliseconds waited{0}; ///< for the answer
    std::string received;
};

std::string TimeoutText(milliseconds timeout) {
    std::ostringstream seconds;
    seconds << static_cast<double>(timeout.count()) / 1'000;
    return "its process gave no answer within " + seconds.str() + " s and was ended; use --timeout to allow more";
}

class JobPool : public Utils::NonAssignable {
public:
    JobPool(const AircraftSelection& selection, const JobLimits& jobLimits, const std::string& jobInput)
        : aircraft(selection), limits(jobLimits), input(jobInput) {}

    void Run(const std::function<void(JobResult&&)>& use) {
        while (delivered < aircraft.size()) {
            GiveJobs();
            Listen();
            GiveJobs(); // the workers continue while results are used
            for (auto next = waiting.find(delivered); next != waiting.end(); next = waiting.find(delivered)) {
                use(std::move(next->second));
                waiting.erase(next);
                ++delivered;
            }
        }
    }

private:
    std::size_t Limit() const { return std::max<std::size_t>(limits.processes, 1); }

    void GiveJobs() {
        while (started < aircraft.size() && started < delivered + kMaxPendingPerWorker * Limit()) {
            const auto worker = IdleWorker();
            if (worker == workers.end())
                return;
            const std::string request = aircraft[started]->acfPath + '\0' + input + '\0';
            if (!worker->process->Send(request) && worker->hasAnswered) {
                workers.erase(worker); // it died between two aircraft
                continue;
            }
            worker->index = started++;
            worker->waited = milliseconds(0);
        }
    }

    /// A worker without an aircraft, a new one if possible.
    std::vector<Worker>::iterator IdleWorker() {
        const auto idle = std::ranges::find_if(workers, [](const Worker& worker) { return !worker.index; });
        if (idle != workers.end() || workers.size() >= Limit())
            return idle;
        try {
            auto process = std::make_unique<WorkerProcess>();
            workers.emplace_back().process = std::move(process);
            return workers.end() - 1;
        } catch (const std::runtime_error& error) {
            // The system is out of processes or file handles: the others continue, if there are any.
            if (workers.empty())
                Finish(started++, {{}, {}, std::string("cannot start a process for it: ") + error.what()});
            return workers.end();
        }
    }

    void Listen() {
        if (workers.empty())
            return;
        std::vector<WorkerProcess*> processes;
        milliseconds longest = kLongestWait;
        for (const Worker& worker : workers) {
            processes.push_back(worker.process.get());
            if (worker.index)
                longest = std::clamp(limits.timeout - worker.waited, milliseconds(0), longest);
        }
        const Clock::time_point begin = Clock::now();
        WorkerProcess::WaitForAny(processes, longest);
        const auto waited = std::chrono::ceil<milliseconds>(Clock::now() - begin);
        std::erase_if(workers, [&](Worker& worker) {
            worker.waited += std::min(waited, kLongestWait);
            return !Receive(worker);
        });
    }

    /// False if the worker has ended or must end.
    bool Receive(Worker& worker) {
        const bool open = worker.process->Receive(worker.received);
        if (!worker.index)
            return open;
        const std::size_t index = *worker.index;
        if (std::optional<JobResult> answer = DecodeAnswer(*aircraft[index], worker.received)) {
            // Nothing of a failed load may reach the next aircraft.
            const bool continues = open && !answer->failure;
            worker.index.reset();
            worker.hasAnswered = true;
            Finish(index, std::move(*answer));
            return continues;
        }
        if (!open)
            Finish(index, {{}, {}, worker.process->HowItEnded()});
        else if (worker.waited >= limits.timeout)
            Finish(index, {{}, {}, TimeoutText(limits.timeout)});
        else
            return true;
        return false;
    }

    void Finish(std::size_t index, JobResult result) {
        result.aircraft = aircraft[index];
        waiting[index] = std::move(result);
    }

    const AircraftSelection& aircraft;
    const JobLimits limits;
    const std::string& input;
    std::size_t started = 0, delivered = 0;
    std::vector<Worker> workers;
    std::map<std::size_t, JobResult> waiting;
};

} // namespace

void RunJobs(const AircraftSelection& aircraft, const JobLimits& limits, const std::function<void(JobResult&&)>& use,
             const std::string& input) {
    JobPool(aircraft, limits, input).Run(use);
}

} // namespace Batch
