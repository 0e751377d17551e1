#include "Annotator/AircraftLoading.h"
#include "Annotator/DataFiles.h"
#include "Annotator/DetectedDataExport.h"
#include "Batch/AircraftSelection.h"
#include "Batch/Commands.h"
#include "Batch/ForEachAircraft.h"
#include "Batch/Jobs/ScopedSignalBlock.h"
#include "Logging/Logger.h"

#include <CLI/CLI.hpp>
#include <boost/filesystem/operations.hpp>
#include <map>
#include <memory>

namespace Batch {

namespace {

struct DetectOptions {
    std::string folder; ///< empty for the one of the desktop tool's menu entry
    AircraftOptions aircraft;
};

std::string DetectOne(const Sim::AircraftInfo& info, const Annotator::LoadOptions& load) {
    Logging::Logger& log = Logging::Logger::Get();
    log.Log(HERE, "Loading aircraft for output: " + info.displayName + " - " + info.acfPath);
    try {
        return Annotator::DetectedDataXml(*Annotator::LoadAircraft(info, load).built.sceneGraph);
    } catch (const std::exception&) {
        // As the desktop tool logs it; the reason goes to whoever called the program.
        log.Log(HERE, "Failed to load model.  Skipping...");
        throw;
    }
}

/// Writes results, which come in list order: where two aircraft have the same file, the later one stands.
class DetectedDataWriter {
public:
    /// `shownFolder` is what the caller calls it.
    DetectedDataWriter(std::string outputFolder, std::string shownFolder, Console& messages)
        : folder(std::move(outputFolder)), shown(std::move(shownFolder)), console(messages) {
        boost::system::error_code error;
        boost::filesystem::create_directories(folder, error);
        if (error)
            throw CommandError(kNotWritten, "cannot make the folder " + folder + ": " + error.message());
    }

    void Write(const Sim::AircraftInfo& info, const std::string& xml) {
        const std::string name = Annotator::DetectedDataFileName(info);
        const std::string path = (boost::filesystem::path(folder) / name).string();
        if (const auto saved = SaveWithSignalsHeld(path, xml); !saved) {
            console.Message(saved.error);
            notWritten = true;
            return;
        }
        const auto [earlier, isNew] = files.try_emplace(name, &info);
        if (!isNew)
            console.Message(path + " is of both " + NameOf(*earlier->second) + " and " + NameOf(info) +
                            "; the latter stands");
        earlier->second = &info;
    }

    ExitCode Finish(std::size_t aircraft, std::size_t failed) const {
        console.Message(Counted(files.size(), "detected-data file") + " in " + shown + ", " + std::to_string(failed) +
                        " of " + std::to_string(aircraft) + " aircraft failed");
        return notWritten ? kNotWritten : failed > 0 ? kAircraftFailed : kDone;
    }

private:
    std::string folder, shown;
    Console& console;
    std::map<std::string, const Sim::AircraftInfo*> files; ///< by name, whose they are
    bool notWritten = false;
};

ExitCode Detect(const DetectOptions& options, Session& session) {
    const SelectedAircraft aircraft = LoadSelection(options.aircraft, session.console);
    const std::string folder = options.folder.empty() ? Annotator::DetectedDataFolder() : options.folder;
    // What writes into QVRA leaves it whole, so that the desktop tool finds its own there.
    if (const std::string problem = options.folder.empty() ? Annotator::InstallDataFiles() : ""; !problem.empty())
        session.console.Message(problem);
    DetectedDataWriter writer(options.folder.empty() ? folder : session.ResolveArgument(folder), folder,
                              session.console);
    const std::size_t failed = ForEachAircraft(
        aircraft, session.console,
        [&](const Sim::AircraftInfo& info) { return DetectOne(info, options.aircraft.load); },
        {.take = [&](const Sim::AircraftInfo& info, const std::string& xml) { writer.Write(info, xml); },
         .showsProgress = true});
    return writer.Finish(aircraft.selection.size(), failed);
}

} // namespace

Action PrepareDetect(CLI::App& app) {
    auto options = std::make_shared<DetectOptions>();
    app.add_option("--out", options->folder, "Where the files go; QVRA/AirLogs/... of the installation without it")
        ->type_name("DIR");
    AddAircraftOptions(app, options->aircraft);
    return [options](Session& session) { return Detect(*options, session); };
}

} // namespace Batch
