#include "Batch/BatchProgram.h"

#include <gmock/gmock.h>

namespace Batch {
namespace {

using Support::Installation;
using testing::HasSubstr;

TEST(VrConfigWriteCommand, NeverReplacesAFileUnlessAskedTo) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub",
                          Support::ObjText().Line("ATTR_manip_command_knob hand a/up a/down").Tris());
    const std::string file = "Aircraft/Props/Cub/plane_vrconfig.txt", author = "A\n1100\nVRCONFIG\nREF_POINT_ACF";
    const std::string block = "BEGIN_MANIP command_knob a/up a/down\n\tDEG_PER_ACTION 15\nEND_MANIP\n";
    const auto run = [&](std::vector<std::string> options, int exitCode, const char* message) {
        std::vector<std::string> arguments{"vrconfig", "write", "Cub"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const Support::ProgramResult result = RunBatch(installation, arguments);
        EXPECT_EQ(result.exitCode, exitCode) << message << ": " << result.errors;
        EXPECT_THAT(result.errors, HasSubstr(message));
        return result.output;
    };
    const std::string made = run({"--out", "-"}, 0, "0 hotspots, 1 block, 1 of them with a guess");
    EXPECT_THAT(made, HasSubstr(block));
    EXPECT_EQ(installation.Read(file), "");
    run({}, 0, "wrote 0 hotspots, 1 block, 1 of them with a guess");
    EXPECT_EQ(installation.Read(file), made);

    installation.Write(file, author);
    run({}, 4, "plane_vrconfig.txt exists; use --merge to add what it lacks, or --force to replace it");
    run({"--merge", "--force"}, 2, "excludes");
    EXPECT_EQ(installation.Read(file), author);
    EXPECT_TRUE(run({"--merge", "--out", "-"}, 0, "1 block").starts_with(author + "\n"));
    run({"--merge", "--out", "new.txt"}, 0, "new.txt: added 0 hotspots, 1 block");
    EXPECT_TRUE(installation.Read("new.txt").starts_with(author + "\n"));
    EXPECT_EQ(installation.Read(file), author);
    run({"--merge"}, 0, "added");
    const std::string merged = installation.Read(file);
    EXPECT_TRUE(merged.starts_with(author + "\n") && merged.ends_with(block)) << merged;
    run({"--merge"}, 0, "lacks nothing and stays as it is");
    EXPECT_EQ(installation.Read(file), merged);
    run({"--force"}, 0, "wrote");
    EXPECT_EQ(installation.Read(file), made);

    installation.Write(file, author + "\nBEGIN_MANIP toggle a");
    run({"--merge"}, 3, "plane_vrconfig.txt: line 5: found no END_MANIP before the end of the file");
    run({"--out", "missing/a.txt"}, 4, "missing/a.txt: No such file or directory");
}

} // namespace
} // namespace Batch
