#include "Annotator/RecordChange.h"

#include "Annotator/AnnotationSession.h"
#include "CockpitModel/Annotations/AnnotationXml.h"
#include "Support/MadeAircraft.h"
#include "Support/TemporaryFolder.h"

#include <gmock/gmock.h>

namespace {

using namespace Annotator;
using namespace Support;
using CockpitModel::AnnotationRecord;
using enum CockpitModel::TouchInteractionType;
using testing::ElementsAre;

const std::string kFile = "QVRA/Annotations/Cub.xml";
const AnnotationRecord kTooltip{.NodeId = 1, .PartId = 0, .Tooltip = "mine"};
const AnnotationRecord kReversed{.NodeId = 1, .PartId = 1, .InteractionType = Tap, .Reverse = true};

/// Three parts without a manipulator, the last two with a record.
class RecordChangeTest : public testing::Test {
protected:
    RecordChangeTest() : inside(folder.path) {
        ModelBuilder builder;
        builder.Part(0, TriangleAt(1));
        const int lever = builder.Node(0);
        builder.Part(lever, TriangleAt(2));
        builder.Part(lever, TriangleAt(3));
        folder.Write(kFile, CockpitModel::AnnotationsToXml({kTooltip, kReversed}));
        session.Load(MadeAircraft("Cub", "Made/Cub", MakerOf(std::move(builder.model))));
        for (const CockpitModel::PartAddress address : {CockpitModel::PartAddress{0, 0}, {1, 0}, {1, 1}})
            parts.push_back(session.Scene()->FindPart(address));
    }

    std::vector<AnnotationRecord> InFile() const { return CockpitModel::ReadAnnotations(kFile); }
    /// The file cannot be replaced.
    void BlockFile() {
        boost::filesystem::remove(kFile);
        folder.Write(kFile + "/in the way", "");
    }

