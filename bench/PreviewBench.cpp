#include "Annotator/AircraftLoading.h"
#include "Annotator/Preview/CanvasControl.h"
#include "Annotator/Preview/CockpitPreview.h"
#include "CockpitModel/Picking/PartTree.h"
#include "Compare.h"
#include "Rendering/Memory/NullContext.h"
#include "Sim/XPAircraftListLoader.h"
#include "Support/DataFolder.h"
#include "Support/ModelBuilder.h"
#include "Utils/RangeCheck.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdlib>

namespace {

using Bench::Compare;
using CockpitModel::NodePart;
using Utils::Matrix4;

constexpr Annotator::CanvasPoint kCanvas{1280, 800};

/// A scene and everything that its preview needs.
struct Scene {
    void Show() {
        store = std::make_unique<CockpitModel::AnnotationStore>(*built.sceneGraph);
        preview->SetScene(built.sceneGraph, built.model.get(), store.get());
        control.Resize(kCanvas);
        control.clickables = {preview};
    }

    Annotator::OpenedAircraft opened;
    Annotator::BuiltAircraft built;
    std::unique_ptr<CockpitModel::AnnotationStore> store;
    std::shared_ptr<Annotator::CockpitPreview> preview = std::make_shared<Annotator::CockpitPreview>();
    Annotator::CanvasControl control;
};

/// Two parts on each of many moving nodes; every second part has a rectangle and an annotation with a tooltip.
Scene SyntheticScene(int partCount) {
    Support::ModelBuilder builder;
    for (int i = 0; i < partCount / 2; ++i) {
        const int node = builder.Node(
            0, Support::Animation("sim/" + std::to_string(i),
                                  {{Support::TranslationKey(0, 0, 0, 0), Support::TranslationKey(100, 0, 1, 0)}}));
        builder.Part(node, {{0, 0, 1}, {1, 0, 1}, {0, 1, 1}});
        builder.Part(node, {{0, 0, 2}, {1, 0, 2}, {0, 1, 2}});
        builder.Rect(1);
    }
    Scene scene;
    scene.opened.cockpit = std::make_unique<Support::ModelCockpit>(builder.model);
    scene.built = Annotator::BuildAircraft(scene.opened);
    scene.Show();
    for (const auto& node : scene.built.sceneGraph->Nodes()) {
        for (NodePart* part : node->clickableParts) {
            CockpitModel::AnnotationRecord record;
            record.NodeId = node->index;
            record.PartId = part->id;
            record.InteractionTypeTest = CockpitModel::TouchInteractionType::Twist;
            record.Tooltip = "Cabin pressure altitude warning horn cut-out";
            scene.store->Set(*part, record);
        }
    }
    return scene;
}

/// A frame on the null context, compared with the same draw calls from a prepared list.
void Frame(benchmark::State& state) {
    Support::BindDataFolder();
    Scene scene = SyntheticScene(static_cast<int>(state.range(0)));
    Rendering::Memory::NullContext context;
    const Matrix4 view = scene.control.camera.ViewMatrix(), projection = scene.control.projection;
    const Rendering::GeometryDrawParams params;
    scene.preview->Render(context, view, projection);
    Compare(
        state, [&] { scene.preview->Render(context, view, projection); },
        [&] {
            for (const auto& node : scene.built.sceneGraph->Nodes())
                for (const auto& part : node->parts)
                    context.DrawGeometry(node->worldMatrix, view, projection, *part->geometry, nullptr, nullptr,
                                         params);
        });
}
BENCHMARK(Frame)->Arg(2000);

/// Moves of the pointer over the whole canvas, with the cockpit seen from the pilot's eye, compared with a simple loop
/// over all parts with an inverse for each node.
void Pointer(benchmark::State& state, const Sim::AircraftInfo& info) {
    Scene scene;
    Annotator::LoadedAircraft loaded = Annotator::LoadAircraft(info);
    scene.opened = std::move(loaded.opened);
    scene.built = std::move(loaded.built);
    scene.Show();
    scene.control.camera.SetPosition(Annotator::CameraPlace(*scene.opened.cockpit));
    const auto overCanvas = [](auto visit) {
        constexpr int kStep = 40;
        for (int y = kStep / 2; y < kCanvas.y; y += kStep)
            for (int x = kStep / 2; x < kCanvas.x; x += kStep)
                visit(Annotator::CanvasPoint{x, y});
    };
    double events = 0, parts = 0;
    overCanvas([&](Annotator::CanvasPoint) { ++events; });
    for (const auto& node : scene.built.sceneGraph->Nodes())
        parts += static_cast<double>(node->parts.size());

    const auto plainWalk = [&](Annotator::CanvasPoint pointer) {
        CockpitModel::PartRay ray;
        ray.direction = Utils::Normalised(
            {(2.0f * static_cast<float>(pointer.x) / kCanvas.x - 1.0f) / scene.control.projection(0, 0),
             (1.0f - 2.0f * static_cast<float>(pointer.y) / kCanvas.y) / scene.control.projection(1, 1), 1.0f});
        const Matrix4 view = scene.control.camera.ViewMatrix();
        for (const auto& node : scene.built.sceneGraph->Nodes()) {
            if (node->parts.empty())
                continue;
            const auto partRay = CockpitModel::TransformRay(ray, (node->worldMatrix * view).inverse());
            for (const auto& part : node->parts)
                benchmark::DoNotOptimize(part->Tree().Intersect(partRay));
        }
    };
    Compare(
        state, [&] { overCanvas([&](Annotator::CanvasPoint pointer) { scene.control.Motion(pointer, false); }); },
        [&] { overCanvas(plainWalk); }, events);
    state.counters["parts"] = parts;
}

/// A wall of 500 wavy sheets of 2,048 triangles in front of the camera.
Scene MillionTriangles() {
    constexpr int kQuads = 32;
    const auto corner = [](int sheet, int x, int y) -> Support::Corner {
        const float u = static_cast<float>(x) / kQuads, v = static_cast<float>(y) / kQuads;
        return {(static_cast<float>(sheet % 25) + u) / 12.5f - 1, (static_cast<float>(sheet / 25) + v) / 10.0f - 1,
                2 + 0.01f * std::sin(20 * u) * std::sin(20 * v)};
    };
    Support::ModelBuilder builder;
    for (int sheet = 0; sheet < 500; ++sheet) {
        std::vector<Support::Corner> corners;
        for (int x = 0; x < kQuads; ++x)
            for (int y = 0; y < kQuads; ++y)
                for (const auto& [dx, dy] : {std::pair(0, 0), {1, 0}, {0, 1}, {1, 0}, {1, 1}, {0, 1}})
                    corners.push_back(corner(sheet, x + dx, y + dy));
        builder.Part(builder.Node(0), corners);
    }
    Scene scene;
    scene.opened.cockpit = std::make_unique<Support::ModelCockpit>(std::move(builder.model));
    scene.built = Annotator::BuildAircraft(scene.opened);
    scene.Show();
    return scene;
}

/// The first move of the pointer after a load that built the trees, compared with the median of the next hundred;
/// wall-clock time, the worst of the runs.
void FirstPick(benchmark::State& state) {
    double first = 0, ratio = 0, trees = 0;
    for (auto _ : state) {
        Scene scene = MillionTriangles();
        trees = std::max(trees, Bench::Cost([&] { scene.built.sceneGraph->BuildPartTrees(); }, CLOCK_MONOTONIC));
        std::vector<double> moves;
        for (int i = 0; i <= 100; ++i)
            moves.push_back(Bench::Cost(
                [&] {
                    scene.control.Motion({140 + 10 * i, 100 + 6 * i}, false);
                },
                CLOCK_MONOTONIC));
        const auto median = moves.begin() + 51;
        std::nth_element(moves.begin() + 1, median, moves.end());
        first = std::max(first, moves[0]);
        ratio = std::max(ratio, moves[0] / *median);
    }
    state.counters["first_us"] = first * 1e6;
    state.counters["ratio"] = ratio;
    state.counters["trees_ms"] = trees * 1e3;
}
BENCHMARK(FirstPick)->Iterations(5)->Unit(benchmark::kMillisecond);

void RegisterAircraft(const char* installation) {
    boost::filesystem::current_path(installation);
    static const Sim::AircraftList aircraft = Sim::XPAircraftListLoader().LoadAircraftList();
    for (const auto& info : aircraft)
        benchmark::RegisterBenchmark(("Pointer/" + info->displayName).c_str(), [&info](benchmark::State& state) {
            try {
                Pointer(state, *info);
            } catch (const std::exception& error) { // an aircraft that cannot be loaded
                state.SkipWithError(Utils::Describe(error).c_str());
            }
        });
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (const char* installation = std::getenv("VORELLE_INSTALLATION"))
        RegisterAircraft(installation);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
