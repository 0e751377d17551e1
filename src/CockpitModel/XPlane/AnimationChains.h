#pragma once

#include "CockpitModel/XPlane/XPObjData.h"

#include <cstdint>
#include <vector>

namespace CockpitModel {

/// The model allows one animation for each node, so a block of several steps becomes a chain of nodes, the first step
/// outermost. A chain's draw calls and children are at its end.

/// Keeps the node's first step and moves each further one to a new node below; returns the last of them. Checks exactly
/// the links that it changes.
std::uint32_t SplitIntoChain(std::vector<XPObjAnimNode>& nodes, std::uint32_t index);

/// Stops with a fatal error if a node is not the parent of its children.
void CheckAllChildren(const std::vector<XPObjAnimNode>& nodes);

/// Gives the key-framed steps of a block nodes of their own: `chain` are the block's nodes after SplitIntoChain, from
/// the outermost on. The new nodes are added above them, so that the last keeps its index and with it the draw calls;
/// afterwards the steps follow each other as in the file. Steps without a key are dropped.
void InsertKeyFrames(std::vector<XPObjAnimNode>& nodes, const std::vector<std::uint32_t>& chain);

} // namespace CockpitModel
