#include "Annotator/Preview/Framing.h"

#include "Annotator/Preview/CanvasControl.h"
#include "Utils/Extent.h"

#include <algorithm>

namespace Annotator {

namespace {

using Utils::Extent;
using Utils::Matrix4;
using Utils::Vector3;

constexpr float kFilled = 0.95f;           // of the image's width or height
constexpr float kLeastDistance = 0.1f;     // metres from the camera to the nearest point
constexpr float kFarPlaneMargin = 1.0001f; // keeps the farthest point in front of it despite rounding

} // namespace

std::vector<Vector3> WorldCorners(CockpitModel::SceneGraph& sceneGraph,
                                  const std::function<bool(const CockpitModel::NodePart&)>& wanted) {
    std::vector<Vector3> corners;
    const auto gather = [&](const Matrix4& world, const Matrix4&, const Matrix4&, const Matrix4&,
                            const CockpitModel::Node& node) {
        for (const auto& part : node.parts) {
            if (!wanted(*part))
                continue;
            for (const Rendering::GeometryVertex& vertex : part->vertices)
                if (const Vector3 corner = Utils::TransformPoint(vertex.position, world); corner.allFinite())
                    corners.push_back(corner);
        }
    };
    sceneGraph.VisitNodes(Matrix4::Identity(), Matrix4::Identity(), gather);
    return corners;
}

Vector3 RotationTowards(const std::vector<Vector3>& points, const Rendering::Camera& camera) {
    if (points.empty())
        return camera.Rotation();
    Extent extent;
    for (const Vector3& point : points)
        extent.Add(point);
    const Vector3 middle = (extent.least + extent.greatest) / 2.0f;
    const Vector3 way = middle - Vector3(camera.Position().x(), camera.Position().y(), -camera.Position().z());
    return {std::atan2(-way.y(), std::hypot(way.x(), way.z())), 0.0f, std::atan2(way.x(), way.z())};
}

std::optional<Framing> FramePoints(const std::vector<Vector3>& points, const Rendering::Camera& camera, float aspect) {
    if (points.empty())
        return std::nullopt;
    const Eigen::Matrix3f rotation = camera.ViewMatrix().topLeftCorner<3, 3>();
    const float height = kFilled * std::tan(kFieldOfView / 2.0f), width = height * aspect;
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
    const float back = std::max({distance.x(), distance.y(), kLeastDistance - turned.least.z()});
    const Vector3 eye = Vector3(middle.x() * width, middle.y() * height, -back) * rotation.transpose();
    return Framing{{eye.x(), eye.y(), -eye.z()}, (turned.greatest.z() + back) * kFarPlaneMargin};
}

} // namespace Annotator
