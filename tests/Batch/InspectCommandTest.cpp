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
    EXPECT_EQ(cockpit["displayName"], "Cub");
    EXPECT_EQ(cockpit["acfPath"], "Aircraft/Props/Cub/plane.acf");
    EXPECT_EQ(cockpit["textures"],
              json({"Aircraft/Props/Cub/cockpit_3d/-PANELS-/Panel.png", "Aircraft/Props/Cub/a.png"}));
    EXPECT_EQ(cockpit["pilotEye"][0].get<float>(), 0.3048f);
    EXPECT_EQ(cockpit["pilotEye"][2].get<float>(), 10.0f * -0.3048f);

    ASSERT_EQ(cockpit["nodes"].size(), 4u); // the root and the three blocks, of one step at most each
    const json& slide = cockpit["nodes"][1];
    EXPECT_EQ(slide["index"], 1);
    EXPECT_EQ(slide["parent"], 0);
    EXPECT_EQ(slide["child"], 2);
    EXPECT_EQ(slide["peer"], 3);
    EXPECT_EQ(slide["animation"], "sim/slide");
    EXPECT_EQ(slide["keys"], json::parse(R"([{"time": 0.0, "translation": [0.0, 0.0, 0.0]},
                                             {"time": 100.0, "translation": [1.0, 2.0, -3.0]}])"));
    // At the end of the slide: moved by (1, 2, -3), not turned.
    EXPECT_EQ(slide["worldMatrix"],
              json::parse("[1.0,0.0,0.0,0.0, 0.0,1.0,0.0,0.0, 0.0,0.0,1.0,0.0, 1.0,2.0,-3.0,1.0]"));
    const json& root = cockpit["nodes"][0];
    EXPECT_TRUE(root["parent"].is_null());
    EXPECT_TRUE(root["peer"].is_null());
    EXPECT_TRUE(root["animation"].is_null());
    EXPECT_TRUE(root["keys"].empty());
    const json& turn = cockpit["nodes"][2];
    ASSERT_EQ(turn["keys"].size(), 2u);
    EXPECT_EQ(turn["keys"][0]["rotation"][3], 1.0); // x, y, z, w
    EXPECT_NEAR(turn["keys"][1]["rotation"][2].get<float>(), std::sqrt(0.5), 1e-6);

    ASSERT_EQ(cockpit["parts"].size(), 3u);
    const json& shape = cockpit["parts"][0];
    EXPECT_EQ(shape["nodeId"], 0);
    EXPECT_EQ(shape["partId"], 0);
    EXPECT_EQ(shape["vertexCount"], 3);
    EXPECT_EQ(shape["textureIndex"], 1);
    EXPECT_EQ(shape["textureName"], "Aircraft/Props/Cub/a.png");
    EXPECT_TRUE(shape["mouseRect"].is_null());
    EXPECT_EQ(shape["interactionType"], "None");
    const json& lever = cockpit["parts"][1];
    EXPECT_EQ(lever["nodeId"], 2);
    EXPECT_EQ(lever["mouseRect"],
              json({{"text", "DragVariable: 0 , 1 -- sim/lever"}, {"mouseFlags", 0xA0000000u}, {"callbackType", 2}}));
    for (const char* measure : {"farthestVertex", "axisTip", "rotationAxis"})
        EXPECT_EQ(lever[measure].size(), 3u) << measure;
    EXPECT_TRUE(lever["balanceFactor"].is_number());
    EXPECT_TRUE(lever["sweepRadius"].is_number());
    EXPECT_EQ(lever["eventType"], "Wheel");
    EXPECT_EQ(cockpit["parts"][2]["interactionType"], "Tap");
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

TEST(InspectCommand, NamesWhyACockpitCannotBeLoaded) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Piper", "Piper", NoMaterial());
    const ProgramResult result = RunBatch(installation, {"inspect", "Piper"});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.errors, HasSubstr("Piper (Aircraft/Props/Piper/plane.acf): "));
    EXPECT_THAT(result.errors, HasSubstr("plane_cockpit.obj(11)"));
}

} // namespace
} // namespace Batch
