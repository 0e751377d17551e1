#include "Annotator/AnnotationSession.h"

#include "Annotator/AircraftLoading.h"
#include "Annotator/FailureTexts.h"
#include "CockpitModel/Annotations/AnnotationXml.h"
#include "CockpitModel/XPlane/AttachedObjects.h"
#include "Logging/Logger.h"
#include "Utils/FatalError.h"
#include "Utils/Files.h"

#include <boost/filesystem/operations.hpp>
#include <stdexcept>

namespace Annotator {

namespace {

using CockpitModel::AnnotationRecord;
using CockpitModel::NodePart;

/// What the user can try if the plain reading found no cockpit object.
std::string FullReadingHint(const std::string& acfPath) try {
    const bool attachesObjects = !CockpitModel::ReadAttachedEntries(Utils::ReadFile(acfPath)).empty();
    return attachesObjects
               ? "\nIts .acf attaches objects. To read the controls in them, choose Full Reading in the menu "
                 "Reading."
               : "";
} catch (const std::exception&) {
    return ""; // the reason of the failed load is more important
}

/// A fatal error has a fixed text and an empty exception, so the reason is logged before it and thrown after it.
void RequireModel(const Sim::AircraftInfo& info, const CockpitModel::AircraftCockpit& cockpit) {
    if (cockpit.IsValid())
        return;
    const std::string reason = "No cockpit object found for " + info.acfPath;
    Logging::Logger::Get().Log(HERE, reason);
    try {
        Utils::FatalError("Annotator\\AnnotatorWindow.cpp", 158);
    } catch (const std::exception&) {
        throw std::runtime_error(reason + FullReadingHint(info.acfPath) + "\n" + kLogEndedText);
    }
}

/// A page gives an empty tooltip back as none.
AnnotationRecord Normalised(AnnotationRecord record) {
    if (record.Tooltip && record.Tooltip->empty())
        record.Tooltip.reset();
    return record;
}

} // namespace

AnnotationSession::AnnotationSession() : gaugeRepository(boost::filesystem::current_path().string()) {}

void AnnotationSession::Load(const Sim::AircraftInfo& info, CockpitModel::Reading newReading) {
    Clear();
    OpenedAircraft opened = OpenAircraft(info, gaugeRepository, newReading);
    if (newReading == CockpitModel::Reading::Plain)
        RequireModel(info, *opened.cockpit);
    BuiltAircraft built = BuildAircraft(opened);
    auto store = std::make_unique<CockpitModel::AnnotationStore>(*built.sceneGraph);
    std::string path = CockpitModel::AnnotationPath(info, newReading);
    const CockpitModel::AnnotationSource source = CockpitModel::FindAnnotations(info, newReading);
    store->Read(source.path);
    reading = newReading;
    plainAnnotations = source.ofPlain;
    aircraftName = info.displayName;
    acfPath = info.acfPath;
    annotationPath = std::move(path);
    cockpit = std::move(opened.cockpit);
    panels = std::move(opened.panels);
    model = std::move(built.model);
    sceneGraph = std::move(built.sceneGraph);
    annotationStore = std::move(store);
}

void AnnotationSession::Clear() {
    Select(nullptr);
    lastApplied.clear();
    // Pointers before their targets: the store points to the graph, the graph to the panels.
    annotationStore.reset();
    sceneGraph.reset();
    model.reset();
    panels.reset();
    cockpit.reset();
    annotationPath.clear();
    acfPath.clear();
    aircraftName.clear();
    plainAnnotations = false;
}

void AnnotationSession::Select(NodePart* part) {
    currentAnnotation = part ? RecordOr(annotationStore->Get(*part), *part) : AnnotationRecord();
    selectedPart = part;
}

AnnotationSaveResult AnnotationSession::Save() {
    annotationStore->Set(*selectedPart, currentAnnotation);
    return WriteFile();
}

AnnotationSaveResult AnnotationSession::WriteFile() {
    if (const auto written = annotationStore->Write(annotationPath); !written)
        return {.error = written.error};
    plainAnnotations = false;
    const std::string& copy = annotationStore->BackupPath();
    const bool unreadable = !copy.empty() && !CockpitModel::IsXml(Utils::ReadFile(copy));
    return {.saved = true, .unreadableCopy = unreadable ? copy : ""};
}

bool AnnotationSession::IsEdited() const {
    return selectedPart &&
           Normalised(currentAnnotation) != Normalised(RecordOr(annotationStore->Get(*selectedPart), *selectedPart));
}

/// Either stores all records, in memory and in the file, or none.
AnnotationSaveResult AnnotationSession::Store(const std::vector<RecordUpdate>& updates) {
    for (const RecordUpdate& update : updates)
        annotationStore->Set(*update.part, update.after);
    AnnotationSaveResult result = WriteFile();
    if (!result.saved)
        for (const RecordUpdate& update : updates)
            annotationStore->Set(*update.part, update.before);
    return result;
}

AnnotationSaveResult AnnotationSession::Apply(const std::vector<RecordUpdate>& updates) {
    if (updates.empty())
        return {.saved = true};
    AnnotationSaveResult result = Store(updates);
    if (!result.saved)
        return result;
    for (const auto& [part, before, after] : updates)
        if (part == selectedPart)
            TakeOver(currentAnnotation, RecordOr(before, *part), RecordOr(after, *part));
    lastApplied = updates;
    return result;
}

std::vector<RecordUpdate> AnnotationSession::UndoUpdates() const {
    std::vector<RecordUpdate> updates;
    for (const auto& [part, before, after] : lastApplied) {
        const auto current = annotationStore->Get(*part);
        AnnotationRecord restored = RecordOr(current, *part);
        TakeOverUnchanged(restored, RecordOr(after, *part), RecordOr(before, *part));
        if (restored == RecordOr(current, *part))
            continue;
        updates.push_back({part, current, restored});
        if (!before && restored == EmptyRecord(*part))
            updates.back().after.reset();
    }
    return updates;
}

AnnotationSaveResult AnnotationSession::Undo() {
    const std::vector<RecordUpdate> updates = UndoUpdates();
    AnnotationSaveResult result{.saved = true};
    if (!updates.empty())
        result = Store(updates);
    if (!result.saved)
        return result;
    for (const auto& [part, before, after] : updates)
        if (part == selectedPart)
            TakeOverUnchanged(currentAnnotation, RecordOr(before, *part), RecordOr(after, *part));
    lastApplied.clear();
    return result;
}

} // namespace Annotator
