#pragma once

#include "CockpitModel/Picking/PackedLeaves.h"
#include "CockpitModel/Picking/PartRay.h"
#include "Rendering/GeometryVertex.h"
#include "Utils/LinearAlgebra.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace CockpitModel {

struct PartHit {
    Utils::Vector3 position = Utils::Vector3::Zero();
    Utils::Vector2 texture = Utils::Vector2::Zero(); ///< zero unless the tree stores texture coordinates
    float distance = 0;                              ///< along the ray
};

/// Axis-aligned bounds of some triangles, ignoring NaN coordinates. Zero without triangles.
struct PartTreeBox {
    Utils::Vector3 min = Utils::Vector3::Zero(), max = Utils::Vector3::Zero();
    float radius = 0; ///< greatest distance of a vertex from the centre

    Utils::Vector3 Centre() const { return (min + max) / 2.0f; }
    /// y from max to min, in each x from min to max, in each z from min to max.
    std::array<Utils::Vector3, 8> Corners() const;
};

struct PartTreeNode {
    PartTreeBox box;                   ///< of the triangles passed to this node
    std::uint32_t firstTriangle = 0;   ///< range that this node tests itself, see PartTree::Triangles
    std::uint32_t triangleCount = 0;   ///< 0 for most nodes with children
    std::uint32_t left = 0, right = 0; ///< indices in PartTree::nodes
    std::uint32_t packedLeaf = kNotPacked;
    bool hasChildren = false;
};

/// The picking tree over a part's triangles, in the part's space: it finds the nearest triangle under a ray. Complete
/// and read-only after construction, so any thread may use it.
///
/// A node is split at the middle of its box, on the axis where the fewest triangles are on both sides. Those go into
/// both children; a triangle in the splitting plane goes into neither and cannot be hit below. This rule defines the
/// tree and therefore every result; everything else here is optimisation and must not change it.
class PartTree : public PartTreeNode {
public:
    PartTree() = default;
    /// Three vertices per triangle; an incomplete one at the end is ignored. Memory and time are linear in their
    /// number: if splitting would repeat too many triangles, a node stays a leaf (see PartTreeBuilder.h).
    explicit PartTree(const std::vector<Rendering::GeometryVertex>& vertices, bool keepTextureCoordinates = false);

    /// The nearest hit.
    std::optional<PartHit> Intersect(const PartRay& ray) const;

    /// The triangles that a node tests itself, as ascending indices in `triangles`.
    std::span<const std::uint32_t> Triangles(const PartTreeNode& node) const {
        return {triangleIndices.data() + node.firstTriangle, node.triangleCount};
    }

    std::vector<PartTreeNode> nodes; ///< all but the root, which is the base class
    std::vector<PartTriangle> triangles;
    std::vector<std::array<Utils::Vector2, 3>> textureCoordinates; ///< only when kept
    bool keepTextureCoordinates = false;

private:
    friend class PartTreeBuilder;
    class SimdSlabs;

    float IntersectFast(const PartRay& ray, const SimdSlabs& slabs, float enterRoot) const;
    void TestOwnTriangles(const PartTreeNode& node, const WideVector& origin, const WideVector& direction, float enter,
                          float& nearest) const;
    std::optional<PartHit> IntersectReference(const PartTreeNode& node, const PartRay& ray) const;
    std::optional<PartHit> TestTriangle(std::uint32_t index, const PartRay& ray) const;
    Utils::Vector2 TextureAt(std::uint32_t index, const Utils::Vector3& position) const;

    bool quick = false; ///< no coordinate can overflow, and only the distance of a hit is needed
    std::vector<std::uint32_t> triangleIndices; ///< of all nodes
    PackedLeaves packedLeaves;
};

} // namespace CockpitModel
