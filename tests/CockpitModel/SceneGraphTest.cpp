#include "CockpitModel/SceneGraph.h"

#include "CockpitModel/Picking/PartTree.h"
#include "CockpitModel/Touch/InteractionDetector.h"
#include "Rendering/Memory/NullContext.h"
#include "Support/ModelBuilder.h"
#include "Support/TemporaryFolder.h"
#include "Utils/RangeCheck.h"

#include <atomic>
#include <gmock/gmock.h>
#include <thread>

namespace {

using namespace CockpitModel;
using Support::ModelBuilder;
using Support::Slide;
using Support::TriangleAt;

float X(const Node& node) {
    return node.worldMatrix(3, 0);
}

std::vector<int> VisitOrder(SceneGraph& graph) {
    std::vector<int> order;
    graph.VisitNodes(
        Utils::Matrix4::Identity(), Utils::Matrix4::Identity(),
        [&](const auto&, const auto&, const auto&, const auto&, Node& node) { order.push_back(node.index); });
    return order;
}

TEST(SceneGraphTest, LinksParentsThroughTheFirstChildAndVisitsPeersBeforeChildren) {
    ModelBuilder builder;
    const int a = builder.Node(0), b = builder.Node(0), c = builder.Node(0);
    const int below = builder.Node(a);
    SceneGraph graph(builder.model, Support::ModelCockpit(), nullptr);
    EXPECT_EQ(graph.Nodes()[0]->parent, nullptr);
    for (int peer : {a, b, c})
        EXPECT_EQ(graph.Nodes()[peer]->parentIndex, 0) << peer;
    EXPECT_EQ(graph.Nodes()[below]->parent, graph.Nodes()[a].get());
    EXPECT_EQ(VisitOrder(graph), (std::vector<int>{0, a, b, below, c}));
}

TEST(SceneGraphTest, WorldIsAnimationTimesLocalTimesParent) {
    ModelBuilder builder;
    const int outer = builder.Node(0, "outer", Slide(2, 0, 0));
    const int inner = builder.Node(outer, "inner", Slide(1, 0, 0));
    const int still = builder.Node(outer);
    builder.model.matrices.Children[inner] = Utils::RotationZ(1.5707964f) * Utils::Translation({0, 5, 0});
    builder.model.sceneElements.Children[still].MapOffset = -1;
    builder.model.matrices.Children[still] = Utils::Translation({99, 0, 0});
    SceneGraph graph(builder.model, Support::ModelCockpit(), nullptr);
    const Node& node = *graph.Nodes()[inner];
    // At position 1: the inner translation (1, 0, 0) is rotated to (0, 1, 0), moved by (0, 5, 0) and by the outer
    // translation.
    EXPECT_NEAR(node.worldMatrix(3, 0), 2, 1e-6);
    EXPECT_NEAR(node.worldMatrix(3, 1), 6, 1e-6);
    EXPECT_EQ(graph.Nodes()[still]->localMatrix, Utils::Matrix4(Utils::Matrix4::Identity()))
        << "no map offset, no matrix";
    EXPECT_NEAR(X(*graph.Nodes()[still]), 2, 1e-6);
    EXPECT_EQ(graph.Nodes()[0]->animation, nullptr) << "the root has a record and no animation";
}

TEST(SceneGraphTest, InvalidIndicesAreOutOfRange) {
    const struct {
        const char* name;
        void (*damage)(ModelData&);
        const char* reason = "";
    } rows[] = {
        {"child", [](ModelData& m) { m.sceneElements.Children[0].Child = 7; }},
        {"peer", [](ModelData& m) { m.sceneElements.Children[1].Peer = 7; }},
        {"ring of children", [](ModelData& m) { m.sceneElements.Children[1].Child = 0; },
         "A/b_cockpit.obj: the child and peer links of node 0 lead back to it"},
        {"node of a part", [](ModelData& m) { m.parts[0].Node = 2; }},
        {"index range", [](ModelData& m) { m.parts[0].IndexCount = 4; },
         "A/b_cockpit.obj(17): TRIS 0 4 reaches beyond the 3 indices of the file"},
        {"negative offset", [](ModelData& m) { m.parts[0].IndexOffset = 0xFFFFFFFF; }},
        {"vertex", [](ModelData& m) { m.indexBlocks[0].Children[2] = 3; },
         "A/b_cockpit.obj(17): TRIS needs vertex 3 (counted from 0), but the model has 3"},
        {"material", [](ModelData& m) { m.parts[0].MaterialIndex = 0xFFFFFFFF; },
         "A/b_cockpit.obj(17): TRIS before any TEXTURE line, so the part has no material"},
        {"empty texture",
         [](ModelData& m) {
             m.parts[0].MaterialIndex = 0xFFFFFFFF;
             m.emptyTextureLine = 5;
         },
         "A/b_cockpit.obj(17): TEXTURE of line 5 names no file, so the part has no material"},
        {"texture", [](ModelData& m) { m.materials.Children[0].TextureDiffuse = 1; }},
    };
    for (const auto& row : rows) {
        ModelBuilder builder;
        builder.Node(0, "a", Slide(1, 0, 0));
        builder.Part(1, TriangleAt(0)).SourceLine = 17;
        builder.model.sourcePath = "A/b_cockpit.obj";
        ASSERT_NO_THROW(SceneGraph(builder.model, Support::ModelCockpit(), nullptr));
        row.damage(builder.model);
        try {
            SceneGraph(builder.model, Support::ModelCockpit(), nullptr);
            ADD_FAILURE() << row.name << " was accepted";
        } catch (const std::out_of_range& error) {
            EXPECT_STREQ(error.what(), "invalid vector<T> subscript") << row.name;
            EXPECT_THAT(Utils::Describe(error), testing::HasSubstr(row.reason)) << row.name;
        }
    }
}

TEST(SceneGraphTest, ARefreshShowsThePositionsOfTheModel) {
    ModelBuilder builder;
    const int outer = builder.Node(0, "outer", Slide(2, 0, 0));
    const int inner = builder.Node(outer, "inner", Slide(1, 0, 0));
    ModelData source = builder.model;
    SceneGraph graph(source, Support::ModelCockpit(), nullptr);
    EXPECT_FLOAT_EQ(X(*graph.Nodes()[inner]), 3) << "a new graph is at position 1";
    source.animations[inner].position = 0.5f;
    graph.SyncFromModel(source);
    graph.Refresh();
    EXPECT_FLOAT_EQ(X(*graph.Nodes()[inner]), 0.5f) << "the first refresh waits for its update";
    source.animations[outer].position = 1;
    graph.SyncFromModel(source);
    for (int frame = 0; frame < 10000 && X(*graph.Nodes()[inner]) < 2.0f; ++frame) {
        graph.Refresh();
        VisitOrder(graph);
        std::this_thread::yield();
    }
    EXPECT_FLOAT_EQ(X(*graph.Nodes()[inner]), 2.5f);
}

TEST(SceneGraphTest, CreatesGeometryAndTexturesOncePerDevice) {
    Support::TemporaryFolder folder;
    folder.Write("Panel.PNG", "no picture, but a file");
    ModelBuilder builder;
    builder.model.textures.Children = {"panel.png", "$procedural", "", "missing.png"};
    for (int i = 0; i < 2; ++i)
        builder.Part(0, TriangleAt(0));
    Support::ModelCockpit cockpit;
    cockpit.textureFolder = folder.path.string();
    folder.Write("$procedural", "never looked at");
    SceneGraph graph(builder.model, cockpit, nullptr);
    Rendering::Memory::NullContext first, second;
    graph.PrepareGpuResources(first);
    const auto* geometry = graph.Nodes()[0]->parts[0]->geometry.get();
    EXPECT_TRUE(first.IsGeometryValid(geometry));
    EXPECT_NE(graph.Texture(0), nullptr) << "a name that differs in case is found";
    for (int none : {1, 2, 3})
        EXPECT_EQ(graph.Texture(none), nullptr) << none;
    graph.PrepareGpuResources(first);
    EXPECT_EQ(graph.Nodes()[0]->parts[0]->geometry.get(), geometry) << "what is valid is kept";
    graph.PrepareGpuResources(second);
    for (const auto& part : graph.Nodes()[0]->parts)
        EXPECT_TRUE(second.IsGeometryValid(part->geometry.get()));
    EXPECT_TRUE(second.IsBitmapValid(graph.Texture(0)));
}

TEST(SceneGraphTest, WorkerAndFrameShareNothingWithoutALock) {
    ModelBuilder builder;
    for (int i = 0; i < 50; ++i)
        builder.Node(i, "slider", Slide(1, 0, 0));
    builder.Part(50, TriangleAt(0));
    ModelData source = builder.model;
    SceneGraph graph(source, Support::ModelCockpit(), nullptr);
    for (int frame = 0; frame < 500; ++frame) {
        for (auto& animation : source.animations)
            animation.position = static_cast<float>(frame % 101) / 100.0f;
        graph.SyncFromModel(source);
        graph.Refresh();
        float previous = 0;
        graph.VisitNodes({}, {}, [&](const auto& world, const auto& parent, const auto&, const auto&, Node& node) {
            EXPECT_EQ(parent(3, 0), previous) << "a visit sees one complete update";
            EXPECT_EQ(node.worldMatrix, world);
            previous = world(3, 0);
        });
    }
}

TEST(ScenePartBuilderTest, UnrollsFansAndStripsAndSkipsWhatHasNoTriangle) {
    const struct {
        std::uint32_t type;
        std::vector<Support::Corner> corners;
        std::vector<float> soup;
    } rows[] = {
        {2, {{0}, {1}, {2}, {3}}, {0, 1, 2, 0, 2, 3}},
        {3, {{0}, {1}, {2}, {3}}, {0, 1, 2, 1, 2, 3}},
        {1, {{0}, {1}}, {}},
        {4, {{0}, {1}, {2}, {3}}, {}},
    };
    for (const auto& row : rows) {
        ModelBuilder builder;
        builder.Part(0, row.corners, row.type);
        SceneGraph graph(builder.model, Support::ModelCockpit(), nullptr);
        std::vector<float> soup;
        for (const auto& part : graph.Nodes()[0]->parts)
            for (const auto& vertex : part->vertices)
                soup.push_back(vertex.position.x());
        EXPECT_EQ(soup, row.soup) << "type " << row.type;
    }
}

TEST(ScenePartBuilderTest, PartsKnowTheirPlaceTextureAndRectangle) {
    ModelBuilder builder;
    const int texture = builder.Texture("second.png");
    builder.Part(0, TriangleAt(0));
    // Makes no part and uses no index, so that its material does not matter.
    builder.Part(0, {{0, 0, 0}, {1, 0, 0}}).MaterialIndex = 0xFFFFFFFF;
    auto& clickable = builder.Part(0, {{0, 0, 0}, {0.5f, 0, 0}, {0, 1, 0}});
    clickable.MaterialIndex = static_cast<std::uint32_t>(texture);
    const MouseRect& rect = builder.Rect(1);
    Vertex& vertex = builder.model.vertexBlocks[0].Children.end()[-2];
    vertex.nx = 0.6f, vertex.nz = 0.8f;
    SceneGraph graph(builder.model, Support::ModelCockpit(), nullptr);
    const Node& node = *graph.Nodes()[0];
    ASSERT_EQ(node.parts.size(), 2u);
    EXPECT_EQ(node.parts[1]->id, 1);
    EXPECT_EQ(node.parts[1]->Rect(), &rect) << "the copy of the model shares its rectangles";
    EXPECT_EQ(node.parts[1]->textureName, "second.png");
    EXPECT_EQ(node.parts[1]->vertices[1].secondTexture, Utils::Vector2(0.5f, 0));
    EXPECT_EQ(node.parts[1]->vertices[1].normal, Utils::Vector3(0.6f, 0, 0.8f));
    EXPECT_EQ(node.clickableParts, std::vector<NodePart*>{node.parts[1].get()});
    graph.BuildPartTrees();
    node.parts[1]->vertices.clear();
    EXPECT_TRUE(node.parts[1]->Tree().Intersect({{0.1f, 0.1f, -1}, {0, 0, 1}})) << "built before first use";
}

} // namespace
