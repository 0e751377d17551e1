#include "Batch/BatchLog.h"
#include "Batch/Jobs/JobResult.h"
#include "Batch/Jobs/Process.h"
#include "Logging/Logger.h"
#include "Utils/NonAssignable.h"
#include "Utils/Platform.h"
#include "Utils/WideText.h"

#include <algorithm>
#include <atomic>
#include <boost/filesystem/operations.hpp>
#include <condition_variable>
#include <cstdlib>
#include <map>
#include <mutex>
#include <sstream>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>
#include <windows.h>

namespace Batch {

namespace {

constexpr std::size_t kReadSize = 65536;

/// Initialized before main, while the working directory is still the caller's: path arguments are relative to it.
const boost::filesystem::path startFolder = boost::filesystem::current_path();

class Handle : public Utils::NonAssignable {
public:
    explicit Handle(HANDLE owned = nullptr) : handle(owned) {}
    Handle(Handle&& other) noexcept : handle(std::exchange(other.handle, nullptr)) {}
    ~Handle() { Close(); }

    void Close() {
        if (handle)
            CloseHandle(std::exchange(handle, nullptr));
    }
    HANDLE Get() const { return handle; }
    HANDLE* Address() { return &handle; }

private:
    HANDLE handle;
};

/// Processes that end when this one does, for any reason.
class ProcessGroup {
public:
    ProcessGroup() : job(CreateJobObjectW(nullptr, nullptr)) {
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    }

    /// Any thread. A process added after the end is ended too.
    void Add(HANDLE process) {
        AssignProcessToJobObject(job.Get(), process);
        if (ended)
            TerminateProcess(process, 1);
    }
    void End() {
        ended = true;
        TerminateJobObject(job.Get(), 1);
    }

private:
    Handle job;
    std::atomic<bool> ended = false;
};

/// This process's command line after the program's name, unchanged.
std::wstring_view OwnArguments() {
    const std::wstring_view line = GetCommandLineW();
    const bool quoted = line.starts_with(L'"');
    const std::size_t end = quoted ? line.find(L'"', 1) : line.find_first_of(L" \t");
    return end == line.npos ? std::wstring_view() : line.substr(end + quoted);
}

/// Needs no escaping: a file path on Windows contains no quotes and does not end with a backslash.
std::wstring JobCommandLine(const std::wstring& program, const std::string& acfPath) {
    std::wstring line = L'"' + program + L"\" " + Utils::ToWideText(kJobOption) + L" \"" + Utils::ToWideText(acfPath);
    return line.append(L"\"").append(OwnArguments());
}

struct Process {
    Handle process, answer; ///< `answer` is the end of the pipe to read from
    DWORD error = ERROR_SUCCESS;
};

/// Only one at a time: otherwise a process would inherit the writing end of another's pipe and keep it open.
Process Start(const Sim::AircraftInfo& aircraft, ProcessGroup& group) {
    static std::mutex starting;
    const std::lock_guard lock(starting);
    Process started;
    Handle written;
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    if (!CreatePipe(started.answer.Address(), written.Address(), &inherited, kReadSize)) {
        started.error = GetLastError();
        return started;
    }
    SetHandleInformation(started.answer.Get(), HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW streams{};
    streams.cb = sizeof streams;
    streams.dwFlags = STARTF_USESTDHANDLES;
    streams.hStdOutput = written.Get();
    streams.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    const std::wstring program = Utils::Platform::ProgramPath().native();
    std::wstring line = JobCommandLine(program, aircraft.acfPath);
    PROCESS_INFORMATION made{};
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr,
                        startFolder.c_str(), &streams, &made)) {
        started.error = GetLastError();
        return started;
    }
    *started.process.Address() = made.hProcess;
    group.Add(made.hProcess);
    ResumeThread(made.hThread);
    CloseHandle(made.hThread);
    return started;
}

std::string ReadToEnd(HANDLE pipe) {
    std::string bytes;
    for (DWORD got = 1; got > 0;) {
        const std::size_t size = bytes.size();
        bytes.resize(size + kReadSize);
        if (!ReadFile(pipe, bytes.data() + size, kReadSize, &got, nullptr))
            got = 0; // the other end is closed
        bytes.resize(size + got);
    }
    return bytes;
}

/// Why a process ended without a result. System codes are printed in hexadecimal, as they are documented.
std::string HowItEnded(DWORD exitCode) {
    std::ostringstream text;
    text << "its process ended with exit code ";
    if (exitCode >= 0xC0000000)
        text << "0x" << std::hex << std::uppercase;
    text << exitCode << " without a result";
    return text.str();
}

JobResult RunInProcess(const Sim::AircraftInfo& aircraft, ProcessGroup& group) {
    const Process started = Start(aircraft, group);
    if (!started.process.Get())
        return {&aircraft, {}, "cannot start a process for it: error " + std::to_string(started.error)};
    const std::string answer = ReadToEnd(started.answer.Get());
    WaitForSingleObject(started.process.Get(), INFINITE);
    DWORD exitCode = 0;
    GetExitCodeProcess(started.process.Get(), &exitCode);
    // A process may have died while writing its result.
    if (exitCode == 0 && !answer.empty())
        return DecodeResult(aircraft, answer);
    return {&aircraft, {}, HowItEnded(exitCode)};
}

/// One thread per parallel process, which waits for it.
class JobPool : public Utils::NonAssignable {
public:
    JobPool(const AircraftSelection& selection, std::size_t processes)
        : aircraft(selection),
          limit(std::clamp<std::size_t>(processes, 1, std::max<std::size_t>(1, selection.size()))) {
        for (std::size_t i = 0; i < limit; ++i)
            threads.emplace_back([this] { RunProcesses(); });
    }
    ~JobPool() {
        {
            const std::lock_guard lock(mutex);
            ended = true;
        }
        group.End();
        changed.notify_all();
        for (std::thread& thread : threads)
            thread.join();
    }

