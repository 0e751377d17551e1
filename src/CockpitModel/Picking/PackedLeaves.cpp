#include "CockpitModel/Picking/PackedLeaves.h"

#include "CockpitModel/Picking/PartTree.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace CockpitModel {

using Utils::Float4;
using Utils::Vector3;

namespace {

constexpr std::size_t kGroup = 16; ///< triangles

/// Bound on the distance between a hit computed in 32-bit floats and its triangle. With e1, e2 the edges, s the vector
/// from the corner to the ray's origin and r = 2^-24 the greatest relative rounding error, each of the triple products
/// det, s . pv and d . qv has an error of at most 5.5 r times the lengths of its three factors: a product, a
/// difference, a product and two sums in turn. So while |det| is at least |e1| |e2| / k, the point where the ray meets
/// the triangle's plane is within 5.5 r k (|e1| + |e2| + 2 |s|) of the triangle, and the error of the distance is no
/// greater. kDrift has a margin for second-order terms.
constexpr float kRounding = 1.0f / (1 << 24);
constexpr float kDrift = 6.5f * kRounding;
/// No triangle is hit with a |det| below this, so k is at most |e1| |e2| / kLeastDet, which is small enough for small
/// triangles.
constexpr float kLeastDet = 0.98e-8f;
constexpr float kLargeEdgeProduct = 2e-5f;
/// For a large triangle, rays with |det| below |e1| |e2| / k are recognised by the triangle's normal.
constexpr float kLargeK = 1024;

/// Direction components below this count as 0; dividing by them would overflow.
constexpr float kParallel = 1e-15f;
constexpr float kFar = 1e30f;

/// |e1| |e2|
float EdgeProduct(const PartTriangle& triangle) {
    return std::sqrt(Utils::LengthSquared(triangle[1] - triangle[0]) * Utils::LengthSquared(triangle[2] - triangle[0]));
}

/// Spreads the lower ten bits to every third bit.
std::uint32_t Spread(std::uint32_t v) {
    v = (v | v << 16) & 0x030000FF;
    v = (v | v << 8) & 0x0300F00F;
    v = (v | v << 4) & 0x030C30C3;
    return (v | v << 2) & 0x09249249;
}

struct SortedLeaf {
    std::size_t largeCount = 0;
    float greatestSmallProduct = 0;
};

/// Stores the leaf's triangles in the lower halves of sort keys: large ones first, then along a space-filling curve
/// through the box.
SortedLeaf SortByPlace(const std::vector<PartTriangle>& triangles, std::span<const std::uint32_t> leaf,
                       const PartTreeBox& box, std::vector<std::uint64_t>& keys) {
    const float extent = (box.max - box.min).maxCoeff();
    const float scale = extent > 0 ? 1023.0f / (3 * extent) : 0.0f;
    const Vector3 corner = 3 * box.min;
    SortedLeaf sorted;
    keys.clear();
    for (const std::uint32_t index : leaf) {
        const PartTriangle& t = triangles[index];
        const Vector3 cell = (t[0] + t[1] + t[2] - corner) * scale;
        const float product = EdgeProduct(t);
        const bool large = product > kLargeEdgeProduct;
        if (large)
            ++sorted.largeCount;
        else
            sorted.greatestSmallProduct = std::max(sorted.greatestSmallProduct, product);
        std::uint32_t key = large ? 0 : 1u << 30;
        for (int axis = 0; axis < 3; ++axis)
            key |= Spread(static_cast<std::uint32_t>(std::clamp(cell[axis], 0.0f, 1023.0f))) << axis;
        keys.push_back(std::uint64_t{key} << 32 | index);
    }
    std::sort(keys.begin(), keys.end());
    return sorted;
}

} // namespace

/// Tests a ray with boxes that are enlarged by the bound on a hit's distance from its triangle.
class PackedLeaves::Slabs {
public:
    Slabs(const Leaf& leaf, float k, const WideVector& rayOrigin, const WideVector& rayDirection);

    /// A bit for each box that the ray meets after its origin and before the nearest hit.
    unsigned Meet(const Boxes& boxes, float nearest) const;
    /// True if nothing in a box that the ray enters at this distance can be nearer than the nearest hit.
    bool LiesBehind(float enter, float nearest) const { return enter > nearest + 2 * margin; }

