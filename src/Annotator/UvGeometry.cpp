#include "Annotator/UvGeometry.h"

#include "CockpitModel/Panels/PanelSet.h"
#include "Utils/Truncated.h"

namespace Annotator {

namespace {

using CockpitModel::NodePart;

UvPoint Scaled(float u, float v, int side) {
    return {Utils::Truncated(static_cast<float>(side) * u), Utils::Truncated(static_cast<float>(side) * v)};
}

} // namespace

std::vector<std::array<UvPoint, 3>> UvTriangles(const NodePart& part, int side) {
    std::vector<std::array<UvPoint, 3>> triangles;
    triangles.reserve(part.vertices.size() / 3);
    const auto point = [&](std::size_t i) {
        return Scaled(part.vertices[i].texture.x(), part.vertices[i].texture.y(), side);
    };
    for (std::size_t i = 0; i + 2 < part.vertices.size(); i += 3)
        triangles.push_back({{point(i), point(i + 1), point(i + 2)}});
    return triangles;
}

std::vector<UvRectangle> UvPanelRectangles(const NodePart& part, int side) {
    std::vector<UvRectangle> rectangles;
    if (!part.panel)
        return rectangles;
    for (const auto& entry : part.panel->Entries)
        rectangles.push_back({Scaled(entry.U, entry.V, side), Scaled(entry.Width, entry.Height, side)});
    return rectangles;
}

} // namespace Annotator
