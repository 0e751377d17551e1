#include "Annotator/BatchTests.h"

#include "CockpitModel/AircraftCockpit.h"
#include "Support/ModelBuilder.h"
#include "Support/TemporaryFolder.h"
#include "Utils/RangeCheck.h"

#include <gtest/gtest.h>
#include <map>

namespace Annotator {
namespace {

using CockpitModel::TouchInteractionType;

/// The aircraft of a made-up installation by folder.
struct FakeCockpit final : CockpitModel::AircraftCockpit {
    bool IsValid() const override { return valid; }
    std::unique_ptr<CockpitModel::ModelData> LoadModel() const override {
        if (damaged)
            throw Utils::OutOfRange("Bad_cockpit.obj(12): TRIS reaches beyond the indices");
        return std::make_unique<CockpitModel::ModelData>(model);
    }

    bool valid = true, damaged = false;
    CockpitModel::ModelData model;
};

struct FakeInfo final : Sim::AircraftInfo {
    FakeInfo(const std::string& folder, FakeCockpit fake, int& loadCount)
        : cockpit(std::move(fake)), loads(&loadCount) {
        acfPath = "Aircraft/Group/" + folder + "/plane.acf";
        displayName = folder + " of the fleet";
    }
    std::unique_ptr<CockpitModel::AircraftCockpit> CreateCockpit() const override {
        ++*loads;
        return std::make_unique<FakeCockpit>(cockpit);
    }
    std::unique_ptr<AircraftInfo> Clone() const override { return std::make_unique<FakeInfo>(*this); }

    FakeCockpit cockpit;
    int* loads;
};

std::string Override(const std::string& children) {
    return "<Override>" + children + "</Override>";
}

std::string At(int node, int part, const std::string& children) {
    return Override("<NodeId>" + std::to_string(node) + "</NodeId><PartId>" + std::to_string(part) + "</PartId>" +
                    children);
}

std::string Expect(const std::string& type) {
    return "<InteractionTypeTest>" + type + "</InteractionTypeTest>";
}

struct BatchTests : testing::Test, Sim::AircraftListLoader {
    BatchTests() { folder.Write("QVRA/readme", ""); }

    Sim::AircraftList LoadAircraftList() override {
        Sim::AircraftList list;
        for (const FakeInfo& info : fleet)
            list.push_back(info.Clone());
        return list;
    }

    /// An aircraft with three parts on its root: a mere shape, one to tap and one to twist.
    FakeInfo& Aircraft(const std::string& name) {
        Support::ModelBuilder builder;
        builder.Part(0, {{0, 0, 1}, {1, 0, 1}, {0, 1, 1}});
        builder.Part(0, {{0, 0, 2}, {1, 0, 2}, {0, 1, 2}});
        builder.Rect(1).Text = "ATTR_manip_toggle";
        builder.Part(0, {{0, 0, 3}, {1, 0, 3}, {0, 1, 3}});
        builder.Rect(2).Text = "ATTR_manip_drag_xy";
        FakeCockpit cockpit;
        cockpit.model = builder.model;
        fleet.emplace_back(name, cockpit, loads);
        return fleet.back();
    }

    void Annotate(const std::string& name, const std::string& overrides) {
        folder.Write("QVRA/Annotations/" + name + ".xml", "<Overrides>" + overrides + "</Overrides>");
    }

    AircraftTests Only() {
        const auto results = RunAllTests(*this);
        EXPECT_EQ(results.size(), 1u);
        return results.at(0);
    }

    /// Every file of the installation with its bytes.
    std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : boost::filesystem::recursive_directory_iterator(folder.path))
            if (boost::filesystem::is_regular_file(entry.path()))
                files[entry.path().string()] = folder.Read(relative(entry.path(), folder.path).string());
        return files;
    }

    Support::TemporaryFolder folder;
    Support::WorkingDirectory inside{folder.path};
    int loads = 0;
    std::vector<FakeInfo> fleet;
};

