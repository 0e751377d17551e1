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
    Utils::Vector2 texture = Utils::Vector2::Zero(); ///< zero unless the tree keeps texture coordinates
    float distance = 0;                              ///< along the ray
};

/// Axis-aligned bounds of some triangles; coordinates that are no numbers are not counted. Zero without triangles.
struct PartTreeBox {
    Utils::Vector3 min = Utils::Vector3::Zero(), max = Utils::Vector3::Zero();
    float radius = 0; ///< greatest distance from the centre to a vertex

    Utils::Vector3 Centre() const { return (min + max) / 2.0f; }
    /// y from max to min, in each x from min to max, in each z from min to max.
    std::array<Utils::Vector3, 8> Corners() const;
};

struct PartTreeNode {
    PartTreeBox box;                   ///< of the triangles that were handed to this node
    std::uint32_t firstTriangle = 0;   ///< those that this node tests itself, see PartTree::Triangles
    std::uint32_t triangleCount = 0;   ///< 0 for most nodes with children
    std::uint32_t left = 0, right = 0; ///< positions in PartTree::nodes
    std::uint32_t packedLeaf = kNotPacked;
    bool hasChildren = false;
};

/// The picking tree over a part's triangles, in the part's space: it finds the nearest triangle under a ray. Complete
/// and read-only after construction, so that any thread may ask it.
///
/// A node is split at the middle of its box, on the axis where the fewest triangles lie on both sides. Those stand in
/// both children; a triangle that lies in the plane stands in neither and cannot be hit below. The tree, and so every
/// answer, is the one of that rule: what else is here only finds the same answer sooner.
class PartTree : public PartTreeNode {
public:
    PartTree() = default;
    /// Three vertices make a triangle; an incomplete one at the end is left out. Takes memory and time in proportion to
    /// their number: where splitting would repeat triangles without end, a node stays a leaf (see PartTreeBuilder.h).
    explicit PartTree(const std::vector<Rendering::GeometryVertex>& vertices, bool keepTextureCoordinates = false);

    /// The hit with the smallest distance.
    std::optional<PartHit> Intersect(const PartRay& ray) const;

    /// What a node tests itself, as positions in `triangles`, in ascending order.
    std::span<const std::uint32_t> Triangles(const PartTreeNode& node) const {
        return {triangleIndices.data() + node.firstTriangle, node.triangleCount};
    }

    std::vector<PartTreeNode> nodes; ///< all but the root
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

    bool quick = false; ///< all coordinates are of a size that cannot overflow, and no hit needs more than its distance
    std::vector<std::uint32_t> triangleIndices; ///< of all nodes
    PackedLeaves packedLeaves;
};

} // namespace CockpitModel
