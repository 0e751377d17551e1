#include "Batch/BatchProgram.h"

#include <cmath>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace Batch {
namespace {

using nlohmann::json;
using Support::Installation;
using Support::ObjText;
using Support::ProgramResult;
using testing::HasSubstr;

json Inspect(const Installation& installation) {
    const ProgramResult result = RunBatch(installation, {"inspect", "Cub/"});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    return json::parse(result.output, nullptr, false);
}

TEST(InspectCommand, DescribesTheLoadedCockpit) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", "P acf/_pe_xyz/2 10\n");
    ObjText object = ObjText().Texture("a.png").Tris().Begin().Line("ANIM_trans 0 0 0 1 2 3 0 1 sim/slide");
    object.Begin().Line("ANIM_rotate 0 0 1 0 90 0 1 sim/turn").Drag("sim/lever").Tris().End().End().Begin().Tris();
    installation.Write("Aircraft/Props/Cub/plane_cockpit.obj", object.Text());
    const json cockpit = Inspect(installation);
    // The root and the three blocks; at the end of the slide the second is moved by (1, 2, -3) and not rotated.
    const std::pair<const char*, const char*> rows[] = {
        {"/textures", R"(["Aircraft/Props/Cub/cockpit_3d/-PANELS-/Panel.png", "Aircraft/Props/Cub/a.png"])"},
        {"/nodes/0/parent", "null"},
        {"/nodes/1/parent", "0"},
        {"/nodes/1/child", "2"},
        {"/nodes/1/peer", "3"},
        {"/nodes/1/animation", R"("sim/slide")"},
        {"/nodes/1/keys", R"([{"time": 0.0, "translation": [0.0, 0.0, 0.0]},
                              {"time": 100.0, "translation": [1.0, 2.0, -3.0]}])"},
        {"/nodes/1/worldMatrix", "[1.0,0.0,0.0,0.0, 0.0,1.0,0.0,0.0, 0.0,0.0,1.0,0.0, 1.0,2.0,-3.0,1.0]"},
        {"/nodes/2/keys/0/rotation/3", "1.0"},
        {"/parts/0/vertexCount", "3"},
        {"/parts/0/textureIndex", "1"},
        {"/parts/0/textureName", R"("Aircraft/Props/Cub/a.png")"},
        {"/parts/1/nodeId", "2"},
        {"/parts/1/mouseRect",
         R"({"text": "DragVariable: 0 , 1 -- sim/lever", "mouseFlags": 2684354560, "callbackType": 2})"},
    };
    for (const auto& [place, value] : rows)
        EXPECT_EQ(cockpit.value(json::json_pointer(place), json("nothing")), json::parse(value)) << place;
    EXPECT_EQ(cockpit["pilotEye"][2].get<float>(), 10.0f * -0.3048f);
    // By hand for the quarter turn: the corner at (1, 0, 0) has weight 0.6924.
    EXPECT_NEAR(cockpit["parts"][1]["sweepRadius"].get<float>(), 0.6924, 1e-4);
}

TEST(InspectCommand, KeepsEveryFloatAndShowsInvalidNumbersAndTexts) {
    // Ends of a translation, among them the smallest float, the greatest and one of nine digits.
    const float values[] = {0.1f, 16777.2168f, 0.333333343f, 1.17549435e-38f, 3.40282347e38f, -0.30000001f};
    ObjText object = ObjText().Texture("b\xE4r.png").Toggle("sim/\xFF").Tris();
    for (const char* text : {"0.1", "16777.2168", "0.333333343", "1.17549435e-38", "3.40282347e38", "-0.30000001"})
        object.Begin().Line(std::string("ANIM_trans 0 0 0 ") + text + " 0 0 0 1 sim/x").End();
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "C\xFC.", "P acf/_pe_xyz/1 nan\n");
    installation.Write("Aircraft/Props/Cub/plane_cockpit.obj", object.Text());
    const json cockpit = Inspect(installation);
    ASSERT_EQ(cockpit["nodes"].size(), std::size(values) + 1);
    for (std::size_t i = 0; i < std::size(values); ++i)
        EXPECT_EQ(cockpit["nodes"][i + 1]["keys"][1]["translation"][0].get<float>(), values[i]);
    EXPECT_EQ(cockpit["displayName"], "C\uFFFD.");
    EXPECT_TRUE(cockpit["pilotEye"][1].is_null());
    EXPECT_EQ(cockpit["parts"][0]["textureName"], "Aircraft/Props/Cub/b\uFFFDr.png");
    EXPECT_EQ(cockpit["parts"][0]["mouseRect"]["text"], "ToggleVariable: 0 , 1 -- sim/\uFFFD");
}

TEST(InspectCommand, ShowsAPanelConfiguration) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    const Support::TemporaryFolder caller;
    caller.Write("panel.cfg",
                 "[VCockpit02]\ntexture=$B\ngauge00=a!b,0,0\n[VCockpit01]\ntexture=$A\n[Other]\ntexture=$C\n");
    caller.Write("empty.cfg", "");
    const auto inspect = [&](const std::string& file) {
        return RunBatch(caller, {"-C", installation.path.string(), "inspect", "Cub", "--panel", file});
    };
    const auto panels = [&](const std::string& file) { return json::parse(inspect(file).output)["panels"]; };
    EXPECT_EQ(panels("panel.cfg"),
              json::parse(R"([{"texture": "$a", "entries": []}, {"texture": "$b", "entries": []}])"));
    EXPECT_TRUE(panels("empty.cfg").empty());
    const ProgramResult unread = inspect("missing.cfg");
    EXPECT_EQ(unread.exitCode, 3);
    EXPECT_THAT(unread.errors, HasSubstr("cannot read"));
}

} // namespace
} // namespace Batch
