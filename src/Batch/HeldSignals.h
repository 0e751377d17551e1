#pragma once

#include "Utils/NonAssignable.h"

#ifndef _WIN32
#include <csignal>
#endif

namespace Batch {

/// While one lives, the signals by which a person or a system ends the program wait, so that what is written meanwhile
/// is written whole. One at a time.
class HeldSignals : public Utils::NonAssignable {
public:
    HeldSignals();
    ~HeldSignals();

#ifndef _WIN32
    const sigset_t& Before() const {
        return before;
    } ///< what was held without this

private:
    sigset_t before{};
#endif
};

} // namespace Batch