    TemporaryFolder folder;
    WorkingDirectory inside;
    AnnotationSession session;
    std::vector<CockpitModel::NodePart*> parts;
    const RecordChange change{.type = std::optional(Tap), .expected = std::optional(Move), .reverse = true};
    const AnnotationRecord changed[3] = {
        {.NodeId = 0, .PartId = 0, .InteractionType = Tap, .InteractionTypeTest = Move, .Reverse = true},
        {.NodeId = 1,
         .PartId = 0,
         .InteractionType = Tap,
         .InteractionTypeTest = Move,
         .Reverse = true,
         .Tooltip = "mine"},
        {.NodeId = 1, .PartId = 1, .InteractionType = Tap, .InteractionTypeTest = Move, .Reverse = true}};
};

TEST_F(RecordChangeTest, CountsTheRecordsThatItAlters) {
    RecordChange reverse{.reverse = true}, type{.type = std::optional(Tap)};
    EXPECT_EQ(UpdatesOf(session, parts, {}).size(), 0u);
    EXPECT_EQ(UpdatesOf(session, parts, reverse).size(), 2u) << "one is reversed already";
    EXPECT_EQ(UpdatesOf(session, parts, type).size(), 2u);
    EXPECT_EQ(UpdatesOf(session, parts, TakeAllBack()).size(), 1u) << "a tooltip stays";
    EXPECT_EQ(UpdatesOf(session, {parts[0]}, change).size(), 1u);
    EXPECT_EQ(ExpectDetected(session, parts).size(), 3u);
    EXPECT_THAT(InFile(), ElementsAre(kTooltip, kReversed));
}

TEST_F(RecordChangeTest, StoresAndTakesBackInOneWriteEach) {
    EXPECT_TRUE(session.Apply(UpdatesOf(session, parts, change)).saved);
    EXPECT_THAT(InFile(), ElementsAre(changed[0], changed[1], changed[2]));
    EXPECT_TRUE(session.Apply(UpdatesOf(session, parts, TakeAllBack())).saved);
    EXPECT_THAT(InFile(), ElementsAre(kTooltip)) << "the others have no value left";
    EXPECT_TRUE(session.Apply(ExpectDetected(session, parts)).saved);
    EXPECT_EQ(InFile().at(2), (AnnotationRecord{.NodeId = 1, .PartId = 1, .InteractionTypeTest = None}));
    EXPECT_TRUE(session.Undo().saved);
    EXPECT_THAT(InFile(), ElementsAre(kTooltip)) << "only the last one is taken back";
    EXPECT_FALSE(session.CanUndo());
    EXPECT_TRUE(session.Undo().saved);
    EXPECT_THAT(InFile(), ElementsAre(kTooltip));
    EXPECT_FALSE(boost::filesystem::exists(kFile + ".kept-1"));
}

TEST_F(RecordChangeTest, TakesNothingBackThatWasSavedLater) {
    session.Apply(UpdatesOf(session, parts, change));
    session.Select(parts[1]);
    session.Edit().InteractionType = Radio;
    session.Edit().Tooltip = "later";
    session.Save();
    EXPECT_EQ(session.UndoUpdates().size(), 3u);
    EXPECT_TRUE(session.Undo().saved);
    EXPECT_THAT(InFile(),
                ElementsAre(AnnotationRecord{.NodeId = 1, .PartId = 0, .InteractionType = Radio, .Tooltip = "later"},
                            kReversed));
    EXPECT_FALSE(session.IsEdited());
}

TEST_F(RecordChangeTest, KeepsTheUnsavedValuesOfTheSelectedPart) {
    session.Select(parts[1]);
    session.Edit().Tooltip = "not saved";
    session.Edit().InteractionType = Radio;
    session.Apply(UpdatesOf(session, parts, change));
    AnnotationRecord edited = changed[1];
    edited.Tooltip = "not saved";
    EXPECT_EQ(session.Edit(), edited) << "what was set for all is set here too";
    EXPECT_EQ(InFile().at(1), changed[1]);
    session.Edit().InteractionTypeTest = Twist;
    session.Undo();
    EXPECT_EQ(session.Edit(),
              (AnnotationRecord{.NodeId = 1, .PartId = 0, .InteractionTypeTest = Twist, .Tooltip = "not saved"}));
    session.Edit().Reverse = true;
    session.Apply(UpdatesOf(session, {parts[0]}, change));
    EXPECT_TRUE(session.Edit().Reverse) << "another part was changed";
}

TEST_F(RecordChangeTest, ChangesNothingIfTheSaveFails) {
    session.Select(parts[1]);
    const std::string before = folder.Read(kFile);
    BlockFile();
    const AnnotationSaveResult failed = session.Apply(UpdatesOf(session, parts, change));
    EXPECT_FALSE(failed.saved);
    EXPECT_THAT(failed.error, testing::HasSubstr(kFile));
    EXPECT_THAT(session.Annotations()->ListAll(), ElementsAre(kTooltip, kReversed));
    EXPECT_EQ(session.Edit(), kTooltip);
    EXPECT_FALSE(session.CanUndo());

    boost::filesystem::remove_all(kFile);
    folder.Write(kFile, before);
    session.Apply(UpdatesOf(session, parts, change));
    BlockFile();
    EXPECT_FALSE(session.Undo().saved);
    EXPECT_THAT(session.Annotations()->ListAll(), ElementsAre(changed[0], changed[1], changed[2]));
    EXPECT_EQ(session.Edit(), changed[1]);
    EXPECT_TRUE(session.CanUndo());
    session.Clear();
    EXPECT_FALSE(session.CanUndo());
}

TEST_F(RecordChangeTest, SetsWhatTheUserChoosesInAField) {
    const std::vector<ChangeField> fields = ChangeFields();
    ASSERT_EQ(fields.size(), 4u);
    EXPECT_THAT(fields[0].lines, ElementsAre("(No Change)", "(Use Detected)", "None", "Tap", "Twist", "Move", "Radio"));
    RecordChange chosen;
    for (const auto& [field, line] : {std::pair(0, 3), {1, 4}, {2, 1}, {3, 6}})
        fields[static_cast<std::size_t>(field)].choose(chosen, static_cast<std::size_t>(line));
    session.Apply(UpdatesOf(session, {parts[2]}, chosen));
    EXPECT_EQ(InFile().at(1), (AnnotationRecord{.NodeId = 1,
                                                .PartId = 1,
                                                .InteractionType = Tap,
                                                .InteractionTypeTest = Radio,
                                                .EventType = CockpitModel::TouchEventType::LClickLClick}));
    for (const ChangeField& field : fields)
        field.choose(chosen, 0);
    EXPECT_EQ(UpdatesOf(session, parts, chosen).size(), 0u);
}

} // namespace
