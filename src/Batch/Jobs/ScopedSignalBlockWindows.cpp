#include "Batch/Jobs/ScopedSignalBlock.h"

#include <mutex>
#include <windows.h>

namespace Batch {

namespace {

std::mutex holding;

/// Runs on a system thread, which then ends the process. After that nothing is deferred any more.
BOOL WINAPI WaitForWriting(DWORD) {
    holding.lock();
    return FALSE;
}

} // namespace

ScopedSignalBlock::ScopedSignalBlock() {
    static const BOOL installed = SetConsoleCtrlHandler(WaitForWriting, TRUE);
    static_cast<void>(installed);
    holding.lock();
}

ScopedSignalBlock::~ScopedSignalBlock() {
    holding.unlock();
}

} // namespace Batch
