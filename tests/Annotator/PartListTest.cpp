#include "Annotator/PartList.h"

#include "Annotator/AnnotationSession.h"
#include "CockpitModel/Touch/MouseRectCallbacks.h"
#include "Sim/XPAircraftListLoader.h"
#include "Support/Installation.h"
#include "Support/MadeAircraft.h"
#include "Support/ObjText.h"
#include "Support/TemporaryFolder.h"

#include <algorithm>
#include <boost/algorithm/string/join.hpp>
#include <gmock/gmock.h>

namespace {

using namespace Annotator;
using namespace Support;
using testing::ElementsAre;

void DrawnIn(CockpitModel::RiffBlockPART& part, std::uint32_t line, std::uint32_t manipulatorLine = 0) {
    part.SourceLine = line;
    part.ManipulatorLine = manipulatorLine;
}

/// The tree shows node 3, which is below node 1, before node 2, which is beside it.
CockpitModel::ModelData FiveParts() {
    ModelBuilder builder;
    builder.model.objects.push_back({"Cub_cockpit.obj", "Cub_cockpit.obj"});
    DrawnIn(builder.Part(0, TriangleAt(1)), 5);
    const int lever = builder.Node(0, "sim/lever", Slide(1, 0, 0));
    DrawnIn(builder.Part(lever, TriangleAt(2)), 9, 8);
    builder.Rect(CockpitModel::kFiresEvent).EventCallback =
        std::make_shared<CockpitModel::CallbackXPToggle>("sim/Gear", 0.0f, 1.0f);
    DrawnIn(builder.Part(lever, TriangleAt(3)), 11, 10);
    builder.Rect(CockpitModel::kTakesValue).VariableCallback =
        std::make_shared<CockpitModel::CallbackXPVariable>("sim/flaps", 0.0f, 1.0f);
    DrawnIn(builder.Part(builder.Node(0), TriangleAt(4)), 3);
    builder.Part(builder.Node(lever), TriangleAt(5));
    builder.Rect(CockpitModel::kFiresEvent).EventCallback = std::make_shared<CockpitModel::CallbackCode>();
    return std::move(builder.model);
}

class PartListTest : public testing::Test {
protected:
    PartListTest() : inside(folder.path) {
        folder.Write("QVRA/Annotations/Cub.xml",
                     "<Overrides><Override><NodeId>1</NodeId><PartId>0</PartId>"
                     "<InteractionTypeTest>Twist</InteractionTypeTest></Override>"
                     "<Override><NodeId>1</NodeId><PartId>1</PartId><InteractionType>Twist</InteractionType>"
                     "<InteractionTypeTest>Move</InteractionTypeTest><Reverse>1</Reverse></Override></Overrides>");
        session.Load(MadeAircraft("Cub", "Made/Cub", MakerOf(FiveParts())));
        list.Read(session);
    }

    /// The texts of the shown rows in a column.
    std::string Column(std::size_t column) const {
        std::vector<std::string> texts;
        for (std::size_t i = 0; i < list.ShownCount(); ++i)
            texts.push_back(list.Shown(i).texts.at(column));
        return boost::algorithm::join(texts, " ");
    }
    CockpitModel::NodePart* Part(int node, int part) { return session.Scene()->FindPart({node, part}); }

