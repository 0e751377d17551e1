#include "Batch/BatchProgram.h"

#include <cmath>
#include <cstring>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace Batch {
namespace {

using nlohmann::json;
using Support::Installation;
using Support::ObjText;
using Support::ProgramResult;
using testing::HasSubstr;

json Inspect(const Installation& installation, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "inspect");
    const ProgramResult result = RunBatch(installation, arguments);
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    return json::parse(result.output, nullptr, false);
}

TEST(InspectCommand, TellsWhatTheProgramMadeOfACockpit) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", "P acf/_pe_xyz/0 1\nP acf/_pe_xyz/2 10\n");
    installation.Write("Aircraft/Props/Cub/plane_cockpit.obj", ObjText()
                                                                   .Texture("a.png")
                                                                   .Tris()
                                                                   .Begin()
                                                                   .Line("ANIM_trans 0 0 0 1 2 3 0 1 sim/slide")
                                                                   .Begin()
                                                                   .Line("ANIM_rotate 0 0 1 0 90 0 1 sim/turn")
                                                                   .Drag("sim/lever")
                                                                   .Tris()
                                                                   .End()
                                                                   .End()
                                                                   .Begin()
                                                                   .Toggle("sim/switch")
                                                                   .Tris()
                                                                   .Text());
    const json cockpit = Inspect(installation, {"Cub"});
    // The root and the three blocks; at the end of the slide the second is moved by (1, 2, -3) and not turned.
    const struct {
        const char* place;
        const char* value;
    } rows[] = {
        {"/displayName", R"("Cub")"},
        {"/acfPath", R"("Aircraft/Props/Cub/plane.acf")"},
        {"/textures", R"(["Aircraft/Props/Cub/cockpit_3d/-PANELS-/Panel.png", "Aircraft/Props/Cub/a.png"])"},
        {"/nodes/0/parent", "null"},
        {"/nodes/0/peer", "null"},
        {"/nodes/0/animation", "null"},
        {"/nodes/0/keys", "[]"},
        {"/nodes/1/index", "1"},
        {"/nodes/1/parent", "0"},
        {"/nodes/1/child", "2"},
        {"/nodes/1/peer", "3"},
        {"/nodes/1/animation", R"("sim/slide")"},
        {"/nodes/1/keys", R"([{"time": 0.0, "translation": [0.0, 0.0, 0.0]},
                              {"time": 100.0, "translation": [1.0, 2.0, -3.0]}])"},
        {"/nodes/1/worldMatrix", "[1.0,0.0,0.0,0.0, 0.0,1.0,0.0,0.0, 0.0,0.0,1.0,0.0, 1.0,2.0,-3.0,1.0]"},
        {"/nodes/2/keys/0/rotation/3", "1.0"},
        {"/parts/0/nodeId", "0"},
        {"/parts/0/partId", "0"},
        {"/parts/0/vertexCount", "3"},
        {"/parts/0/textureIndex", "1"},
        {"/parts/0/textureName", R"("Aircraft/Props/Cub/a.png")"},
        {"/parts/0/mouseRect", "null"},
        {"/parts/0/interactionType", R"("None")"},
        {"/parts/1/nodeId", "2"},
        {"/parts/1/mouseRect",
         R"({"text": "DragVariable: 0 , 1 -- sim/lever", "mouseFlags": 2684354560, "callbackType": 2})"},
        {"/parts/1/eventType", R"("Wheel")"},
        {"/parts/2/interactionType", R"("Tap")"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(cockpit.value(json::json_pointer(row.place), json("nothing")), json::parse(row.value)) << row.place;
    EXPECT_EQ(cockpit["nodes"].size(), 4u);
    EXPECT_EQ(cockpit["parts"].size(), 3u);
    EXPECT_EQ(cockpit["pilotEye"][2].get<float>(), 10.0f * -0.3048f);
    EXPECT_NEAR(cockpit["nodes"][2]["keys"][1]["rotation"][2].get<float>(), std::sqrt(0.5), 1e-6);
    // By hand from the quarter turn: the corner at (1, 0, 0) counts 0.6924, and the corners add up to sqrt(2) of that.
    EXPECT_NEAR(cockpit["parts"][1]["sweepRadius"].get<float>(), 0.6924, 1e-4);
    EXPECT_NEAR(cockpit["parts"][1]["balanceFactor"].get<float>(), 0.9792, 1e-4);
    for (const char* measure : {"farthestVertex", "axisTip", "rotationAxis"})
        EXPECT_EQ(cockpit["parts"][1][measure].size(), 3u) << measure;
}

TEST(InspectCommand, GivesEveryFloatBackAsItWas) {
    // Values of a translation's end, whose z changes sign: among them the smallest float and one of nine digits.
    const struct {
        const char* name;
        const char* text;
        float value;
    } rows[] = {
        {"tenth", "0.1", 0.1f},
        {"nine digits", "16777.2168", 16777.2168f},
        {"third", "0.333333343", 0.333333343f},
        {"small", "1.17549435e-38", 1.17549435e-38f},
        {"great", "3.40282347e38", 3.40282347e38f},
        {"negative", "-0.30000001", -0.30000001f},
    };
    std::string steps;
    for (const auto& row : rows)
        steps += std::string("ANIM_begin\nANIM_trans 0 0 0 ") + row.text + " 0 0 0 1 sim/x\nANIM_end\n";
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ObjText().Line(steps));
    const json cockpit = Inspect(installation, {"Cub"});
    ASSERT_EQ(cockpit["nodes"].size(), std::size(rows) + 1);
    for (std::size_t i = 0; i < std::size(rows); ++i)
        EXPECT_EQ(cockpit["nodes"][i + 1]["keys"][1]["translation"][0].get<float>(), rows[i].value) << rows[i].name;
}

TEST(InspectCommand, ShowsWhatIsNoNumberOrNoText) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub",
                          "C\xFC"
                          "b",
                          "P acf/_pe_xyz/1 nan\n");
    installation.Write("Aircraft/Props/Cub/plane_cockpit.obj",
                       ObjText().Texture("b\xE4r.png").Toggle("sim/\xFF").Tris().Text());
    const json cockpit = Inspect(installation, {"Cub/"});
    EXPECT_EQ(cockpit["displayName"], "C\uFFFDb");
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
    const ProgramResult result =
        Support::Program(BatchWords({"-C", installation.path.string(), "inspect", "Cub", "--panel", "panel.cfg"}),
                         caller.path.string())
            .Wait();
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(json::parse(result.output, nullptr, false)["panels"],
              json::parse(R"([{"texture": "$a", "entries": []}, {"texture": "$b", "entries": []}])"));
    EXPECT_THAT(result.errors, HasSubstr("no source of gauges"));

    for (const char* file : {"missing.cfg", "."}) {
        const ProgramResult unread = RunBatch(installation, {"inspect", "Cub", "--panel", file});
        EXPECT_EQ(unread.exitCode, 2) << file;
        EXPECT_THAT(unread.errors, HasSubstr("cannot read")) << file;
    }
    caller.Write("empty.cfg", "");
    EXPECT_TRUE(Inspect(installation, {"Cub", "--panel", caller / "empty.cfg"})["panels"].empty());
}

} // namespace
} // namespace Batch
