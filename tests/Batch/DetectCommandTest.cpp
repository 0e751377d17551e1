#include "Batch/BatchProgram.h"

#include <csignal>
#include <gmock/gmock.h>
#include <poll.h>
#include <sys/stat.h>

namespace Batch {
namespace {

using Support::Installation;
using Support::ObjText;
using Support::ProgramResult;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kFolder = "QVRA/AirLogs/1389-2a5530b-4/";

std::string PartXml(int node, int part, const std::string& type) {
    return "    <Part>\n        <NodeId>" + std::to_string(node) + "</NodeId>\n        <PartId>" +
           std::to_string(part) + "</PartId>\n        <InteractionType>" + type +
           "</InteractionType>\n        <EventType>Wheel</EventType>\n        <Reverse>0</Reverse>\n    </Part>\n";
}

std::string FileXml(const std::string& parts) {
    return "<NodePartList>\n" + parts + "</NodePartList>\n";
}

const std::string kThreePartsXml = FileXml(PartXml(0, 0, "None") + PartXml(0, 1, "Tap") + PartXml(1, 0, "Move"));

TEST(DetectCommand, WritesAFilePerAircraftAndNamesThoseThatFail) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Big.Jet 1.2", "Big Jet", ThreeParts());
    installation.Aircraft("Aircraft/Props/Bare", "Bare");
    const std::string piper = installation.Aircraft("Aircraft/Props/Piper", "Piper", NoMaterial());
    const std::string eye = installation.Aircraft("Aircraft/Props/Eye", "Eye", "P acf/_pe_xyz/1 high\n");

    Support::Program program(BatchWords({"detect", "--jobs", "2"}), installation.path.string());
    const ProgramResult result = program.Wait();
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(installation.Read(std::string(kFolder) + "Big.Jet 1.xml"), kThreePartsXml);
    EXPECT_EQ(installation.Read(std::string(kFolder) + "Bare.xml"), "<NodePartList/>\n");
    EXPECT_FALSE(boost::filesystem::exists(installation / (std::string(kFolder) + "Piper.xml")));
    EXPECT_THAT(result.errors, HasSubstr("Piper (" + piper +
                                         "): Aircraft/Props/Piper/plane_cockpit.obj(11): TRIS "
                                         "before any TEXTURE line, so the part has no material"));
    EXPECT_THAT(result.errors, HasSubstr("Eye (" + eye + "): " + eye));
    EXPECT_THAT(result.errors, HasSubstr("acf/_pe_xyz/1"));
    EXPECT_THAT(result.errors, HasSubstr("high"));
    EXPECT_THAT(result.errors, Not(HasSubstr("\r"))) << "a progress bar belongs on a terminal";

    const std::string log = program.DataFolder().Read("data/Vorelle/batch-log.txt");
    EXPECT_THAT(log, HasSubstr("Loading aircraft for output: Big Jet - Aircraft/Props/Big.Jet 1.2/plane.acf\n"));
    EXPECT_THAT(log, HasSubstr("Model has 3 parts"));
    EXPECT_THAT(log, HasSubstr("Loading aircraft for output: Piper - " + piper));
    EXPECT_THAT(log, HasSubstr("Failed to load model.  Skipping..."));
    EXPECT_FALSE(boost::filesystem::exists(program.DataFolder() / "data/Vorelle/log.txt"));
}

TEST(DetectCommand, WritesChosenAircraftWhereTheCallerSays) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    installation.Aircraft("Aircraft/Props/Piper", "Piper", NoMaterial());
    const Support::TemporaryFolder caller;
    Support::Program program(BatchWords({"-C", installation.path.string(), "detect", "--out", "new/files", "CUB"}),
                             caller.path.string());
    EXPECT_EQ(program.Wait().exitCode, 0);
    EXPECT_EQ(caller.Read("new/files/Cub.xml"), kThreePartsXml);
    EXPECT_FALSE(boost::filesystem::exists(installation / "QVRA/AirLogs"));
}