TEST_F(BatchTests, HoldsExpectationsAgainstTheDetectedTypes) {
    Aircraft("Jet");
    // In file order: a failing part whose override says what is expected, a passing one, one without a test.
    Annotate("Jet", At(0, 1, "<InteractionType>Twist</InteractionType>" + Expect("Twist")) + At(0, 0, Expect("None")) +
                        At(0, 2, "<Tooltip>Flaps</Tooltip>"));
    const AircraftTests tests = Only();
    EXPECT_EQ(tests.displayName, "Jet of the fleet");
    EXPECT_EQ(tests.acfPath, "Aircraft/Group/Jet/plane.acf");
    EXPECT_EQ(tests.Passed(), 1u);
    EXPECT_EQ(tests.Failed(), 1u);
    ASSERT_EQ(tests.Total(), 2u);
    EXPECT_EQ(tests.parts[0].PartId, 0) << "ordered by part";
    EXPECT_TRUE(tests.parts[0].passed);
    EXPECT_EQ(tests.parts[0].rectangle, "");
    const PartTest& failed = tests.parts[1];
    EXPECT_EQ(failed.NodeId, 0);
    EXPECT_EQ(failed.PartId, 1);
    EXPECT_EQ(failed.rectangle, "ATTR_manip_toggle");
    EXPECT_EQ(failed.expected, TouchInteractionType::Twist);
    EXPECT_EQ(failed.detected, TouchInteractionType::Tap);
    EXPECT_FALSE(failed.passed);
    EXPECT_EQ(tests.clickable, 2u);
    EXPECT_EQ(tests.covered, 1u) << "the shape has a test, but nothing to click";
    EXPECT_TRUE(tests.hasCockpitObject);
    EXPECT_TRUE(tests.unplaced.empty());
}

TEST_F(BatchTests, NamesExpectationsWithoutAPlaceInTheScene) {
    Aircraft("Jet");
    Annotate("Jet", At(1, 0, Expect("Tap")) + At(0, 3, Expect("Move")) + Override(Expect("Twist")) +
                        At(9, 9, "<Reverse>1</Reverse>") + At(0, -1, Expect("Banana")) + At(0, 2, Expect("Twist")));
    const AircraftTests tests = Only();
    EXPECT_EQ(tests.Total(), 1u);
    EXPECT_EQ(tests.Passed(), 1u);
    ASSERT_EQ(tests.unplaced.size(), 3u);
    EXPECT_EQ(tests.unplaced[0].NodeId, 1);
    EXPECT_EQ(tests.unplaced[1].PartId, 3);
    EXPECT_EQ(tests.unplaced[1].InteractionTypeTest, TouchInteractionType::Move);
    EXPECT_EQ(tests.unplaced[2].NodeId, -1);
}

TEST_F(BatchTests, LoadsOnlyAnnotatedAircraftInListOrderAndWritesNothing) {
    for (const char* name : {"Zeppelin", "Bare", "Airliner"})
        Aircraft(name);
    Annotate("Airliner", At(0, 1, Expect("Tap")));
    Annotate("Zeppelin", At(0, 1, "<Reverse>1</Reverse>"));
    fleet[2].cockpit.valid = false;
    const auto before = Files();
    const auto results = RunAllTests(*this);
    EXPECT_EQ(loads, 2);
    ASSERT_EQ(results.size(), 2u);
    EXPECT_EQ(results[0].displayName, "Zeppelin of the fleet");
    EXPECT_EQ(results[0].Total(), 0u);
    EXPECT_TRUE(results[0].hasCockpitObject);
    EXPECT_EQ(results[1].displayName, "Airliner of the fleet");
    EXPECT_EQ(results[1].Passed(), 1u);
    EXPECT_FALSE(results[1].hasCockpitObject);
    EXPECT_EQ(Files(), before);
}

TEST_F(BatchTests, AnAircraftThatCannotBeLoadedEndsTheRunByName) {
    for (const char* name : {"Good", "Bad", "Never"}) {
        Aircraft(name);
        Annotate(name, At(0, 1, Expect("Tap")));
    }
    fleet[1].cockpit.damaged = true;
    try {
        RunAllTests(*this);
        ADD_FAILURE() << "it went on";
    } catch (const AircraftTestError& error) {
        EXPECT_EQ(error.displayName, "Bad of the fleet");
        EXPECT_EQ(error.acfPath, "Aircraft/Group/Bad/plane.acf");
        EXPECT_EQ(error.reason, "Bad_cockpit.obj(12): TRIS reaches beyond the indices");
        EXPECT_NE(std::string(error.what()).find(error.reason), std::string::npos);
    }
    EXPECT_EQ(loads, 2);
}

TEST_F(BatchTests, WithoutAnnotationsThereIsNothingToTest) {
    Aircraft("Jet");
    EXPECT_TRUE(RunAllTests(*this).empty());
    CockpitModel::GaugeRepository repository(folder.path.string());
    EXPECT_FALSE(TestAircraft(fleet[0], repository).has_value());
    EXPECT_EQ(loads, 0);
}

} // namespace
} // namespace Annotator
