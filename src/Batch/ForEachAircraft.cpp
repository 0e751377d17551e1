#include "Batch/ForEachAircraft.h"

namespace Batch {

namespace {

/// True if the job failed.
bool Use(const JobResult& result, Console& console, const ResultUse& use) {
    const Sim::AircraftInfo& info = *result.aircraft;
    for (const std::string& remark : result.remarks)
        console.Message(NameOf(info) + ": " + remark);
    if (!result.failure)
        use.take(info, result.output);
    else if (use.fail)
        use.fail(info, *result.failure);
    else
        console.Message(NameOf(info) + ": " + *result.failure);
    return result.failure.has_value();
}

} // namespace

SelectedAircraft LoadSelection(const AircraftOptions& options, Console& console) {
    SelectedAircraft aircraft;
    aircraft.list = LoadInstallation(console);
    aircraft.selection = SelectAircraft(aircraft.list, options.names);
    aircraft.limits = options.limits;
    return aircraft;
}

std::size_t ForEachAircraft(const SelectedAircraft& aircraft, Console& console, const ResultUse& use) {
    std::size_t failed = 0;
    if (use.showsProgress)
        console.BeginProgress(aircraft.selection.size());
    RunJobs(aircraft.selection, aircraft.limits, [&](const JobResult& result) {
        failed += Use(result, console, use);
        if (use.showsProgress)
            console.Advance();
    });
    if (use.showsProgress)
        console.EndProgress();
    return failed;
}

} // namespace Batch
