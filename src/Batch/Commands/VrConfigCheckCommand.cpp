#include "Annotator/Lint/VrConfigCheck.h"
#include "Batch/Commands.h"
#include "Batch/Reports/FindingsReport.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace Batch {

Action PrepareVrConfigCheck(CLI::App& app) {
    auto options = std::make_shared<FindingsOptions>();
    AddFindingsOptions(app, *options);
    AddSelectionOptions(app, options->aircraft);
    return {[options](Session& session) { return ReportFindings(*options, session); },
            [](const Sim::AircraftInfo& info, const std::string&) {
                return SerialiseFindings(Annotator::CheckVrConfig(info));
            }};
}

} // namespace Batch
