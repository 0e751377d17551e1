#include "Annotator/AnnotationSession.h"

#include "Support/MadeAircraft.h"
#include "Support/TemporaryFolder.h"

#include <gmock/gmock.h>

namespace {

using namespace Support;
using CockpitModel::AnnotationRecord;
using testing::HasSubstr;

const std::string kFile = "QVRA/Annotations/Cub.xml";

/// A part on node 0 and two on node 1.
CockpitModel::ModelData ThreeParts() {
    ModelBuilder builder;
    builder.Part(0, TriangleAt(1));
    const int lever = builder.Node(0, "sim/lever", Slide(1, 0, 0));
    builder.Part(lever, TriangleAt(2));
    builder.Part(lever, TriangleAt(3));
    return std::move(builder.model);
}

class AnnotationSessionTest : public testing::Test {
protected:
    AnnotationSessionTest() : inside(folder.path) { boost::filesystem::create_directory("QVRA"); }

    CockpitModel::NodePart* Part(int node, int part) { return session.Scene()->FindPart({node, part}); }

    TemporaryFolder folder;
    WorkingDirectory inside;
    MadeAircraft cub{"Cub", "Made/Cub", MakerOf(ThreeParts())};
    Annotator::AnnotationSession session;
};

TEST_F(AnnotationSessionTest, StartsTheWorkingRecordOfEachSelectionFromTheStoredOne) {
    session.Load(cub);
    EXPECT_EQ(session.AircraftName(), "Cub");
    EXPECT_EQ(session.SelectedPart(), nullptr);
    session.Select(Part(1, 1));
    EXPECT_EQ(session.SelectedPart(), Part(1, 1));
    EXPECT_EQ(session.Edit(), (AnnotationRecord{.NodeId = 1, .PartId = 1}));
    session.Edit().Tooltip = "not saved";
    session.Select(Part(0, 0));
    session.Edit().Reverse = true;
    EXPECT_TRUE(session.Save().saved);
    session.Select(Part(1, 1));
    EXPECT_EQ(session.Edit().Tooltip, std::nullopt);

    session.Load(cub);
    EXPECT_EQ(session.SelectedPart(), nullptr);
    session.Select(Part(0, 0));
    EXPECT_EQ(session.Edit(), (AnnotationRecord{.NodeId = 0, .PartId = 0, .Reverse = true})) << "read from the file";
    session.Clear();
    EXPECT_EQ(session.SelectedPart(), nullptr);
    EXPECT_EQ(session.Scene(), nullptr);
}

TEST_F(AnnotationSessionTest, KeepsAFileForEachReading) {
    folder.Write(kFile, "<Overrides><Override><NodeId>1</NodeId><PartId>1</PartId><Reverse>1</Reverse></Override>"
                        "</Overrides>");
    session.Load(cub, CockpitModel::Reading::Full);
    EXPECT_TRUE(session.HasPlainAnnotations());
    session.Select(Part(0, 0));
    EXPECT_FALSE(session.IsEdited());
    session.Edit().Tooltip = "";
    EXPECT_FALSE(session.IsEdited()) << "as the page shows no tooltip";
    session.Edit().Tooltip = "mine";
    EXPECT_TRUE(session.IsEdited());
    EXPECT_TRUE(session.Save().saved);
    EXPECT_FALSE(session.IsEdited() || session.HasPlainAnnotations());
    EXPECT_THAT(folder.Read("QVRA/Annotations/full/Cub.xml"), HasSubstr("<Reverse>1</Reverse>"));
    EXPECT_THAT(folder.Read(kFile), testing::Not(HasSubstr("mine")));
    session.Load(cub);
    session.Select(Part(0, 0));
    EXPECT_EQ(session.Edit().Tooltip, std::nullopt);
}

TEST_F(AnnotationSessionTest, TellsWhatASaveKeptAndWhyItFailed) {
    folder.Write(kFile, "<Overrides><!-- mine --></Overrides>");
    session.Load(cub);
    session.Select(Part(1, 0));
    EXPECT_EQ(session.Save().unreadableCopy, "") << "the copy is readable";
    EXPECT_EQ(folder.Read(kFile + ".kept-1"), "<Overrides><!-- mine --></Overrides>");
    folder.Write(kFile, "<Overrides><Override>");
    EXPECT_EQ(session.Save().unreadableCopy, kFile + ".kept-2");
    const std::string saved = folder.Read(kFile);
    EXPECT_THAT(saved, HasSubstr("<NodeId>1</NodeId>"));
    EXPECT_EQ(session.Save().unreadableCopy, "");
    EXPECT_EQ(folder.Read(kFile), saved);

    boost::filesystem::remove(kFile);
    folder.Write(kFile + "/in the way", "");
    session.Edit().Tooltip = "mine";
    const auto failed = session.Save();
    EXPECT_FALSE(failed.saved);
    EXPECT_THAT(failed.error, HasSubstr(kFile));
    EXPECT_EQ(session.Edit().Tooltip, "mine");
}

TEST_F(AnnotationSessionTest, HasNoAircraftAfterALoadThatFails) {
    CockpitModel::ModelData broken = ThreeParts();
    broken.animationLinks.Children.clear();
    for (const bool opens : {false, true}) {
        SCOPED_TRACE(opens);
        session.Load(cub);
        session.Select(Part(0, 0));
        const std::weak_ptr<CockpitModel::SceneGraph> before = session.Scene();
        const MadeAircraft failing("Cub", "Made/Cub", [&] {
            EXPECT_TRUE(before.expired()) << "only one aircraft in memory";
            if (!opens)
                throw std::runtime_error("no eye");
            return std::make_unique<ModelCockpit>(broken);
        });
        EXPECT_THAT([&] { session.Load(failing); },
                    testing::ThrowsMessage<std::exception>(opens ? "invalid vector<T> subscript" : "no eye"));
        EXPECT_EQ(session.AircraftName() + session.AnnotationPath(), "");
        EXPECT_TRUE(!session.Cockpit() && !session.Model() && !session.Scene() && !session.Annotations());
        EXPECT_EQ(session.SelectedPart(), nullptr);
        EXPECT_EQ(session.Edit(), AnnotationRecord());
    }
}

} // namespace
