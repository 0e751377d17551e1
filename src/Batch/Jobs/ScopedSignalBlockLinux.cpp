#include "Batch/Jobs/ScopedSignalBlock.h"

#include <initializer_list>

namespace Batch {

ScopedSignalBlock::ScopedSignalBlock() {
    sigset_t ending;
    sigemptyset(&ending);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&ending, signal);
    sigprocmask(SIG_BLOCK, &ending, &before);
}

ScopedSignalBlock::~ScopedSignalBlock() {
    sigprocmask(SIG_SETMASK, &before, nullptr);
}

} // namespace Batch
