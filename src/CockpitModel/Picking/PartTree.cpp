#include "CockpitModel/Picking/PartTree.h"

#include "CockpitModel/Picking/PartTreeBuilder.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace CockpitModel {

using Utils::Float4;
using Utils::Mask4;
using Utils::Vector3;

namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();

/// If all coordinates are below this, no step of a test can overflow.
constexpr float kQuickLimit = 1e6f;
/// Greatest squared length of a direction that counts as a unit vector.
constexpr float kUnitLimit = 1.0001f;

/// 64-bit limits, compared with 32-bit results.
constexpr double kEpsilon = 1e-8;

bool AllBelow(const Vector3& v, float limit) {
    return std::abs(v.x()) <= limit && std::abs(v.y()) <= limit && std::abs(v.z()) <= limit;
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

/// Keeps the nearer of two hits, the first if equal.
void KeepNearer(std::optional<PartHit>& kept, const std::optional<PartHit>& candidate) {
    if (candidate && (!kept || candidate->distance < kept->distance))
        kept = candidate;
}

} // namespace

/// MeetsBox on all axes at once, for a finite ray and box.
class PartTree::SimdSlabs {
public:
    explicit SimdSlabs(const PartRay& ray);
    /// False unless all the ray's numbers are below kQuickLimit.
    bool IsQuick() const { return quick; }
    /// Where the line of the ray enters the box; false if it misses. A box behind the ray counts as met.
    bool Enter(const PartTreeBox& box, float& enter) const;

private:
    Float4 origin, direction;
    Float4 skipped; ///< infinite on ignored axes and in the fourth lane
    bool quick;
};

PartTree::SimdSlabs::SimdSlabs(const PartRay& ray) {
    static_assert(sizeof(PartRay) == 6 * sizeof(float));
    const auto* numbers = reinterpret_cast<const float*>(&ray);
    origin = Utils::Load4(numbers);
    const Float4 fromZ = Utils::Load4(numbers + 2);
    direction = __builtin_shufflevector(fromZ, fromZ, 1, 2, 3, 0);
    const Float4 limit = Utils::Splat(kQuickLimit);
    quick = Utils::Bits((Utils::Abs(origin) <= limit) & (Utils::Abs(direction) <= limit)) == 0xF;
    const Mask4 skip = (direction == 0.0f) | Mask4{0, 0, 0, -1};
    skipped = skip ? Utils::Splat(kInfinity) : Utils::Splat(0);
    direction = skip ? Utils::Splat(1) : direction;
}

bool PartTree::SimdSlabs::Enter(const PartTreeBox& box, float& enter) const {
    static_assert(sizeof(PartTreeBox) == 7 * sizeof(float));
    const Float4 t1 = (Utils::Load4(box.min.data()) - origin) / direction;
    const Float4 t2 = (Utils::Load4(box.max.data()) - origin) / direction;
    enter = Utils::GreatestLane(Utils::Min(t1, t2) - skipped);
    return enter <= Utils::LeastLane(Utils::Max(t1, t2) + skipped);
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
    const SimdSlabs slabs(ray);
    if (!quick || !slabs.IsQuick())
        return IntersectReference(*this, ray);
    float enter;
    if (!slabs.Enter(box, enter))
        return std::nullopt;
    if (Utils::LengthSquared(ray.direction) > kUnitLimit)
        return IntersectReference(*this, ray);
    const float nearest = IntersectFast(ray, slabs, enter);
    if (nearest == kInfinity)
        return std::nullopt;
    return PartHit{ray.origin + nearest * ray.direction, Utils::Vector2::Zero(), nearest};
}

/// No distance is NaN here, so the nearest hit does not depend on the order of the tests.
float PartTree::IntersectFast(const PartRay& ray, const SimdSlabs& slabs, float enterRoot) const {
    struct Step {
        const PartTreeNode* node;
        float enter;
    };
    std::array<Step, PartTreeBuilder::kMaxDepth + 1> waiting;
    waiting[0] = {this, enterRoot};
    std::size_t waitingCount = 1;
    const WideVector origin = Splat(ray.origin), direction = Splat(ray.direction);
    float nearest = kInfinity;
    while (waitingCount > 0) {
        const auto [node, enter] = waiting[--waitingCount];
        TestOwnTriangles(*node, origin, direction, enter, nearest);
        if (!node->hasChildren)
            continue;
        const std::size_t first = waitingCount;
        for (const std::uint32_t child : {node->right, node->left})
            if (Step step = {&nodes[child], 0}; slabs.Enter(step.node->box, step.enter))
                waiting[waitingCount++] = step;
        // The nearer one first, because its hits can save work in the other.
        if (waitingCount == first + 2 && waiting[first].enter < waiting[first + 1].enter)
            std::swap(waiting[first], waiting[first + 1]);
    }
    return nearest;
}

void PartTree::TestOwnTriangles(const PartTreeNode& node, const WideVector& origin, const WideVector& direction,
                                float enter, float& nearest) const {
    if (node.packedLeaf != kNotPacked)
        return packedLeaves.Test(node.packedLeaf, origin, direction, enter, nearest);
    const std::uint32_t* own = triangleIndices.data() + node.firstTriangle;
    const std::uint32_t last = node.triangleCount - 1; // fills the unused lanes
    for (std::uint32_t i = 0; i < node.triangleCount; i += 4) {
        const std::array<std::uint32_t, 4> indices = {own[i], own[std::min(i + 1, last)], own[std::min(i + 2, last)],
                                                      own[std::min(i + 3, last)]};
        TestPack(GatherPack(triangles.data(), indices), origin, direction, nearest);
    }
}

std::optional<PartHit> PartTree::IntersectReference(const PartTreeNode& node, const PartRay& ray) const {
    std::optional<PartHit> nearest;
    if (!MeetsBox(node.box, ray))
        return nearest;
    for (const std::uint32_t index : Triangles(node))
        KeepNearer(nearest, TestTriangle(index, ray));
    if (node.hasChildren) {
        KeepNearer(nearest, IntersectReference(nodes[node.left], ray));
        KeepNearer(nearest, IntersectReference(nodes[node.right], ray));
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

/// Each corner is weighted by the area opposite to it.
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
