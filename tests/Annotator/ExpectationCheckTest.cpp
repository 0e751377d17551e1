#include "Annotator/ExpectationCheck.h"

#include "Support/Installation.h"
#include "Support/MadeAircraft.h"
#include "Utils/RangeCheck.h"

#include <gtest/gtest.h>

namespace Annotator {
namespace {

using CockpitModel::TouchInteractionType;

using Support::Expectation;

/// An "Override" element that expects nothing.
std::string Saying(int node, int part, const std::string& children) {
    return "<Override><NodeId>" + std::to_string(node) + "</NodeId><PartId>" + std::to_string(part) + "</PartId>" +
           children + "</Override>";
}

struct BatchTests : testing::Test {
    /// An aircraft with three parts on its root: without manipulator, to tap and to twist.
    void Aircraft(const std::string& name) {
        Support::ModelBuilder builder;
        builder.Part(0, Support::TriangleAt(1));
        builder.Part(0, Support::TriangleAt(2));
        builder.Rect(1).Text = "ATTR_manip_toggle";
        builder.Part(0, Support::TriangleAt(3));
        builder.Rect(2).Text = "ATTR_manip_drag_xy";
        fleet.aircraft.emplace_back(name + " of the fleet", "Group/" + name, [this, model = builder.model] {
            ++loads;
            return std::make_unique<Support::ModelCockpit>(model);
        });
    }

    AircraftResult Only() {
        const auto results = CheckAllAircraft(fleet);
        EXPECT_EQ(results.size(), 1u);
        return results.at(0);
    }

    const Support::Installation folder;
    const Support::WorkingDirectory inside{folder.path};
    int loads = 0;
    Support::MadeAircraftList fleet;
};

TEST_F(BatchTests, ComparesExpectationsWithTheDetectedTypesAndListsThoseWithoutAPart) {
    Aircraft("Jet");
    // In file order: a failing part whose override equals the expectation, a passing one, one without a test, and
    // three expectations of parts that do not exist.
    folder.Annotations(
        "Jet",
        Saying(0, 1, "<InteractionType>Twist</InteractionType><InteractionTypeTest>Twist</InteractionTypeTest>") +
            Expectation(0, 0, "None") + Saying(0, 2, "<Tooltip>Flaps</Tooltip>") + Expectation(1, 0, "Tap") +
            "<Override><InteractionTypeTest>Twist</InteractionTypeTest></Override>" + Expectation(0, 3, "Move"));
    const AircraftResult tests = Only();
    EXPECT_EQ(tests.displayName, "Jet of the fleet");
    EXPECT_EQ(tests.acfPath, "Aircraft/Group/Jet/plane.acf");
    EXPECT_EQ(tests.Passed(), 1u);
    ASSERT_EQ(tests.Total(), 2u);
    EXPECT_EQ(tests.parts[0].PartId, 0) << "ordered by part";
    EXPECT_TRUE(tests.parts[0].passed);
    EXPECT_EQ(tests.parts[0].rectangle, "");
    const PartResult& failed = tests.parts[1];
    EXPECT_EQ(failed.NodeId, 0);
    EXPECT_EQ(failed.PartId, 1);
    EXPECT_EQ(failed.rectangle, "ATTR_manip_toggle");
    EXPECT_EQ(failed.expected, TouchInteractionType::Twist);
    EXPECT_EQ(failed.detected, TouchInteractionType::Tap);
    EXPECT_FALSE(failed.passed);
    EXPECT_EQ(tests.clickable, 2u);
    EXPECT_EQ(tests.covered, 1u) << "the first part has a test, but is not clickable";
    EXPECT_TRUE(tests.hasCockpitObject);
    ASSERT_EQ(tests.unplaced.size(), 3u);
    EXPECT_EQ(tests.unplaced[0].NodeId, 1);
    EXPECT_EQ(tests.unplaced[1].NodeId, -1);
    EXPECT_EQ(tests.unplaced[2].InteractionTypeTest, TouchInteractionType::Move);
}

TEST_F(BatchTests, LoadsOnlyAnnotatedAircraftInListOrder) {
    for (const char* name : {"Zeppelin", "Bare", "Airliner"})
        Aircraft(name);
    folder.Annotations("Airliner", Expectation(0, 1, "Tap"));
    folder.Annotations("Zeppelin", Saying(0, 1, "<Reverse>1</Reverse>"));
    fleet.aircraft[2].make = [make = fleet.aircraft[2].make] {
        auto cockpit = make();
        dynamic_cast<Support::ModelCockpit&>(*cockpit).isValid = false;
        return cockpit;
    };
    const auto results = CheckAllAircraft(fleet);
    EXPECT_EQ(loads, 2);
    ASSERT_EQ(results.size(), 2u);
    EXPECT_EQ(results[0].displayName, "Zeppelin of the fleet");
    EXPECT_EQ(results[0].Total(), 0u);
    EXPECT_EQ(results[1].displayName, "Airliner of the fleet");
    EXPECT_EQ(results[1].Passed(), 1u);
    EXPECT_FALSE(results[1].hasCockpitObject);
}

TEST_F(BatchTests, AnAircraftThatCannotBeLoadedEndsTheRunByName) {
    for (const char* name : {"Good", "Bad", "Never"}) {
        Aircraft(name);
        folder.Annotations(name, Expectation(0, 1, "Tap"));
    }
    fleet.aircraft[1].make = [this]() -> std::unique_ptr<CockpitModel::AircraftCockpit> {
        ++loads;
        throw Utils::OutOfRange("Bad_cockpit.obj(12): TRIS reaches beyond the indices");
    };
    try {
        CheckAllAircraft(fleet);
        ADD_FAILURE() << "the run continued";
    } catch (const AircraftCheckError& error) {
        EXPECT_STREQ(error.what(), "Bad of the fleet (Aircraft/Group/Bad/plane.acf): "
                                   "Bad_cockpit.obj(12): TRIS reaches beyond the indices");
    }
    EXPECT_EQ(loads, 2);
}

} // namespace
} // namespace Annotator
