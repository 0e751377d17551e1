#include "CockpitModel/Picking/PartTree.h"

#include "CockpitModel/Picking/PartTreeBuilder.h"
#include "Support/PlainTree.h"

#include <gtest/gtest.h>
#include <random>

namespace CockpitModel {
namespace {

using Utils::Vector3;
using Soup = std::vector<PartTriangle>;

std::vector<Rendering::GeometryVertex> Vertices(const Soup& soup) {
    std::vector<Rendering::GeometryVertex> vertices;
    for (const PartTriangle& triangle : soup)
        for (const Vector3& position : triangle)
            vertices.emplace_back().position = position;
    return vertices;
}

PartTree Tree(const Soup& soup) {
    return PartTree(Vertices(soup));
}

PartRay Ray(const Vector3& origin, const Vector3& direction) {
    return {origin, Utils::Normalised(direction)};
}

/// A triangle at a constant z, extending to +x and +y from its corner.
PartTriangle Flat(float x, float y, float z, float size = 1) {
    return {Vector3(x, y, z), Vector3(x + size, y, z), Vector3(x, y + size, z)};
}

constexpr float kNone = -1;

float Distance(const PartTree& tree, const PartRay& ray) {
    const auto hit = tree.Intersect(ray);
    return hit ? hit->distance : kNone;
}

TEST(PartTree, FindsTheNearestTriangleFromBothSides) {
    const PartTree tree = Tree({Flat(0, 0, 5), Flat(0, 0, 3), Flat(0, 0, 3.5f)});
    const struct {
        const char* name;
        Vector3 origin, direction;
        float distance;
    } rows[] = {
        {"from below", {0.25f, 0.25f, 1}, {0, 0, 1}, 2},
        {"from behind", {0.25f, 0.25f, 10}, {0, 0, -1}, 5},
        {"from between", {0.25f, 0.25f, 3.25f}, {0, 0, 1}, 0.25f},
        {"on a triangle, which it does not hit", {0.25f, 0.25f, 3}, {0, 0, 1}, 0.5f},
        {"beside", {0.75f, 0.75f, 1}, {0, 0, 1}, kNone},
        {"along the planes", {-1, 0.25f, 3}, {1, 0, 0}, kNone},
        {"without direction", {0.25f, 0.25f, 1}, {0, 0, 0}, kNone},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Distance(tree, Ray(row.origin, row.direction)), row.distance) << row.name;
}

TEST(PartTree, IgnoresAnIncompleteTriangleAndMayBeEmpty) {
    auto vertices = Vertices({Flat(0, 0, 1), Flat(0, 0, 0.5f)});
    vertices.pop_back();
    EXPECT_EQ(Distance(PartTree(vertices), Ray({0.25f, 0.25f, 0}, {0, 0, 1})), 1);
    for (const PartTree& empty : {PartTree(), PartTree(std::vector<Rendering::GeometryVertex>(2))})
        EXPECT_EQ(Distance(empty, Ray({0, 0, -1}, {0, 0, 1})), kNone);
}

TEST(PartTree, ReturnsTextureCoordinatesIfKept) {
    auto vertices = Vertices({Flat(0, 0, 2, 4)});
    vertices[0].texture = {0, 0};
    vertices[1].texture = {1, 0};
    vertices[2].texture = {0, 10};
    const auto hit = PartTree(vertices, true).Intersect(Ray({1, 2, 0}, {0, 0, 1}));
    EXPECT_TRUE(hit.value().texture.isApprox(Utils::Vector2(0.25f, 5)));
}

TEST(PartTree, TransformsARayByItsEnds) {
    const PartRay ray = {Vector3(1, 2, 3), Vector3(0, 1, 0)};
    const PartRay moved =
        TransformRay(ray, Utils::Scaling(3) * Utils::RotationZ(std::acos(-1.0f) / 2) * Utils::Translation({10, 0, 0}));
    EXPECT_TRUE(moved.origin.isApprox(Vector3(4, 3, 9)));
    EXPECT_TRUE(moved.direction.isApprox(Vector3(-1, 0, 0)));
    EXPECT_EQ(TransformRay({ray.origin, Vector3::Zero()}, Utils::Scaling(2)).direction, Vector3(0, 0, 0));
}

/// Random soups and rays of many kinds from fixed seeds.
class Seeded {
public:
    explicit Seeded(unsigned seed) : random(seed) {}

    float Number(float low, float high) { return std::uniform_real_distribution<float>(low, high)(random); }
    std::size_t Below(std::size_t end) { return std::uniform_int_distribution<std::size_t>(0, end - 1)(random); }
    Vector3 Point(float size) { return {Number(-size, size), Number(-size, size), Number(-size, size)}; }
    /// A point in the plane of a triangle; inside it if reach is 0.
    Vector3 PointInPlane(const PartTriangle& triangle, float reach) {
        float u = Number(-reach, 1 + reach), v = Number(-reach, 1 + reach);
        if (reach == 0 && u + v > 1) {
            u = 1 - u;
            v = 1 - v;
        }
        return triangle[0] + u * (triangle[1] - triangle[0]) + v * (triangle[2] - triangle[0]);
    }

