#include "Batch/BatchProgram.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace Batch {
namespace {

using nlohmann::json;
using testing::HasSubstr;

TEST(ManipsCommand, PrintsALinePerClickablePart) {
    const Support::Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    installation.Aircraft("Aircraft/Props/Glider", "Glider", Support::ObjText().Texture().Tris());
    installation.Annotations("Cub", Support::Expectation(1, 0, "Twist"));
    // ThreeParts has ten lines of header and pool, TEXTURE in 11, the toggle in 13 and the drag in 16.
    EXPECT_EQ(json::parse(RunBatch(installation, {"manips", "--json"}).output, nullptr, false), json::parse(R"([
        {"acfPath": "Aircraft/Props/Cub/plane.acf", "node": 0, "part": 1, "line": 13, "manipulator": "toggle",
         "from": 0.0, "to": 1.0, "type": "Tap", "override": null, "expected": null, "dataref": "sim/switch"},
        {"acfPath": "Aircraft/Props/Cub/plane.acf", "node": 1, "part": 0, "line": 16, "manipulator": "drag",
         "from": 0.0, "to": 1.0, "type": "Move", "override": null, "expected": "Twist", "dataref": "sim/lever"}])"));
    EXPECT_EQ(RunBatch(installation, {"manips", "--json", "Glider"}).output, "[]\n");
    EXPECT_EQ(RunBatch(installation, {"manips", "--json", "--csv"}).exitCode, 2);

    installation.Aircraft("Aircraft/Props/Piper", "Piper",
                          Support::ObjText().Line("ATTR_manip_toggle hand -1 1 =a,b\x1B").Tris());
    EXPECT_EQ(RunBatch(installation, {"manips", "--csv"}).exitCode, 3);
    const Support::ProgramResult csv = RunBatch(installation, {"manips", "--csv", "--untextured"});
    EXPECT_EQ(csv.exitCode, 0) << csv.errors;
    EXPECT_THAT(csv.output, HasSubstr("\nAircraft/Props/Piper/plane.acf,0,0,11,toggle,-1,1,Tap,,,\"'=a,b\\x1b\"\n"));
}

TEST(ManipsCommand, ListsTheWholeCockpit) {
    const Support::Installation installation;
    const std::string file = "_v10_att_file_stl ";
    installation.Aircraft("Aircraft/Props/Cub", "Cub",
                          "P _obja/0/" + file + "knob.obj\nP _obja/1/" + file + "gone.obj\n");
    installation.Write("Aircraft/Props/Cub/objects/knob.obj",
                       Support::ObjText().Line("ATTR_manip_axis_knob rotate 0 8 1 1 a/b The course").Tris().Text());
    const Support::ProgramResult csv = RunBatch(installation, {"manips", "--full", "--csv"});
    EXPECT_THAT(csv.output,
                HasSubstr("/plane.acf,2,0,11,other,0,8,Twist,,,a/b,objects/knob.obj,12,axis_knob,a/b,Wheel\n"));
    EXPECT_THAT(csv.errors, HasSubstr("attached object 1 (gone.obj) is not there"));
    EXPECT_THAT(RunBatch(installation, {"inspect", "--full", "Cub"}).output,
                HasSubstr(R"("object":"objects/knob.obj","line":12,"manipulator":{"line":11,"keyword":"axis_knob",)"
                          R"("cursor":"rotate","numbers":[0.0,8.0,1.0,1.0],"names":["a/b"],"tooltip":"The course"}})"));
    const Support::ProgramResult explained = RunBatch(installation, {"explain", "--full", "Cub", "2,0"});
    EXPECT_THAT(explained.errors, HasSubstr("attached object 1 (gone.obj) is not there"));
    EXPECT_THAT(explained.output,
                testing::ContainsRegex("knob, so Twist\n.*knob.obj:12: TRIS\n.*knob.obj:11: axis_knob: "
                                       "0 , 8 , 1 , 1 -- a/b\n.*rotate\n.*The course\n"));
    EXPECT_THAT(explained.output, HasSubstr("plain reading: has no such part\n"));
    EXPECT_EQ(RunBatch(installation, {"detect", "--full"}).exitCode, 0);
    EXPECT_TRUE(boost::filesystem::exists(installation / "QVRA/AirLogs/full/Cub.xml"));
    boost::filesystem::remove(installation / "Aircraft/Props/Cub/objects/knob.obj");
    EXPECT_THAT(RunBatch(installation, {"manips", "--full"}).errors,
                HasSubstr("nothing that can be touched was found; looked at plane_cockpit.obj"));
}

} // namespace
} // namespace Batch
