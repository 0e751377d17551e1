#pragma once

#include <functional>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

/// Processes that a test may change permanently: their permissions, their log.
namespace Support {

/// Runs a function in a new process that exits with its result, or by a signal if it throws.
inline pid_t Fork(const std::function<int()>& run) {
    const pid_t child = fork();
    if (child == 0)
        _exit([&]() noexcept { return run(); }());
    return child;
}

/// Waits for a process; -1 if a signal ended it.
inline int ExitCode(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Drops root privileges, which bypass file permissions. False if that is not allowed.
inline bool BecomeNobody() {
    constexpr uid_t kNobody = 65534;
    return geteuid() != 0 || setresuid(kNobody, kNobody, kNobody) == 0;
}

} // namespace Support
