#pragma once

#include "CockpitModel/Picking/TrianglePack.h"

#include <cstdint>
#include <span>
#include <vector>

namespace CockpitModel {

struct PartTreeBox;

inline constexpr std::uint32_t kNotPacked = 0xFFFFFFFF;

/// A copy of the triangles of large leaves, sorted by position and packed in fours, with boxes around every four and
/// every sixteen packs, so that a ray tests few of them. A pack is skipped only if none of its triangles can be hit
/// even with rounding errors.
///
/// With them and the box tests of PartTree, a pick through all parts of a cockpit takes about 0.64 of the time of a
/// plain walk over the same trees, for 1,500 parts with 867,000 triangles (RaysThroughAll of bench/PickingBench).
class PackedLeaves {
public:
    /// Returns the leaf's index. The box is that of its triangles; `sorted` is a scratch buffer.
    std::uint32_t Add(const std::vector<PartTriangle>& triangles, std::span<const std::uint32_t> leaf,
                      const PartTreeBox& box, std::vector<std::uint64_t>& sorted);
    /// TestPack for all triangles of the leaf, whose box the ray enters at `enter`. The direction must be a unit
    /// vector.
    void Test(std::uint32_t leaf, const WideVector& origin, const WideVector& direction, float enter,
              float& nearest) const;
    void ShrinkToFit();

private:
    /// The boxes of four packs or of four groups, by axis, one per lane.
    struct Boxes {
        Utils::Float4 min[3], max[3];
    };
    /// The normals of a pack's triangles. If the product of a ray's direction with a normal is below the limit, the ray
    /// sees that triangle edge-on, and a computed hit may be far from it.
    struct Normals {
        WideVector normal;
        Utils::Float4 limit;
    };
    /// A group is four packs. Large triangles fill the first groups, which have normals and no group boxes.
    struct Leaf {
        Utils::Vector3 centre;
        float radius;
        float smallK; ///< bound for small triangles, see kDrift in PackedLeaves.cpp
        std::uint32_t firstGroup, groupCount;
        std::uint32_t firstGroupBoxes;
        std::uint32_t firstNormals, largeGroupCount;
    };
    class Slabs;

    void AddGroup(const std::vector<PartTriangle>& triangles, std::span<const std::uint64_t> sorted, bool withNormals);
    void AddGroupBoxes(const Leaf& leaf);
    unsigned MetOrEdgeOn(const Leaf& leaf, std::uint32_t group, const Slabs& slabs, float nearest) const;
    void TestPacks(const Leaf& leaf, std::uint32_t group, unsigned bits, const Slabs& slabs, float& nearest) const;

    std::vector<Leaf> leaves;
    std::vector<TrianglePack> packs; ///< four per group
    std::vector<Boxes> packBoxes;    ///< one per group
    std::vector<Boxes> groupBoxes;   ///< one per four groups of a leaf
    std::vector<Normals> normals;    ///< four per group
};

} // namespace CockpitModel
