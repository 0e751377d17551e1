#include "Batch/AircraftOptions.h"

#include "Utils/Numbers.h"

#include <CLI/CLI.hpp>

namespace Batch {

namespace {

constexpr std::size_t kMostJobs = 1024;
constexpr std::size_t kLongestTimeout = 86'400; // seconds

void AddUntexturedOption(CLI::App& app, Annotator::LoadOptions& load) {
    app.add_flag("--untextured", load.untextured,
                 "Also load cockpits that have parts without TEXTURE; they get a plain material");
}

/// A whole number from 1 to `greatest`.
std::size_t ParseNumber(const char* option, const std::string& text, std::size_t greatest) {
    const auto number = Utils::ParseWhole<std::size_t>(text);
    if (!number || *number < 1 || *number > greatest)
        throw CLI::ValidationError(option, "'" + text + "' is not a number from 1 to " + std::to_string(greatest));
    return *number;
}

void AddJobsOption(CLI::App& app, std::size_t& jobs) {
    app.add_option_function<std::string>(
           "--jobs,-j", [&jobs](const std::string& text) { jobs = ParseNumber("--jobs", text, kMostJobs); },
           "Aircraft to process in parallel (default: number of processors)")
        ->type_name("N");
}

void AddTimeoutOption(CLI::App& app, std::chrono::milliseconds& timeout) {
    const auto parse = [&timeout](const std::string& text) {
        timeout = std::chrono::seconds(ParseNumber("--timeout", text, kLongestTimeout));
    };
    app.add_option_function<std::string>("--timeout", parse, "Longest time for one aircraft (default: 60)")
        ->type_name("SECONDS");
}

} // namespace

CLI::Option* AddAircraftOptions(CLI::App& app, AircraftOptions& options) {
    AddUntexturedOption(app, options.load);
    return AddSelectionOptions(app, options);
}

void UseFullReading(Annotator::LoadOptions& load) {
    load.reading = CockpitModel::Reading::Full;
    load.untextured = true;
}

void AddFullOption(CLI::App& app, Annotator::LoadOptions& load) {
    app.add_flag_callback(
        "--full", [&load] { UseFullReading(load); },
        "Also read all other manipulators, key frames and attached objects; implies --untextured");
}

CLI::Option* AddSelectionOptions(CLI::App& app, AircraftOptions& options) {
    AddJobsOption(app, options.limits.processes);
    AddTimeoutOption(app, options.limits.timeout);
    return app.add_option("AIRCRAFT", options.names, "Only these aircraft")->type_name("");
}

void AddAircraftOptions(CLI::App& app, SingleAircraftOptions& options) {
    AddUntexturedOption(app, options.load);
    AddSelectionOptions(app, options);
}

void AddSelectionOptions(CLI::App& app, SingleAircraftOptions& options) {
    AddTimeoutOption(app, options.limits.timeout);
    app.add_option("AIRCRAFT", options.name, "Aircraft")->type_name("")->required();
}

} // namespace Batch
