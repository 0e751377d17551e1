#include "CockpitModel/PartTransformCalculator.h"

#include "CockpitModel/Node.h"
#include "Utils/Asserts.h"

#include <gmock/gmock.h>

namespace CockpitModel {
namespace {

/// A chain of nodes from a root down, and a part at its end.
class PartTransforms : public testing::Test {
protected:
    Node& AddNode(const Utils::Vector3& place) {
        auto& node = *nodes.emplace_back(std::make_unique<Node>());
        node.parent = nodes.size() > 1 ? nodes[nodes.size() - 2].get() : nullptr;
        node.localMatrix = Utils::Translation(place);
        part.node = &node;
        return node;
    }

    /// A node that an animation moves by up to `reach`.
    Node& AddAnimated(const Utils::Vector3& place, const char* name, const Utils::Vector3& reach) {
        auto& animation = *animations.emplace_back(std::make_unique<ModelAnimation>());
        animation.name = name;
        animation.length = 100;
        animation.tracks.resize(1, std::vector<RiffBlockXANK>(2));
        for (auto& key : animation.tracks[0])
            key.IsTranslation = true;
        animation.tracks[0][1].Time = 100;
        animation.tracks[0][1].Translation = reach;
        Node& node = AddNode(place);
        node.animation = &animation;
        return node;
    }

    std::vector<std::unique_ptr<Node>> nodes;
    std::vector<std::unique_ptr<ModelAnimation>> animations;
    NodePart part;
};

Utils::Vector3 Origin(const Utils::Matrix4& m) {
    return m.row(3).head<3>();
}

TEST_F(PartTransforms, VaryOneAnimationAndKeepTheOthers) {
    AddAnimated({1000, 0, 0}, "above", {500, 0, 0});
    Node& lever = AddAnimated({0, 10, 0}, "lever", {0, 4, 0});
    lever.parentMatrix = Utils::Translation({1500, 0, 0}); // as the graph last placed the node above
    AddAnimated({0, 0, 1}, "below", {0, 0, 8});
    AddNode({0.5f, 0, 0});
    animations[0]->position = 0.25f; // moved since, and not yet seen
    animations[1]->position = 0.75f; // the varied one's own position does not count
    animations[2]->position = 0.5f;

    const PartTransformCalculator calculator(part, *lever.animation);
    EXPECT_EQ(calculator.node, &lever);
    EXPECT_EQ(Origin(calculator.prefix), Utils::Vector3(0.5f, 0, 1 + 4));
    EXPECT_EQ(Origin(calculator.TransformAt(0)), Utils::Vector3(1500.5f, 10, 5));
    EXPECT_EQ(Origin(calculator.TransformAt(0.5f)), Utils::Vector3(1500.5f, 12, 5));
    EXPECT_EQ(Origin(calculator.TransformAt(1)), Utils::Vector3(1500.5f, 14, 5));

    animations[2]->position = 0;
    EXPECT_EQ(Origin(calculator.TransformAt(0)), Utils::Vector3(1500.5f, 10, 5)) << "frozen at construction";
}

TEST_F(PartTransforms, MoveThePartWithinItsNodesFrame) {
    Node& node = AddAnimated({}, "lever", {1, 0, 0});
    node.localMatrix = Utils::RotationZ(std::acos(-1.0f) / 2) * Utils::Translation({0, 0, 3});
    node.parentMatrix = Utils::Translation({100, 0, 0});
    const Utils::Matrix4 moved = PartTransformCalculator(part, *node.animation).TransformAt(1);
    // The node's frame is turned, so its x runs along the parent's y.
    EXPECT_TRUE(Origin(moved).isApprox(Utils::Vector3(100, 1, 3)));
}

TEST_F(PartTransforms, FindTheNearestAnimationThatMovesAnything) {
    AddAnimated({}, "sim/top", {});
    AddAnimated({}, "sim/real", {});
    AddAnimated({}, "Dummy Animation", {});
    AddNode({});
    AddAnimated({}, "none", {});
    const auto found = FindPartTransform(part);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->animation->name, "sim/real");
    EXPECT_EQ(found->node, nodes[1].get());
    EXPECT_EQ(found->part, &part);

    for (const char* name : {"None", "dummy animation", "", "none ", "Dummy Animation 2"}) {
        animations[2]->name = name;
        EXPECT_EQ(FindPartTransform(part)->animation, animations[2].get()) << name << " counts as real";
    }
}

TEST_F(PartTransforms, FindNothingWhereNothingMoves) {
    EXPECT_FALSE(FindPartTransform(part)) << "a part without a node";
    AddNode({});
    EXPECT_FALSE(FindPartTransform(part));
    AddAnimated({}, "none", {});
    AddAnimated({}, "Dummy Animation", {});
    EXPECT_FALSE(FindPartTransform(part));
}

TEST_F(PartTransforms, AreAFatalErrorForAnAnimationElsewhere) {
    Node& other = AddAnimated({}, "other", {});
    nodes.push_back(std::make_unique<Node>());
    part.node = nodes.back().get();
    std::string shown;
    auto before = Utils::SetFatalErrorDialog([&](const std::string&, const std::string& text) { shown = text; });
    EXPECT_ANY_THROW(PartTransformCalculator(part, *other.animation));
    Utils::SetFatalErrorDialog(std::move(before));
    EXPECT_THAT(shown, testing::HasSubstr("CockpitModel\\PartTransformCalculator.cpp"));
}

TEST(YokeNames, StandAnywhereInTheAnimationsName) {
    const struct {
        const char* name;
        bool roll, pitch;
    } rows[] = {
        {"sim/cockpit2/controls/yoke_roll_ratio", true, false},
        {"x sim/cockpit2/controls/yoke_pitch_ratio[0]", false, true},
        {"(A:YOKE X POSITION, position)", true, false},
        {"YOKE Y POSITION", false, true},
        {"YOKE X POSITION + YOKE Y POSITION", true, true},
        {"yoke x position", false, false},
        {"sim/cockpit2/controls/yoke_heading_ratio", false, false},
        {"sim/cockpit2/controls/YOKE_ROLL_RATIO", false, false},
        {"", false, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(IsYokeRollName(row.name), row.roll) << row.name;
        EXPECT_EQ(IsYokePitchName(row.name), row.pitch) << row.name;
    }
}

} // namespace
} // namespace CockpitModel
