#pragma once

#include "Annotator/RecordUpdate.h"
#include "CockpitModel/AircraftCockpit.h"
#include "CockpitModel/Annotations/AnnotationStore.h"
#include "CockpitModel/ModelData.h"
#include "CockpitModel/Panels/PanelSet.h"
#include "CockpitModel/SceneGraph.h"
#include "Sim/AircraftInfo.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace Annotator {

/// Result of saving annotations.
struct AnnotationSaveResult {
    bool saved = false;
    std::string error = {};          ///< reason, if nothing was saved
    std::string unreadableCopy = {}; ///< copy of the previous file, if that was not readable XML; usually empty
};

/// The loaded aircraft with its scene, its annotations, the selected part and the working record of that part. Whoever
/// has pointers into the scene must drop them before Load and Clear. User interface thread.
class AnnotationSession {
public:
    /// Panel configurations are relative to the working directory of this moment.
    AnnotationSession();

    /// Replaces the loaded aircraft. The old one is released first, so that only one is in memory. A failure throws and
    /// leaves no aircraft loaded; in the plain reading, an aircraft without a cockpit object is a fatal error.
    void Load(const Sim::AircraftInfo& info, CockpitModel::Reading reading = CockpitModel::Reading::Plain);
    /// Releases the aircraft.
    void Clear();

    /// Selects a part of the loaded scene, or none, and starts its working record from the stored annotation. Changes
    /// of the previous record that were not saved are lost. A part outside the scene throws Utils::OutOfRange.
    void Select(CockpitModel::NodePart* part);
    /// The working record of the selected part, to be changed in place; valid as long as the session.
    CockpitModel::AnnotationRecord& Edit() { return currentAnnotation; }
    /// Stores the working record and writes the annotation file. Needs a selected part.
    AnnotationSaveResult Save();
    /// Whether the working record differs from the stored one.
    bool IsEdited() const;

    /// Stores the records of many parts and writes the annotation file once; without updates, does nothing. A failure
    /// changes nothing. The working record gets the values that change; its other values stay, saved or not.
    AnnotationSaveResult Apply(const std::vector<RecordUpdate>& updates);
    /// What Undo would store: the last Apply reversed, without the values that were saved after it.
    std::vector<RecordUpdate> UndoUpdates() const;
    std::size_t LastAppliedCount() const { return lastApplied.size(); } ///< records that the last Apply changed
    bool CanUndo() const { return !lastApplied.empty(); }
    /// Takes the last Apply back, once, in the same way as Apply. Values that the user has changed since in the working
    /// record stay.
    AnnotationSaveResult Undo();

    const std::string& AircraftName() const { return aircraftName; }     ///< empty without an aircraft
    const std::string& AcfPath() const { return acfPath; }               ///< empty without an aircraft
    const std::string& AnnotationPath() const { return annotationPath; } ///< empty without an aircraft
    CockpitModel::Reading Reading() const { return reading; }            ///< of the last load
    /// The annotations are those of the plain reading, until the first save into the full reading's own file.
    bool HasPlainAnnotations() const { return plainAnnotations; }
    CockpitModel::NodePart* SelectedPart() const { return selectedPart; }
    /// Null without an aircraft, like the following ones.
    const CockpitModel::AircraftCockpit* Cockpit() const { return cockpit.get(); }
    CockpitModel::ModelData* Model() const { return model.get(); } ///< source of the animation positions
    const std::shared_ptr<CockpitModel::SceneGraph>& Scene() const { return sceneGraph; }
    const CockpitModel::AnnotationStore* Annotations() const { return annotationStore.get(); }

private:
    AnnotationSaveResult WriteFile();
    AnnotationSaveResult Store(const std::vector<RecordUpdate>& updates);

    std::string aircraftName;
    std::string acfPath;
    std::string annotationPath;
    std::unique_ptr<CockpitModel::AircraftCockpit> cockpit;
    CockpitModel::GaugeRepository gaugeRepository;
    std::unique_ptr<CockpitModel::PanelSet> panels;
    std::unique_ptr<CockpitModel::ModelData> model;
    std::shared_ptr<CockpitModel::SceneGraph> sceneGraph;
    CockpitModel::NodePart* selectedPart = nullptr;
    std::unique_ptr<CockpitModel::AnnotationStore> annotationStore;
    CockpitModel::AnnotationRecord currentAnnotation;
    std::vector<RecordUpdate> lastApplied; ///< empty if there is nothing to take back
    CockpitModel::Reading reading = CockpitModel::Reading::Plain;
    bool plainAnnotations = false;
};

} // namespace Annotator
