#pragma once

#include "Utils/NonAssignable.h"

#include <csignal>
#include <fcntl.h>
#include <string>
#include <thread>
#include <unistd.h>

namespace Support {

/// A file whose opening by another process waits until this object lets go of it, by a lease of the kernel's. Where
/// there are no leases, IsHeld is false.
class HeldFile : Utils::NonAssignable {
public:
    explicit HeldFile(const std::string& path) {
        signal(SIGIO, SIG_IGN); // which tells of the other's wait
        descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        held = fcntl(descriptor, F_SETLEASE, F_WRLCK) == 0;
    }
    ~HeldFile() { LetGo(); }

    bool IsHeld() const { return held; }
    /// Returns once another process waits for the file.
    void AwaitReader() const {
        while (fcntl(descriptor, F_GETLEASE) == F_WRLCK)
            std::this_thread::yield();
    }
    void LetGo() {
        if (descriptor >= 0)
            close(descriptor);
        descriptor = -1;
    }

private:
    int descriptor = -1;
    bool held = false;
};

} // namespace Support
