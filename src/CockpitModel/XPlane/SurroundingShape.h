#pragma once

#include "CockpitModel/SurroundingObjects.h"
#include "Rendering/GeometryVertex.h"
#include "Utils/Extent.h"

#include <atomic>
#include <string>
#include <vector>

namespace CockpitModel {

/// Triangles of a surrounding object under one texture, in the model's space.
struct SurroundingMesh {
    std::string texture;                             ///< path of a file; empty for none
    std::vector<Rendering::GeometryVertex> vertices; ///< three per triangle, up to kMostMeshVertices
    Utils::Extent extent;
};

/// A device gets this many vertices in a few milliseconds.
inline constexpr std::size_t kMostMeshVertices = 3 << 14;

/// What is seen of a surrounding object while every dataref is 0.
struct SurroundingShape {
    std::vector<SurroundingMesh> meshes; ///< in the order of the file
    Utils::Extent extent;
    std::size_t vertexCount = 0;
    std::string problem; ///< why the object is not drawn, for the log; empty if it is
};

/// Reads an object with its animations at dataref 0. Hidden triangles and those of no drawing are left out. The
/// aircraft's folder is the base of the panel's texture; without a file for it, the triangles under it have none. Any
/// other missing texture is a problem of the object. If `stop` becomes true, returns within milliseconds with a part of
/// the shape. Any thread.
SurroundingShape ReadSurroundingShape(const SurroundingObject& object, const std::string& aircraftFolder,
                                      const std::atomic<bool>& stop);

} // namespace CockpitModel
