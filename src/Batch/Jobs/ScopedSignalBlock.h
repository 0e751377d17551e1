#pragma once

#include "Utils/NonAssignable.h"
#include "Utils/SaveFile.h"

#ifndef _WIN32
#include <csignal>
#endif

namespace Batch {

/// While an object lives, the signals that end the program are deferred, so that a file is written completely. One
/// object at a time, and only for the duration of one file: the user waits too.
class ScopedSignalBlock : public Utils::NonAssignable {
public:
    ScopedSignalBlock();
    ~ScopedSignalBlock();

#ifndef _WIN32
private:
    sigset_t before{}; ///< the previous mask
#endif
};

/// A signal ends the program either before or after the file is saved.
inline Utils::SaveResult SaveWithSignalsHeld(const std::string& path, std::string_view bytes) {
    const ScopedSignalBlock held;
    return Utils::SaveFile(path, bytes);
}

} // namespace Batch
