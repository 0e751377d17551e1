#pragma once

#include "CockpitModel/Picking/Float4.h"
#include "Utils/LinearAlgebra.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace CockpitModel {

using PartTriangle = std::array<Utils::Vector3, 3>;

/// Four vectors, one per lane.
struct WideVector {
    Utils::Float4 x, y, z;
};

inline WideVector Splat(const Utils::Vector3& v) {
    return {Utils::Splat(v.x()), Utils::Splat(v.y()), Utils::Splat(v.z())};
}
inline WideVector operator-(const WideVector& a, const WideVector& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline WideVector Cross(const WideVector& a, const WideVector& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline Utils::Float4 Dot(const WideVector& a, const WideVector& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

/// The greatest float below the 64-bit 1e-8 that the triangle test compares with.
inline constexpr float kBelowTestLimit = 1e-8f;
static_assert(static_cast<double>(kBelowTestLimit) < 1e-8);

/// Four triangles in the form that their test needs: a corner and the edges from it.
struct TrianglePack {
    WideVector corner, firstEdge, secondEdge;
};

inline TrianglePack GatherPack(const PartTriangle* triangles, const std::array<std::uint32_t, 4>& indices) {
    static_assert(sizeof(PartTriangle) == 9 * sizeof(float));
    const float* from[4];
    Utils::Float4 head[4], tail[4];
    for (int i = 0; i < 4; ++i) {
        from[i] = triangles[indices[i]][0].data();
        head[i] = Utils::Load4(from[i]);
        tail[i] = Utils::Load4(from[i] + 4);
    }
    Utils::Transpose(head[0], head[1], head[2], head[3]);
    Utils::Transpose(tail[0], tail[1], tail[2], tail[3]);
    const Utils::Float4 last = {from[0][8], from[1][8], from[2][8], from[3][8]};
    const WideVector p0 = {head[0], head[1], head[2]}, p1 = {head[3], tail[0], tail[1]}, p2 = {tail[2], tail[3], last};
    return {p0, p1 - p0, p2 - p0};
}

/// Reduces `nearest` to the distance of the nearest triangle of the pack that the ray hits, exactly as testing them one
/// by one would. Coordinates and ray must be too small for any overflow.
inline void TestPack(const TrianglePack& pack, const WideVector& origin, const WideVector& direction, float& nearest) {
    using Utils::Float4;
    const WideVector pv = Cross(direction, pack.secondEdge);
    const Float4 det = Dot(pack.firstEdge, pv);
    const Float4 inverse = 1.0f / det;
    const WideVector s = origin - pack.corner;
    const Float4 u = Dot(s, pv) * inverse;
    Utils::Mask4 hit = ((det < -kBelowTestLimit) | (det > kBelowTestLimit)) & (u >= 0.0f) & (u <= 1.0f);
    if (!Utils::Bits(hit))
        return;
    const WideVector qv = Cross(s, pack.firstEdge);
    const Float4 v = Dot(direction, qv) * inverse;
    const Float4 distance = Dot(pack.secondEdge, qv) * inverse;
    hit &= (v >= 0.0f) & (u + v <= 1.0f) & (distance > kBelowTestLimit);
    for (unsigned bits = Utils::Bits(hit), lane = 0; bits; bits >>= 1, ++lane)
        if (bits & 1)
            nearest = std::min(nearest, distance[lane]);
}

} // namespace CockpitModel