    TemporaryFolder folder;
    WorkingDirectory inside;
    AnnotationSession session;
    PartList list;
};

std::size_t ColumnTitled(const std::string& title) {
    const auto found = std::ranges::find(PartColumns(), title, &PartColumn::title);
    return static_cast<std::size_t>(found - PartColumns().begin());
}

TEST_F(PartListTest, HasARowForEachPartInTheOrderOfTheTree) {
    std::vector<std::string> rows;
    for (std::size_t i = 0; i < list.ShownCount(); ++i)
        rows.push_back(boost::algorithm::join(list.Shown(i).texts, "|"));
    EXPECT_THAT(rows, ElementsAre("0,0|None||||||Cub_cockpit.obj||5|",
                                  "1,0|Tap||Twist|failed|toggle|sim/Gear|Cub_cockpit.obj|8|9|",
                                  "1,1|Move|Twist, reversed|Move|passed|drag|sim/flaps|Cub_cockpit.obj|10|11|",
                                  "3,0|Tap||||other|||||", "2,0|None||||||Cub_cockpit.obj||3|"));
    EXPECT_EQ(list.PositionOf(Part(3, 0)), 3u);
    session.Clear();
    list.Read(session);
    EXPECT_EQ(list.RowCount(), 0u);
}

TEST_F(PartListTest, ShowsWhatTheFilterAndTheChoiceAdmit) {
    const struct {
        const char *filter, *choice, *parts, *counts;
    } cases[] = {{"", "All", "0,0 1,0 1,1 3,0 2,0", "5 parts, 2 chosen"},
                 {"twist", "All", "1,0 1,1", "2 of 5 parts, 2 chosen"}, // expected, and an override
                 {" TOGGLE\tgear ", "All", "1,0", "1 of 5 parts, 2 chosen"},
                 {"togglesim", "All", "", "0 of 5 parts, 2 chosen"}, // two columns
                 {"", "Touchable", "1,0 1,1 3,0", "3 of 5 parts, 2 chosen"},
                 {"", "Failing", "1,0", "1 of 5 parts, 2 chosen"},
                 {"", "Not recorded", "3,0", "1 of 5 parts, 2 chosen"},
                 {"", "Overridden", "1,1", "1 of 5 parts, 2 chosen"},
                 {"gear", "Overridden", "", "0 of 5 parts, 2 chosen"}};
    for (const auto& row : cases) {
        SCOPED_TRACE(std::string(row.choice) + ": " + row.filter);
        const auto choice = std::ranges::find(PartChoices(), std::string(row.choice), &PartChoice::title);
        list.SetFilter(row.filter);
        list.SetChoice(static_cast<std::size_t>(choice - PartChoices().begin()));
        EXPECT_EQ(Column(0), row.parts);
        EXPECT_EQ(CountText(list, 2), row.counts);
    }
    EXPECT_EQ(list.PositionOf(Part(1, 0)), std::nullopt);
}

TEST_F(PartListTest, SortsByAColumnAndKeepsTheTreesOrderBetweenEqualRows) {
    const struct {
        const char *column, *ascending, *descending;
    } cases[] = {{"Part", "0,0 1,0 1,1 2,0 3,0", "3,0 2,0 1,1 1,0 0,0"},
                 {"Type", "1,1 0,0 2,0 1,0 3,0", "1,0 3,0 0,0 2,0 1,1"},
                 {"Line", "1,0 1,1 0,0 3,0 2,0", "1,1 1,0 0,0 3,0 2,0"}, // 8 before 10; without a line last
                 {"Names", "1,1 1,0 0,0 3,0 2,0", "1,0 1,1 0,0 3,0 2,0"}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.column);
        list.ClickColumn(ColumnTitled(row.column));
        EXPECT_EQ(Column(0), row.ascending);
        list.ClickColumn(ColumnTitled(row.column));
        EXPECT_EQ(Column(0), row.descending);
    }
    list.ClickColumn(ColumnTitled("Names"));
    EXPECT_EQ(Column(0), "0,0 1,0 1,1 3,0 2,0");
}

TEST_F(PartListTest, FindsTheNextPartOfAKindAndGoesRound) {
    const auto found = [&](CockpitModel::NodePart* selected, PartTest test, bool backward) {
        session.Select(selected);
        const auto* part = FindPart(session, test, backward);
        return part ? std::to_string(part->node->index) + "," + std::to_string(part->id) : "none";
    };
    EXPECT_EQ(found(nullptr, &PartState::IsTouchable, false), "1,0");
    EXPECT_EQ(found(nullptr, &PartState::IsTouchable, true), "3,0");
    EXPECT_EQ(found(Part(1, 0), &PartState::IsTouchable, false), "1,1");
    EXPECT_EQ(found(Part(2, 0), &PartState::IsTouchable, false), "1,0");
    EXPECT_EQ(found(Part(1, 0), &PartState::IsTouchable, true), "3,0");
    EXPECT_EQ(found(Part(1, 0), &PartState::IsFailing, false), "1,0") << "the only one";
    session.Edit().InteractionTypeTest.reset();
    session.Save();
    EXPECT_EQ(found(Part(1, 0), &PartState::IsFailing, false), "none");
    EXPECT_EQ(FindPart(AnnotationSession(), &PartState::IsAny, false), nullptr);
}

TEST(PartListOfTheFullReading, TellsTheBlockOfEachKnobAndWhichLackOne) {
    const Installation installation;
    const WorkingDirectory inside(installation.path);
    ObjText knobs;
    for (const char* knob : {"a/up a/down", "b/up b/down"})
        knobs.Line(std::string("ATTR_manip_command_knob hand ") + knob).Tris();
    installation.Aircraft("Aircraft/Props/Cub", "Cub", knobs);
    installation.Write("Aircraft/Props/Cub/plane_vrconfig.txt",
                       "A\n1100\nVRCONFIG\n\nBEGIN_MANIP command_knob a/up a/down\nEND_MANIP\n");
    AnnotationSession session;
    session.Load(*Sim::XPAircraftListLoader().LoadAircraftList().front(), CockpitModel::Reading::Full);
    PartList list;
    list.Read(session);
    ASSERT_EQ(list.ShownCount(), 2u);
    EXPECT_EQ(list.Shown(0).texts.at(ColumnTitled("VR")), "5");
    list.SetChoice(PartChoices().size() - 1);
    ASSERT_EQ(list.ShownCount(), 1u);
    EXPECT_EQ(list.Shown(0).texts.at(ColumnTitled("Names")), "b/up b/down");
}

} // namespace