    void Run(const std::function<void(JobResult&&)>& use) {
        for (std::size_t i = 0; i < aircraft.size(); ++i) {
            use(Next());
        }
    }

private:
    JobResult Next() {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return waiting.contains(delivered); });
        JobResult result = std::move(waiting.extract(delivered++).mapped());
        changed.notify_all();
        return result;
    }

    void RunProcesses() {
        std::unique_lock lock(mutex);
        for (;;) {
            changed.wait(lock, [this] { return ended || started < delivered + kMaxPendingPerProcess * limit; });
            if (ended || started == aircraft.size())
                return;
            const std::size_t index = started++;
            lock.unlock();
            JobResult result = RunInProcess(*aircraft[index], group);
            lock.lock();
            waiting[index] = std::move(result);
            changed.notify_all();
        }
    }

    const AircraftSelection& aircraft;
    const std::size_t limit;
    ProcessGroup group;
    std::mutex mutex; // guards the members below
    std::condition_variable changed;
    std::size_t started = 0, delivered = 0;
    bool ended = false;
    std::map<std::size_t, JobResult> waiting;
    std::vector<std::thread> threads;
};

bool WriteAll(HANDLE file, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD written = 0;
        if (!WriteFile(file, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), kReadSize)), &written, nullptr))
            return false;
        bytes.remove_prefix(written);
    }
    return true;
}

/// Ends this process with the result of the job that it was started for.
[[noreturn]] void RunOwnJob(const Sim::AircraftInfo& aircraft, const Job& job) {
    JoinLog();
    const std::string answer = EncodeResult(job, aircraft);
    Logging::Logger::Get().Stop("");
    std::_Exit(WriteAll(GetStdHandle(STD_OUTPUT_HANDLE), answer) ? 0 : 1);
}

} // namespace

void RunJobs(const AircraftSelection& aircraft, std::size_t processes, const Job& job,
             const std::function<void(JobResult&&)>& use) {
    if (JobAircraft())
        RunOwnJob(*aircraft.at(0), job);
    JobPool(aircraft, processes).Run(use);
}

} // namespace Batch
