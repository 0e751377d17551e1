#include "Annotator/AircraftLoading.h"
#include "Annotator/DataFiles.h"
#include "Annotator/DetectedDataFile.h"
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
    std::string folder; ///< empty for the desktop tool's export folder
    AircraftOptions aircraft;
};

JobOutput DetectOne(const Sim::AircraftInfo& info, const Annotator::LoadOptions& load) {
    Logging::Logger& log = Logging::Logger::Get();
    log.Log(HERE, "Loading aircraft for output: " + info.displayName + " - " + info.acfPath);
    try {
        const Annotator::LoadedAircraft aircraft = Annotator::LoadAircraft(info, load);
        return {Annotator::DetectedDataXml(*aircraft.built.sceneGraph), aircraft.built.model->remarks};
    } catch (const std::exception&) {
        // The same line as in the desktop tool's log; the reason goes to the caller of the program.
        log.Log(HERE, "Failed to load model.  Skipping...");
        throw;
    }
}

/// Writes results in list order: if two aircraft have the same file name, the later one overwrites the file.
class DetectedDataWriter {
public:
    /// `shownFolder` is the folder as the caller wrote it.
    DetectedDataWriter(std::string outputFolder, std::string shownFolder, Console& messages)
        : folder(std::move(outputFolder)), shown(std::move(shownFolder)), console(messages) {
        boost::system::error_code error;
        boost::filesystem::create_directories(folder, error);
        if (error)
            throw CommandError(kNotWritten, "cannot create the folder " + folder + ": " + error.message());
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
            console.Message(path + " belongs to both " + NameOf(*earlier->second) + " and " + NameOf(info) +
                            "; it now contains the data of the latter");
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
    std::map<std::string, const Sim::AircraftInfo*> files; ///< the aircraft of each file, by file name
    bool notWritten = false;
};

ExitCode Detect(const DetectOptions& options, Session& session) {
    const SelectedAircraft aircraft = LoadSelection(options.aircraft, session.console);
    const std::string folder =
        options.folder.empty() ? Annotator::DetectedDataFolder(options.aircraft.load.reading) : options.folder;
    // A command that writes into QVRA also installs the data files that the desktop tool needs there.
    if (const std::string problem = options.folder.empty() ? Annotator::InstallDataFiles() : ""; !problem.empty())
        session.console.Message(problem);
    DetectedDataWriter writer(options.folder.empty() ? folder : session.ResolveArgument(folder), folder,
                              session.console);
    const std::size_t failed = ForEachAircraft(
        aircraft, session.console,
        {.take = [&](const Sim::AircraftInfo& info, const std::string& xml) { writer.Write(info, xml); },
         .showsProgress = true});
    return writer.Finish(aircraft.selection.size(), failed);
}

} // namespace

Action PrepareDetect(CLI::App& app) {
    auto options = std::make_shared<DetectOptions>();
    app.add_option("--out", options->folder, "Folder for the files (default: QVRA/AirLogs/... in the installation)")
        ->type_name("DIR");
    AddFullOption(app, options->aircraft.load);
    AddAircraftOptions(app, options->aircraft);
    return {[options](Session& session) { return Detect(*options, session); },
            [options](const Sim::AircraftInfo& info, const std::string&) {
                return DetectOne(info, options->aircraft.load);
            }};
}

} // namespace Batch
