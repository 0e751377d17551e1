#include "CockpitModel/SceneGraph.h"
#include "CockpitModel/Touch/InteractionDetector.h"
#include "CockpitModel/XPlane/ObjectScan.h"
#include "CockpitModel/XPlane/XPObjConverter.h"
#include "CockpitModel/XPlane/XPObjReader.h"
#include "Support/ModelBuilder.h"
#include "Utils/RangeCheck.h"

#include <gtest/gtest.h>
#include <numbers>
#include <sstream>

namespace CockpitModel {
namespace {

const std::string kTriangle = "TEXTURE a.png\nVT 0 0 0 0 0 1 0 0\nVT 1 0 0 0 0 1 1 0\nVT 0 1 0 0 0 1 0 1\n"
                              "IDX 0\nIDX 1\nIDX 2\n";

/// The cockpit object of this text, in lines below those of a triangle.
ModelData Model(const std::string& lines, Reading reading = Reading::Full) {
    std::istringstream stream(kTriangle + lines);
    XPObjData data;
    ReadXPObj(stream, data, reading);
    ModelData model;
    XPObjPlacement placement;
    placement.reading = reading;
    XPObjConverter().Convert("Aircraft/Plane", data, model, placement);
    return model;
}

/// "line@node" of each part in the order of the model.
std::string Places(const ModelData& model) {
    std::string text;
    for (const RiffBlockPART& part : model.parts)
        text += std::to_string(part.SourceLine) + "@" + std::to_string(part.Node) + " ";
    return text;
}

TEST(FullReading, TellsTheTypeByKeywordAndCursor) {
    const std::string range = " 0 1 1 1 a/b";
    const struct {
        std::string line; ///< without "ATTR_manip_"
        const char* is;   ///< type, event, callback type and text; "none" for a part without a rectangle
    } rows[] = {
        {"command hand a/cmd a tooltip", "Tap Wheel 1 command:  -- a/cmd"},
        {"toggle hand 1 0 a/b", "Tap Wheel 1 ToggleVariable: 1 , 0 -- a/b"},
        {"push hand 1 0 a/b", "Tap Wheel 1 push: 1 , 0 -- a/b"},
        {"push hand x 0 a/b", "Tap Wheel 1 push: 0 , 0 -- a/b"},
        {"push hand 1 0", "Tap Wheel 1 push: 1 , 0 -- "},
        {"radio hand 2.5 a/b", "Tap Wheel 1 radio: 2.5 -- a/b"},
        {"delta hand 1 0 0 9 a/b", "Tap Wheel 1 delta: 1 , 0 , 0 , 9 -- a/b"},
        {"wrap hand 1 0 0 9 a/b", "Tap Wheel 1 wrap: 1 , 0 , 0 , 9 -- a/b"},
        {"device", "Tap Wheel 1 device:  -- "},
        {"drag_axis hand 0 1 0 0 1 a/b", "Move Wheel 2 DragVariable: 0 , 1 -- a/b"},
        {"drag_axis rotate_small 0 1 0 0 1 a/b", "Twist Wheel 2 DragVariable: 0 , 1 -- a/b"},
        {"drag_axis_pix hand 50 0 1" + range.substr(0, 4) + " a/b",
         "Move Wheel 2 drag_axis_pix: 50 , 0 , 1 , 0 , 1 -- a/b"},
        {"drag_rotate hand 1 2 3 0 0 1 0 90 0 0 1 0 1 a/b no_ref",
         "Move Wheel 2 drag_rotate: 1 , 2 , 3 , 0 , 0 , 1 , 0 , 90 , 0 , 0 , 1 , 0 , 1 -- a/b"},
        {"drag_xy hand 1 1 -1 1 -1 1 sim/x/yoke_pitch_ratio my/FC_roll",
         "YokePrimary Wheel 0 drag_xy: 1 , 1 , -1 , 1 , -1 , 1 -- sim/x/yoke_pitch_ratio , my/FC_roll"},
        {"drag_xy hand 1 1 -1 1 -1 1 a/yoke_roll_ratio a/b",
         "Move Wheel 2 drag_xy: 1 , 1 , -1 , 1 , -1 , 1 -- a/yoke_roll_ratio , a/b"},
        {"command_knob hand a/up a/down", "Twist LClick/LClick 3 command_knob:  -- a/up , a/down"},
        {"command_knob2 hand a/cmd", "Twist LClick/LClick 3 command_knob2:  -- a/cmd"},
        {"axis_knob hand" + range, "Twist Wheel 3 axis_knob: 0 , 1 , 1 , 1 -- a/b"},
        {"command_axis hand 0 1 0 a/up a/down", "Move LClick/LClick 3 command_axis: 0 , 1 , 0 -- a/up , a/down"},
        {"command_axis rotate 0 1 0 a/up a/down", "Twist LClick/LClick 3 command_axis: 0 , 1 , 0 -- a/up , a/down"},
        {"command_switch_up_down hand a/up a/down", "Move LClick/LClick 3 command_switch_up_down:  -- a/up , a/down"},
        {"command_switch_left_right rotate_large a/up a/down",
         "Twist LClick/LClick 3 command_switch_left_right:  -- a/up , a/down"},
        {"command_switch_up_down2 hand a/cmd", "Move LClick/LClick 3 command_switch_up_down2:  -- a/cmd"},
        {"command_switch_left_right2 hand a/cmd", "Move LClick/LClick 3 command_switch_left_right2:  -- a/cmd"},
        {"axis_switch_left_right hand" + range, "Move Wheel 3 axis_switch_left_right: 0 , 1 , 1 , 1 -- a/b"},
        {"axis_switch_up_down rotate" + range, "Twist Wheel 3 axis_switch_up_down: 0 , 1 , 1 , 1 -- a/b"},
        {"wheel 0.1", "Tap Wheel 1 command:  -- under"}, // adds to the one in force
        {"noop a tooltip", "none"},
        {"none", "none"},
        {"of_later_times hand a/b", "none"},
    };
    for (const auto& row : rows) {
        const std::string line = "ATTR_manip_" + row.line + "\n";
        const ModelData model = Model("ATTR_manip_command hand under\n" + line + "TRIS 0 3\n");
        SceneGraph graph(model, Support::ModelCockpit(), nullptr);
        InteractionDetector().Detect(graph, Reading::Full);
        const NodePart& part = *graph.Nodes().at(0)->parts.at(0);
        std::string is = "none";
        if (part.Rect())
            is = TouchInteractionTypeToText(part.InteractionType) + " " + TouchEventTypeToText(part.EventType) + " " +
                 std::to_string(part.Rect()->CallbackType) + " " + part.Rect()->Text;
        EXPECT_EQ(is, row.is) << row.line;
        std::istringstream scanned(kTriangle + line);
        EXPECT_EQ(CanBeTouched(scanned), part.Rect() && row.line != "wheel 0.1") << row.line;
    }
}

TEST(FullReading, FindsAYokeByAllStepsAboveExceptThoseOutsideAllBlocks) {
    const std::string roll = "ANIM_rotate 0 0 1 0 9 0 1 sim/x/yoke_roll_ratio\n",
                      pitch = "ANIM_trans_begin a/FC_ptch\nANIM_trans_key 0 0 0 0\nANIM_trans_end\n";
    const struct {
        std::string lines;
        TouchInteractionType type;
    } rows[] = {
        {"ANIM_begin\n" + roll + "ANIM_begin\n" + pitch, TouchInteractionType::YokePrimary},
        {"ANIM_begin\n" + roll + "ATTR_manip_command hand a\n" + pitch, TouchInteractionType::Tap},
        {"ANIM_begin\n" + roll, TouchInteractionType::None},
        {roll + roll + "ANIM_begin\n" + pitch, TouchInteractionType::None},
        {"ANIM_begin\n" + roll + "ANIM_trans_begin a/FC_ptch\nANIM_trans_end\n", TouchInteractionType::None},
    };
    for (const auto& row : rows) {
        SceneGraph graph(Model(row.lines + "TRIS 0 3\n"), Support::ModelCockpit(), nullptr);
        InteractionDetector().Detect(graph, Reading::Full);
        for (const auto& node : graph.Nodes())
            for (const auto& part : node->parts)
                EXPECT_EQ(part->InteractionType, row.type) << row.lines;
    }
    std::istringstream yoke(pitch), noStep("ANIM_trans_begin a/FC_ptch\nANIM_trans_end\nANIM_trans_key 0 0 0 0\n");
    EXPECT_TRUE(CanBeTouched(yoke));
    EXPECT_FALSE(CanBeTouched(noStep));
}

TEST(FullReading, KeepsTheNumbersOfThePlainReading) {
    const std::string simple = "ANIM_trans 0 0 0 0 0 1 0 1 simple\n",
                      keyed =
                          "ANIM_trans_begin keyed\nANIM_trans_key 0 0 0 0\nANIM_trans_key 1 0 1 0\nANIM_trans_end\n",
                      empty = "ANIM_rotate_begin 0 0 1 empty\nANIM_rotate_end\n";
    // Block 1 has the steps keyed, simple, keyed, simple; 2, below it, one of each; 3 only a keyed one.
    const std::string text = keyed + "ANIM_begin\n" + keyed + simple + keyed + simple + empty +
                             "TRIS 0 3\nANIM_begin\n" + simple + keyed + "TRIS 0 3\nANIM_end\nANIM_end\nANIM_begin\n" +
                             keyed +
                             "ATTR_draw_disable\nATTR_manip_push hand 0 1 a/b\nTRIS 0 3\nATTR_draw_enable\nTRIS 0 3\n";
    const ModelData plain = Model(text, Reading::Plain), full = Model(text);
    EXPECT_EQ(Places(plain), "25@4 32@2 44@3 ");
    EXPECT_EQ(Places(full), "25@4 32@2 44@3 42@3 "); // what only the full reading has comes last
    // Plain: 1 continues in 4, below which is 2. Full: 5 and 6 stand above 1, and 7 above 2.
    std::string chains;
    for (std::size_t i = 0; i < full.animations.size(); ++i)
        chains += full.animations[i].name + ">" + std::to_string(full.sceneElements.Children[i].Child) + " ";
    EXPECT_EQ(chains, "Dummy Animation>5 keyed>4 keyed>-1 keyed>-1 simple>7 keyed>6 simple>1 simple>2 ");
    EXPECT_EQ(full.sceneElements.Children[5].Peer, 3);
}

TEST(FullReading, RunsASliderFromTheFirstKeyToTheLast) {
    const struct {
        const char* name;
        std::string keys; ///< "value angle" or "value x", by ';'
        float position, at;
    } rows[] = {
        {"start", "-1 10;1 20;3 60", 0, 10},
        {"on a key", "-1 10;1 20;3 60", 0.5f, 20},
        {"between", "-1 10;1 20;3 60", 0.75f, 40},
        {"by value, not by line", "3 60;-1 10;1 20", 0.75f, 40},
        {"end", "3 60;-1 10;1 20", 1, 60},
        {"one key", "7 30", 0.3f, 30},
        {"keys of one value", "7 30;7 30", 0.3f, 30},
        {"a turn of 270 degrees goes through 135", "0 0;1 270", 0.5f, 135},
        {"half a turn goes its own way", "0 0;2 -180", 0.5f, -90},
    };
    for (const auto& row : rows) {
        std::string turn = "ANIM_begin\nANIM_rotate_begin 0 0 1 a\n", slide = "ANIM_begin\nANIM_trans_begin a\n";
        std::istringstream keys(row.keys);
        for (std::string key; std::getline(keys, key, ';');) {
            turn += "ANIM_rotate_key " + key + "\n";
            slide += "ANIM_trans_key " + key + " 0 0\n";
        }
        const auto moved = [&](const std::string& text) {
            const ModelData model = Model(text);
            Utils::Matrix4 m = Utils::Matrix4::Identity();
            ApplyAnimation(model.animations.at(1), m, row.position);
            return Utils::TransformPoint(Utils::Vector3(1, 0, 0), m);
        };
        EXPECT_NEAR(moved(slide).x(), 1 + row.at, 1e-3) << row.name;
        const float radians = row.at * std::numbers::pi_v<float> / 180;
        EXPECT_TRUE(moved(turn).isApprox(Utils::Vector3(std::cos(radians), std::sin(radians), 0), 1e-4f))
            << row.name << ": " << moved(turn);
    }
    const ModelAnimation loop =
        Model("ANIM_begin\nANIM_rotate_begin 0 0 1 a\nANIM_rotate_key 5 0\nANIM_rotate_key -2 720\n"
              "ANIM_keyframe_loop 360\nANIM_rotate_end\n")
            .animations.at(1);
    EXPECT_EQ((std::array{loop.rangeLow, loop.rangeHigh, loop.loop}), (std::array{-2.0f, 5.0f, 360.0f}));
    EXPECT_EQ(loop.tracks.at(0).size(), 6u); // five stretches of 144 degrees
    EXPECT_THROW(Model("ANIM_begin\nANIM_rotate_begin 0 0 1 a\nANIM_rotate_key 0 0\nANIM_rotate_key 1 1e9\n"),
                 Utils::OutOfRange);
}

} // namespace
} // namespace CockpitModel
