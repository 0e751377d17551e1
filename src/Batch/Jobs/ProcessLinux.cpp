#include "Batch/Jobs/Process.h"

#include <unistd.h>

namespace Batch {

std::vector<std::string> StartProcess(int argc, char** argv) {
    return {argv + (argc > 0), argv + argc};
}

bool ErrorsGoToTerminal() {
    return isatty(STDERR_FILENO) != 0;
}

// Jobs run in forks of the process; none is started for a particular job.
const std::string* JobAircraft() {
    return nullptr;
}

} // namespace Batch
