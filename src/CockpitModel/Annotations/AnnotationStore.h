#pragma once

#include "CockpitModel/Annotations/AnnotationRecord.h"
#include "CockpitModel/Reading.h"
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

/// Result of comparing a part with its annotation.
struct PartEvaluation {
    const NodePart* part = nullptr;
    std::optional<AnnotationRecord> annotation;
    bool hasTest = false;
    std::optional<bool> testPassed; ///< the detected type, before any override, against the expected one
    TouchInteractionType interactionType = TouchInteractionType::None; ///< override included
};

/// The path of an aircraft's annotation file, named after the aircraft's folder. Each reading has a file of its own,
/// because the full one has further parts and other types.
std::string AnnotationFile(const Sim::AircraftInfo& info, Reading reading = Reading::Plain);
/// The same path for a caller that may write the file: creates its folder below "QVRA" if "QVRA" exists.
std::string AnnotationPath(const Sim::AircraftInfo& info, Reading reading = Reading::Plain);

struct AnnotationSource {
    std::string path;
    bool ofPlain = false; ///< the full reading has no file yet and starts from that of the plain one
};

/// The file from which a reading's annotations are read; it may be missing.
AnnotationSource FindAnnotations(const Sim::AircraftInfo& info, Reading reading);

/// The annotations of one loaded cockpit: a slot for each part that the scene graph had when the store was made. The
/// graph must outlive it. User interface thread only.
class AnnotationStore {
public:
    explicit AnnotationStore(const SceneGraph& sceneGraph);

    /// Fills slots from a file. Silently skips what cannot be read: a field with an unknown word, a record for a part
    /// that the scene lacks, a file that is not XML.
    void Read(const std::string& path);
    /// Replaces the file with all filled slots, or leaves it unchanged and returns the reason. If the file contains
    /// anything that this store has neither read nor written, such as comments or later changes, it is first copied to
    /// a file in the same folder.
    Utils::SaveResult Write(const std::string& path) noexcept;
    /// The path of the copy made by the last Write; usually empty.
    const std::string& BackupPath() const { return backupPath; }

    /// A part outside the table throws Utils::OutOfRange.
    std::optional<AnnotationRecord> Get(const NodePart& part) const;
    void Set(const NodePart& part, std::optional<AnnotationRecord> record); ///< an empty record clears the slot
    std::vector<AnnotationRecord> ListAll() const;
    PartEvaluation Evaluate(const NodePart& part) const;

private:
    Utils::SaveResult BackUpForeignContent(const std::string& path, const std::vector<AnnotationRecord>& list);

    const SceneGraph* sceneGraph;
    std::vector<AnnotationRecord> fileRecords; ///< as last read or written
    std::string writtenText;                   ///< by the last Write
    std::string backupPath;
    std::vector<std::vector<std::optional<AnnotationRecord>>> records; ///< by node and part
};

} // namespace CockpitModel
