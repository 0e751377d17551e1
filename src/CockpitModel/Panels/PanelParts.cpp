#include "CockpitModel/Panels/PanelParts.h"

#include "CockpitModel/NodePart.h"
#include "CockpitModel/Panels/PanelSet.h"

#include <array>
#include <clipper.hpp>
#include <cmath>
#include <optional>

namespace CockpitModel {

namespace {

using ClipperLib::cInt;
using ClipperLib::Path;
using ClipperLib::Paths;
using Rendering::GeometryVertex;
using Utils::Vector2;
using Utils::Vector3;

/// Integer steps per unit of a texture coordinate.
constexpr float kScale = 2000000.0f;
/// In texture coordinates.
constexpr float kSmallestEdge = 0.005f;
/// In scaled coordinates: slightly more than the diagonal of one step.
constexpr double kCleanDistance = 1.415;
/// Metres along z, so that the new part does not z-fight with its base part.
constexpr float kLift = 0.001f;
/// Clipper rejects coordinates from 2^62 on.
constexpr float kClipperRange = 4611686018427387904.0f;

using Triangle = std::array<const GeometryVertex*, 3>;

bool InRange(float scaled) {
    return std::abs(scaled) < kClipperRange; // false for NaN
}

/// Corners in scaled texture coordinates, truncated to integers; empty if one of them is out of Clipper's range.
template <std::size_t N>
Path ToPath(const std::array<Vector2, N>& corners) {
    Path path;
    for (const Vector2& corner : corners) {
        if (!InRange(corner.x()) || !InRange(corner.y()))
            return {};
        path.emplace_back(static_cast<cInt>(corner.x()), static_cast<cInt>(corner.y()));
    }
    return path;
}

/// Empty unless all corners are kept.
template <std::size_t N>
Path ToCleanPath(const std::array<Vector2, N>& corners) {
    Path path = ToPath(corners);
    ClipperLib::CleanPolygon(path, kCleanDistance);
    return path.size() == N ? path : Path();
}

Path RectanglePath(const PanelEntry& entry) {
    const float x0 = entry.U * kScale, y0 = entry.V * kScale;
    const float x1 = entry.Width * kScale + x0, y1 = entry.Height * kScale + y0;
    return ToCleanPath<4>({Vector2(x0, y0), Vector2(x1, y0), Vector2(x1, y1), Vector2(x0, y1)});
}

float TextureDistance(const GeometryVertex& a, const GeometryVertex& b) {
    const Vector2 d = b.texture - a.texture;
    return std::sqrt(d.x() * d.x() + d.y() * d.y());
}

bool HasShortEdge(const Triangle& t) {
    return TextureDistance(*t[0], *t[1]) < kSmallestEdge || TextureDistance(*t[0], *t[2]) < kSmallestEdge ||
           TextureDistance(*t[1], *t[2]) < kSmallestEdge;
}

Path TrianglePath(const Triangle& t) {
    return ToCleanPath<3>({t[0]->texture * kScale, t[1]->texture * kScale, t[2]->texture * kScale});
}

/// No paths if Clipper fails.
Paths Intersection(const Path& rectangle, const Path& triangle) {
    Paths solution;
    try {
        ClipperLib::Clipper clipper;
        clipper.AddPath(rectangle, ClipperLib::ptClip, true);
        clipper.AddPath(triangle, ClipperLib::ptSubject, true);
        clipper.Execute(ClipperLib::ctIntersection, solution, ClipperLib::pftNonZero, ClipperLib::pftNonZero);
        if (!solution.empty())
            ClipperLib::SimplifyPolygons(solution, ClipperLib::pftEvenOdd);
    } catch (const ClipperLib::clipperException&) {
        solution.clear();
    }
    return solution;
}

/// A fan of triangles of texture coordinates around the mean of a polygon's corners.
std::vector<Vector2> Fan(const Path& polygon) {
    std::vector<Vector2> corners;
    Vector2 centre = Vector2::Zero();
    for (const ClipperLib::IntPoint& point : polygon) {
        corners.emplace_back(static_cast<float>(point.X) / kScale, static_cast<float>(point.Y) / kScale);
        centre += corners.back();
    }
    centre /= static_cast<float>(corners.size());
    std::vector<Vector2> fan;
    for (std::size_t i = 0; i < corners.size(); ++i)
        fan.insert(fan.end(), {centre, corners[i], corners[(i + 1) % corners.size()]});
    return fan;
}

float Cross(const Vector2& a, const Vector2& b) {
    return a.x() * b.y() - a.y() * b.x();
}

/// Maps texture coordinates of a triangle to points of its surface.
class SurfaceMap {
public:
    explicit SurfaceMap(const Triangle& t)
        : triangle(t), ab(t[1]->texture - t[0]->texture), ac(t[2]->texture - t[0]->texture), area(Cross(ab, ac)) {}

    /// False if the triangle's area in texture space is rounded to nothing.
    bool IsUsable() const { return area != 0.0f; }

    GeometryVertex At(const Vector2& texture) const {
        const Vector2 ap = texture - triangle[0]->texture;
        const float weightB = Cross(ap, ac) / area, weightC = Cross(ab, ap) / area;
        GeometryVertex vertex;
        vertex.position = triangle[0]->position * (1.0f - weightB - weightC) + triangle[1]->position * weightB +
                          triangle[2]->position * weightC;
        vertex.normal = Vector3(0.0f, 0.0f, 1.0f);
        vertex.texture = texture;
        return vertex;
    }

private:
    Triangle triangle;
    Vector2 ab, ac;
    float area; ///< twice the triangle's area, signed
};

void ClipToTriangle(const Path& rectangle, const Triangle& triangle, std::vector<GeometryVertex>& soup) {
    if (HasShortEdge(triangle))
        return;
    const SurfaceMap surface(triangle);
    const Path path = TrianglePath(triangle);
    if (path.empty() || !surface.IsUsable())
        return;
    for (const Path& polygon : Intersection(rectangle, path))
        for (const Vector2& point : Fan(polygon))
            soup.push_back(surface.At(point));
}

} // namespace

void ClipEntryToPart(const PanelEntry& entry, const NodePart& part, std::vector<PanelPartEntry>& out) {
    const Path rectangle = RectanglePath(entry);
    if (rectangle.empty())
        return;
    std::vector<GeometryVertex> soup;
    for (std::size_t i = 0; i + 2 < part.vertices.size(); i += 3)
        ClipToTriangle(rectangle, {&part.vertices[i], &part.vertices[i + 1], &part.vertices[i + 2]}, soup);
    if (soup.empty())
        return;
    for (GeometryVertex& vertex : soup)
        vertex.position.z() -= kLift;
    out.push_back({std::move(soup), entry.Rect});
}

} // namespace CockpitModel
