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
#include <optional>
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

JobOutput InspectOne(const Sim::AircraftInfo& info, const std::optional<std::string>& panel,
                     const Annotator::LoadOptions& load) {
    CockpitModel::GaugeRepository repository(boost::filesystem::current_path().string());
    const Annotator::OpenedAircraft opened = Annotator::OpenAircraft(info, repository, load.reading);
    if (panel) {
        std::istringstream configuration(*panel);
        opened.panels->Read(configuration, repository);
    }
    const Annotator::BuiltAircraft built = Annotator::BuildAircraft(opened, load);
    std::ostringstream json;
    WriteCockpitJson(json, info, *opened.cockpit, *built.sceneGraph, panel ? opened.panels.get() : nullptr);
    return {std::move(json).str(), built.model->remarks};
}

ExitCode Inspect(const InspectOptions& options, Session& session) {
    const Sim::AircraftList list = LoadInstallation(session.console);
    const Sim::AircraftInfo& info = SelectAircraft(list, options.aircraft.name);
    std::optional<std::string> panel;
    if (!options.panel.empty()) {
        panel = ReadPanel(session.ResolveArgument(options.panel));
        session.console.Message("no gauges are available, so the panels have no entries");
    }
    PrintJson(RunJob(info, session.console,
                     [&](const Sim::AircraftInfo& one) { return InspectOne(one, panel, options.aircraft.load); }));
    return kDone;
}

} // namespace

Action PrepareInspect(CLI::App& app) {
    auto options = std::make_shared<InspectOptions>();
    app.add_option("--panel", options->panel, "Read this panel configuration for the aircraft and include its panels")
        ->type_name("FILE");
    AddFullOption(app, options->aircraft.load);
    AddAircraftOptions(app, options->aircraft);
    return [options](Session& session) { return Inspect(*options, session); };
}

} // namespace Batch
