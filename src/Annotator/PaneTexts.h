#pragma once

#include "CockpitModel/ModelData.h"
#include "CockpitModel/Node.h"
#include "CockpitModel/NodePart.h"
#include "Utils/LinearAlgebra.h"

#include <string>
#include <vector>

namespace Annotator {

class AnnotationSession;

/// The texts and values that the notebook's pages show for a part, without a toolkit. The pointers belong to the loaded
/// scene.

/// A row of the page "Animations": a node on the path from a part up to the root.
struct AnimData {
    CockpitModel::ModelAnimation* animation = nullptr; ///< in the source model; null when the node has none
    const CockpitModel::Node* node = nullptr;
    std::string label;
};

/// The part's own node first, the root last.
std::vector<AnimData> AnimationRows(const CockpitModel::NodePart& part, CockpitModel::ModelData& model);
/// The animation's tracks and keys, or the node's local matrix if it has no animation.
std::string AnimationRowText(const AnimData& row);

/// Said of annotations of the full reading that were read from the plain one's file.
inline constexpr const char* kPlainExpectations = "expectations of the plain reading";

/// The tree's root: the aircraft's name, and the reading if it is the full one.
std::string TreeRootText(const AnnotationSession& session);

std::string MatrixText(const Utils::Matrix4& matrix);
std::string PartIdText(const CockpitModel::NodePart& part);
std::string FileOffsetText(const CockpitModel::NodePart& part);
std::string MaterialText(const CockpitModel::NodePart& part);
/// Motion, placement and mouse rectangle of a clickable part; otherwise empty.
std::string PartInfoText(const CockpitModel::NodePart& part);
/// The manipulator as the object's file gives it, and where; empty without one and in the plain reading.
std::string ManipulatorText(const CockpitModel::NodePart& part);
std::string DetectedTooltipText(const CockpitModel::NodePart& part);

} // namespace Annotator
