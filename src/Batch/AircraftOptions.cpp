#include "Batch/AircraftOptions.h"

#include "Utils/Numbers.h"

#include <CLI/CLI.hpp>

namespace Batch {

namespace {

constexpr std::size_t kMostJobs = 1024;

void AddUntexturedOption(CLI::App& app, Annotator::LoadOptions& load) {
    app.add_flag("--untextured", load.untextured,
                 "Also load cockpits that have parts without TEXTURE; they get a plain material");
}

void AddJobsOption(CLI::App& app, std::size_t& jobs) {
    const auto parse = [&jobs](const std::string& text) {
        const auto number = Utils::ParseWhole<std::size_t>(text);
        if (!number || *number < 1 || *number > kMostJobs)
            throw CLI::ValidationError("--jobs",
                                       "'" + text + "' is not a number from 1 to " + std::to_string(kMostJobs));
        jobs = *number;
    };
    app.add_option_function<std::string>("--jobs,-j", parse,
                                         "Aircraft to process in parallel (default: number of processors)")
        ->type_name("N");
}

} // namespace

CLI::Option* AddAircraftOptions(CLI::App& app, AircraftOptions& options) {
    AddUntexturedOption(app, options.load);
    return AddSelectionOptions(app, options);
}

void AddFullOption(CLI::App& app, Annotator::LoadOptions& load) {
    app.add_flag_callback(
        "--full",
        [&load] {
            load.reading = CockpitModel::Reading::Full;
            load.untextured = true;
        },
        "Also read all other manipulators, key frames and attached objects; implies --untextured");
}

CLI::Option* AddSelectionOptions(CLI::App& app, AircraftOptions& options) {
    AddJobsOption(app, options.jobs);
    return app.add_option("AIRCRAFT", options.names, "Only these aircraft")->type_name("");
}

void AddAircraftOptions(CLI::App& app, SingleAircraftOptions& options) {
    AddUntexturedOption(app, options.load);
    app.add_option("AIRCRAFT", options.name, "Aircraft")->type_name("")->required();
}

} // namespace Batch
