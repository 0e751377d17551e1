#include "CockpitModel/NodePart.h"
#include "CockpitModel/Touch/MouseRect.h"
#include "CockpitModel/Touch/MouseRectCallbacks.h"

#include <array>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>

namespace CockpitModel {

namespace {

using Calls = std::vector<std::string>;
using enum MouseEventKind;

constexpr std::uint32_t kLeftSingle = 0x20000000, kLeftRelease = 0x00020000;
constexpr std::uint32_t kRightSingle = 0x80000000, kRightRelease = 0x00080000;
constexpr std::uint32_t kWheelUp = 0x00004000, kWheelDown = 0x00002000;
constexpr std::uint32_t kEverything = 0xFFFFFFFF;

struct RecordingTarget final : MouseRectCallbackTarget {
    void RunCode(const std::string& code) override { calls.push_back(code); }
    void SendEvent(std::uint32_t eventNumber, std::uint32_t parameter) override {
        calls.push_back("event " + std::to_string(eventNumber) + " " + std::to_string(parameter));
    }
    void ToggleVariable(const std::string& variable, float a, float b) override {
        Note() << "toggle " << variable << ' ' << a << ' ' << b;
    }
    void SetVariable(const std::string& variable, float value) override {
        Note() << "set " << variable << ' ' << value;
    }

