#include "Annotator/AircraftLoading.h"
#include "CockpitModel/Picking/PartTree.h"
#include "Compare.h"
#include "Sim/XPAircraftListLoader.h"
#include "Support/PlainTree.h"
#include "Utils/RangeCheck.h"
#ifdef VORELLE_EMBREE
#include "EmbreeScene.h"
#endif

#include <benchmark/benchmark.h>
#include <boost/filesystem/operations.hpp>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using CockpitModel::PartRay;
using CockpitModel::PartTree;
using Utils::Vector3;
using Soup = std::vector<CockpitModel::PartTriangle>;
using Vertices = std::vector<Rendering::GeometryVertex>;

struct Part {
    Vertices vertices;
    std::size_t node = 0;
};

struct Cockpit {
    std::string name;
    Vector3 eye = Vector3::Zero();
    std::vector<Part> parts;
    std::vector<Utils::Matrix4> toNode = {Utils::Matrix4::Identity()}; ///< from the cockpit's space
};

Soup Triangles(const Vertices& vertices) {
    Soup soup(vertices.size() / 3);
    for (std::size_t i = 0; i < 3 * soup.size(); ++i)
        soup[i / 3][i % 3] = vertices[i].position;
    return soup;
}

/// All triangles in the cockpit's space.
Soup WholeSoup(const Cockpit& cockpit) {
    Soup whole;
    for (const Part& part : cockpit.parts) {
        const Utils::Matrix4 world = cockpit.toNode[part.node].inverse();
        for (CockpitModel::PartTriangle triangle : Triangles(part.vertices)) {
            for (Vector3& vertex : triangle)
                vertex = Utils::TransformPoint(vertex, world);
            whole.push_back(triangle);
        }
    }
    return whole;
}

/// A round knob that looks along -z.
void AddKnob(Vertices& vertices, const Vector3& place, float radius) {
    constexpr int kSegments = 24;
    const auto rim = [&](int i, float z) -> Vector3 {
        const float angle = 6.2831853f / kSegments * static_cast<float>(i);
        return place + Vector3(radius * std::cos(angle), radius * std::sin(angle), z);
    };
    const auto add = [&](const Vector3& a, const Vector3& b, const Vector3& c) {
        for (const Vector3& position : {a, b, c})
            vertices.emplace_back().position = position;
    };
    for (int i = 0; i < kSegments; ++i) {
        add(rim(i, 0), rim(i + 1, 0), rim(i, -radius));
        add(rim(i + 1, 0), rim(i + 1, -radius), rim(i, -radius));
        add(rim(i, -radius), rim(i + 1, -radius), place - Vector3(0, 0, radius));
    }
}

/// Panels of knobs, one part each, and four hundred parts of one knob, around an eye at the origin.
Cockpit SyntheticCockpit() {
    std::mt19937 random(20240229);
    std::uniform_real_distribution<float> place(-0.8f, 0.8f), depth(0.6f, 0.7f), radius(0.002f, 0.01f);
    const auto knob = [&](Vertices& vertices) {
        AddKnob(vertices, {place(random), 0.5f * place(random), depth(random)}, radius(random));
    };
    Cockpit cockpit;
    cockpit.name = "synthetic";
    cockpit.parts.resize(404);
    for (std::size_t i = 0; i < cockpit.parts.size(); ++i)
        for (int knobs = i < 4 ? 80 : 1; knobs > 0; --knobs)
            knob(cockpit.parts[i].vertices);
    return cockpit;
}

Cockpit RealCockpit(const Sim::AircraftInfo& info) {
    const auto [opened, built] = Annotator::LoadAircraft(info);
    Cockpit cockpit;
    cockpit.name = info.displayName;
    cockpit.eye = opened.cockpit->pilotEye;
    for (const auto& node : built.sceneGraph->Nodes()) {
        for (const auto& part : node->parts)
            cockpit.parts.push_back({part->vertices, cockpit.toNode.size()});
        if (!node->parts.empty())
            cockpit.toNode.push_back(node->worldMatrix.inverse());
    }
    return cockpit;
}

void Build(benchmark::State& state, const Cockpit& cockpit) {
    double best = 1e9, triangles = 0;
    for (const Part& part : cockpit.parts)
        triangles += static_cast<double>(part.vertices.size() / 3);
    std::vector<std::unique_ptr<PartTree>> trees(cockpit.parts.size());
#ifdef VORELLE_EMBREE
    double perPart = 1e9, oneScene = 1e9;
    const Soup whole = WholeSoup(cockpit);
#endif
    for (auto _ : state) {
        best = std::min(best, Bench::Cost([&] {
                            for (std::size_t i = 0; i < trees.size(); ++i)
                                trees[i] = std::make_unique<PartTree>(cockpit.parts[i].vertices);
                        }));
#ifdef VORELLE_EMBREE
        std::vector<std::unique_ptr<Bench::EmbreeScene>> scenes;
        for (const Part& part : cockpit.parts)
            scenes.push_back(std::make_unique<Bench::EmbreeScene>(Triangles(part.vertices)));
        perPart = std::min(perPart, Bench::Cost([&] {
                               for (const auto& scene : scenes)
                                   scene->Commit();
                           }));
        Bench::EmbreeScene scene(whole);
        oneScene = std::min(oneScene, Bench::Cost([&] { scene.Commit(); }));
#endif
    }
    state.counters["triangles"] = triangles;
    state.counters["ms"] = best * 1e3;
#ifdef VORELLE_EMBREE
    state.counters["embree_ms"] = perPart * 1e3;
    state.counters["embree_one_scene_ms"] = oneScene * 1e3;
    state.counters["ratio"] = best / perPart;
    state.counters["ratio_one_scene"] = best / oneScene;
#endif
}

