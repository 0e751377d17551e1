#pragma once

#include <functional>
#include <sched.h>
#include <string>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

/// Processes that a test may change for good: their rights, their file systems, their one log.
namespace Support {

constexpr int kCannotTry = 77;

/// A process that ends with the function's result, or by a signal where it throws.
inline pid_t Fork(const std::function<int()>& run) {
    const pid_t child = fork();
    if (child == 0)
        _exit([&]() noexcept { return run(); }());
    return child;
}

/// Waits for a process; -1 for one that a signal ended.
inline int ExitCode(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Gives up the rights of root, which needs none. False where that is not allowed.
inline bool BecomeNobody() {
    constexpr uid_t kNobody = 65534;
    return geteuid() != 0 || setresuid(kNobody, kNobody, kNobody) == 0;
}

/// Lays an empty file system over a folder for this process alone. False where that is not allowed.
inline bool MountSmall(const std::string& folder, const char* size) {
    if (unshare(CLONE_NEWNS) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
    return mount("tmpfs", folder.c_str(), "tmpfs", 0, (std::string("size=") + size).c_str()) == 0;
}

} // namespace Support
