#include "Batch/Jobs/Process.h"
#include "Batch/Jobs/WorkerProcess.h"

#include <algorithm>
#include <boost/filesystem/operations.hpp>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace Batch {

namespace {

constexpr std::size_t kReadSize = 65536;
/// The running program, even if its file was replaced since it started.
constexpr const char* kProgram = "/proc/self/exe";

/// Before main, because path arguments are relative to it.
const std::string startFolder = [] {
    boost::system::error_code ignored;
    return boost::filesystem::current_path(ignored).string();
}();

class File : public Utils::NonAssignable {
public:
    ~File() { Close(); }
    void Close() {
        if (number >= 0)
            close(std::exchange(number, -1));
    }

    int number = -1;
};

void MakePipe(File& reading, File& writing) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error(std::strerror(errno));
    reading.number = ends[0];
    writing.number = ends[1];
}

/// Of a worker: the program's name, the option, and this process's own arguments.
std::vector<std::string> WorkerArguments() {
    std::vector<std::string> arguments;
    std::ifstream own("/proc/self/cmdline", std::ios::binary);
    for (std::string argument; std::getline(own, argument, '\0');)
        arguments.push_back(argument);
    arguments.insert(arguments.begin() + !arguments.empty(), kWorkerOption);
    return arguments;
}

pid_t Spawn(int input, int output) {
    std::vector<std::string> arguments = WorkerArguments();
    std::vector<char*> words;
    for (std::string& argument : arguments)
        words.push_back(argument.data());
    words.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_addchdir_np(&actions, startFolder.c_str());
    pid_t id = -1;
    const int error = posix_spawn(&id, kProgram, &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw std::runtime_error(std::strerror(error));
    return id;
}

} // namespace

struct WorkerProcess::State {
    ~State() {
        if (id < 0)
            return;
        kill(id, SIGKILL);
        Reap();
    }
    /// Waits for the process to end and returns its status.
    int Reap() {
        int status = 0;
        while (waitpid(id, &status, 0) < 0 && errno == EINTR) {
        }
        id = -1;
        return status;
    }

    pid_t id = -1;
    File input, output; ///< the ends of this process
};

WorkerProcess::WorkerProcess() : state(std::make_unique<State>()) {
    File input, output;
    MakePipe(input, state->input);
    MakePipe(state->output, output);
    fcntl(state->output.number, F_SETFL, O_NONBLOCK);
    state->id = Spawn(input.number, output.number);
}

WorkerProcess::~WorkerProcess() = default;

bool WorkerProcess::Send(const std::string& bytes) {
    // By default, writing to a process that has ended would end this one.
    const auto before = std::signal(SIGPIPE, SIG_IGN);
    std::string_view left = bytes;
    ssize_t written = 0;
    while (!left.empty() && ((written = write(state->input.number, left.data(), left.size())) >= 0 || errno == EINTR))
        left.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    std::signal(SIGPIPE, before);
    return left.empty();
}

bool WorkerProcess::Receive(std::string& bytes) {
    const std::size_t size = bytes.size();
    bytes.resize(size + kReadSize);
    const ssize_t got = read(state->output.number, bytes.data() + size, kReadSize);
    const bool nothingYet = got < 0 && (errno == EAGAIN || errno == EINTR);
    bytes.resize(size + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    return got > 0 || nothingYet;
}

std::string WorkerProcess::HowItEnded() {
    const int status = state->Reap();
    if (!WIFSIGNALED(status))
        return "its process ended with exit code " + std::to_string(WEXITSTATUS(status)) + " without a result";
    const int signal = WTERMSIG(status);
    return "its process was ended by signal " + std::to_string(signal) + " (" + strsignal(signal) + ")" +
           (signal == SIGKILL ? ", probably by the system because memory ran out" : "");
}

void WorkerProcess::WaitForAny(const std::vector<WorkerProcess*>& processes, std::chrono::milliseconds longest) {
    std::vector<pollfd> polled;
    for (const WorkerProcess* process : processes)
        polled.push_back({process->state->output.number, POLLIN, 0});
    poll(polled.data(), polled.size(), static_cast<int>(longest.count()));
}

} // namespace Batch
