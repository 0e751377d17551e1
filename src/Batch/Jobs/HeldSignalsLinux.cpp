#include "Batch/Jobs/HeldSignals.h"

#include <initializer_list>

namespace Batch {

HeldSignals::HeldSignals() {
    sigset_t ending;
    sigemptyset(&ending);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&ending, signal);
    sigprocmask(SIG_BLOCK, &ending, &before);
}

HeldSignals::~HeldSignals() {
    sigprocmask(SIG_SETMASK, &before, nullptr);
}

} // namespace Batch