/// From the pilot's eye to a random point of a random triangle.
struct AimedRay {
    PartRay ray;
    std::size_t part = 0; ///< of the triangle
};

std::vector<AimedRay> AimedRays(const Cockpit& cockpit, std::size_t count) {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> unit(0, 1);
    const Soup whole = WholeSoup(cockpit);
    std::vector<std::size_t> parts;
    for (std::size_t part = 0; part < cockpit.parts.size(); ++part)
        parts.insert(parts.end(), cockpit.parts[part].vertices.size() / 3, part);
    std::vector<AimedRay> rays;
    while (rays.size() < count) {
        const std::size_t triangle = random() % whole.size();
        const auto& [a, b, c] = whole[triangle];
        const float u = unit(random), v = (1 - u) * unit(random);
        const Vector3 target = a + u * (b - a) + v * (c - a);
        rays.push_back({{cockpit.eye, Utils::Normalised(target - cockpit.eye)}, parts[triangle]});
    }
    return rays;
}

struct Tested {
    std::size_t part = 0;
    PartRay ray; ///< in the part's space
};

/// The time per ray of testing `rays` rays.
template <typename Test>
double MicrosecondsARay(const std::vector<Tested>& tests, std::size_t rays, Test test) {
    return Bench::Cost([&] {
               for (const auto& [part, ray] : tests)
                   benchmark::DoNotOptimize(test(part, ray));
           }) /
           static_cast<double>(rays) * 1e6;
}

/// Aimed rays in the space of the parts that they are tested against: the part that they are aimed at, or all.
void Rays(benchmark::State& state, const Cockpit& cockpit, bool allParts) {
    constexpr std::size_t kRays = 1000;
    std::vector<Tested> tests;
    for (const AimedRay& aimed : AimedRays(cockpit, kRays))
        for (std::size_t part = 0; part < cockpit.parts.size(); ++part)
            if (allParts || part == aimed.part)
                tests.push_back(
                    {part, CockpitModel::TransformRay(aimed.ray, cockpit.toNode[cockpit.parts[part].node])});
    std::vector<std::unique_ptr<PartTree>> trees;
    std::vector<Support::PlainTree> plainTrees;
    for (const Part& part : cockpit.parts) {
        trees.push_back(std::make_unique<PartTree>(part.vertices));
        plainTrees.emplace_back(Triangles(part.vertices));
    }
    double best = 1e9, plain = 1e9;
    for (auto _ : state) {
        best = std::min(best, MicrosecondsARay(tests, kRays, [&](std::size_t part, const PartRay& ray) {
                            return trees[part]->Intersect(ray);
                        }));
        plain = std::min(plain, MicrosecondsARay(tests, kRays, [&](std::size_t part, const PartRay& ray) {
                             return plainTrees[part].Distance(ray);
                         }));
    }
    state.counters["us"] = best;
    state.counters["plain_us"] = plain;
    state.counters["plain_ratio"] = best / plain;
#ifdef VORELLE_EMBREE
    std::vector<std::unique_ptr<Bench::EmbreeScene>> scenes;
    for (const Part& part : cockpit.parts) {
        scenes.push_back(std::make_unique<Bench::EmbreeScene>(Triangles(part.vertices)));
        scenes.back()->Commit();
    }
    double embree = 1e9;
    for (int run = 0; run < 20; ++run)
        embree = std::min(embree, MicrosecondsARay(tests, kRays, [&](std::size_t part, const PartRay& ray) {
                              return scenes[part]->Distance(ray);
                          }));
    state.counters["embree_us"] = embree;
    state.counters["embree_ratio"] = best / embree;
#endif
}

/// Triangles half as large as the space that they are scattered in: from a few thousand triangles on, the splitting
/// rule alone takes more than 100 references per triangle, growing with their number.
void Growth(benchmark::State& state) {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> unit(-1, 1);
    const auto point = [&]() -> Vector3 { return {unit(random), unit(random), unit(random)}; };
    Vertices vertices;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        const Vector3 centre = point();
        for (int corner = 0; corner < 3; ++corner)
            vertices.emplace_back().position = centre + 0.5f * point();
    }
    std::unique_ptr<PartTree> tree;
    for (auto _ : state)
        tree = std::make_unique<PartTree>(vertices);
    double references = 0;
    for (const auto& node : tree->nodes)
        references += node.triangleCount;
    const auto count = static_cast<double>(state.range(0));
    state.counters["references_a_triangle"] = references / count;
    state.counters["nodes_a_triangle"] = static_cast<double>(tree->nodes.size()) / count;
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Growth)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);

void Register(Cockpit cockpit) {
    const auto shared = std::make_shared<const Cockpit>(std::move(cockpit));
    benchmark::RegisterBenchmark(("Build/" + shared->name).c_str(),
                                 [shared](benchmark::State& state) { Build(state, *shared); });
    benchmark::RegisterBenchmark(("RaysAtPart/" + shared->name).c_str(),
                                 [shared](benchmark::State& state) { Rays(state, *shared, false); });
    benchmark::RegisterBenchmark(("RaysThroughAll/" + shared->name).c_str(),
                                 [shared](benchmark::State& state) { Rays(state, *shared, true); });
}

void RegisterAircraft(const char* installation) {
    boost::filesystem::current_path(installation);
    for (const auto& info : Sim::XPAircraftListLoader().LoadAircraftList())
        try {
            Register(RealCockpit(*info));
        } catch (const Utils::OutOfRange&) {
            continue; // cannot be loaded: it has no materials
        }
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    Register(SyntheticCockpit());
    if (const char* installation = std::getenv("VORELLE_INSTALLATION"))
        RegisterAircraft(installation);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
