#include "Batch/BatchLog.h"
#include "Batch/Jobs/JobResult.h"
#include "Logging/Logger.h"
#include "Utils/NonAssignable.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <poll.h>
#include <string_view>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace Batch {

namespace {

constexpr std::size_t kReadSize = 65536;

struct Process {
    std::size_t index = 0;
    pid_t id = -1;
    int answer = -1; ///< end of the pipe to read from
    std::string received;
};

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
    return true;
}

[[noreturn]] void RunInChild(const Job& job, const Sim::AircraftInfo& aircraft, int answer, pid_t parent) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        _exit(1); // the parent ended before the child could ask to be notified of it
    JoinLog();
    const std::string text = EncodeResult(job, aircraft);
    Logging::Logger::Get().Stop("");
    // This process has copies of the parent's buffers and objects and must not flush or destroy them.
    _exit(WriteAll(answer, text) ? 0 : 1);
}

/// Waits for a process to end and returns its status.
int Reap(pid_t id) {
    int status = 0;
    while (waitpid(id, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

/// Why a process ended without a result.
std::string HowItEnded(int status) {
    if (!WIFSIGNALED(status))
        return "its process ended with exit code " + std::to_string(WEXITSTATUS(status)) + " without a result";
    const int signal = WTERMSIG(status);
    return "its process was ended by signal " + std::to_string(signal) + " (" + strsignal(signal) + ")" +
           (signal == SIGKILL ? ", probably by the system because memory ran out" : "");
}

class JobPool : public Utils::NonAssignable {
public:
    JobPool(const AircraftSelection& selection, std::size_t processes, const Job& work)
        : aircraft(selection), limit(std::max<std::size_t>(processes, 1)), job(work) {}
    ~JobPool() {
        for (const Process& process : running) {
            kill(process.id, SIGKILL);
            close(process.answer);
            Reap(process.id);
        }
    }

    void Run(const std::function<void(JobResult&&)>& use) {
        while (delivered < aircraft.size()) {
            StartProcesses();
            ReadAnswers();
            for (auto next = waiting.find(delivered); next != waiting.end(); next = waiting.find(delivered)) {
                use(std::move(next->second));
                waiting.erase(next);
                ++delivered;
            }
        }
    }

private:
    void StartProcesses() {
        while (started < aircraft.size() && running.size() < limit &&
               started < delivered + kMaxPendingPerProcess * limit) {
            if (!Start(started)) {
                // The system is out of processes or file handles.
                if (!running.empty())
                    return; // retried when a process ends
                const std::string reason = std::strerror(errno);
                waiting[started] = {aircraft[started], {}, "cannot start a process for it: " + reason};
            }
            ++started;
        }
    }

    bool Start(std::size_t index) {
        // The parent closes its copy of the writing end right after the fork: no other child gets one, so the
        // end of the pipe is the end of the result.
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0)
            return false;
        const pid_t parent = getpid();
        const pid_t child = fork();
        if (child == 0) {
            close(ends[0]);
            RunInChild(job, *aircraft[index], ends[1], parent);
        }
        const int error = errno;
        close(ends[1]);
        if (child < 0) {
            close(ends[0]);
            errno = error;
            return false;
        }
        running.push_back({index, child, ends[0], {}});
        return true;
    }

    void ReadAnswers() {
        if (running.empty())
            return;
        std::vector<pollfd> polled;
        for (const Process& process : running)
            polled.push_back({process.answer, POLLIN, 0});
        if (poll(polled.data(), polled.size(), -1) < 0)
            return;
        // From the back, because finished ones are removed from the list.
        for (std::size_t i = polled.size(); i-- > 0;) {
            if (polled[i].revents != 0 && !ReadSome(running[i])) {
                Finish(running[i]);
                running.erase(running.begin() + static_cast<std::ptrdiff_t>(i));
            }
        }
    }

    /// False at the end of the result.
    static bool ReadSome(Process& process) {
        const std::size_t size = process.received.size();
        process.received.resize(size + kReadSize);
        const ssize_t got = read(process.answer, process.received.data() + size, kReadSize);
        const bool again = got < 0 && errno == EINTR;
        process.received.resize(size + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        return got > 0 || again;
    }

    void Finish(Process& process) {
        close(process.answer);
        const int status = Reap(process.id);
        // A process may have died while writing its result.
        const bool answered = WIFEXITED(status) && WEXITSTATUS(status) == 0 && !process.received.empty();
        const Sim::AircraftInfo& its = *aircraft[process.index];
        waiting[process.index] =
            answered ? DecodeResult(its, process.received) : JobResult{&its, {}, HowItEnded(status), {}};
    }

    const AircraftSelection& aircraft;
    std::size_t limit;
    const Job& job;
    std::size_t started = 0, delivered = 0;
    std::vector<Process> running;
    std::map<std::size_t, JobResult> waiting;
};

} // namespace

void RunJobs(const AircraftSelection& aircraft, std::size_t processes, const Job& job,
             const std::function<void(JobResult&&)>& use) {
    JobPool(aircraft, processes, job).Run(use);
}

} // namespace Batch
