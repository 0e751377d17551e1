#pragma once

#include "CockpitModel/ModelData.h"
#include "CockpitModel/XPlane/XPObjData.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace CockpitModel {

/// Converts the records of an X-Plane object to model blocks: left-handed axes, one animation per node, and a mouse
/// rectangle per draw call under a manipulator. For a single conversion.
class XPObjConverter {
public:
    /// `folder` is the aircraft's; `model` must be empty. More nodes after splitting than the 16-bit fields of the node
    /// table can address, or more bytes of datarefs than the reader stores, throw OutOfRange before anything is built.
    void Convert(const std::string& folder, const XPObjData& data, ModelData& model);

    /// Splits every node with several steps into a chain of nodes with one step, and moves the draw calls to its end.
    void SplitAnimationSteps(std::vector<XPObjAnimNode>& nodes, std::vector<XPObjDrawCall>& drawCalls);
    void SplitNode(std::vector<XPObjAnimNode>& nodes, std::vector<XPObjDrawCall>& drawCalls, std::uint32_t index);

private:
    std::unordered_map<std::uint32_t, std::uint32_t> splitNodes; ///< from a split node to the last of its chain
};

} // namespace CockpitModel
