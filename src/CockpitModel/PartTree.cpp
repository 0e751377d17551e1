#include "CockpitModel/PartTree.h"

#include "CockpitModel/PartTreeBuilder.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace CockpitModel {

using Utils::Float4;
using Utils::Mask4;
using Utils::Vector3;

namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();

/// Below this size of all coordinates no step of a test can overflow.
constexpr float kQuickLimit = 1e6f;
/// Greatest square of a direction's length that counts as 1.
constexpr float kUnitLimit = 1.0001f;

/// The limits of 64 bits are compared with 32-bit results.
constexpr double kEpsilon = 1e-8;

bool AllBelow(const Vector3& v, float limit) {
    return v.cwiseAbs().maxCoeff<Eigen::PropagateNaN>() <= limit;
}

bool MeetsBox(const PartTreeBox& box, const PartRay& ray) {
    float near = -kInfinity, far = kInfinity;
    for (int axis = 0; axis < 3; ++axis) {
        if (ray.direction[axis] == 0.0f)
            continue;
        const float t1 = (box.min[axis] - ray.origin[axis]) / ray.direction[axis];
        const float t2 = (box.max[axis] - ray.origin[axis]) / ray.direction[axis];
        near = std::max(near, std::min(t1, t2));
        far = std::min(far, std::max(t1, t2));
    }
    return far >= near;
}

/// Keeps the nearer of two hits, the first of equal ones.
void KeepNearer(std::optional<PartHit>& kept, const std::optional<PartHit>& candidate) {
    if (candidate && (!kept || candidate->distance < kept->distance))
        kept = candidate;
}

/// MeetsBox on all axes at once, for a ray and a box of finite numbers.
struct QuickSlabs {
    explicit QuickSlabs(const PartRay& ray)
        : origin{ray.origin.x(), ray.origin.y(), ray.origin.z(), 0}, direction{ray.direction.x(), ray.direction.y(),
                                                                               ray.direction.z(), 0},
          skipped(direction == 0.0f) {}

    bool Meet(const PartTreeBox& box) const {
        // The fourth lanes hold what follows in the box, and are skipped.
        const Float4 t1 = (Utils::Load4(box.min.data()) - origin) / direction;
        const Float4 t2 = (Utils::Load4(box.max.data()) - origin) / direction;
        const Float4 near = skipped ? Utils::Splat(-kInfinity) : Utils::Min(t1, t2);
        const Float4 far = skipped ? Utils::Splat(kInfinity) : Utils::Max(t1, t2);
        return std::min({far[0], far[1], far[2]}) >= std::max({near[0], near[1], near[2]});
    }

    Float4 origin, direction;
    Mask4 skipped;
};
static_assert(sizeof(PartTreeBox) == 7 * sizeof(float));

} // namespace

PartRay TransformRay(const PartRay& ray, const Utils::Matrix4& matrix) {
    const Vector3 origin = Utils::TransformPoint(ray.origin, matrix);
    const Vector3 end = Utils::TransformPoint(ray.origin + ray.direction, matrix);
    return {origin, Utils::Normalised(end - origin)};
}

std::array<Vector3, 8> PartTreeBox::Corners() const {
    std::array<Vector3, 8> corners;
    std::size_t i = 0;
    for (const float y : {max.y(), min.y()})
        for (const float x : {min.x(), max.x()})
            for (const float z : {min.z(), max.z()})
                corners[i++] = {x, y, z};
    return corners;
}

PartTree::PartTree(const std::vector<Rendering::GeometryVertex>& vertices, bool keepTexture)
    : triangles(vertices.size() / 3), keepTextureCoordinates(keepTexture), quick(!keepTexture) {
    if (keepTexture)
        textureCoordinates.resize(triangles.size());
    for (std::size_t i = 0; i < 3 * triangles.size(); ++i) {
        const Vector3& position = triangles[i / 3][i % 3] = vertices[i].position;
        quick = quick && AllBelow(position, kQuickLimit);
        if (keepTexture)
            textureCoordinates[i / 3][i % 3] = vertices[i].texture;
    }
    PartTreeBuilder(*this).Build();
}

std::optional<PartHit> PartTree::Intersect(const PartRay& ray) const {
    if (quick && AllBelow(ray.origin, kQuickLimit) && Utils::LengthSquared(ray.direction) <= kUnitLimit)
        return IntersectQuickly(ray);
    return IntersectPlainly(*this, ray);
}

