#pragma once

#include "Utils/NonAssignable.h"

#include <csignal>

namespace Batch {

/// While one lives, the signals by which a person or a system ends the program wait, so that what is written meanwhile
/// is written whole.
class HeldSignals : public Utils::NonAssignable {
public:
    HeldSignals() {
        sigset_t ending;
        sigemptyset(&ending);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP})
            sigaddset(&ending, signal);
        sigprocmask(SIG_BLOCK, &ending, &before);
    }
    ~HeldSignals() { sigprocmask(SIG_SETMASK, &before, nullptr); }

    const sigset_t& Before() const { return before; } ///< what was held without this

private:
    sigset_t before{};
};

} // namespace Batch
