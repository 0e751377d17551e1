#include "Batch/Jobs/Process.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace Batch {

namespace {

int answers = -1; ///< of a worker: its standard output at the start

/// So that no pipe gets the number of a standard stream that the caller closed.
void OpenStandardStreams() {
    int file = 0;
    do
        file = open("/dev/null", O_RDONLY);
    while (file >= 0 && file <= STDERR_FILENO);
    close(file);
}

void StartWorker() {
    // If the parent has already ended, so has this process's input.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    answers = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDOUT_FILENO);
    close(nowhere);
}

} // namespace

std::vector<std::string> StartProcess(int argc, char** argv) {
    OpenStandardStreams();
    std::vector<std::string> arguments(argv + (argc > 0), argv + argc);
    if (!arguments.empty() && arguments[0] == kWorkerOption) {
        StartWorker();
        arguments.erase(arguments.begin());
    }
    return arguments;
}

bool ErrorsGoToTerminal() {
    return isatty(STDERR_FILENO) != 0;
}

bool IsWorker() {
    return answers >= 0;
}

bool SendAnswer(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(answers, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
    return true;
}

} // namespace Batch
