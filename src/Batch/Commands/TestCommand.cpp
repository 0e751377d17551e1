#include "Batch/Commands.h"
#include "Batch/Commands/PictureJobs.h"
#include "Batch/ForEachAircraft.h"
#include "Batch/Reports/PublishReport.h"
#include "Utils/Text.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace Batch {

namespace {

struct TestOptions {
    ReportOptions reports;
    bool pictures = false;
    bool vrConfig = false; ///< the expectations are those of the _vrconfig.txt files
    AircraftOptions aircraft;
};

std::optional<Annotator::AircraftResult> Check(const Sim::AircraftInfo& info, const TestOptions& options,
                                               const Annotator::LoadedUse& onFailed) {
    if (options.vrConfig)
        return Annotator::TestVrConfig(info, onFailed);
    return Annotator::CheckAircraft(info, options.aircraft.load, onFailed);
}

/// The tests of an aircraft, encoded for the parent process; empty for an aircraft without annotations.
JobOutput TestOne(const Sim::AircraftInfo& info, const TestOptions& options) {
    std::vector<std::string> remarks;
    const auto draw = [&](const Annotator::LoadedAircraft& aircraft, const CockpitModel::AnnotationStore& annotations,
                          Annotator::AircraftResult& tests) {
        remarks = DrawFailedParts(aircraft, annotations, tests);
    };
    try {
        const std::optional<Annotator::AircraftResult> tests =
            Check(info, options, options.pictures ? draw : Annotator::LoadedUse());
        return {tests ? SerialiseAircraft({*tests, FindProblems(*tests)}) : std::string(), remarks};
    } catch (const Annotator::AircraftCheckError& error) {
        std::rethrow_if_nested(error); // the cause, without the aircraft's name, which the parent adds
        throw;
    }
}

AircraftReport Unloaded(const Sim::AircraftInfo& info, const TestOptions& options, const std::string& reason) {
    AircraftReport report;
    report.tests.reading = options.aircraft.load.reading;
    if (options.vrConfig)
        report.tests.source = Annotator::ExpectationSource::VrConfig;
    report.tests.displayName = Utils::ToValidUtf8(info.displayName);
    report.tests.acfPath = Utils::ToValidUtf8(info.acfPath);
    report.problems.push_back(Utils::ToValidUtf8(reason));
    return report;
}

ExitCode Test(const TestOptions& options, Session& session) {
    const SelectedAircraft aircraft = LoadSelection(options.aircraft, session.console);
    if (options.pictures)
        RequirePictureData();
    TestReport report;
    const auto take = [&](const Sim::AircraftInfo&, const std::string& output) {
        if (!output.empty())
            report.push_back(ParseAircraft(output));
    };
    const auto fail = [&](const Sim::AircraftInfo& info, const std::string& reason) {
        report.push_back(Unloaded(info, options, reason));
    };
    ForEachAircraft(aircraft, session.console, {.take = take, .fail = fail, .showsProgress = true});
    return PublishReport(report, options.reports, session);
}

} // namespace

Action PrepareTest(CLI::App& app) {
    auto options = std::make_shared<TestOptions>();
    AddReportOptions(app, options->reports);
    app.add_flag("--pictures", options->pictures, "Show each failed part in the HTML page; needs --html")
        ->needs(app.get_option("--html"));
    AddFullOption(app, options->aircraft.load);
    app.add_flag_callback(
        "--vrconfig",
        [options] {
            options->vrConfig = true;
            UseFullReading(options->aircraft.load);
        },
        "Test against the _vrconfig.txt of each aircraft instead; implies --full");
    AddAircraftOptions(app, options->aircraft);
    return {[options](Session& session) { return Test(*options, session); },
            [options](const Sim::AircraftInfo& info, const std::string&) {
                if (options->pictures)
                    RequirePictureData();
                return TestOne(info, *options);
            }};
}

} // namespace Batch
