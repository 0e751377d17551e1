#include "Annotator/AircraftLoading.h"
#include "Annotator/DataFiles.h"
#include "Annotator/DetectedDataFile.h"
#include "Batch/AircraftSelection.h"
#include "Batch/Commands.h"
#include "Batch/Jobs/Jobs.h"
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
    std::size_t jobs = DefaultProcesses();
    Annotator::LoadOptions load;
    std::vector<std::string> aircraft;
};

std::string DetectOne(const Sim::AircraftInfo& info, const Annotator::LoadOptions& load) {
    Logging::Logger& log = Logging::Logger::Get();
    log.Log(HERE, "Loading aircraft for output: " + info.displayName + " - " + info.acfPath);
    try {
        CockpitModel::GaugeRepository repository(boost::filesystem::current_path().string());
        const Annotator::OpenedAircraft opened = Annotator::OpenAircraft(info, repository);
        return Annotator::DetectedDataXml(*Annotator::BuildAircraft(opened, load).sceneGraph);
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

    void Take(const JobResult& result) {
        if (result.failure) {
            console.Message(NameOf(*result.aircraft) + ": " + *result.failure);
            ++failed;
        } else {
            Write(*result.aircraft, result.output);
        }
    }

    ExitCode Finish(std::size_t aircraft) const {
        console.Message(Counted(files.size(), "detected-data file") + " in " + shown + ", " + std::to_string(failed) +
                        " of " + std::to_string(aircraft) + " aircraft failed");
        return notWritten ? kNotWritten : failed > 0 ? kAircraftFailed : kDone;
    }

private:
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

    std::string folder, shown;
    Console& console;
    std::map<std::string, const Sim::AircraftInfo*> files; ///< by name, whose they are
    std::size_t failed = 0;
    bool notWritten = false;
};

ExitCode Detect(const DetectOptions& options, Session& session) {
    const Sim::AircraftList list = LoadInstallation(session.console);
    const AircraftSelection aircraft = SelectAircraft(list, options.aircraft);
    const std::string folder = options.folder.empty() ? Annotator::DetectedDataFolder() : options.folder;
    // What writes into QVRA leaves it whole, so that the desktop tool finds its own there.
    if (const std::string problem = options.folder.empty() ? Annotator::InstallDataFiles() : ""; !problem.empty())
        session.console.Message(problem);
    DetectedDataWriter writer(options.folder.empty() ? folder : session.ResolveArgument(folder), folder,
                              session.console);
    session.console.BeginProgress(aircraft.size());
    RunJobs(
        aircraft, options.jobs, [&](const Sim::AircraftInfo& info) { return DetectOne(info, options.load); },
        [&](const JobResult& result) {
            writer.Take(result);
            session.console.Advance();
        });
    session.console.EndProgress();
    return writer.Finish(aircraft.size());
}

} // namespace

Action PrepareDetect(CLI::App& app) {
    auto options = std::make_shared<DetectOptions>();
    app.add_option("--out", options->folder, "Where the files go; QVRA/AirLogs/... of the installation without it")
        ->type_name("DIR");
    AddUntexturedOption(app, options->load);
    AddJobsOption(app, options->jobs);
    AddAircraftOption(app, options->aircraft);
    return [options](Session& session) { return Detect(*options, session); };
}

} // namespace Batch
