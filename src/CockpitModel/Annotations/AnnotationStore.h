#pragma once

#include "CockpitModel/Annotations/AnnotationRecord.h"
#include "Utils/SaveFile.h"

#include <optional>
#include <string>
#include <vector>

namespace Sim {
struct AircraftInfo;
}

namespace CockpitModel {

class SceneGraph;
struct NodePart;

/// A part held against its annotation.
struct PartEvaluation {
    const NodePart* part = nullptr;
    std::optional<AnnotationRecord> annotation;
    bool hasTest = false;
    std::optional<bool> testPassed; ///< the detected type, before any override, against the expected one
    TouchInteractionType interactionType = TouchInteractionType::None; ///< override included
};

/// The path of an aircraft's annotation file, named by the folder that the aircraft lies in.
std::string AnnotationFile(const Sim::AircraftInfo& info);
/// The same path for a caller that may write the file: makes the folder "QVRA/Annotations" if "QVRA" is there.
std::string AnnotationPath(const Sim::AircraftInfo& info);

/// The annotations of one loaded cockpit: a slot for each part that the scene graph had when the store was made. The
/// graph must outlive it. User interface thread only.
class AnnotationStore {
public:
    explicit AnnotationStore(const SceneGraph& sceneGraph);

    /// Fills slots from a file. What cannot be read is left out in silence: a field with an unknown word, a record
    /// without a place in the scene, a file that is no XML.
    void Read(const std::string& path);
    /// Replaces the file by all filled slots, or leaves it byte for byte as it was and returns why not. A file that
    /// says anything that this store has neither read nor written, such as comments or what came since, is copied to a
    /// file beside it first.
    Utils::SaveResult Write(const std::string& path) noexcept;
    /// The copy that the last Write made; empty for most.
    const std::string& BackupPath() const { return backupPath; }

    /// A part outside the table throws Utils::OutOfRange.
    std::optional<AnnotationRecord> Get(const NodePart& part) const;
    void Set(const NodePart& part, std::optional<AnnotationRecord> record); ///< an empty record clears the slot
    std::vector<AnnotationRecord> ListAll() const;
    PartEvaluation Evaluate(const NodePart& part) const;

private:
    Utils::SaveResult BackUpForeignContent(const std::string& path, const std::vector<AnnotationRecord>& list);

    const SceneGraph* sceneGraph;
    std::vector<AnnotationRecord> fileRecords; ///< as they were last read or written
    std::string writtenText;                   ///< by the last Write
    std::string backupPath;
    std::vector<std::vector<std::optional<AnnotationRecord>>> records; ///< by node and part
};

} // namespace CockpitModel