/// No distance can be not-a-number here, so the nearest hit does not depend on the order of the tests.
std::optional<PartHit> PartTree::IntersectQuickly(const PartRay& ray) const {
    const QuickSlabs slabs(ray);
    if (!slabs.Meet(box))
        return std::nullopt;
    const WideRay wideRay(ray);
    float nearest = kInfinity;
    std::array<const PartTreeNode*, PartTreeBuilder::kMaxDepth + 1> waiting;
    std::size_t waitingCount = 0;
    for (const PartTreeNode* node = this; node;) {
        TestOwnTriangles(*node, wideRay, nearest);
        const PartTreeNode* next = nullptr;
        if (node->hasChildren) {
            const PartTreeNode* children = &nodes[node->left];
            if (slabs.Meet(children[0].box))
                next = children;
            if (slabs.Meet(children[1].box))
                waiting[waitingCount++] = children + 1;
        }
        if (!next && waitingCount > 0)
            next = waiting[--waitingCount];
        node = next;
    }
    if (nearest == kInfinity)
        return std::nullopt;
    return PartHit{ray.origin + nearest * ray.direction, Utils::Vector2::Zero(), nearest};
}

void PartTree::TestOwnTriangles(const PartTreeNode& node, const WideRay& ray, float& nearest) const {
    if (node.largeLeaf != kNoLargeLeaf)
        return largeLeaves.Test(node.largeLeaf, triangles.data(), ray, nearest);
    const std::uint32_t* own = triangleIndices.data() + node.firstTriangle;
    for (std::uint32_t i = 0; i < node.triangleCount; i += 4) {
        const std::uint32_t last = node.triangleCount - 1; // tested again in the lanes that are left over
        TestFourTriangles(triangles.data(),
                          {own[i], own[std::min(i + 1, last)], own[std::min(i + 2, last)], own[std::min(i + 3, last)]},
                          ray, nearest);
    }
}

std::optional<PartHit> PartTree::IntersectPlainly(const PartTreeNode& node, const PartRay& ray) const {
    std::optional<PartHit> nearest;
    if (!MeetsBox(node.box, ray))
        return nearest;
    for (const std::uint32_t index : Triangles(node))
        KeepNearer(nearest, TestTriangle(index, ray));
    if (node.hasChildren) {
        KeepNearer(nearest, IntersectPlainly(nodes[node.left], ray));
        KeepNearer(nearest, IntersectPlainly(nodes[node.right], ray));
    }
    return nearest;
}

std::optional<PartHit> PartTree::TestTriangle(std::uint32_t index, const PartRay& ray) const {
    const auto& [p0, p1, p2] = triangles[index];
    const Vector3 e1 = p1 - p0, e2 = p2 - p0, pv = ray.direction.cross(e2);
    const float det = Utils::Dot(e1, pv);
    if (det > -kEpsilon && det < kEpsilon)
        return std::nullopt;
    const float inverse = 1.0f / det;
    const Vector3 s = ray.origin - p0;
    const float u = Utils::Dot(s, pv) * inverse;
    if (u < 0.0f || u > 1.0f)
        return std::nullopt;
    const Vector3 qv = s.cross(e1);
    const float v = Utils::Dot(ray.direction, qv) * inverse;
    if (v < 0.0f || u + v > 1.0f)
        return std::nullopt;
    const float distance = Utils::Dot(e2, qv) * inverse;
    if (distance < kEpsilon)
        return std::nullopt;
    const Vector3 position = ray.origin + distance * ray.direction;
    return PartHit{position, keepTextureCoordinates ? TextureAt(index, position) : Utils::Vector2::Zero(), distance};
}

/// Each corner counts by the area that lies opposite to it.
Utils::Vector2 PartTree::TextureAt(std::uint32_t index, const Vector3& position) const {
    const auto& corners = triangles[index];
    const Vector3 to[3] = {corners[0] - position, corners[1] - position, corners[2] - position};
    const float whole = Utils::Length((corners[1] - corners[0]).cross(corners[2] - corners[0]));
    Utils::Vector2 result = Utils::Vector2::Zero();
    for (int i = 0; i < 3; ++i) {
        const float opposite = Utils::Length(to[(i + 1) % 3].cross(to[(i + 2) % 3]));
        result += opposite / whole * textureCoordinates[index][i];
    }
    return result;
}

} // namespace CockpitModel
