#include "Annotator/DetectedDataExport.h"

#include "Logging/Logger.h"
#include "Sim/XPAircraftInfo.h"
#include "Support/ObjText.h"
#include "Support/OwnProcess.h"
#include "Support/TemporaryFolder.h"

#include <boost/filesystem.hpp>
#include <cstdlib>
#include <gmock/gmock.h>
#include <sstream>

namespace {

namespace fs = boost::filesystem;
using Support::ObjText;
using testing::ElementsAre;
using testing::EndsWith;
using testing::MatchesRegex;

/// A list in an order chosen by the test; cockpits are created by the real record.
struct FixedList final : Sim::AircraftListLoader {
    explicit FixedList(std::vector<std::string> paths) : acfPaths(std::move(paths)) {}
    Sim::AircraftList LoadAircraftList() override {
        Sim::AircraftList list;
        for (const std::string& path : acfPaths) {
            list.push_back(std::make_unique<Sim::XPAircraftInfo>());
            list.back()->acfPath = list.back()->displayName = path;
        }
        return list;
    }

    std::vector<std::string> acfPaths;
};

const std::string kFolder = "QVRA/AirLogs/1389-2a5530b-4/";

std::string PartXml(int node, int part, const std::string& type) {
    return "    <Part>\n        <NodeId>" + std::to_string(node) + "</NodeId>\n        <PartId>" +
           std::to_string(part) + "</PartId>\n        <InteractionType>" + type +
           "</InteractionType>\n        <EventType>Wheel</EventType>\n        <Reverse>0</Reverse>\n    </Part>\n";
}

std::string ListXml(const std::string& parts) {
    return "<NodePartList>\n" + parts + "</NodePartList>\n";
}

TEST(DetectedDataExportTest, WritesEveryPartOfEachAircraftInOrderAndSkipsOneThatFails) {
    Support::TemporaryFolder folder;
    const Support::WorkingDirectory here(folder.path);
    FixedList list({"Aircraft/A/Big.Jet 1.2/a.acf", "Aircraft/A/Plane/a.acf", "Aircraft/A/Broken/a.acf",
                    "Aircraft/B/Plane/a.acf", "Aircraft/A/Bare/a.acf"});
    for (const std::string& path : list.acfPaths)
        folder.Write(path, "");
    folder.Write("Aircraft/A/Big.Jet 1.2/a_cockpit.obj",
                 ObjText().Texture().Tris().Toggle("sim/t").Tris().Begin().Drag("sim/x").Tris().End().Text());
    folder.Write("Aircraft/A/Plane/a_cockpit.obj", ObjText().Texture().Tris().Text());
    folder.Write("Aircraft/A/Broken/a_cockpit.obj", ObjText().Tris().Text());
    folder.Write("Aircraft/B/Plane/a_cockpit.obj", ObjText().Texture().Toggle("sim/t").Tris().Text());
    folder.Write(kFolder + "Broken.xml", "of an earlier run");
    for (int run : {1, 2}) {
        const Annotator::ExportResult result = Annotator::SaveDetectedData(list);
        EXPECT_EQ(result.files, 4u);
        EXPECT_THAT(result.failed, testing::ElementsAre(testing::StartsWith("Aircraft/A/Broken/a.acf (")));
        EXPECT_EQ(folder.Read(kFolder + "Big.Jet 1.xml"),
                  ListXml(PartXml(0, 0, "None") + PartXml(0, 1, "Tap") + PartXml(1, 0, "Move")))
            << run;
        EXPECT_EQ(folder.Read(kFolder + "Plane.xml"), ListXml(PartXml(0, 0, "Tap"))) << "the later of two equal stems";
        EXPECT_EQ(folder.Read(kFolder + "Broken.xml"), "of an earlier run");
        EXPECT_EQ(folder.Read(kFolder + "Bare.xml"), "<NodePartList/>\n") << "without a cockpit object";
    }
}

/// In a separate process, because there is one log per process.
TEST(DetectedDataExportTest, LogsEachAircraftAndEachSkippedOne) {
    const Support::TemporaryFolder folder;
    folder.Write("A/Fine/a_cockpit.obj", ObjText().Texture().Tris().Tris().Text());
    folder.Write("A/Broken/b_cockpit.obj", ObjText().Tris().Text());
    ASSERT_EQ(Support::ExitCode(Support::Fork([&] {
                  setenv("XDG_DATA_HOME", folder.path.c_str(), 1);
                  fs::current_path(folder.path);
                  Logging::Logger::Get().Start();
                  FixedList list({"A/Fine/a.acf", "A/Broken/b.acf"});
                  Annotator::SaveDetectedData(list);
                  Logging::Logger::Get().Stop("");
                  return 0;
              })),
              0);
    const std::string own = "\t\tAnnotator\\AnnotatorWindow.cpp\t\t";
    const auto cockpit =
        MatchesRegex(".*\t\tCockpitModel.XPAircraftCockpit.cpp\t\t[0-9]+\t\tAircraftCockpit::GenerateXP");
    std::istringstream log(folder.Read("Vorelle/log.txt"));
    std::vector<std::string> lines;
    for (std::string line; std::getline(log, line);)
        lines.push_back(line);
    ASSERT_GE(lines.size(), 7u);
    lines.erase(lines.begin(), lines.end() - 7); // queued by earlier tests of this program
    EXPECT_THAT(lines,
                ElementsAre(EndsWith(own + "368\t\tLoading aircraft for output: A/Fine/a.acf - A/Fine/a.acf"), cockpit,
                            EndsWith("\t\tModel has 2 parts, 6 total drawn vertices, stored in array size 1"),
                            EndsWith(own + "368\t\tLoading aircraft for output: A/Broken/b.acf - A/Broken/b.acf"),
                            cockpit, EndsWith("\t\tModel has 1 parts, 3 total drawn vertices, stored in array size 1"),
                            EndsWith(own + "410\t\tFailed to load model.  Skipping...")));
}

TEST(DetectedDataExportTest, SomeFailuresEndTheRun) {
    Support::TemporaryFolder folder;
    const Support::WorkingDirectory here(folder.path);
    folder.Write("Aircraft/A/Bad/b.acf", "P acf/_pe_xyz/0 far\n");
    FixedList bad({"Aircraft/A/Bad/b.acf"});
    EXPECT_THROW(Annotator::SaveDetectedData(bad), Annotator::AircraftExportError)
        << "a pilot's eye that is not a number";

    Support::TemporaryFolder blocked;
    const Support::WorkingDirectory there(blocked.path);
    blocked.Write("QVRA", "a file instead of the folder");
    EXPECT_THROW(Annotator::SaveDetectedData(bad), fs::filesystem_error);
}

} // namespace