    const WideVector origin, direction; ///< of the ray

private:
    void SetAxis(int axis, float from, float along);

    Float4 nearOrigin[3], farOrigin[3], inverse[3];
    bool nearIsMin[3];
    float margin;
};

PackedLeaves::Slabs::Slabs(const Leaf& leaf, float k, const WideVector& rayOrigin, const WideVector& rayDirection)
    : origin(rayOrigin), direction(rayDirection) {
    const Vector3 from(origin.x[0], origin.y[0], origin.z[0]);
    // No vertex is farther from the ray's origin, and no edge is longer than two radii.
    const float farthest = Utils::Length(from - leaf.centre) + leaf.radius;
    const float coordinates = from.cwiseAbs().maxCoeff() + leaf.centre.cwiseAbs().maxCoeff() + farthest;
    margin = kDrift * k * (4 * leaf.radius + 2 * farthest) + 16 * kRounding * coordinates;
    SetAxis(0, from.x(), direction.x[0]);
    SetAxis(1, from.y(), direction.y[0]);
    SetAxis(2, from.z(), direction.z[0]);
}

void PackedLeaves::Slabs::SetAxis(int axis, float from, float along) {
    const bool parallel = std::abs(along) < kParallel;
    nearIsMin[axis] = parallel || along > 0;
    const float growth = parallel ? kFar : nearIsMin[axis] ? margin : -margin;
    nearOrigin[axis] = Utils::Splat(from + growth);
    farOrigin[axis] = Utils::Splat(from - growth);
    inverse[axis] = Utils::Splat(parallel ? 1.0f : 1.0f / along);
}

unsigned PackedLeaves::Slabs::Meet(const Boxes& boxes, float nearest) const {
    Float4 enter = Utils::Splat(-margin), leave = Utils::Splat(nearest + margin);
    for (int axis = 0; axis < 3; ++axis) {
        const Float4* nearSide = nearIsMin[axis] ? boxes.min : boxes.max;
        const Float4* farSide = nearIsMin[axis] ? boxes.max : boxes.min;
        enter = Utils::Max(enter, (nearSide[axis] - nearOrigin[axis]) * inverse[axis]);
        leave = Utils::Min(leave, (farSide[axis] - farOrigin[axis]) * inverse[axis]);
    }
    return Utils::Bits(enter <= leave);
}

std::uint32_t PackedLeaves::Add(const std::vector<PartTriangle>& triangles, std::span<const std::uint32_t> leaf,
                                const PartTreeBox& box, std::vector<std::uint64_t>& sorted) {
    const SortedLeaf result = SortByPlace(triangles, leaf, box, sorted);
    while (sorted.size() % kGroup != 0)
        sorted.push_back(sorted.back()); // testing it twice is harmless
    const auto count = [](std::size_t size) { return static_cast<std::uint32_t>(size); };
    leaves.push_back({box.Centre(), box.radius, result.greatestSmallProduct / kLeastDet, count(packBoxes.size()),
                      count(sorted.size() / kGroup), count(groupBoxes.size()), count(normals.size()),
                      count((result.largeCount + kGroup - 1) / kGroup)});
    for (std::size_t i = 0; i < sorted.size(); i += kGroup)
        AddGroup(triangles, {sorted.data() + i, kGroup}, i < result.largeCount);
    AddGroupBoxes(leaves.back());
    return count(leaves.size() - 1);
}

