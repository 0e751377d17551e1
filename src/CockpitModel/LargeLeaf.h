#pragma once

#include "Utils/Float4.h"
#include "Utils/LinearAlgebra.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace CockpitModel {

struct PartRay;
struct PartTreeBox;
using PartTriangle = std::array<Utils::Vector3, 3>;

inline constexpr std::uint32_t kNoLargeLeaf = 0xFFFFFFFF;

/// A ray as the tests of four triangles or boxes at once take it: every lane holds the same.
struct WideRay {
    explicit WideRay(const PartRay& ray);

    std::array<Utils::Float4, 3> origin, direction;
};

/// Brings `nearest` down to the distance of the nearest of up to four triangles that the ray hits, as testing them one
/// by one would. Coordinates and ray must be too small for anything to overflow, the direction a unit.
void TestFourTriangles(const PartTriangle* triangles, const std::uint32_t (&indices)[4], const WideRay& ray,
                       float& nearest);

/// What large leaves hold beside their list of triangles: the same triangles sorted by place, in packs of four with a
/// box each, so that a ray tests few of them. A pack is left out only where no rounding in the test of its triangles
/// could make a hit of them.
class LargeLeaves {
public:
    /// Returns the name of the new leaf. The box is that of its triangles; `sorted` is room to work in.
    std::uint32_t Add(const std::vector<PartTriangle>& triangles, std::span<const std::uint32_t> leaf,
                      const PartTreeBox& box, std::vector<std::uint64_t>& sorted);
    void Test(std::uint32_t leaf, const PartTriangle* triangles, const WideRay& ray, float& nearest) const;
    void ShrinkToFit();

private:
    /// Four packs: their boxes by axis and pack, and their triangles.
    struct Group {
        Utils::Float4 min[3], max[3];
        std::uint32_t triangles[4][4];
    };
    /// The planes of a pack's triangles. A ray whose direction lies so close to one of them that their product with the
    /// normal stays below the limit may hit that triangle, as computed, far away from it.
    struct PackPlanes {
        Utils::Float4 normal[3], limit;
    };
    struct Leaf {
        Utils::Vector3 centre;
        float radius;
        std::uint32_t firstGroup, groupCount;
        std::uint32_t firstPlanes, planeGroupCount; ///< of as many groups, the leaf's first
    };
    struct Slabs;

    static void SetBoxes(const std::vector<PartTriangle>& triangles, Group& group);
    static PackPlanes PlanesOf(const std::vector<PartTriangle>& triangles, const std::uint32_t (&pack)[4]);

    std::vector<Leaf> leaves;
    std::vector<Group> groups;
    std::vector<PackPlanes> planes; ///< four a group
};

} // namespace CockpitModel