/// Two aircraft that would write Plane.xml. One can be read as a pipe, so that it takes as long as the test wants.
struct Rivals {
    Rivals() {
        for (const std::string& group : {first, second})
            installation.Aircraft("Aircraft/" + group + "/Plane", group, ThreeParts());
    }

    std::string Cockpit(const std::string& group) const {
        return installation / ("Aircraft/" + group + "/Plane/plane_cockpit.obj");
    }
    void MakePipe(const std::string& group) const {
        boost::filesystem::remove(Cockpit(group));
        ASSERT_EQ(mkfifo(Cockpit(group).c_str(), 0600), 0);
    }

    const Installation installation;
    const std::string first = "A", second = "B";
};

TEST(DetectCommand, LetsTheLaterOfTwoAircraftWithOneFileWin) {
    const Rivals rivals;
    const auto& installation = rivals.installation;
    installation.Write("Aircraft/" + rivals.first + "/Plane/plane_cockpit.obj", ObjText().Texture().Tris().Text());
    for (const char* jobs : {"1", "2"}) {
        const ProgramResult result = RunBatch(installation, {"detect", "--out", "out", "--jobs", jobs});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(installation.Read("out/Plane.xml"), kThreePartsXml) << jobs;
        EXPECT_THAT(result.errors, HasSubstr("1 detected-data file"));
    }
    installation.Write("Aircraft/" + rivals.second + "/Plane/plane_cockpit.obj", NoMaterial().Text());
    EXPECT_EQ(RunBatch(installation, {"detect", "--out", "out"}).exitCode, 3);
    EXPECT_EQ(installation.Read("out/Plane.xml"), FileXml(PartXml(0, 0, "None"))) << "the later one does not load";
}

TEST(DetectCommand, LetsTheLaterWinThoughTheEarlierEndsLast) {
    const Rivals rivals;
    rivals.MakePipe(rivals.first);
    Support::Program program(BatchWords({"detect", "--out", "out", "--jobs", "2"}), rivals.installation.path.string());
    std::ofstream(rivals.Cockpit(rivals.first)) << ObjText().Texture().Tris().Text();
    EXPECT_EQ(program.Wait().exitCode, 0);
    EXPECT_EQ(rivals.installation.Read("out/Plane.xml"), kThreePartsXml);
}

TEST(DetectCommand, TakesItsProcessesAlongWhenASignalEndsIt) {
    for (const int signal : {SIGINT, SIGTERM}) {
        const Rivals rivals;
        rivals.MakePipe(rivals.second);
        Support::Program program(BatchWords({"detect", "--out", "out", "--jobs", "2"}),
                                 rivals.installation.path.string());
        const int opened = open(rivals.Cockpit(rivals.second).c_str(), O_WRONLY); // its process reads from it now
        ASSERT_GE(opened, 0);
        kill(program.Id(), signal);
        EXPECT_EQ(program.Wait().signal, signal);
        pollfd pipe{opened, 0, 0};
        EXPECT_EQ(poll(&pipe, 1, 30'000), 1) << "its process still reads";
        EXPECT_NE(pipe.revents & POLLERR, 0);
        close(opened);
        // The first aircraft's file may have been written by then, and wholly.
        for (const auto& entry : boost::filesystem::directory_iterator(rivals.installation / "out"))
            EXPECT_EQ(rivals.installation.Read("out/" + entry.path().filename().string()), kThreePartsXml)
                << entry.path();
    }
}

TEST(DetectCommand, SaysWhatCannotBeWritten) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    installation.Write("file", "");
    const ProgramResult noFolder = RunBatch(installation, {"detect", "--out", "file/below"});
    EXPECT_EQ(noFolder.exitCode, 4);
    EXPECT_THAT(noFolder.errors, HasSubstr("file/below: "));

    boost::filesystem::create_directories(installation / "out/Cub.xml/in the way");
    const ProgramResult noFile = RunBatch(installation, {"detect", "--out", "out"});
    EXPECT_EQ(noFile.exitCode, 4);
    EXPECT_THAT(noFile.errors, HasSubstr("out/Cub.xml"));
    EXPECT_THAT(noFile.errors, HasSubstr("Is a directory"));
}

} // namespace
} // namespace Batch
