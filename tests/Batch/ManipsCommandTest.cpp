#include "Batch/BatchProgram.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace Batch {
namespace {

using nlohmann::json;
using Support::Installation;
using Support::ProgramResult;
using testing::HasSubstr;

TEST(ManipsCommand, TellsALineForEachPartThatCanBeClicked) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    installation.Aircraft("Aircraft/Props/Glider", "Glider", Support::ObjText().Texture().Tris());
    installation.Annotations("Cub", Support::Expectation(1, 0, "Twist"));

    // ThreeParts has ten lines of heading and pool, TEXTURE in 11, the toggle in 13 and the drag in 16.
    const ProgramResult asJson = RunBatch(installation, {"manips", "--json"});
    EXPECT_EQ(asJson.exitCode, 0) << asJson.errors;
    EXPECT_EQ(json::parse(asJson.output, nullptr, false), json::parse(R"([
        {"acfPath": "Aircraft/Props/Cub/plane.acf", "node": 0, "part": 1, "line": 13, "manipulator": "toggle",
         "from": 0.0, "to": 1.0, "type": "Tap", "override": null, "expected": null, "dataref": "sim/switch"},
        {"acfPath": "Aircraft/Props/Cub/plane.acf", "node": 1, "part": 0, "line": 16, "manipulator": "drag",
         "from": 0.0, "to": 1.0, "type": "Move", "override": null, "expected": "Twist", "dataref": "sim/lever"}])"));
    EXPECT_EQ(RunBatch(installation, {"manips", "--csv", "Cub"}).output,
              "acfPath,node,part,line,manipulator,from,to,type,override,expected,dataref\n"
              "Aircraft/Props/Cub/plane.acf,0,1,13,toggle,0,1,Tap,,,sim/switch\n"
              "Aircraft/Props/Cub/plane.acf,1,0,16,drag,0,1,Move,,Twist,sim/lever\n");
    const std::string table = RunBatch(installation, {"manips"}).output;
    EXPECT_THAT(table, HasSubstr("Cub (Aircraft/Props/Cub/plane.acf): 2 parts that can be clicked\n"));
    EXPECT_THAT(table, HasSubstr("Glider (Aircraft/Props/Glider/plane.acf): 0 parts that can be clicked\n"));
    EXPECT_EQ(RunBatch(installation, {"manips", "--json", "Glider"}).output, "[]\n");
    EXPECT_EQ(RunBatch(installation, {"manips", "--json", "--csv"}).exitCode, 2);
}

TEST(ManipsCommand, ReadsPartsWithoutAMaterialWhenAsked) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    installation.Aircraft("Aircraft/Props/Piper", "Piper", Support::ObjText().Toggle("sim/a,b").Tris());
    EXPECT_EQ(RunBatch(installation, {"manips", "--csv"}).exitCode, 3);
    const ProgramResult result = RunBatch(installation, {"manips", "--csv", "--untextured"});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_THAT(result.output, HasSubstr(",Tap,,,\"sim/a,b\"\n"));

    EXPECT_EQ(RunBatch(installation, {"detect", "--out", "plain"}).exitCode, 3);
    EXPECT_FALSE(boost::filesystem::exists(installation.path / "plain/Piper.xml"));
    EXPECT_EQ(RunBatch(installation, {"detect", "--out", "all", "--untextured"}).exitCode, 0);
    EXPECT_THAT(installation.Read("all/Piper.xml"), HasSubstr("Tap"));
    EXPECT_THAT(installation.Read("all/Cub.xml"), HasSubstr("Move"));
    EXPECT_EQ(installation.Read("all/Cub.xml"), installation.Read("plain/Cub.xml")) << "which needs no such help";
}

} // namespace
} // namespace Batch
