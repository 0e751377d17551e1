#include "Annotator/Preview/Framing.h"

#include "Annotator/Preview/CanvasControl.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

namespace Annotator {

namespace {

using CockpitModel::NodePart;
using CockpitModel::SceneGraph;
using Utils::Matrix4;
using Utils::Vector3;
using Utils::Vector4;

constexpr float kLeastDistance = 0.1f;     // metres from the camera to the nearest point
constexpr float kFarPlaneMargin = 1.0001f; // keeps the farthest point in front of it despite rounding
constexpr float kPartFilled = 1.0f / 3.0f;
constexpr float kCockpitRadius = 10.0f;  // metres; doors and hatches of a long cabin are farther away
constexpr float kFarthestCamera = 25.0f; // metres; the window draws nothing beyond its far plane
static_assert(kFarthestCamera < kFarPlane);

/// The points' extent along some axes.
struct Extent {
    Vector3 least = Vector3::Constant(std::numeric_limits<float>::max());
    Vector3 greatest = Vector3::Constant(std::numeric_limits<float>::lowest());

    void Add(const Vector3& point) {
        least = least.cwiseMin(point);
        greatest = greatest.cwiseMax(point);
    }
    bool IsEmpty() const { return least.x() > greatest.x(); }
    Vector3 Middle() const { return (least + greatest) / 2.0f; }
    /// The distance of the farthest corner of the box.
    float Farthest(const Vector3& point) const {
        return Utils::Length((point - least).cwiseAbs().cwiseMax((greatest - point).cwiseAbs()));
    }
};

/// Between world and camera, whose z axes are opposite.
Vector3 Mirrored(const Vector3& position) {
    return {position.x(), position.y(), -position.z()};
}

/// Calls the function with each node's world matrix and each of its parts.
void VisitParts(SceneGraph& sceneGraph, const std::function<void(const Matrix4& world, const NodePart& part)>& visit) {
    sceneGraph.VisitNodes(
        Matrix4::Identity(), Matrix4::Identity(),
        [&](const Matrix4& world, const Matrix4&, const Matrix4&, const Matrix4&, const CockpitModel::Node& node) {
            for (const auto& part : node.parts)
                visit(world, *part);
        });
}

void ForEachCorner(const Matrix4& world, const NodePart& part, const std::function<void(const Vector3&)>& use) {
    for (const Rendering::GeometryVertex& vertex : part.vertices)
        if (const Vector3 corner = Utils::TransformPoint(vertex.position, world); corner.allFinite())
            use(corner);
}

/// The rotation of a camera that looks at a point, without roll.
Vector3 RotationTowards(const Vector3& point, const Rendering::Camera& camera) {
    const Vector3 way = point - Mirrored(camera.Position());
    return {std::atan2(-way.y(), std::hypot(way.x(), way.z())), 0.0f, std::atan2(way.x(), way.z())};
}

/// The middle of the parts' places, axis by axis. There must be one.
Vector3 Median(std::vector<Vector3> places) {
    Vector3 median;
    const auto middle = places.begin() + static_cast<std::ptrdiff_t>(places.size() / 2);
    for (int axis = 0; axis < 3; ++axis) {
        std::nth_element(places.begin(), middle, places.end(),
                         [axis](const Vector3& a, const Vector3& b) { return a[axis] < b[axis]; });
        median[axis] = (*middle)[axis];
    }
    return median;
}

/// The touchable parts that are entirely near the median of all; one that spans the fuselage is not, wherever its
/// middle is.
std::unordered_set<const NodePart*> TouchableParts(SceneGraph& sceneGraph) {
    std::vector<std::pair<const NodePart*, Extent>> parts;
    std::vector<Vector3> middles;
    VisitParts(sceneGraph, [&](const Matrix4& world, const NodePart& part) {
        if (!part.Rect())
            return;
        Extent extent;
        ForEachCorner(world, part, [&](const Vector3& corner) { extent.Add(corner); });
        if (extent.IsEmpty())
            return;
        parts.emplace_back(&part, extent);
        middles.push_back(extent.Middle());
    });
    std::unordered_set<const NodePart*> chosen;
    if (parts.empty())
        return chosen;
    const Vector3 median = Median(std::move(middles));
    for (const auto& [part, extent] : parts)
        if (extent.Farthest(median) <= kCockpitRadius)
            chosen.insert(part);
    return chosen;
}

/// The part of a polygon in clip space on the positive side of a plane.
std::vector<Vector4> Clip(const std::vector<Vector4>& polygon, const Vector4& plane) {
    std::vector<Vector4> clipped;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Vector4 &corner = polygon[i], &next = polygon[(i + 1) % polygon.size()];
        const float inside = corner.dot(plane), nextInside = next.dot(plane);
        if (inside >= 0.0f)
            clipped.push_back(corner);
        if ((inside < 0.0f) != (nextInside < 0.0f))
            clipped.push_back(corner + (next - corner) * (inside / (inside - nextInside)));
    }
    return clipped;
}

bool IsInView(std::vector<Vector4> polygon) {
    static const std::array<Vector4, 6> planes{Vector4(0, 0, 1, 0),  Vector4(0, 0, -1, 1), Vector4(1, 0, 0, 1),
                                               Vector4(-1, 0, 0, 1), Vector4(0, 1, 0, 1),  Vector4(0, -1, 0, 1)};
    for (const Vector4& plane : planes)
        polygon = Clip(polygon, plane);
    return !polygon.empty();
}

} // namespace