    Soup Scattered(std::size_t count, float place, float size) {
        Soup soup(count);
        for (PartTriangle& triangle : soup) {
            const Vector3 centre = Point(place);
            for (Vector3& vertex : triangle)
                vertex = centre + Point(size);
        }
        return soup;
    }
    /// One leaf: small triangles, four of each, in the corner of a box spanned by a few large ones.
    Soup Corner(std::size_t count, float size) {
        Soup soup = Scattered(4, 0.01f, 1.5f);
        for (std::size_t i = 0; i < count; ++i) {
            const Vector3 centre = Vector3(1.2f, 1.2f, 1.2f) + Point(0.2f);
            soup.insert(soup.end(), 4, {centre + Point(size), centre + Point(size), centre + Point(size)});
        }
        return soup;
    }
    std::vector<PartRay> Rays(const Soup& soup, std::size_t count) {
        std::vector<PartRay> rays = SkimmingRays(soup, count);
        for (std::size_t i = 0; i < count; ++i) {
            const PartTriangle& target = soup[Below(soup.size())];
            const Vector3 from = Point(3), inside = PointInPlane(target, 0);
            rays.push_back(Ray(from, inside - from));
            rays.push_back(Ray(from, target[Below(3)] - from));
            rays.push_back(Ray(inside, Point(1))); // from the triangle itself
            rays.push_back(Ray(from, Point(1)));
            Vector3 along = Vector3::Zero();
            along[static_cast<int>(Below(3))] = Below(2) ? 1.0f : -1.0f;
            rays.push_back({inside - 2 * along, along});
            rays.push_back({target[0] - 2 * along, along}); // through a vertex
            along[static_cast<int>(Below(3))] = 1e-20f;
            rays.push_back(Ray(inside - along, along));
            rays.push_back({from, 3 * (inside - from)}); // not a unit vector
        }
        return rays;
    }
    /// In a triangle's plane, hitting and missing it, and nearly in its plane, to a vertex and past it.
    std::vector<PartRay> SkimmingRays(const Soup& soup, std::size_t count) {
        std::vector<PartRay> rays;
        for (std::size_t i = 0; i < count; ++i) {
            const PartTriangle& target = soup[Below(soup.size())];
            const Vector3 beside = PointInPlane(target, 3);
            rays.push_back(Ray(beside, PointInPlane(target, 0) - beside));
            rays.push_back(Ray(beside, PointInPlane(target, 1) - beside));
            const Vector3 normal = Utils::Normalised((target[1] - target[0]).cross(target[2] - target[0]));
            const Vector3& vertex = target[Below(3)];
            const Vector3 low = beside + Utils::Length(vertex - beside) * std::pow(10.0f, Number(-4, -2)) * normal;
            const Vector3 sideways = Utils::Normalised(normal.cross(vertex - low)) * std::pow(10.0f, Number(-6, -3));
            rays.push_back(Ray(low, vertex - low));
            rays.push_back(Ray(low, vertex + sideways - low));
        }
        return rays;
    }

private:
    std::mt19937 random;
};

/// The same number, both NaN, or both no hit.
void ExpectSameAnswers(const PartTree& tree, const Support::PlainTree& plain, const std::vector<PartRay>& rays,
                       const char* name) {
    for (std::size_t i = 0; i < rays.size(); ++i) {
        const auto expected = plain.Distance(rays[i]);
        const auto hit = tree.Intersect(rays[i]);
        ASSERT_EQ(hit.has_value(), expected.has_value()) << name << ", ray " << i;
        if (!hit)
            continue;
        const bool same = hit->distance == *expected || (std::isnan(hit->distance) && std::isnan(*expected));
        ASSERT_TRUE(same) << name << ", ray " << i << ": " << hit->distance << " for " << *expected;
        if (hit->position.allFinite()) {
            ASSERT_EQ(hit->position, rays[i].origin + *expected * rays[i].direction) << name << ", ray " << i;
        }
    }
}

TEST(PartTree, MatchesTheReferenceTreeAndItsHits) {
    Seeded seeded(20);
    const auto joined = [](Soup a, const Soup& b) {
        a.insert(a.end(), b.begin(), b.end());
        return a;
    };
    Soup flat, needles = seeded.Scattered(300, 1, 0.5f), points = seeded.Scattered(60, 1, 0.1f);
    for (int i = 0; i < 35; ++i) // the middles of x and y, 3.5 and 2.5, cut some
        flat.push_back(Flat(static_cast<float>(i % 7), static_cast<float>(i / 7), 7));
    for (PartTriangle& triangle : needles)
        triangle[2] = triangle[1] + seeded.Point(1e-3f);
    for (std::size_t i = 0; i < points.size(); i += 2)
        points[i][1] = points[i][i % 4 ? 2 : 0] = points[i][2];
    Soup farAway = seeded.Scattered(500, 1, 0.3f);
    for (PartTriangle& triangle : farAway)
        for (Vector3& vertex : triangle)
            vertex += Vector3(3e4f, 2e5f, -7e3f);
    // The middle of x is 5, where the triangle is in neither child and is not hit.
    const PartTriangle inPlane = {Vector3(5, 0, 0), Vector3(5, 1, 0), Vector3(5, 0, 1)};
    const struct {
        const char* name;
        Soup soup;
    } rows[] = {
        {"one", {Flat(0, 0, 0)}},
        {"one in the splitting plane", {Flat(0, 0, 0), inPlane, Flat(9, 0, 0), Flat(9, 0, 0.5f)}},
        {"flat, which stays whole", flat},
        {"small", seeded.Scattered(2000, 1, 0.02f)},
        {"large, all across each other", seeded.Scattered(400, 0.2f, 2)},
        {"large and small", joined(seeded.Scattered(300, 0.3f, 1.5f), seeded.Scattered(700, 1, 0.004f))},
        {"small in a corner", seeded.Corner(100, 0.002f)},
        {"needles", needles},
        {"without area", points},
        {"far away", farAway},
    };
    for (const auto& row : rows) {
        const PartTree tree = Tree(row.soup);
        const Support::PlainTree plain(row.soup);
        ExpectSameAnswers(tree, plain, seeded.Rays(row.soup, 12), row.name);
        if (row.soup.size() < 1000) // rounding turns grazing rays into hits
            ExpectSameAnswers(tree, plain, seeded.SkimmingRays(row.soup, 250), row.name);
    }
    // From far away a hit may be farther from its triangle than the triangle's size.
    Soup specks = seeded.Scattered(200, 1, 0.01f);
    for (PartTriangle& triangle : specks)
        for (Vector3& vertex : triangle)
            vertex.z() = 0;
    std::vector<PartRay> farRays(4000);
    for (PartRay& ray : farRays) {
        const Vector3 from = seeded.Point(1e4f);
        ray = Ray(from, seeded.PointInPlane(specks[seeded.Below(specks.size())], 0) - from);
    }
    ExpectSameAnswers(Tree(specks), Support::PlainTree(specks), farRays, "flat, from far away");
}

TEST(PartTree, MatchesTheReferenceHitsForNanAndInfinity) {
    Seeded seeded(21);
    const float nan = std::numeric_limits<float>::quiet_NaN(), infinity = std::numeric_limits<float>::infinity();
    const float oddities[] = {nan, infinity, -infinity, 3e38f, -2e30f, 1e-42f, 0};
    const auto spoil = [&](Vector3& v) { v[static_cast<int>(seeded.Below(3))] = oddities[seeded.Below(7)]; };

    const Soup sound = seeded.Scattered(200, 0.5f, 0.5f);
    Soup spoilt = sound;
    for (int i = 0; i < 40; ++i)
        spoil(spoilt[seeded.Below(200)][seeded.Below(3)]);
    std::vector<PartRay> rays = seeded.Rays(sound, 25), spoiltRays = rays;
    for (PartRay& ray : spoiltRays)
        spoil(seeded.Below(2) ? ray.origin : ray.direction);

    ExpectSameAnswers(Tree(spoilt), Support::PlainTree(spoilt), rays, "spoilt triangles");
    ExpectSameAnswers(Tree(sound), Support::PlainTree(sound), spoiltRays, "spoilt rays");
    ExpectSameAnswers(Tree(spoilt), Support::PlainTree(spoilt), spoiltRays, "spoilt triangles and rays");
}

TEST(PartTree, UsesMemoryInProportionToItsTriangles) {
    Seeded seeded(23);
    const struct {
        const char* name;
        Soup soup;
        bool bounded;
    } rows[] = {
        {"half as large as their space", seeded.Scattered(2000, 1, 0.5f), true},
        {"a few", seeded.Scattered(100, 1, 0.5f), false},
    };
    for (const auto& row : rows) {
        const PartTree tree = Tree(row.soup);
        std::size_t words = tree.Triangles(tree).size();
        for (const PartTreeNode& node : tree.nodes)
            words += tree.Triangles(node).size() + sizeof node / 4;
        EXPECT_LE(words, 100 * row.soup.size() + 4096) << row.name;
        EXPECT_EQ(tree.nodes.size() + 1 < Support::PlainTree(row.soup).nodes.size(), row.bounded) << row.name;
        for (int i = 0; i < 100; ++i) {
            const Vector3 from = seeded.Point(2);
            const PartRay ray = Ray(from, seeded.PointInPlane(row.soup[seeded.Below(row.soup.size())], 0) - from);
            ASSERT_EQ(Distance(tree, ray), Support::BruteForce(row.soup, ray).value_or(kNone)) << row.name;
        }
    }
}

} // namespace
} // namespace CockpitModel
