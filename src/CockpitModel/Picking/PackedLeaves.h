#pragma once

#include "CockpitModel/Picking/TrianglePack.h"

#include <cstdint>
#include <span>
#include <vector>

namespace CockpitModel {

struct PartTreeBox;

inline constexpr std::uint32_t kNotPacked = 0xFFFFFFFF;

/// What large leaves hold beside their lists: the same triangles once more, sorted by place and packed in fours, with
/// boxes about four packs and sixteen packs, so that a ray tests few of them. A pack is left out only where no rounding
/// in the test of its triangles could make a hit of them.
///
/// With them and the box tests of PartTree, a pick through all parts of a cockpit takes about 0.64 of the time of a
/// plain walk over the same trees, for 1,500 parts with 867,000 triangles (RaysThroughAll of bench/PickingBench).
class PackedLeaves {
public:
    /// Returns the leaf's name. The box is that of its triangles; `sorted` is room to work in.
    std::uint32_t Add(const std::vector<PartTriangle>& triangles, std::span<const std::uint32_t> leaf,
                      const PartTreeBox& box, std::vector<std::uint64_t>& sorted);
    /// As TestPack for all triangles of the leaf, whose box the ray enters at `enter`. The direction must be a unit.
    void Test(std::uint32_t leaf, const WideVector& origin, const WideVector& direction, float enter,
              float& nearest) const;
    void ShrinkToFit();

private:
    /// The boxes of four packs or of four groups, by axis, one a lane.
    struct Boxes {
        Utils::Float4 min[3], max[3];
    };
    /// The normals of a pack's triangles. A ray whose direction is so nearly at right angles to one of them that their
    /// product stays below the limit sees that triangle edge-on, and may hit it, as computed, far away from it.
    struct Normals {
        WideVector normal;
        Utils::Float4 limit;
    };
    /// A group is four packs. Large triangles fill the first groups, which have normals and no group boxes.
    struct Leaf {
        Utils::Vector3 centre;
        float radius;
        float smallK; ///< how far hits drift off small triangles, see PackedLeaves.cpp
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
    std::vector<TrianglePack> packs; ///< four a group
    std::vector<Boxes> packBoxes;    ///< one a group
    std::vector<Boxes> groupBoxes;   ///< one for four groups of a leaf
    std::vector<Normals> normals;    ///< four a group
};

} // namespace CockpitModel
