#pragma once

#include "Rendering/GeometryVertex.h"
#include "Utils/LinearAlgebra.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace CockpitModel {

/// Unit direction; both in the space of whatever it is tested against.
struct PartRay {
    Utils::Vector3 origin = Utils::Vector3::Zero();
    Utils::Vector3 direction = Utils::Vector3::Zero();
};

struct PartHit {
    Utils::Vector3 position = Utils::Vector3::Zero();
    Utils::Vector2 texture = Utils::Vector2::Zero(); ///< zero unless the tree keeps texture coordinates
    float distance = 0;                              ///< along the ray
};

/// The ray with both its ends moved by the matrix and its direction made a unit again; a zero direction stays zero.
PartRay TransformRay(const PartRay& ray, const Utils::Matrix4& matrix);

/// Axis-aligned bounds of some triangles.
struct PartTreeBox {
    Utils::Vector3 centre = Utils::Vector3::Zero();
    /// y from max to min, in each x from min to max, in each z from min to max.
    std::array<Utils::Vector3, 8> corners{};
    float radius = 0; ///< greatest distance from the centre to a vertex
};

struct PartTreeNode {
    PartTreeBox box;
    std::vector<std::uint64_t> triangles; ///< those that this node tests itself
    std::uint64_t left = 0, right = 0;    ///< positions in PartTree::nodes
    bool hasChildren = false;
};

/// The picking tree over a part's triangles, in the part's space: it finds the nearest triangle under a ray. Complete
/// and read-only after construction, so that any thread may ask it.
class PartTree : public PartTreeNode {
public:
    PartTree() = default;
    /// Three vertices make a triangle; an incomplete one at the end is left out.
    explicit PartTree(const std::vector<Rendering::GeometryVertex>& vertices, bool keepTextureCoordinates = false);

    /// The hit with the smallest distance.
    std::optional<PartHit> Intersect(const PartRay& ray) const;

    std::vector<PartTreeNode> nodes; ///< all but the root
    std::vector<std::array<Utils::Vector3, 3>> triangles;
    std::vector<std::array<Utils::Vector2, 3>> textureCoordinates; ///< only when kept
    bool keepTextureCoordinates = false;
};

} // namespace CockpitModel
