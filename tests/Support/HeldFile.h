#pragma once

#include "Utils/NonAssignable.h"

#include <csignal>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace Support {

/// A file that other processes cannot open until this object releases it, by a kernel lease. If leases are not
/// supported, IsHeld is false.
class HeldFile : Utils::NonAssignable {
public:
    explicit HeldFile(const std::string& path) {
        sigemptyset(&asked);
        sigaddset(&asked, SIGIO); // signals that another process waits
        sigprocmask(SIG_BLOCK, &asked, nullptr);
        descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        held = fcntl(descriptor, F_SETLEASE, F_WRLCK) == 0;
    }
    ~HeldFile() { LetGo(); }

    bool IsHeld() const { return held; }
    /// Returns true once another process waits for the file, false after a minute.
    bool AwaitReader() const {
        const timespec minute{60, 0};
        while (fcntl(descriptor, F_GETLEASE) == F_WRLCK)
            if (sigtimedwait(&asked, nullptr, &minute) < 0)
                return false;
        return true;
    }
    void LetGo() {
        if (descriptor >= 0)
            close(descriptor);
        descriptor = -1;
    }

private:
    sigset_t asked;
    int descriptor = -1;
    bool held = false;
};

} // namespace Support
