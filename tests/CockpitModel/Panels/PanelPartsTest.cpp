#include "CockpitModel/Panels/PanelParts.h"

#include "CockpitModel/NodePart.h"
#include "CockpitModel/Panels/PanelSet.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace CockpitModel {

namespace {

constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinite = std::numeric_limits<float>::infinity();

PanelEntry Entry(float u, float v, float width, float height) {
    PanelEntry entry;
    entry.U = u, entry.V = v, entry.Width = width, entry.Height = height;
    entry.Rect.Text = "rectangle";
    return entry;
}

/// The surface of all parts here: position as a function of texture coordinates.
Utils::Vector3 Surface(double u, double v) {
    return Utils::Vector3(static_cast<float>(2 * u - v + 1), static_cast<float>(3 * v), static_cast<float>(u + v - 5));
}

void AddTriangle(NodePart& part, std::initializer_list<Utils::Vector2> corners) {
    for (const Utils::Vector2& corner : corners) {
        Rendering::GeometryVertex vertex;
        vertex.texture = corner;
        vertex.position = Surface(corner.x(), corner.y());
        part.vertices.push_back(vertex);
    }
}

std::vector<Rendering::GeometryVertex> Clip(const PanelEntry& entry, const NodePart& part) {
    std::vector<PanelPartEntry> out;
    ClipEntryToPart(entry, part, out);
    EXPECT_LE(out.size(), 1u);
    return out.empty() ? std::vector<Rendering::GeometryVertex>() : out[0].vertices;
}

using Corner = Rendering::GeometryVertex;

double Cross(const Utils::Vector2& a, const Utils::Vector2& b, const Utils::Vector2& c) {
    return (double{b.x()} - a.x()) * (double{c.y()} - a.y()) - (double{b.y()} - a.y()) * (double{c.x()} - a.x());
}

double AreaOf(const std::vector<Corner>& soup) {
    double area = 0;
    for (std::size_t i = 0; i + 2 < soup.size(); i += 3)
        area += std::abs(Cross(soup[i].texture, soup[i + 1].texture, soup[i + 2].texture)) / 2;
    return area;
}

} // namespace

TEST(ClipEntryToPart, LiftsThePartsOfAllTrianglesInTheRectangle) {
    NodePart part;
    AddTriangle(part, {{0, 0}, {1, 0}, {0, 1}});
    AddTriangle(part, {{5, 5}, {6, 5}, {5, 6}});
    AddTriangle(part, {{1, 1}, {0, 1}, {1, 0}});
    AddTriangle(part, {{0, 0}, {1, 0}});
    EXPECT_NEAR(AreaOf(Clip(Entry(-1, -1, 3, 3), part)), 1, 1e-6);
    EXPECT_NEAR(AreaOf(Clip(Entry(0.25f, 0.25f, 0.5f, 3), part)), 0.375, 1e-6);
    EXPECT_NEAR(AreaOf(Clip(Entry(5.5f, 5, 2, 2), part)), 0.125, 1e-6);
    Panel panel;
    panel.Entries = {Entry(2, 2, 1, 1), Entry(0, 0, 1, 1), Entry(5, 5, 1, 1)};
    panel.Entries[1].Rect.Text = "first";
    panel.Entries[2].Rect.Text = "second";
    std::vector<PanelPartEntry> out;
    panel.ProduceEntries(part, out);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_EQ(out[0].rect.Text + ' ' + out[1].rect.Text, "first second");
    for (const auto& vertex : out[0].vertices) {
        EXPECT_EQ(vertex.normal, Utils::Vector3(0, 0, 1));
        const Utils::Vector3 lifted = Surface(vertex.texture.x(), vertex.texture.y()) - Utils::Vector3(0, 0, 0.001f);
        EXPECT_LT((vertex.position - lifted).norm(), 2e-6f);
    }
}

TEST(ClipEntryToPart, SkipsTrianglesThatShowNothing) {
    const std::initializer_list<Utils::Vector2> corners[] = {
        {{0, 0}, {0.0049f, 0}, {0, 1}}, // a short edge
        {{0, 0}, {0.5f, 0.5f}, {1, 1}}, // no area
        {{0, 0}, {1, kNone}, {0, 1}},   {{0, 0}, {1, 0}, {0, kInfinite}},
        {{0, 0}, {1, 0}, {0, -3e12f}}, // from 2^62 / 2000000 = 2.3e12 on
    };
    int row = 0;
    for (const auto& triangle : corners) {
        NodePart part;
        AddTriangle(part, triangle);
        EXPECT_TRUE(Clip(Entry(-1, -1, 3, 3), part).empty()) << "triangle " << row++;
        AddTriangle(part, {{0, 0}, {1, 0}, {0, 1}});
        EXPECT_EQ(Clip(Entry(-1, -1, 3, 3), part).size(), 9u) << "the other triangles are unaffected";
    }
    NodePart part;
    AddTriangle(part, {{0, 0}, {1, 0}, {0, 1}});
    for (const PanelEntry& entry : {Entry(0, 0, 0, 1), Entry(kNone, 0, 1, 1), Entry(0, -1e30f, 1, 2e30f)})
        EXPECT_TRUE(Clip(entry, part).empty());
    AddTriangle(part, {{0, 0}, {0.0051f, 0}, {0, 1}});
    EXPECT_EQ(Clip(Entry(-1, -1, 3, 3), part).size(), 18u) << "an edge just long enough";
}

} // namespace CockpitModel
