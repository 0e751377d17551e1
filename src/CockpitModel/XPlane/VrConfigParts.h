#pragma once

#include "CockpitModel/Touch/TouchTypes.h"
#include "CockpitModel/XPlane/VrConfigFile.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace CockpitModel {

class SceneGraph;
struct Manipulator;
struct NodePart;

/// What a block names: "<keyword> <names...>", separated by a space. Numbers, cursor and tooltip do not count.
std::string VrConfigKey(const VrConfigBlock& block);
std::string VrConfigKey(const Manipulator& manipulator);

/// The parts of a cockpit in the full reading for which a block can stand, by key; in the order of nodes and parts. One
/// part is one draw call. Borrows the parts.
class VrConfigParts {
public:
    explicit VrConfigParts(const SceneGraph& sceneGraph);

    /// Empty if the block matches no draw call.
    const std::vector<const NodePart*>& Of(const VrConfigBlock& block) const;
    const std::map<std::string, std::vector<const NodePart*>>& ByKey() const { return parts; }

private:
    std::map<std::string, std::vector<const NodePart*>> parts;
};

/// The touch that a block says its draw call has: Twist, Move or YokePart, which also stands for YokePrimary. Empty for
/// a block that does not say.
std::optional<TouchInteractionType> VrConfigKind(const VrConfigBlock& block, const Manipulator& manipulator);

/// Whether a part of this type would work better in VR with a block of its own: a knob, or a yoke that is dragged.
bool WantsVrConfigBlock(const Manipulator& manipulator, TouchInteractionType type);

} // namespace CockpitModel