std::vector<Vector3> WorldCorners(SceneGraph& sceneGraph, const PartFilter& wanted) {
    std::vector<Vector3> corners;
    VisitParts(sceneGraph, [&](const Matrix4& world, const NodePart& part) {
        if (wanted(part))
            ForEachCorner(world, part, [&](const Vector3& corner) { corners.push_back(corner); });
    });
    return corners;
}

std::optional<Framing> FramePoints(const std::vector<Vector3>& points, Rendering::Camera camera, float aspect,
                                   const FramingRule& rule) {
    if (points.empty())
        return std::nullopt;
    Extent extent;
    for (const Vector3& point : points)
        extent.Add(point);
    if (rule.turn)
        camera.SetRotation(RotationTowards(extent.Middle(), camera));
    const Eigen::Matrix3f rotation = camera.ViewMatrix().topLeftCorner<3, 3>();
    const float height = rule.filled * std::tan(kFieldOfView / 2.0f), width = height * aspect;
    // In the rotated axes, a point p is inside the image of a camera at c if |p.x - c.x| <= width (p.z - c.z). Each
    // side is therefore a plane that moves with c, and the outermost point along its normal decides.
    Extent turned, rising, falling;
    for (const Vector3& point : points) {
        const Vector3 p = point * rotation;
        turned.Add(p);
        rising.Add({p.x() / width - p.z(), p.y() / height - p.z(), 0.0f});
        falling.Add({-p.x() / width - p.z(), -p.y() / height - p.z(), 0.0f});
    }
    const Vector3 middle = (rising.greatest - falling.greatest) / 2.0f;
    const Vector3 distance = (rising.greatest + falling.greatest) / 2.0f;
    const float back = std::min(std::max({distance.x(), distance.y(), kLeastDistance - turned.least.z()}),
                                rule.farthest - turned.Middle().z());
    const Vector3 eye = Vector3(middle.x() * width, middle.y() * height, -back) * rotation.transpose();
    return Framing{{Mirrored(eye), camera.Rotation()}, (turned.greatest.z() + back) * kFarPlaneMargin};
}

std::optional<Framing> FrameParts(SceneGraph& sceneGraph, const PartFilter& wanted, const Rendering::Camera& camera,
                                  float aspect, const FramingRule& rule) {
    return FramePoints(WorldCorners(sceneGraph, wanted), camera, aspect, rule);
}

std::optional<Framing> FramePart(SceneGraph& sceneGraph, const NodePart& part, const Vector3& eye, float aspect) {
    Rendering::Camera camera;
    camera.SetPosition(eye);
    return FrameParts(sceneGraph, [&part](const NodePart& other) { return &other == &part; }, camera, aspect,
                      {.turn = true, .filled = kPartFilled, .farthest = kFarthestCamera});
}

std::optional<Framing> FrameCockpit(SceneGraph& sceneGraph, float aspect) {
    const auto parts = TouchableParts(sceneGraph);
    return FrameParts(sceneGraph, [&parts](const NodePart& part) { return parts.empty() || parts.contains(&part); }, {},
                      aspect, {.farthest = kFarthestCamera});
}

bool SeesAnyPart(SceneGraph& sceneGraph, const PartFilter& wanted, const Matrix4& view, const Matrix4& projection) {
    bool seen = false;
    VisitParts(sceneGraph, [&](const Matrix4& world, const NodePart& part) {
        if (seen || !wanted(part))
            return;
        const Matrix4 toClip = world * view * projection;
        const auto clipped = [&](std::size_t i) -> Vector4 {
            const Vector3& corner = part.vertices[i].position;
            return Vector4(corner.x(), corner.y(), corner.z(), 1.0f) * toClip;
        };
        for (std::size_t i = 0; i + 2 < part.vertices.size() && !seen; i += 3)
            seen = IsInView({clipped(i), clipped(i + 1), clipped(i + 2)});
    });
    return seen;
}

} // namespace Annotator
