#include "Batch/Jobs/Process.h"
#include "Batch/Jobs/WorkerProcess.h"
#include "Utils/Platform.h"
#include "Utils/WideText.h"

#include <algorithm>
#include <boost/filesystem/operations.hpp>
#include <condition_variable>
#include <mutex>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <thread>
#include <utility>
#include <windows.h>

namespace Batch {

namespace {

constexpr std::size_t kReadSize = 65536;

/// Before main, because path arguments are relative to it.
const boost::filesystem::path startFolder = [] {
    boost::system::error_code ignored;
    return boost::filesystem::current_path(ignored);
}();

// An anonymous pipe cannot be waited for with a limit, so each worker has a thread that reads.
std::mutex readMutex; ///< guards State::received and State::ended
std::condition_variable readSome;

class Handle : public Utils::NonAssignable {
public:
    ~Handle() {
        if (handle)
            CloseHandle(handle);
    }
    HANDLE Get() const { return handle; }
    HANDLE* Address() { return &handle; }

private:
    HANDLE handle = nullptr;
};

[[noreturn]] void ThrowLastError() {
    throw std::runtime_error("error " + std::to_string(GetLastError()));
}

/// The end for the worker is inherited by the processes that are started while it is open.
void MakePipe(Handle& reading, Handle& writing, const Handle& own) {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    if (!CreatePipe(reading.Address(), writing.Address(), &inherited, kReadSize) ||
        !SetHandleInformation(own.Get(), HANDLE_FLAG_INHERIT, 0))
        ThrowLastError();
}

/// The workers' group: they end when this process does, for any reason. Never closed before.
HANDLE Group() {
    static const HANDLE group = [] {
        const HANDLE made = CreateJobObjectW(nullptr, nullptr);
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(made, JobObjectExtendedLimitInformation, &limits, sizeof limits);
        return made;
    }();
    return group;
}

/// This process's command line after the program's name, unchanged.
std::wstring_view OwnArguments() {
    const std::wstring_view line = GetCommandLineW();
    const bool quoted = line.starts_with(L'"');
    const std::size_t end = quoted ? line.find(L'"', 1) : line.find_first_of(L" \t");
    return end == line.npos ? std::wstring_view() : line.substr(end + quoted);
}

/// Returns the process.
HANDLE Spawn(HANDLE input, HANDLE output) {
    STARTUPINFOW streams{};
    streams.cb = sizeof streams;
    streams.dwFlags = STARTF_USESTDHANDLES;
    streams.hStdInput = input;
    streams.hStdOutput = output;
    streams.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    const std::wstring program = Utils::Platform::ProgramPath().native();
    std::wstring line = L'"' + program + L"\" " + Utils::ToWideText(kWorkerOption);
    line.append(OwnArguments());
    PROCESS_INFORMATION made{};
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr,
                        startFolder.c_str(), &streams, &made))
        ThrowLastError();
    AssignProcessToJobObject(Group(), made.hProcess);
    ResumeThread(made.hThread);
    CloseHandle(made.hThread);
    return made.hProcess;
}

} // namespace

struct WorkerProcess::State {
    ~State() {
        if (process.Get())
            TerminateProcess(process.Get(), 1);
        if (reader.joinable())
            reader.join();
    }
    void Read() {
        std::string bytes(kReadSize, '\0');
        DWORD got = 0;
        while (ReadFile(output.Get(), bytes.data(), kReadSize, &got, nullptr)) {
            const std::lock_guard lock(readMutex);
            received.append(bytes, 0, got);
            readSome.notify_one();
        }
        const std::lock_guard lock(readMutex);
        ended = true;
        readSome.notify_one();
    }

    Handle process, input, output; ///< the ends of this process
    std::string received;
    bool ended = false;
    std::thread reader;
};

WorkerProcess::WorkerProcess() : state(std::make_unique<State>()) {
    Handle input, output;
    MakePipe(input, state->input, state->input);
    MakePipe(state->output, output, state->output);
    *state->process.Address() = Spawn(input.Get(), output.Get());
    state->reader = std::thread([read = state.get()] { read->Read(); });
}

WorkerProcess::~WorkerProcess() = default;

bool WorkerProcess::Send(const std::string& bytes) {
    std::string_view left = bytes;
    DWORD written = 0;
    while (!left.empty() && WriteFile(state->input.Get(), left.data(),
                                      static_cast<DWORD>(std::min(left.size(), kReadSize)), &written, nullptr))
        left.remove_prefix(written);
    return left.empty();
}

bool WorkerProcess::Receive(std::string& bytes) {
    const std::lock_guard lock(readMutex);
    bytes.append(std::exchange(state->received, {}));
    return !state->ended;
}

/// System codes are printed in hexadecimal, as they are documented.
std::string WorkerProcess::HowItEnded() {
    WaitForSingleObject(state->process.Get(), INFINITE);
    DWORD exitCode = 0;
    GetExitCodeProcess(state->process.Get(), &exitCode);
    std::ostringstream text;
    text << "its process ended with exit code ";
    if (exitCode >= 0xC0000000)
        text << "0x" << std::hex << std::uppercase;
    text << exitCode << " without a result";
    return text.str();
}

void WorkerProcess::WaitForAny(const std::vector<WorkerProcess*>& processes, std::chrono::milliseconds longest) {
    std::unique_lock lock(readMutex);
    readSome.wait_for(lock, longest, [&] {
        return std::ranges::any_of(processes, [](const WorkerProcess* process) {
            return process->state->ended || !process->state->received.empty();
        });
    });
}

} // namespace Batch
