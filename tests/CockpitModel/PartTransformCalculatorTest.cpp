#include "CockpitModel/PartTransformCalculator.h"

#include "CockpitModel/Node.h"
#include "Support/FatalErrorRecorder.h"
#include "Support/ModelBuilder.h"

#include <gmock/gmock.h>

namespace CockpitModel {
namespace {

using Utils::Vector3;

/// A chain of nodes from a root down, and a part at its end.
class PartTransforms : public testing::Test {
protected:
    Node& AddNode(const Vector3& place = Vector3::Zero()) {
        auto& node = *nodes.emplace_back(std::make_unique<Node>());
        node.parent = part.node;
        node.localMatrix = Utils::Translation(place);
        part.node = &node;
        return node;
    }

    /// A node that an animation moves by up to `reach`.
    Node& AddAnimated(const char* name, const Vector3& place = Vector3::Zero(),
                      const Vector3& reach = Vector3::Zero()) {
        const Support::Track track = Support::Slide(reach.x(), reach.y(), reach.z());
        animations.push_back(std::make_unique<ModelAnimation>(Support::Animation(name, {track})));
        Node& node = AddNode(place);
        node.animation = animations.back().get();
        return node;
    }

    std::vector<std::unique_ptr<Node>> nodes;
    std::vector<std::unique_ptr<ModelAnimation>> animations;
    NodePart part;
};

Vector3 Origin(const Utils::Matrix4& m) {
    return m.row(3).head<3>();
}

TEST_F(PartTransforms, VaryOneAnimationAndKeepTheOthers) {
    AddAnimated("above", {1000, 0, 0}, {500, 0, 0});
    Node& lever = AddAnimated("lever", {0, 10, 0}, {0, 4, 0});
    lever.parentMatrix = Utils::Translation({1500, 0, 0}); // from the graph's last update
    AddAnimated("below", {0, 0, 1}, {0, 0, 8});
    AddNode({0.5f, 0, 0});
    animations[0]->position = 0.25f; // moved since, not yet updated
    animations[1]->position = 0.75f; // the varied animation's own position does not count
    animations[2]->position = 0.5f;

    const PartTransformCalculator calculator(part, *lever.animation);
    animations[2]->position = 0; // after construction: ignored
    EXPECT_EQ(calculator.node, &lever);
    EXPECT_EQ(Origin(calculator.prefix), Vector3(0.5f, 0, 1 + 4));
    for (const auto& [t, y] : {std::pair(0.0f, 10.0f), {0.5f, 12.0f}, {1.0f, 14.0f}})
        EXPECT_EQ(Origin(calculator.TransformAt(t)), Vector3(1500.5f, y, 5)) << t;
}

TEST_F(PartTransforms, MoveThePartWithinRotatedFrames) {
    const Utils::Matrix4 quarterTurn = Utils::RotationZ(std::acos(-1.0f) / 2);
    Node& lever = AddAnimated("lever", {}, {1, 0, 0});
    lever.localMatrix = quarterTurn * Utils::Translation({0, 0, 3});
    lever.parentMatrix = Utils::Translation({100, 0, 0});
    AddNode().localMatrix = quarterTurn;
    AddNode({1, 0, 0});
    // The part is at (0, 1, 0) in the lever's frame and is moved to (1, 1, 0) there, which is (-1, 1, 3) in its
    // parent's frame.
    const Vector3 moved = Origin(PartTransformCalculator(part, *lever.animation).TransformAt(1));
    EXPECT_TRUE(moved.isApprox(Vector3(99, 1, 3))) << moved;
}

TEST_F(PartTransforms, FindTheNearestAnimationThatMovesAnything) {
    EXPECT_FALSE(FindPartTransform(part)) << "a part without a node";
    AddNode();
    AddAnimated("none");
    AddAnimated("Dummy Animation");
    EXPECT_FALSE(FindPartTransform(part)) << "nothing moves";
    Node& real = AddAnimated("sim/real");
    AddAnimated("Dummy Animation");
    AddNode();
    AddAnimated("none");
    const auto found = FindPartTransform(part);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->animation, real.animation);
    animations.back()->name = "None"; // the case counts
    EXPECT_EQ(FindPartTransform(part)->animation, animations.back().get());
}

TEST_F(PartTransforms, ReportAFatalErrorForAnUnrelatedAnimation) {
    AddNode();
    const Support::FatalErrorRecorder recorder;
    EXPECT_ANY_THROW(PartTransformCalculator(part, ModelAnimation()));
    EXPECT_THAT(recorder.texts, testing::ElementsAre(testing::HasSubstr("CockpitModel\\PartTransformCalculator.cpp")));
}

} // namespace
} // namespace CockpitModel
