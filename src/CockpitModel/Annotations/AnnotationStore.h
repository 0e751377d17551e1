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

/// The path of an aircraft's annotation file, named by the folder that the aircraft lies in. Makes the folder
/// "QVRA/Annotations" where "QVRA" is there.
std::string AnnotationPath(const Sim::AircraftInfo& info);

/// The annotations of one loaded cockpit: a slot for each part that the scene graph had when the store was made. The
/// graph must outlive it. User interface thread only.
class AnnotationStore {
public:
    explicit AnnotationStore(const SceneGraph& sceneGraph);

    /// Fills slots from a file. What cannot be read is left out in silence: a field with an unknown word, a record
    /// without a place in the scene, a file that is no XML.
    void Read(const std::string& path);
    /// Replaces the file by all filled slots, or leaves it byte for byte as it was and returns why not. Text that this
    /// store has neither read whole nor written, such as what does not parse or what came since, is kept in a file
    /// beside it first.
    Utils::SaveResult Write(const std::string& path) noexcept;
    /// Where the last Write kept such a text; empty for most.
    const std::string& KeptCopy() const { return keptCopy; }

    /// A part outside the table throws Utils::OutOfRange.
    std::optional<AnnotationRecord> Get(const NodePart& part) const;
    void Set(const NodePart& part, std::optional<AnnotationRecord> record); ///< an empty record clears the slot
    std::vector<AnnotationRecord> ListAll() const;
    PartEvaluation Evaluate(const NodePart& part) const;

private:
    Utils::SaveResult KeepOtherText(const std::string& path);

    const SceneGraph* sceneGraph;
    std::string ownText; ///< of the file, as it was read whole or written; empty when there is none
    std::string keptCopy;
    std::vector<std::vector<std::optional<AnnotationRecord>>> records; ///< by node and part
};

} // namespace CockpitModel
