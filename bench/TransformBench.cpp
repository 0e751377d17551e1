#include "CockpitModel/SceneGraph.h"
#include "Compare.h"
#include "Support/ModelBuilder.h"

#include <memory>
#include <string>
#include <vector>

namespace {

using Utils::Matrix4;

constexpr int kNodes = 4000;
constexpr int kSiblings = 8;

struct BareNode {
    Matrix4 local = Matrix4::Identity();
    int parent = -1;
    bool rotations = false;
    Utils::Vector3 offset[2];
    Utils::Quaternion rotation[2];
};

/// Nodes that rotate and translate, nested up to five levels as in a cockpit's chains.
std::vector<BareNode> MakeNodes() {
    std::vector<BareNode> nodes(kNodes);
    for (int i = 1; i < kNodes; ++i) {
        BareNode& node = nodes[static_cast<std::size_t>(i)];
        const auto number = static_cast<float>(i);
        node.parent = (i - 1) / kSiblings;
        node.rotations = i % 2 == 0;
        node.local = Utils::Translation({0.01f * number, 0.2f, -0.001f * number});
        node.offset[0] = {0, 0, 0};
        node.offset[1] = {0.1f, 0.02f, 0};
        node.rotation[0] = Utils::RotationAboutAxis({1, 0.5f, 0}, 0.001f * number);
        node.rotation[1] = Utils::RotationAboutAxis({1, 0.5f, 0}, 0.5f + 0.001f * number);
    }
    return nodes;
}

CockpitModel::ModelData MakeModel(const std::vector<BareNode>& nodes) {
    Support::ModelBuilder builder;
    for (std::size_t i = 1; i < nodes.size(); ++i) {
        const BareNode& node = nodes[i];
        const auto key = [&](float time, int end) {
            const Utils::Vector3& offset = node.offset[end];
            return node.rotations ? Support::RotationKey(time, node.rotation[end])
                                  : Support::TranslationKey(time, offset.x(), offset.y(), offset.z());
        };
        builder.Node(node.parent, Support::Animation("sim/" + std::to_string(i), {{key(0, 0), key(100, 1)}}));
        builder.model.matrices.Children.back() = node.local;
    }
    return std::move(builder.model);
}

void UpdateBare(const std::vector<BareNode>& nodes, float position, std::vector<Matrix4>& worlds) {
    worlds[0] = nodes[0].local;
    for (std::size_t i = 1; i < nodes.size(); ++i) {
        const BareNode& node = nodes[i];
        const Matrix4 place = node.local * worlds[static_cast<std::size_t>(node.parent)];
        const Matrix4 motion = node.rotations
                                   ? Utils::Rotation(Utils::SlerpPath(node.rotation[0], node.rotation[1]).At(position))
                                   : Utils::Translation(node.offset[0] + (node.offset[1] - node.offset[0]) * position);
        worlds[i].noalias() = motion * place;
    }
}

/// A scene graph's whole update, including the hand-over to the worker and back, compared with a bare loop of the same
/// products and interpolations. A graph's first refresh waits for the worker, so each run has its own graph.
void UpdateTransforms(benchmark::State& state) {
    const std::vector<BareNode> nodes = MakeNodes();
    const Support::ModelCockpit cockpit(MakeModel(nodes));
    std::vector<Matrix4> worlds(nodes.size());
    double best = 1e9, bare = 1e9;
    for (auto _ : state) {
        CockpitModel::SceneGraph graph(cockpit.model, cockpit, nullptr);
        best = std::min(best, Bench::Cost([&] { graph.Refresh(); }, CLOCK_PROCESS_CPUTIME_ID));
        bare = std::min(bare, Bench::Cost([&] { UpdateBare(nodes, 1.0f, worlds); }, CLOCK_PROCESS_CPUTIME_ID));
        if (!graph.Nodes().back()->worldMatrix.isApprox(worlds.back()))
            state.SkipWithError("the two do not compute the same");
    }
    state.counters["us"] = best * 1e6;
    state.counters["bare_us"] = bare * 1e6;
    state.counters["ratio"] = best / bare;
}
BENCHMARK(UpdateTransforms)->Iterations(100)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
