#include "CockpitModel/LargeLeaf.h"

#include "CockpitModel/PartTree.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace CockpitModel {

using Utils::Float4;
using Utils::Mask4;

namespace {

constexpr std::size_t kPack = 4, kGroup = 4 * kPack; ///< triangles

/// The greatest float below the 64-bit 1e-8, which the triangle test compares with.
constexpr float kBelowLimit = 1e-8f;
static_assert(static_cast<double>(kBelowLimit) < 1e-8);

/// How a hit, as it comes out in 32-bit floats, may lie off its triangle. With e1, e2 the triangle's edges, s the way
/// from its first vertex to the ray's origin and r = 2^-24 the greatest relative rounding, each of the triple products
/// det, s . pv and d . qv is wrong by at most 5.5 r times the lengths of its three factors (a product, a difference, a
/// product and two sums in turn). So while |det| is at least kEdgeOn |e1| |e2|, the point where the ray meets the
/// triangle's plane lies within 5.5 r / kEdgeOn (|e1| + |e2| + 2 |s|) of the triangle, and the distance is wrong by no
/// more. kDrift is that factor with room for second-order terms.
constexpr float kEdgeOn = 1.0f / 512;
constexpr float kRounding = 1.0f / (1 << 24);
constexpr float kDrift = 6.5f * kRounding / kEdgeOn;
/// Triangles of a smaller |e1| |e2| cannot be both hit and edge-on: their det would be below 1e-8.
constexpr float kNeverEdgeOn = 0.98e-8f / kEdgeOn;

/// Components of a direction below this count as 0; their quotients would leave the range of floats.
constexpr float kParallel = 1e-15f;
constexpr float kFar = 1e30f;

struct WideVector {
    Float4 x, y, z;
};

WideVector operator-(const WideVector& a, const WideVector& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
WideVector Cross(const WideVector& a, const WideVector& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
Float4 Dot(const WideVector& a, const WideVector& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

struct WideTriangle {
    WideVector p0, p1, p2;
};

WideTriangle Gather(const PartTriangle* triangles, const std::uint32_t (&indices)[4]) {
    static_assert(sizeof(PartTriangle) == 9 * sizeof(float));
    const float* from[4] = {triangles[indices[0]][0].data(), triangles[indices[1]][0].data(),
                            triangles[indices[2]][0].data(), triangles[indices[3]][0].data()};
    Float4 a[4], b[4];
    for (int i = 0; i < 4; ++i) {
        a[i] = Utils::Load4(from[i]);
        b[i] = Utils::Load4(from[i] + 4);
    }
    Utils::Transpose(a[0], a[1], a[2], a[3]);
    Utils::Transpose(b[0], b[1], b[2], b[3]);
    const Float4 last = {from[0][8], from[1][8], from[2][8], from[3][8]};
    return {{a[0], a[1], a[2]}, {a[3], b[0], b[1]}, {b[2], b[3], last}};
}

/// Spreads the lower ten bits to every third place.
std::uint32_t Spread(std::uint32_t v) {
    v = (v | v << 16) & 0x030000FF;
    v = (v | v << 8) & 0x0300F00F;
    v = (v | v << 4) & 0x030C30C3;
    return (v | v << 2) & 0x09249249;
}

/// |e1|^2 |e2|^2
float SquaredEdgeProduct(const PartTriangle& triangle) {
    return Utils::LengthSquared(triangle[1] - triangle[0]) * Utils::LengthSquared(triangle[2] - triangle[0]);
}

bool MayBeEdgeOn(const PartTriangle& triangle) {
    return SquaredEdgeProduct(triangle) > kNeverEdgeOn * kNeverEdgeOn;
}

/// The leaf's triangles in the lower halves of the keys, those that may be edge-on first, then along a curve that runs
/// through the box cell by cell. Returns how many may be edge-on.
std::size_t SortByPlace(const std::vector<PartTriangle>& triangles, std::span<const std::uint32_t> leaf,
                        const PartTreeBox& box, std::vector<std::uint64_t>& sorted) {
    const float extent = (box.max - box.min).maxCoeff();
    const float scale = extent > 0 ? 1023.0f / (3 * extent) : 0.0f;
    const Utils::Vector3 corner = 3 * box.min;
    sorted.clear();
    std::size_t edgeOnCount = 0;
    for (const std::uint32_t index : leaf) {
        const PartTriangle& t = triangles[index];
        const Utils::Vector3 cell = (t[0] + t[1] + t[2] - corner) * scale;
        const bool edgeOn = MayBeEdgeOn(t);
        edgeOnCount += edgeOn;
        std::uint32_t key = edgeOn ? 0 : 1u << 30;
        for (int axis = 0; axis < 3; ++axis)
            key |= Spread(static_cast<std::uint32_t>(std::clamp(cell[axis], 0.0f, 1023.0f))) << axis;
        sorted.push_back(std::uint64_t{key} << 32 | index);
    }
    std::sort(sorted.begin(), sorted.end());
    return edgeOnCount;
}

/// 1 for planes that the ray runs along so closely that a hit, as computed, may lie anywhere.
unsigned SeesEdgeOn(const Float4 (&normal)[3], Float4 limit, const WideRay& ray) {
    const Float4 cosine = ray.direction[0] * normal[0] + ray.direction[1] * normal[1] + ray.direction[2] * normal[2];
    return Utils::Bits(Utils::Abs(cosine) < limit) != 0;
}

} // namespace

WideRay::WideRay(const PartRay& ray) {
    for (int axis = 0; axis < 3; ++axis) {
        origin[axis] = Utils::Splat(ray.origin[axis]);
        direction[axis] = Utils::Splat(ray.direction[axis]);
    }
}

void TestFourTriangles(const PartTriangle* triangles, const std::uint32_t (&indices)[4], const WideRay& ray,
                       float& nearest) {
    const WideTriangle t = Gather(triangles, indices);
    const WideVector o = {ray.origin[0], ray.origin[1], ray.origin[2]};
    const WideVector d = {ray.direction[0], ray.direction[1], ray.direction[2]};
    const WideVector e1 = t.p1 - t.p0, e2 = t.p2 - t.p0, pv = Cross(d, e2);
    const Float4 det = Dot(e1, pv);
    const Float4 inverse = 1.0f / det;
    const WideVector s = o - t.p0;
    const Float4 u = Dot(s, pv) * inverse;
    Mask4 hit = ((det < -kBelowLimit) | (det > kBelowLimit)) & (u >= 0.0f) & (u <= 1.0f);
    if (!Utils::Bits(hit))
        return;
    const WideVector qv = Cross(s, e1);
    const Float4 v = Dot(d, qv) * inverse;
    const Float4 distance = Dot(e2, qv) * inverse;
    hit &= (v >= 0.0f) & (u + v <= 1.0f) & (distance > kBelowLimit);
    for (unsigned bits = Utils::Bits(hit), lane = 0; bits; bits >>= 1, ++lane)
        if (bits & 1)
            nearest = std::min(nearest, distance[lane]);
}

/// The boxes of a leaf as a ray sees them, grown by how far a hit may lie off: positions along the ray at which it
/// enters and leaves them.
struct LargeLeaves::Slabs {
    Slabs(const Leaf& leaf, const WideRay& ray);

    Float4 nearOrigin[3], farOrigin[3], inverse[3];
    bool nearIsMin[3];
    float margin;

    /// A bit for each pack whose box the ray meets ahead of its origin and short of the nearest hit.
    unsigned Meet(const Group& group, float nearest) const;
};

LargeLeaves::Slabs::Slabs(const Leaf& leaf, const WideRay& ray) {
    const Utils::Vector3 origin(ray.origin[0][0], ray.origin[1][0], ray.origin[2][0]);
    const float farthest =
        Utils::Length(origin - leaf.centre) + leaf.radius; // no |s| is greater, no edge above 2 radii
    const float coordinates = origin.cwiseAbs().maxCoeff() + leaf.centre.cwiseAbs().maxCoeff() + farthest;
    margin = kDrift * (4 * leaf.radius + 2 * farthest) + 16 * kRounding * coordinates;
    for (int axis = 0; axis < 3; ++axis) {
        const float direction = ray.direction[axis][0];
        const bool parallel = std::abs(direction) < kParallel;
        // A slab that the ray is parallel to holds no end of it back.
        const float growth = parallel ? kFar : margin;
        nearIsMin[axis] = parallel || direction > 0;
        inverse[axis] = Utils::Splat(parallel ? 1.0f : 1.0f / direction);
        nearOrigin[axis] = ray.origin[axis] + (nearIsMin[axis] ? growth : -growth);
        farOrigin[axis] = ray.origin[axis] - (nearIsMin[axis] ? growth : -growth);
    }
}

unsigned LargeLeaves::Slabs::Meet(const Group& group, float nearest) const {
    Float4 enter = Utils::Splat(-margin), leave = Utils::Splat(nearest + margin);
    for (int axis = 0; axis < 3; ++axis) {
        const Float4 nearSide = nearIsMin[axis] ? group.min[axis] : group.max[axis];
        const Float4 farSide = nearIsMin[axis] ? group.max[axis] : group.min[axis];
        enter = Utils::Max(enter, (nearSide - nearOrigin[axis]) * inverse[axis]);
        leave = Utils::Min(leave, (farSide - farOrigin[axis]) * inverse[axis]);
    }
    return Utils::Bits(enter <= leave);
}

std::uint32_t LargeLeaves::Add(const std::vector<PartTriangle>& triangles, std::span<const std::uint32_t> leaf,
                               const PartTreeBox& box, std::vector<std::uint64_t>& sorted) {
    const std::size_t edgeOnCount = SortByPlace(triangles, leaf, box, sorted);
    const std::size_t groupCount = (leaf.size() + kGroup - 1) / kGroup;
    const std::size_t planeGroupCount = (edgeOnCount + kGroup - 1) / kGroup;
    leaves.push_back({box.Centre(), box.radius, static_cast<std::uint32_t>(groups.size()),
                      static_cast<std::uint32_t>(groupCount), static_cast<std::uint32_t>(planes.size()),
                      static_cast<std::uint32_t>(planeGroupCount)});
    for (std::size_t i = 0; i < groupCount * kGroup; i += kGroup) {
        Group& group = groups.emplace_back();
        for (std::size_t pack = 0; pack < kPack; ++pack)
            for (std::size_t lane = 0; lane < kPack; ++lane) {
                // The last group's free places repeat the last triangle.
                const std::size_t at = std::min(i + pack * kPack + lane, sorted.size() - 1);
                group.triangles[pack][lane] = static_cast<std::uint32_t>(sorted[at]);
            }
        SetBoxes(triangles, group);
        for (std::size_t pack = 0; i < edgeOnCount && pack < kPack; ++pack)
            planes.push_back(PlanesOf(triangles, group.triangles[pack]));
    }
    return static_cast<std::uint32_t>(leaves.size() - 1);
}

void LargeLeaves::SetBoxes(const std::vector<PartTriangle>& triangles, Group& group) {
    for (std::size_t pack = 0; pack < kPack; ++pack) {
        const WideTriangle t = Gather(triangles.data(), group.triangles[pack]);
        const Float4 low[3] = {Utils::Min(t.p0.x, Utils::Min(t.p1.x, t.p2.x)),
                               Utils::Min(t.p0.y, Utils::Min(t.p1.y, t.p2.y)),
                               Utils::Min(t.p0.z, Utils::Min(t.p1.z, t.p2.z))};
        const Float4 high[3] = {Utils::Max(t.p0.x, Utils::Max(t.p1.x, t.p2.x)),
                                Utils::Max(t.p0.y, Utils::Max(t.p1.y, t.p2.y)),
                                Utils::Max(t.p0.z, Utils::Max(t.p1.z, t.p2.z))};
        for (int axis = 0; axis < 3; ++axis) {
            group.min[axis][pack] = std::min({low[axis][0], low[axis][1], low[axis][2], low[axis][3]});
            group.max[axis][pack] = std::max({high[axis][0], high[axis][1], high[axis][2], high[axis][3]});
        }
    }
}

LargeLeaves::PackPlanes LargeLeaves::PlanesOf(const std::vector<PartTriangle>& triangles,
                                              const std::uint32_t (&pack)[4]) {
    const WideTriangle t = Gather(triangles.data(), pack);
    const WideVector normal = Cross(t.p1 - t.p0, t.p2 - t.p0);
    PackPlanes planes = {{normal.x, normal.y, normal.z}, {}};
    for (int i = 0; i < 4; ++i)
        if (MayBeEdgeOn(triangles[pack[i]]))
            planes.limit[i] = 1.02f * kEdgeOn * std::sqrt(SquaredEdgeProduct(triangles[pack[i]]));
    return planes;
}

void LargeLeaves::Test(std::uint32_t name, const PartTriangle* triangles, const WideRay& ray, float& nearest) const {
    const Leaf& leaf = leaves[name];
    const Slabs slabs(leaf, ray);
    for (std::uint32_t i = 0; i < leaf.groupCount; ++i) {
        const Group& group = groups[leaf.firstGroup + i];
        unsigned packs = slabs.Meet(group, nearest);
        for (unsigned pack = 0; i < leaf.planeGroupCount && pack < kPack; ++pack) {
            const PackPlanes& p = planes[leaf.firstPlanes + i * kPack + pack];
            packs |= SeesEdgeOn(p.normal, p.limit, ray) << pack;
        }
        for (unsigned pack = 0; packs; packs >>= 1, ++pack)
            if (packs & 1)
                TestFourTriangles(triangles, group.triangles[pack], ray, nearest);
    }
}

void LargeLeaves::ShrinkToFit() {
    leaves.shrink_to_fit();
    groups.shrink_to_fit();
    planes.shrink_to_fit();
}

} // namespace CockpitModel
