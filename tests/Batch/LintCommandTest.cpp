#include "Batch/BatchProgram.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace Batch {
namespace {

using nlohmann::json;
using Support::Installation;
using Support::ObjText;
using Support::ProgramResult;
using testing::HasSubstr;

TEST(LintCommand, TellsFindingsAndHowItWentByItsExitCode) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Clean", "Clean", ObjText().Texture().Tris());
    installation.Write("Aircraft/Props/Clean/panel.png", "");
    installation.Aircraft("Aircraft/Props/Piper", "Piper", NoMaterial());
    installation.Aircraft("Aircraft/Props/Empty", "Empty");

    const ProgramResult clean = RunBatch(installation, {"lint", "Clean"});
    EXPECT_EQ(clean.exitCode, 0) << clean.output;
    EXPECT_THAT(clean.output, HasSubstr("plane_cockpit.obj: note: ")) << "that it has no yoke is but a note";
    const ProgramResult piper = RunBatch(installation, {"lint", "Piper", "Clean"});
    EXPECT_EQ(piper.exitCode, 1);
    EXPECT_THAT(piper.output, HasSubstr("Aircraft/Props/Piper/plane_cockpit.obj:11: error: "));
    EXPECT_THAT(piper.errors, HasSubstr("1 error, 0 warnings and 2 notes in 2 aircraft\n"));
    EXPECT_EQ(RunBatch(installation, {"lint", "--nonsense"}).exitCode, 2);
    const ProgramResult all = RunBatch(installation, {"lint"});
    EXPECT_EQ(all.exitCode, 3) << "one that cannot be read weighs more than a finding";
    EXPECT_THAT(all.errors, HasSubstr("Empty (Aircraft/Props/Empty/plane.acf): there is no cockpit object"));
    EXPECT_THAT(all.errors, HasSubstr(" in 2 aircraft, 1 more could not be read\n"));

    const json list = json::parse(RunBatch(installation, {"lint", "--json", "Piper"}).output, nullptr, false);
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0]["line"], 11);
    EXPECT_EQ(list[0]["severity"], "error");
    EXPECT_EQ(list[0]["check"], "no-texture");
    EXPECT_TRUE(list[1]["line"].is_null());
}

TEST(LintCommand, CountsWhatRepeatsItself) {
    const Installation installation;
    // TEXTURE is in line 11, each toggle a line further on; five of them go nowhere, four come from nowhere.
    ObjText object = ObjText().Texture();
    for (int i = 0; i < 5; ++i)
        object.Toggle("");
    for (int i = 0; i < 4; ++i)
        object.Line("ATTR_manip_toggle hand 2 2 sim/x");
    installation.Aircraft("Aircraft/Props/Cub", "Cub", object.Tris());
    installation.Write("Aircraft/Props/Cub/panel.png", "");
    const std::string place = "Aircraft/Props/Cub/plane_cockpit.obj:";
    const std::string shown = RunBatch(installation, {"lint"}).output;
    EXPECT_THAT(shown, HasSubstr(place +
                                 "14: warning: ATTR_manip_toggle without a dataref [no-dataref]\n"
                                 "    and 2 more like these, in lines 15, 16; --all prints each\n"
                                 "    write the dataref behind the two values\n" +
                                 place + "17: warning: "));
    EXPECT_THAT(shown, HasSubstr(place + "20: warning: ")) << "one line in the place of one saves nothing";
    const std::string all = RunBatch(installation, {"lint", "--all"}).output;
    EXPECT_THAT(all, HasSubstr(place + "16: warning: "));
    EXPECT_THAT(all, testing::Not(HasSubstr("more like these")));
    EXPECT_EQ(json::parse(RunBatch(installation, {"lint", "--json"}).output, nullptr, false).size(), 10u)
        << "nine warnings, and a note that there is no yoke";
}

} // namespace
} // namespace Batch
