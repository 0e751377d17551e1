#pragma once

#include "CockpitModel/ModelData.h"
#include "CockpitModel/XPlane/XPObjData.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace CockpitModel {

/// Where an object stands in the model of its aircraft.
struct XPObjPlacement {
    Reading reading = Reading::Plain;
    std::uint32_t object = 0;            ///< index in ModelData::objects
    std::optional<Utils::Vector3> place; ///< of an attached object, below node 0: metres, in X-Plane's axes
    std::string textureFolder;           ///< base of its textures, except for the panel's
    std::optional<std::uint32_t> block;  ///< of its vertices and indices if the model has them from another place
};

/// Number of nodes that an object adds to a model.
std::size_t NodeCount(const XPObjData& data, const XPObjPlacement& placement);
/// Number of vertices that its parts draw.
std::uint64_t DrawnVertices(const XPObjData& data, Reading reading);

/// Throws Utils::OutOfRange, with the file and the line, if a draw call needs indices or vertices that its object has
/// not.
void CheckDrawCall(const XPObjDrawCall& call, const XPObjData& data, const std::string& file);

/// Converts the records of an X-Plane object to model blocks: left-handed axes, one animation per node, and a mouse
/// rectangle per draw call under a manipulator. For a single conversion.
class XPObjConverter {
public:
    /// `folder` is the aircraft's; `model` must be empty. More nodes after splitting than the 16-bit fields of the node
    /// table can address, or more bytes of datarefs than the reader stores, throw OutOfRange before anything is built.
    void Convert(const std::string& folder, const XPObjData& data, ModelData& model);
    /// The same for any object of an aircraft; the first of a model is its cockpit object or empty. An attached object
    /// whose draw calls need indices or vertices that it has not throws OutOfRange, too.
    void Convert(const std::string& folder, const XPObjData& data, ModelData& model, const XPObjPlacement& placement);

    /// Splits every node with several steps into a chain of nodes with one step, and moves the draw calls to its end.
    void SplitAnimationSteps(std::vector<XPObjAnimNode>& nodes, std::vector<XPObjDrawCall>& drawCalls);
    void SplitNode(std::vector<XPObjAnimNode>& nodes, std::vector<XPObjDrawCall>& drawCalls, std::uint32_t index);

private:
    /// The first `blockCount` nodes are those before splitting.
    void InsertAllKeyFrames(std::vector<XPObjAnimNode>& nodes, std::uint32_t blockCount) const;
    std::vector<std::uint32_t> ChainOf(const std::vector<XPObjAnimNode>& nodes, std::uint32_t index) const;
    void MarkRootSteps(std::uint32_t blockCount, ModelData& model) const;

    std::unordered_map<std::uint32_t, std::uint32_t> splitNodes; ///< from a split node to the last of its chain
};

} // namespace CockpitModel
