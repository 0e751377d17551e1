#include "Batch/BatchProgram.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace Batch {
namespace {

using Support::Installation;
using Support::ObjText;
using Support::ProgramResult;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

TEST(LintCommand, ReportsTheOutcomeAsExitCode) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Clean", "Clean", ObjText().Texture().Tris());
    installation.Write("Aircraft/Props/Clean/panel.png", "");
    installation.Aircraft("Aircraft/Props/Piper", "Piper", NoMaterial());
    installation.Aircraft("Aircraft/Props/Empty", "Empty");
    EXPECT_EQ(RunBatch(installation, {"lint", "Clean"}).exitCode, 0) << "a missing yoke is only a note";
    EXPECT_EQ(RunBatch(installation, {"lint", "Piper", "Clean"}).exitCode, 1);
    const ProgramResult all = RunBatch(installation, {"lint"});
    EXPECT_EQ(all.exitCode, 3) << "an unreadable aircraft outranks a finding";
    EXPECT_THAT(all.errors, HasSubstr("Empty (Aircraft/Props/Empty/plane.acf): cannot find the cockpit object"));
    EXPECT_THAT(all.errors, HasSubstr("1 error, 0 warnings and 2 notes in 2 aircraft, 1 more could not be read\n"));
}

TEST(LintCommand, CountsRepeatedFindings) {
    const Installation installation;
    // TEXTURE is in line 11, followed by one toggle per line: five without a dataref, four with equal values.
    ObjText object = ObjText().Texture();
    for (int i = 0; i < 5; ++i)
        object.Toggle("");
    for (int i = 0; i < 4; ++i)
        object.Line("ATTR_manip_toggle hand 2 2 sim/x");
    installation.Aircraft("Aircraft/Props/Cub", "Cub", object.Line("TRI\x1BX").Tris());
    installation.Write("Aircraft/Props/Cub/panel.png", "");
    const std::string place = "Aircraft/Props/Cub/plane_cockpit.obj:";
    const std::string shown = RunBatch(installation, {"lint"}).output;
    EXPECT_THAT(shown, HasSubstr(place +
                                 "14: warning: ATTR_manip_toggle without a dataref [no-dataref]\n"
                                 "    and 2 more like these, in lines 15, 16; use --all to print them\n"
                                 "    add the dataref after the two values\n" +
                                 place + "17: warning: "));
    EXPECT_THAT(shown, HasSubstr("TRI\\x1bX is not a keyword of the format"));
    EXPECT_THAT(shown, HasSubstr(place + "20: warning: ")) << "a single remaining finding is printed";
    EXPECT_THAT(RunBatch(installation, {"lint", "--all"}).output,
                AllOf(HasSubstr(place + "16: warning: "), Not(HasSubstr("more like these"))));
    const auto list = nlohmann::json::parse(RunBatch(installation, {"lint", "--json"}).output, nullptr, false);
    ASSERT_EQ(list.size(), 11u) << "ten warnings, and a note that there is no yoke";
    EXPECT_EQ(list[10]["line"], nullptr);
}

} // namespace
} // namespace Batch