void PackedLeaves::AddGroup(const std::vector<PartTriangle>& triangles, std::span<const std::uint64_t> sorted,
                            bool withNormals) {
    Boxes& boxes = packBoxes.emplace_back();
    for (std::size_t pack = 0; pack < 4; ++pack) {
        std::array<std::uint32_t, 4> indices;
        for (std::size_t lane = 0; lane < 4; ++lane)
            indices[lane] = static_cast<std::uint32_t>(sorted[4 * pack + lane]);
        const TrianglePack& t = packs.emplace_back(GatherPack(triangles.data(), indices));
        const auto setAxis = [&](int axis, Float4 corner, Float4 first, Float4 second) {
            const Float4 zero = {};
            boxes.min[axis][pack] = Utils::LeastLane(corner + Utils::Min(zero, Utils::Min(first, second)));
            boxes.max[axis][pack] = Utils::GreatestLane(corner + Utils::Max(zero, Utils::Max(first, second)));
        };
        setAxis(0, t.corner.x, t.firstEdge.x, t.secondEdge.x);
        setAxis(1, t.corner.y, t.firstEdge.y, t.secondEdge.y);
        setAxis(2, t.corner.z, t.firstEdge.z, t.secondEdge.z);
        if (!withNormals)
            continue;
        Normals& n = normals.emplace_back(Normals{Cross(t.firstEdge, t.secondEdge), {}});
        for (std::size_t lane = 0; lane < 4; ++lane)
            if (const float limit = EdgeProduct(triangles[indices[lane]]) / kLargeK; limit > kLeastDet)
                n.limit[lane] = 1.02f * limit;
    }
}

void PackedLeaves::AddGroupBoxes(const Leaf& leaf) {
    for (std::uint32_t group = 0; group < leaf.groupCount - leaf.largeGroupCount; ++group) {
        Boxes& boxes = group % 4 == 0 ? groupBoxes.emplace_back() : groupBoxes.back();
        const Boxes& inner = packBoxes[leaf.firstGroup + leaf.largeGroupCount + group];
        for (int axis = 0; axis < 3; ++axis) {
            boxes.min[axis][group % 4] = Utils::LeastLane(inner.min[axis]);
            boxes.max[axis][group % 4] = Utils::GreatestLane(inner.max[axis]);
        }
    }
}

void PackedLeaves::Test(std::uint32_t name, const WideVector& origin, const WideVector& direction, float enter,
                        float& nearest) const {
    const Leaf& leaf = leaves[name];
    if (leaf.largeGroupCount > 0) {
        const Slabs slabs(leaf, kLargeK, origin, direction);
        for (std::uint32_t group = 0; group < leaf.largeGroupCount; ++group)
            TestPacks(leaf, group, MetOrEdgeOn(leaf, group, slabs, nearest), slabs, nearest);
    }
    if (leaf.largeGroupCount == leaf.groupCount)
        return;
    const Slabs slabs(leaf, leaf.smallK, origin, direction);
    if (slabs.LiesBehind(enter, nearest))
        return;
    for (std::uint32_t first = leaf.largeGroupCount; first < leaf.groupCount; first += 4) {
        unsigned met = slabs.Meet(groupBoxes[leaf.firstGroupBoxes + (first - leaf.largeGroupCount) / 4], nearest);
        if (leaf.groupCount - first < 4)
            met &= (1u << (leaf.groupCount - first)) - 1;
        for (; met; met &= met - 1) {
            const std::uint32_t group = first + static_cast<std::uint32_t>(std::countr_zero(met));
            TestPacks(leaf, group, slabs.Meet(packBoxes[leaf.firstGroup + group], nearest), slabs, nearest);
        }
    }
}

unsigned PackedLeaves::MetOrEdgeOn(const Leaf& leaf, std::uint32_t group, const Slabs& slabs, float nearest) const {
    unsigned met = slabs.Meet(packBoxes[leaf.firstGroup + group], nearest);
    for (unsigned pack = 0; pack < 4; ++pack) {
        const Normals& n = normals[leaf.firstNormals + 4 * group + pack];
        met |= unsigned{Utils::Bits(Utils::Abs(Dot(n.normal, slabs.direction)) < n.limit) != 0} << pack;
    }
    return met;
}

void PackedLeaves::TestPacks(const Leaf& leaf, std::uint32_t group, unsigned bits, const Slabs& slabs,
                             float& nearest) const {
    for (; bits; bits &= bits - 1)
        TestPack(packs[4 * (leaf.firstGroup + group) + static_cast<std::size_t>(std::countr_zero(bits))], slabs.origin,
                 slabs.direction, nearest);
}

void PackedLeaves::ShrinkToFit() {
    leaves.shrink_to_fit();
    packs.shrink_to_fit();
    packBoxes.shrink_to_fit();
    groupBoxes.shrink_to_fit();
    normals.shrink_to_fit();
}

} // namespace CockpitModel
