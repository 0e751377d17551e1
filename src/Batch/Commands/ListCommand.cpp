#include "Batch/AircraftSelection.h"
#include "Batch/Commands.h"

#include <iostream>

namespace Batch {

namespace {

ExitCode List(Session& session) {
    for (const auto& info : LoadInstallation(session.console))
        std::cout << Shown(info->acfPath) << '\t' << Shown(info->displayName) << '\n';
    return kDone;
}

} // namespace

Action PrepareList(CLI::App&) {
    return {List};
}

} // namespace Batch
