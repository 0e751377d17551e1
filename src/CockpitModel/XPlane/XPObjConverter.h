#pragma once

#include "CockpitModel/ModelData.h"
#include "CockpitModel/XPlane/XPObjData.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace CockpitModel {

/// Turns the records of an X-Plane object into model blocks: left-handed axes, one animation per node, and a mouse
/// rectangle per draw call under a manipulator. Used for one conversion and dropped.
class XPObjConverter {
public:
    /// `folder` is the aircraft's, `model` is empty. More nodes after splitting than the 16-bit words of the node
    /// table can name throw OutOfRange before anything is built.
    void Convert(const std::string& folder, const XPObjData& data, ModelData& model);

    /// Splits every node of several steps into a chain of nodes of one step, and hangs the draw calls on the ends.
    void SplitAnimationSteps(std::vector<XPObjAnimNode>& nodes, std::vector<XPObjDrawCall>& drawCalls);

private:
    std::unordered_map<std::uint32_t, std::uint32_t> splitNodes; ///< a split node to the last of its chain
};

} // namespace CockpitModel
