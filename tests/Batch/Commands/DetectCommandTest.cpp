#include "Batch/BatchProgram.h"
#include "Support/HeldFile.h"

#include <csignal>
#include <gmock/gmock.h>
#include <poll.h>
#include <sys/syscall.h>

namespace Batch {
namespace {

using Support::Installation;
using Support::ObjText;
using Support::ProgramResult;
using testing::HasSubstr;
using testing::Not;

std::string PartXml(int node, int part, const std::string& type) {
    return "    <Part>\n        <NodeId>" + std::to_string(node) + "</NodeId>\n        <PartId>" +
           std::to_string(part) + "</PartId>\n        <InteractionType>" + type +
           "</InteractionType>\n        <EventType>Wheel</EventType>\n        <Reverse>0</Reverse>\n    </Part>\n";
}

std::string FileXml(const std::string& parts) {
    return "<NodePartList>\n" + parts + "</NodePartList>\n";
}

/// A moving part so large that its measures overflow.
ObjText HugePart() {
    ObjText text = ObjText().Texture().Line("VT 3e38 0 0 0 0 1 0 0");
    return text.Line("IDX 3").Line("IDX 3").Line("IDX 3").Begin().Line("TRIS 3 3").End();
}

const std::string kThreePartsXml = FileXml(PartXml(0, 0, "None") + PartXml(0, 1, "Tap") + PartXml(1, 0, "Move"));

TEST(DetectCommand, WritesAFilePerAircraftAndReportsFailures) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Big.Jet 1.2", "Big Jet", ThreeParts());
    installation.Aircraft("Aircraft/Props/Bare", "Bare");
    installation.Aircraft("Aircraft/Props/Huge", "Huge", HugePart());
    installation.Aircraft("Aircraft/Props/Piper", "Piper", NoMaterial());
    installation.Aircraft("Aircraft/Props/Eye", "Eye", "P acf/_pe_xyz/1 high\n");

    Support::Program program(BatchWords({"detect", "--jobs", "2"}), installation.path.string());
    const ProgramResult result = program.Wait();
    EXPECT_EQ(result.exitCode, 3);
    const std::string folder = "QVRA/AirLogs/1389-2a5530b-4/";
    EXPECT_EQ(installation.Read(folder + "Big.Jet 1.xml"), kThreePartsXml);
    EXPECT_EQ(installation.Read(folder + "Bare.xml"), "<NodePartList/>\n");
    EXPECT_FALSE(boost::filesystem::exists(installation / (folder + "Piper.xml")));
    EXPECT_THAT(result.errors, HasSubstr("Eye (Aircraft/Props/Eye/plane.acf): acf/_pe_xyz/1 of line "));
    EXPECT_THAT(result.errors, Not(HasSubstr("\r"))) << "a progress bar is for terminals only";

    const std::string log = program.DataFolder().Read("data/Vorelle/batch-log.txt");
    EXPECT_THAT(log, HasSubstr("Loading aircraft for output: Big Jet - Aircraft/Props/Big.Jet 1.2/plane.acf\n"));
    EXPECT_THAT(log, HasSubstr("Model has 3 parts"));
    EXPECT_THAT(log, HasSubstr("\t\tCockpitModel\\SceneGraph.cpp\t\t578\t\tBad number\n"));
    EXPECT_THAT(log, HasSubstr("Failed to load model.  Skipping..."));
    EXPECT_FALSE(boost::filesystem::exists(program.DataFolder() / "data/Vorelle/log.txt"));
}

/// Two aircraft that both write Plane.xml. The test can block one of them.
struct Rivals {
    Rivals() {
        for (const std::string& group : {first, second})
            installation.Aircraft("Aircraft/" + group + "/Plane", group, ThreeParts());
        if (!RunBatch(installation, {"list"}).output.starts_with("Aircraft/" + first))
            std::swap(first, second);
    }

    std::string Cockpit(const std::string& group) const {
        return installation / ("Aircraft/" + group + "/Plane/plane_cockpit.obj");
    }

    const Installation installation;
    std::string first = "A", second = "B"; ///< in the order in which the system lists them
};

TEST(DetectCommand, EndsItsProcessesWhenASignalEndsIt) {
    for (const int signal : {SIGINT, SIGTERM}) {
        const Rivals rivals;
        const Support::HeldFile held(rivals.Cockpit(rivals.second));
        if (!held.IsHeld())
            GTEST_SKIP() << "no leases on this file system";
        Support::Program program(BatchWords({"detect", "--out", "out", "--jobs", "2"}),
                                 rivals.installation.path.string());
        ASSERT_TRUE(held.AwaitReader());
        const std::vector<pid_t> children = ChildrenOf(program.Id());
        EXPECT_FALSE(children.empty());
        std::vector<pollfd> ends;
        for (const pid_t child : children)
            ends.push_back({static_cast<int>(syscall(SYS_pidfd_open, child, 0)), POLLIN, 0});
        kill(program.Id(), signal);
        EXPECT_EQ(program.Wait().signal, signal);
        for (pollfd& end : ends) {
            if (end.fd < 0)
                continue; // it had already ended
            EXPECT_EQ(poll(&end, 1, 30'000), 1) << "its process still waits for the file";
            close(end.fd);
        }
        // The first aircraft's file may already be written, but only completely.
        for (const auto& entry : boost::filesystem::directory_iterator(rivals.installation / "out"))
            EXPECT_EQ(rivals.installation.Read("out/" + entry.path().filename().string()), kThreePartsXml)
                << entry.path();
    }
}

TEST(DetectCommand, ReportsWhatCannotBeWritten) {
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
