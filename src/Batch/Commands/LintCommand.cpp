#include "Batch/Commands.h"
#include "Batch/Reports/FindingsReport.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace Batch {

Action PrepareLint(CLI::App& app) {
    auto options = std::make_shared<FindingsOptions>();
    AddFindingsOptions(app, *options);
    AddFullOption(app, options->aircraft.load);
    AddSelectionOptions(app, options->aircraft);
    return {[options](Session& session) { return ReportFindings(*options, session); },
            [options](const Sim::AircraftInfo& info, const std::string&) {
                return SerialiseFindings(Annotator::LintAircraft(info, options->aircraft.load.reading));
            }};
}

} // namespace Batch
