#include "Annotator/VrConfigWriter.h"
#include "Batch/AircraftOptions.h"
#include "Batch/AircraftSelection.h"
#include "Batch/Commands.h"
#include "Batch/Jobs/Jobs.h"
#include "Batch/Jobs/ScopedSignalBlock.h"
#include "CockpitModel/XPlane/VrConfigFile.h"
#include "Utils/Files.h"
#include "Utils/Paths.h"

#include <CLI/CLI.hpp>
#include <boost/filesystem/operations.hpp>
#include <iostream>
#include <memory>
#include <sstream>
#include <stdexcept>

namespace Batch {

namespace {

using Annotator::VrConfigText;

constexpr const char* kStdout = "-";

struct WriteOptions {
    std::string file; ///< empty for the file beside the .acf
    bool merge = false, force = false;
    SingleAircraftOptions aircraft;
};

/// For the parent process: the counts in a line of their own, then the bytes of the text.
std::string Encode(const VrConfigText& made) {
    return std::to_string(made.hotspots) + ' ' + std::to_string(made.blocks) + ' ' + std::to_string(made.guesses) +
           '\n' + made.text;
}

VrConfigText Decode(const std::string& answer) {
    VrConfigText made;
    const std::size_t end = answer.find('\n');
    std::istringstream counts(answer.substr(0, end));
    counts >> made.hotspots >> made.blocks >> made.guesses;
    made.text = answer.substr(end + 1);
    return made;
}

VrConfigText Merge(const Annotator::LoadedAircraft& aircraft, const CockpitModel::AnnotationStore& annotations,
                   const CockpitModel::AcfPoints& points, const std::string& base) {
    try {
        return MergeVrConfig(aircraft, annotations, points, Utils::ReadFile(base));
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(base + ": " + error.what() +
                                 "; correct it first ('vrconfig check' reports all faults), or use --force");
    }
}

/// `base` is the file to which to add what it lacks; empty for a new text.
JobOutput WriteOne(const Sim::AircraftInfo& info, const Annotator::LoadOptions& load, const std::string& base) {
    const Annotator::LoadedAircraft aircraft = Annotator::LoadAircraft(info, load);
    CockpitModel::AnnotationStore annotations(*aircraft.built.sceneGraph);
    annotations.Read(CockpitModel::FindAnnotations(info, load.reading).path);
    const CockpitModel::AcfPoints points = CockpitModel::ReadAcfPoints(Utils::ReadFile(info.acfPath));
    const VrConfigText made =
        base.empty() ? MakeVrConfig(aircraft, annotations, points) : Merge(aircraft, annotations, points, base);
    return {Encode(made), aircraft.built.model->remarks};
}

std::string CountsText(const VrConfigText& made) {
    return Counted(made.hotspots, "hotspot") + ", " + Counted(made.blocks, "block") + ", " +
           std::to_string(made.guesses) + " of them with a guess";
}

/// The file beside the .acf, in the case that it has if it exists.
std::string OwnFile(const Sim::AircraftInfo& info) {
    const boost::filesystem::path expected = CockpitModel::VrConfigPath(info.acfPath);
    const boost::filesystem::path found = Utils::OnDiskCase(Utils::FindIgnoringCase(expected));
    return (found.empty() ? expected : found).string();
}

class FileWriter {
public:
    FileWriter(const WriteOptions& what, const Sim::AircraftInfo& info, Session& callers)
        : options(what), own(OwnFile(info)), session(callers),
          target(options.file.empty() ? own : session.ResolveArgument(options.file)),
          exists(!ToStdout() && Exists(target)) {
        if (exists && !options.merge && !options.force)
            throw CommandError(kNotWritten,
                               target + " exists; use --merge to add what it lacks, or --force to replace it");
        if (options.merge)
            base = exists ? target : Exists(own) ? own : std::string();
    }

    /// What --merge adds to: the file that is written, else the aircraft's own. Empty if there is neither.
    const std::string& Base() const { return base; }

    void Write(const VrConfigText& made) const {
        if (ToStdout()) {
            std::cout << made.text;
            FlushPrinted();
            session.console.Message(CountsText(made));
        } else if (exists && options.merge && made.hotspots + made.blocks == 0) {
            session.console.Message(target + " lacks nothing and stays as it is");
        } else if (const auto saved = SaveWithSignalsHeld(target, made.text); !saved) {
            throw CommandError(kNotWritten, saved.error);
        } else {
            session.console.Message(target + ": " + (base.empty() ? "wrote " : "added ") + CountsText(made));
        }
    }

private:
    static bool Exists(const std::string& path) {
        boost::system::error_code ignored;
        return boost::filesystem::exists(boost::filesystem::symlink_status(path, ignored));
    }

    bool ToStdout() const { return options.file == kStdout; }

    const WriteOptions& options;
    const std::string own; ///< beside the .acf
    Session& session;
    const std::string target;
    const bool exists;
    std::string base;
};

ExitCode Write(const WriteOptions& options, Session& session) {
    const Sim::AircraftList list = LoadInstallation(session.console);
    const Sim::AircraftInfo& info = SelectAircraft(list, options.aircraft.name);
    const FileWriter writer(options, info, session);
    writer.Write(Decode(RunJob(info, session.console, options.aircraft.limits.timeout, writer.Base())));
    return kDone;
}

} // namespace

Action PrepareVrConfigWrite(CLI::App& app) {
    auto options = std::make_shared<WriteOptions>();
    UseFullReading(options->aircraft.load);
    app.add_option("--out", options->file, "File to write, - for stdout (default: <name>_vrconfig.txt beside the .acf)")
        ->type_name("FILE");
    CLI::Option* const merge =
        app.add_flag("--merge", options->merge, "Add to an existing file what it lacks; its lines stay");
    app.add_flag("--force", options->force, "Replace an existing file")->excludes(merge);
    AddSelectionOptions(app, options->aircraft);
    return {[options](Session& session) { return Write(*options, session); },
            [options](const Sim::AircraftInfo& info, const std::string& base) {
                return WriteOne(info, options->aircraft.load, base);
            }};
}

} // namespace Batch
