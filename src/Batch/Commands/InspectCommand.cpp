#include "Annotator/AircraftLoading.h"
#include "Batch/AircraftOptions.h"
#include "Batch/AircraftSelection.h"
#include "Batch/Commands.h"
#include "Batch/Commands/CockpitJson.h"
#include "Batch/Jobs/Jobs.h"
#include "Utils/Paths.h"

#include <CLI/CLI.hpp>
#include <boost/filesystem/operations.hpp>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <memory>
#include <sstream>

namespace Batch {

namespace {

struct InspectOptions {
    std::string panel; ///< a panel configuration to use instead of the aircraft's own
    SingleAircraftOptions aircraft;
};

/// The configuration's text. Opening a folder succeeds; its first read fails.
std::string ReadPanel(const std::string& path) {
    std::ifstream file(Utils::StreamPath(path), std::ios::binary);
    std::ostringstream text;
    if (!file || (file.peek() != EOF && !(text << file.rdbuf())) || file.bad())
        throw CommandError(kAircraftFailed, "cannot read " + path + ": " + std::strerror(errno));
    return std::move(text).str();
}

/// `panelText` is the text of the options' panel configuration.
JobOutput InspectOne(const Sim::AircraftInfo& info, const InspectOptions& options, const std::string& panelText) {
    CockpitModel::GaugeRepository repository(boost::filesystem::current_path().string());
    const Annotator::OpenedAircraft opened = Annotator::OpenAircraft(info, repository, options.aircraft.load.reading);
    const bool hasPanel = !options.panel.empty();
    if (hasPanel) {
        std::istringstream configuration(panelText);
        opened.panels->Read(configuration, repository);
    }
    const Annotator::BuiltAircraft built = Annotator::BuildAircraft(opened, options.aircraft.load);
    std::ostringstream json;
    WriteCockpitJson(json, info, *opened.cockpit, *built.sceneGraph, hasPanel ? opened.panels.get() : nullptr);
    return {std::move(json).str(), built.model->remarks};
}

ExitCode Inspect(const InspectOptions& options, Session& session) {
    const Sim::AircraftList list = LoadInstallation(session.console);
    const Sim::AircraftInfo& info = SelectAircraft(list, options.aircraft.name);
    std::string panel;
    if (!options.panel.empty()) {
        panel = ReadPanel(session.ResolveArgument(options.panel));
        session.console.Message("no gauges are available, so the panels have no entries");
    }
    PrintJson(RunJob(info, session.console, options.aircraft.limits.timeout, panel));
    return kDone;
}

} // namespace

Action PrepareInspect(CLI::App& app) {
    auto options = std::make_shared<InspectOptions>();
    app.add_option("--panel", options->panel, "Read this panel configuration for the aircraft and include its panels")
        ->type_name("FILE");
    AddFullOption(app, options->aircraft.load);
    AddAircraftOptions(app, options->aircraft);
    return {[options](Session& session) { return Inspect(*options, session); },
            [options](const Sim::AircraftInfo& info, const std::string& panel) {
                return InspectOne(info, *options, panel);
            }};
}

} // namespace Batch
