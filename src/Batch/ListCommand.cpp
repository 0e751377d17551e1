#include "Batch/AircraftSelection.h"
#include "Batch/Commands.h"
#include "Utils/Text.h"

#include <iostream>

namespace Batch {

namespace {

ExitCode List(Session& session) {
    for (const auto& info : LoadInstallation(session.console))
        std::cout << Utils::Readable(info->acfPath) << '\t' << Utils::Readable(info->displayName) << '\n';
    return kDone;
}

} // namespace

Action PrepareList(CLI::App&) {
    return List;
}

} // namespace Batch