    Calls calls;

private:
    /// Becomes a call at the end of the statement.
    struct Line : std::ostringstream {
        explicit Line(Calls& calls) : calls(calls) {}
        ~Line() override { calls.push_back(str()); }
        Calls& calls;
    };
    Line Note() { return Line(calls); }
};

Calls Fired(const MouseRectCallbackEvent& callback, MouseEventKind kind, std::uint32_t flags = kEverything) {
    RecordingTarget target;
    MouseRect rect;
    rect.MouseFlags = flags;
    callback.Fire(target, rect, kind);
    return target.calls;
}

Calls Applied(const MouseRectCallbackVariable& callback, float value, const NodePart& part = NodePart()) {
    RecordingTarget target;
    MouseRect rect;
    rect.MouseFlags = kEverything;
    callback.Apply(target, rect, value, part);
    return target.calls;
}

/// What the mouse function of a gauge was given.
struct GaugeCall {
    std::array<unsigned char, 40> block;
    std::uint32_t flag;
};
std::vector<GaugeCall> gaugeCalls;

void RecordGaugeCall(void* arguments, std::uint32_t flag) {
    std::memcpy(gaugeCalls.emplace_back().block.data(), arguments, 40);
    gaugeCalls.back().flag = flag;
    std::memset(arguments, 0xEE, 40); // what a gauge leaves there does not reach the next call
}

} // namespace

TEST(CallbackCodeFire, NamesTheEventsThatTheRectangleTakes) {
    CallbackCode callback;
    callback.Code = "(M:Event) x (M:Event)";
    const auto run = [](const std::string& name) { return "'" + name + "' x '" + name + "'"; };
    const struct {
        MouseEventKind kind;
        std::uint32_t flags;
        Calls calls;
    } rows[] = {
        {LeftClick, kEverything, {run("LeftSingle"), run("LeftRelease")}},
        {LeftClick, kLeftRelease, {run("LeftRelease")}},
        {LeftClick, ~(kLeftSingle | kLeftRelease), {}},
        {RightClick, kEverything, {run("RightSingle"), run("RightRelease")}},
        {RightClick, kRightSingle, {run("RightSingle")}},
        {LeftPress, kEverything, {run("LeftSingle")}},
        {LeftPress, ~kLeftSingle, {}},
        {LeftRelease, kEverything, {run("LeftRelease")}},
        {WheelUp, kEverything, {run("WheelUp")}},
        {WheelUp, ~kWheelUp, {}},
        {WheelDown, kWheelDown, {run("WheelDown")}},
        {MouseEventKind{6}, kEverything, {run("WheelDown")}},
        {MouseEventKind{6}, ~kWheelDown, {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Fired(callback, row.kind, row.flags), row.calls) << static_cast<int>(row.kind) << ' ' << row.flags;
    callback.Code = "no event";
    EXPECT_EQ(Fired(callback, LeftClick), (Calls{"no event", "no event"}));
}

TEST(CallbackFSFuncFire, PassesTheArgumentBlockAndTheFlag) {
    CallbackFSFunc callback;
    EXPECT_TRUE(Fired(callback, LeftClick).empty());
    callback.Func = RecordGaugeCall;
    callback.ArgumentA = 0x1122334455667788;
    callback.ArgumentB = 0x0102030405060708;
    std::array<unsigned char, 40> expected{};
    for (unsigned char i = 0; i < 8; ++i) {
        expected[8 + i] = static_cast<unsigned char>(8 - i);
        expected[16 + i] = static_cast<unsigned char>(0x11 * (8 - i));
    }
    const struct {
        MouseEventKind kind;
        std::uint32_t flags;
        std::vector<std::uint32_t> passed;
    } rows[] = {
        {LeftClick, kEverything, {kLeftSingle, kLeftRelease}},
        {RightClick, kEverything, {kRightSingle, kRightRelease}},
        {LeftPress, kEverything, {kLeftSingle}},
        {LeftRelease, kEverything, {kLeftRelease}},
        {WheelUp, kEverything, {kWheelUp}},
        {WheelDown, kEverything, {kWheelDown}},
        {MouseEventKind{6}, kEverything, {}},
        {RightClick, kRightRelease, {kRightRelease}},
        {WheelDown, kWheelUp, {}},
    };
    for (const auto& row : rows) {
        gaugeCalls.clear();
        EXPECT_TRUE(Fired(callback, row.kind, row.flags).empty());
        std::vector<std::uint32_t> passed;
        for (const GaugeCall& call : gaugeCalls) {
            passed.push_back(call.flag);
            EXPECT_EQ(call.block, expected);
        }
        EXPECT_EQ(passed, row.passed) << static_cast<int>(row.kind) << ' ' << row.flags;
    }
}

TEST(CallbackFire, EventsAndTogglesTakeNoNoticeOfTheRectangle) {
    CallbackEventID event;
    event.EventID = 66587;
    const CallbackXPToggle toggle("sim/light", 0.5f, 2);
    for (const MouseEventKind kind : {LeftClick, WheelUp, MouseEventKind{9}}) {
        EXPECT_EQ(Fired(event, kind, 0), Calls{"event 66587 0"});
        EXPECT_EQ(Fired(toggle, kind, 0), Calls{"toggle sim/light 0.5 2"});
    }
}

TEST(CallbackApply, SetsVariables) {
    const CallbackXPVariable variable("sim/flap", -1, 3);
    EXPECT_EQ(Applied(variable, 0), Calls{"set sim/flap -1"});
    EXPECT_EQ(Applied(variable, 0.25f), Calls{"set sim/flap 0"});
    EXPECT_EQ(Applied(variable, 1), Calls{"set sim/flap 3"});
    CallbackDraggingCode code;
    code.Code = "L:Throttle1Position";
    const struct {
        float value;
        const char* number;
    } rows[] = {{0.425f, "42"},  {1, "100"},
                {-0.005f, "0"},  {0.999f, "99"},
                {-1.5f, "-150"}, {std::numeric_limits<float>::quiet_NaN(), "0"},
                {0.29f, "29"},   {std::numeric_limits<float>::infinity(), "0"}};
    for (const auto& row : rows)
        EXPECT_EQ(Applied(code, row.value), Calls{std::string(row.number) + " (>L:Throttle1Position,percent)"});
}

TEST(CallbackJumpDraggingApply, TurnsADragIntoSteps) {
    const auto more = std::make_shared<CallbackCode>(), less = std::make_shared<CallbackCode>();
    more->Code = "more (M:Event)";
    less->Code = "less (M:Event)";
    CallbackJumpDragging jump;
    jump.PositiveCallback = more;
    jump.NegativeCallback = less;
    const Calls up = {"more 'WheelUp'"}, down = {"less 'WheelDown'"};
    const struct {
        std::int32_t xDelta, yDelta;
        bool reverse;
        float value;
        Calls calls;
    } rows[] = {
        {1, 0, false, 2, up}, {1, 0, false, -2, down},  {1, 0, true, 2, down},   {-1, 0, false, 2, down},
        {-1, 0, true, 2, up}, {0, -1, false, 2, down},  {0, -1, true, -2, down}, {-1, -1, false, -2, up},
        {1, 0, false, 0, up}, {1, 0, false, -0.0f, up}, {-1, 0, false, 0, up},   {0, 0, true, 0, up},
    };
    for (const auto& row : rows) {
        jump.XDelta = row.xDelta, jump.YDelta = row.yDelta;
        NodePart part;
        part.Reverse = row.reverse;
        EXPECT_EQ(Applied(jump, row.value, part), row.calls)
            << row.xDelta << ' ' << row.yDelta << ' ' << row.reverse << ' ' << row.value;
    }
}

TEST(CallbackJumpDraggingApply, TakesTheEventsOfThePart) {
    const auto more = std::make_shared<CallbackCode>(), less = std::make_shared<CallbackCode>();
    more->Code = "more (M:Event)";
    less->Code = "less (M:Event)";
    CallbackJumpDragging jump;
    jump.PositiveCallback = more;
    jump.NegativeCallback = less;
    const struct {
        TouchEventType type;
        Calls positive, negative;
    } rows[] = {
        {TouchEventType::Wheel, {"more 'WheelUp'"}, {"less 'WheelDown'"}},
        {TouchEventType::LClickRClick,
         {"more 'LeftSingle'", "more 'LeftRelease'"},
         {"less 'RightSingle'", "less 'RightRelease'"}},
        {TouchEventType::LClickLClick,
         {"more 'LeftSingle'", "more 'LeftRelease'"},
         {"less 'LeftSingle'", "less 'LeftRelease'"}},
        {TouchEventType{7}, {"more 'WheelUp'"}, {"less 'WheelDown'"}},
    };
    for (const auto& row : rows) {
        NodePart part;
        part.EventType = row.type;
        EXPECT_EQ(Applied(jump, 1, part), row.positive);
        EXPECT_EQ(Applied(jump, -1, part), row.negative);
    }
    jump.NegativeCallback = nullptr;
    EXPECT_TRUE(Applied(jump, -1).empty());
}

} // namespace CockpitModel
