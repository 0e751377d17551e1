#include "Annotator/AircraftLoading.h"
#include "Batch/AircraftSelection.h"
#include "Batch/Commands.h"
#include "Batch/ForEachAircraft.h"
#include "Batch/Jobs/ScopedSignalBlock.h"
#include "Batch/Reports/Json.h"
#include "CockpitModel/Annotations/AnnotationStore.h"
#include "CockpitModel/Annotations/AnnotationXml.h"
#include "Utils/Files.h"

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
    AircraftOptions aircraft;
};

/// Yoke types are only found on parts without a rectangle.
bool NeedsExpectation(const NodePart& part, bool yoke) {
    return part.Rect() || (yoke && IsYoke(part.InteractionType));
}

/// The parts that need an expectation, encoded for the parent process.
std::string FindNew(const Sim::AircraftInfo& info, const AcceptOptions& options) {
    const Annotator::LoadedAircraft aircraft = Annotator::LoadAircraft(info, options.aircraft.load);
    const CockpitModel::SceneGraph& sceneGraph = *aircraft.built.sceneGraph;
    CockpitModel::AnnotationStore store(sceneGraph);
    store.Read(CockpitModel::FindAnnotations(info, options.aircraft.load.reading).path);
    Json found = Json::array();
    for (const auto& node : sceneGraph.Nodes())
        for (const auto& part : node->parts)
            if (NeedsExpectation(*part, options.yoke) && !store.Evaluate(*part).hasTest)
                found.push_back({{"nodeId", node->index},
                                 {"partId", part->id},
                                 {"mouseRect", JsonText(part->Rect() ? part->Rect()->Text : std::string())},
                                 {"detected", TouchInteractionTypeToText(part->InteractionType)}});
    return found.dump();
}

/// Empty if there is no file yet.
std::string ReadAnnotationFile(const std::string& path) {
    std::string xml = Utils::ReadFile(path);
    boost::system::error_code error;
    if (xml.empty() && boost::filesystem::exists(path, error) && boost::filesystem::file_size(path, error) > 0)
        throw std::runtime_error("cannot be read");
    return xml;
}

/// Collects expectations per annotation file and saves them. Aircraft in folders of the same name share a file.
class ExpectationWriter {
public:
    ExpectationWriter(CockpitModel::Reading read, Console& messages) : reading(read), console(messages) {}

    void Take(const Sim::AircraftInfo& info, const std::string& found) {
        const std::string path = CockpitModel::AnnotationFile(info, reading);
        const CockpitModel::AnnotationSource source = CockpitModel::FindAnnotations(info, reading);
        File& file = files[path];
        file.source = source.path;
        if (!file.ofAircraft.empty())
            console.Message(path + " belongs to both " + file.ofAircraft + " and " + NameOf(info) +
                            "; the expectations of the former are kept");
        file.ofAircraft = NameOf(info);
        const Json parts = Json::parse(found);
        std::cout << NameOf(info) << ": " << Counted(parts.size(), "new expectation") << " for " << Shown(path)
                  << (source.ofPlain ? ", which starts from the expectations of the plain reading in " : "")
                  << (source.ofPlain ? Shown(source.path) : "") << '\n';
        for (const Json& part : parts)
            Add(file, part);
    }

    /// A file that cannot be read is left unchanged; the others are still saved.
    ExitCode Finish(bool dryRun, std::size_t failed) {
        std::size_t added = 0, changed = 0;
        for (const auto& [path, file] : files) {
            if (file.expectations.empty() || !Save(path, file, dryRun))
                continue;
            added += file.expectations.size();
            ++changed;
        }
        console.Message(Counted(added, "expectation") + (dryRun ? " would be added to " : " added to ") +
                        Counted(changed, "annotation file"));
        return notWritten ? kNotWritten : failed + unreadable > 0 ? kAircraftFailed : kDone;
    }

private:
    struct File {
        std::string ofAircraft;
        std::string source; ///< the file whose content is kept
        std::map<CockpitModel::PartAddress, AnnotationRecord> expectations;
    };

    static void Add(File& file, const Json& part) {
        AnnotationRecord record{.NodeId = part.at("nodeId"), .PartId = part.at("partId")};
        const std::string detected = part.at("detected"), rectangle = part.at("mouseRect");
        record.InteractionTypeTest = CockpitModel::TouchInteractionTypeFromText(detected);
        if (file.expectations.try_emplace(record.Address(), record).second)
            std::cout << "  node " << record.NodeId << " part " << record.PartId << ": " << detected
                      << (rectangle.empty() ? "" : ", " + Shown(rectangle)) << '\n';
    }

    bool Save(const std::string& path, const File& file, bool dryRun) {
        std::vector<AnnotationRecord> records;
        for (const auto& [address, record] : file.expectations)
            records.push_back(record);
        try {
            const std::string xml = CockpitModel::AddExpectations(ReadAnnotationFile(file.source), records);
            return dryRun || Write(path, xml);
        } catch (const std::runtime_error& error) {
            console.Message(file.source + ": " + error.what());
            ++unreadable;
            return false;
        }
    }

    bool Write(const std::string& path, const std::string& xml) {
        boost::system::error_code error; // the save reports the reason too
        boost::filesystem::create_directories(boost::filesystem::path(path).parent_path(), error);
        const Utils::SaveResult saved = SaveWithSignalsHeld(path, xml);
        if (!saved)
            console.Message(saved.error);
        notWritten |= !saved;
        return saved.saved;
    }

    const CockpitModel::Reading reading;
    Console& console;
    std::map<std::string, File> files; ///< by path
    std::size_t unreadable = 0;        ///< annotation files
    bool notWritten = false;
};

ExitCode Accept(const AcceptOptions& options, Session& session) {
    const SelectedAircraft aircraft = LoadSelection(options.aircraft, session.console);
    ExpectationWriter writer(options.aircraft.load.reading, session.console);
    const std::size_t failed = ForEachAircraft(
        aircraft, session.console,
        {.take = [&](const Sim::AircraftInfo& info, const std::string& found) { writer.Take(info, found); }});
    FlushPrinted(); // shown before anything is saved
    return writer.Finish(options.dryRun, failed);
}

} // namespace

Action PrepareAccept(CLI::App& app) {
    auto options = std::make_shared<AcceptOptions>();
    app.add_flag("--dry-run", options->dryRun, "Print what would be added, without saving");
    app.add_flag("--yoke", options->yoke, "Also record yoke parts, which have no mouse rectangle");
    AddFullOption(app, options->aircraft.load);
    AddAircraftOptions(app, options->aircraft)->description("Aircraft to record")->required();
    return {[options](Session& session) { return Accept(*options, session); },
            [options](const Sim::AircraftInfo& info, const std::string&) { return FindNew(info, *options); }};
}

} // namespace Batch
