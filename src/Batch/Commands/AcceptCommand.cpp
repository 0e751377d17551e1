#include "Annotator/AircraftLoading.h"
#include "Batch/AircraftSelection.h"
#include "Batch/Commands.h"
#include "Batch/Jobs/Jobs.h"
#include "Batch/Jobs/ScopedSignalBlock.h"
#include "Batch/Reports/Json.h"
#include "CockpitModel/Annotations/AnnotationStore.h"
#include "CockpitModel/Annotations/AnnotationXml.h"
#include "Utils/Paths.h"

#include <CLI/CLI.hpp>
#include <boost/filesystem/operations.hpp>
#include <iostream>
#include <map>
#include <memory>

namespace Batch {

namespace {

using CockpitModel::AnnotationRecord;
using CockpitModel::NodePart;

struct AcceptOptions {
    bool dryRun = false;
    bool yoke = false;
    Annotator::LoadOptions load;
    std::size_t jobs = DefaultProcesses();
    std::vector<std::string> aircraft;
};

/// Yoke types are only found on parts without a rectangle.
bool NeedsExpectation(const NodePart& part, bool yoke) {
    return part.Rect() || (yoke && IsYoke(part.InteractionType));
}

/// The parts that are to get an expectation, on their way to the parent.
std::string FindNew(const Sim::AircraftInfo& info, const AcceptOptions& options) {
    CockpitModel::GaugeRepository repository(boost::filesystem::current_path().string());
    const Annotator::OpenedAircraft opened = Annotator::OpenAircraft(info, repository);
    const Annotator::BuiltAircraft built = Annotator::BuildAircraft(opened, options.load);
    CockpitModel::AnnotationStore store(*built.sceneGraph);
    store.Read(CockpitModel::AnnotationFile(info));
    Json found = Json::array();
    for (const auto& node : built.sceneGraph->Nodes())
        for (const auto& part : node->parts)
            if (NeedsExpectation(*part, options.yoke) && !store.Evaluate(*part).hasTest)
                found.push_back({{"nodeId", node->index},
                                 {"partId", part->id},
                                 {"mouseRect", JsonText(part->Rect() ? part->Rect()->Text : std::string())},
                                 {"detected", TouchInteractionTypeToText(part->InteractionType)}});
    return found.dump();
}

/// Empty where there is none yet.
std::string ReadAnnotationFile(const std::string& path) {
    std::string xml = Utils::ReadFile(path);
    boost::system::error_code error;
    if (xml.empty() && boost::filesystem::exists(path, error) && boost::filesystem::file_size(path, error) > 0)
        throw std::runtime_error("it cannot be read");
    return xml;
}

/// Gathers expectations by annotation file, which aircraft in folders of one name share, and saves them.
class ExpectationWriter {
public:
    explicit ExpectationWriter(Console& messages) : console(messages) {}

    void Take(const Sim::AircraftInfo& info, const JobResult& result) {
        if (result.failure) {
            console.Message(NameOf(info) + ": " + *result.failure);
            aircraftFailed = true;
            return;
        }
        const std::string path = CockpitModel::AnnotationFile(info);
        File& file = files[path];
        if (!file.ofAircraft.empty())
            console.Message(path + " is of both " + file.ofAircraft + " and " + NameOf(info) +
                            "; what it has for the former stands");
        file.ofAircraft = NameOf(info);
        const Json parts = Json::parse(result.output);
        std::cout << NameOf(info) << ": " << Counted(parts.size(), "new expectation") << " for " << Shown(path) << '\n';
        for (const Json& part : parts)
            Add(file, part);
    }

    /// A file that cannot be taken up stays as it is; the others are saved all the same.
    ExitCode Finish(bool dryRun) {
        std::size_t added = 0, changed = 0;
        for (const auto& [path, file] : files) {
            if (file.expectations.empty() || !Save(path, file, dryRun))
                continue;
            added += file.expectations.size();
            ++changed;
        }
        console.Message(Counted(added, "expectation") + (dryRun ? " would be added to " : " added to ") +
                        Counted(changed, "annotation file"));
        return notWritten ? kNotWritten : aircraftFailed ? kAircraftFailed : kDone;
    }

private:
    struct File {
        std::string ofAircraft;
        std::map<std::pair<std::int32_t, std::int32_t>, AnnotationRecord> expectations; ///< by node and part
    };

    static void Add(File& file, const Json& part) {
        AnnotationRecord record{.NodeId = part.at("nodeId"), .PartId = part.at("partId")};
        const std::string detected = part.at("detected"), rectangle = part.at("mouseRect");
        record.InteractionTypeTest = CockpitModel::TouchInteractionTypeFromText(detected);
        if (file.expectations.try_emplace({record.NodeId, record.PartId}, record).second)
            std::cout << "  node " << record.NodeId << " part " << record.PartId << ": " << detected
                      << (rectangle.empty() ? "" : ", " + Shown(rectangle)) << '\n';
    }

    bool Save(const std::string& path, const File& file, bool dryRun) {
        std::vector<AnnotationRecord> records;
        for (const auto& [place, record] : file.expectations)
            records.push_back(record);
        try {
            const std::string xml = CockpitModel::AddExpectations(ReadAnnotationFile(path), records);
            return dryRun || Write(path, xml);
        } catch (const std::runtime_error& error) {
            console.Message(path + ": " + error.what());
            aircraftFailed = true;
            return false;
        }
    }

    bool Write(const std::string& path, const std::string& xml) {
        boost::system::error_code error; // whose reason the save gives as well
        boost::filesystem::create_directories(boost::filesystem::path(path).parent_path(), error);
        const Utils::SaveResult saved = SaveWithSignalsHeld(path, xml);
        if (!saved)
            console.Message(saved.error);
        notWritten |= !saved;
        return saved.saved;
    }

    Console& console;
    std::map<std::string, File> files; ///< by path
    bool aircraftFailed = false, notWritten = false;
};

ExitCode Accept(const AcceptOptions& options, Session& session) {
    const Sim::AircraftList list = LoadInstallation(session.console);
    const AircraftSelection aircraft = SelectAircraft(list, options.aircraft);
    ExpectationWriter acceptance(session.console);
    RunJobs(
        aircraft, options.jobs, [&](const Sim::AircraftInfo& info) { return FindNew(info, options); },
        [&](const JobResult& result) { acceptance.Take(*result.aircraft, result); });
    FlushPrinted(); // shown before anything is saved
    return acceptance.Finish(options.dryRun);
}

} // namespace

Action PrepareAccept(CLI::App& app) {
    auto options = std::make_shared<AcceptOptions>();
    app.add_flag("--dry-run", options->dryRun, "Only shows what would be added");
    app.add_flag("--yoke", options->yoke, "Records yoke parts too, which have no mouse rectangle");
    AddUntexturedOption(app, options->load);
    AddJobsOption(app, options->jobs);
    app.add_option("AIRCRAFT", options->aircraft, "These aircraft")->type_name("")->required();
    return [options](Session& session) { return Accept(*options, session); };
}

} // namespace Batch
