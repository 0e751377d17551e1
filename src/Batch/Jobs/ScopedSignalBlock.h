#pragma once

#include "Utils/NonAssignable.h"
#include "Utils/SaveFile.h"

#ifndef _WIN32
#include <csignal>
#endif

namespace Batch {

/// While one lives, the signals by which a person or a system ends the program wait, so that what is written meanwhile
/// is written whole. One at a time, and for no longer than a file takes: the user waits as well.
class ScopedSignalBlock : public Utils::NonAssignable {
public:
    ScopedSignalBlock();
    ~ScopedSignalBlock();

#ifndef _WIN32
private:
    sigset_t before{}; ///< what was held without this
#endif
};

/// A signal ends the program before the file or after it.
inline Utils::SaveResult SaveWithSignalsHeld(const std::string& path, std::string_view bytes) {
    const ScopedSignalBlock held;
    return Utils::SaveFile(path, bytes);
}

} // namespace Batch
