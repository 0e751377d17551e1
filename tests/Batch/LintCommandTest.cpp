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
    EXPECT_THAT(piper.errors, HasSubstr("1 finding and 2 notes in 2 aircraft"));
    EXPECT_EQ(RunBatch(installation, {"lint", "--nonsense"}).exitCode, 2);
    const ProgramResult all = RunBatch(installation, {"lint"});
    EXPECT_EQ(all.exitCode, 3) << "one that cannot be read weighs more than a finding";
    EXPECT_THAT(all.errors, HasSubstr("Empty (Aircraft/Props/Empty/plane.acf): there is no cockpit object"));

    const json list = json::parse(RunBatch(installation, {"lint", "--json", "Piper"}).output, nullptr, false);
    ASSERT_EQ(list.size(), 2u);
    EXPECT_TRUE(list[0]["line"].is_null());
    EXPECT_EQ(list[1]["line"], 11);
    EXPECT_EQ(list[1]["severity"], "error");
    EXPECT_EQ(list[1]["check"], "no-texture");
}

} // namespace
} // namespace Batch
