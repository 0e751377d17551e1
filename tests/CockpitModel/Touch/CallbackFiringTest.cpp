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

constexpr std::uint32_t kEverything = 0xFFFFFFFF;

struct RecordingTarget final : MouseRectCallbackTarget {
    void RunCode(const std::string& code) override { calls.push_back(code); }
    void SendEvent(std::uint32_t eventNumber, std::uint32_t parameter) override {
        calls.push_back("event " + std::to_string(eventNumber) + " " + std::to_string(parameter));
    }
    void ToggleVariable(const std::string& variable, float a, float b) override {
        std::ostringstream text;
        text << "toggle " << variable << ' ' << a << ' ' << b;
        calls.push_back(text.str());
    }
    void SetVariable(const std::string& variable, float value) override {
        std::ostringstream text;
        text << "set " << variable << ' ' << value;
        calls.push_back(text.str());
    }

    Calls calls;
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

/// Arguments passed to the mouse function of a gauge.
using ArgumentBlock = std::array<unsigned char, 40>;
std::vector<std::pair<ArgumentBlock, std::uint32_t>> gaugeCalls;

void RecordGaugeCall(void* arguments, std::uint32_t flag) {
    std::memcpy(gaugeCalls.emplace_back().first.data(), arguments, 40);
    gaugeCalls.back().second = flag;
    std::memset(arguments, 0xEE, 40); // must not affect the next call
}

std::shared_ptr<CallbackCode> Code(const std::string& text) {
    auto callback = std::make_shared<CallbackCode>();
    callback->Code = text;
    return callback;
}

/// Steps up with the code "more" and down with "less", each with the event's name.
CallbackJumpDragging Jump(std::int32_t xDelta, std::int32_t yDelta) {
    CallbackJumpDragging jump;
    jump.PositiveCallback = Code("more (M:Event)");
    jump.NegativeCallback = Code("less (M:Event)");
    jump.XDelta = xDelta, jump.YDelta = yDelta;
    return jump;
}

struct NamedFlag {
    const char* name;
    std::uint32_t flag;
};
constexpr NamedFlag kLeftSingle{"LeftSingle", 0x20000000}, kLeftRelease{"LeftRelease", 0x00020000};
constexpr NamedFlag kRightSingle{"RightSingle", 0x80000000}, kRightRelease{"RightRelease", 0x00080000};
constexpr NamedFlag kWheelUp{"WheelUp", 0x00004000}, kWheelDown{"WheelDown", 0x00002000};

} // namespace

TEST(CallbackFire, CodeAndFunctionsHandleTheEventsThatTheRectangleAccepts) {
    const auto code = Code("(M:Event) x (M:Event)");
    CallbackFSFunc function;
    EXPECT_TRUE(Fired(function, LeftClick).empty()) << "no function";
    function.Func = RecordGaugeCall;
    function.ArgumentA = 0x1122334455667788;
    function.ArgumentB = 0x0102030405060708;
    ArgumentBlock block{};
    for (unsigned char i = 0; i < 8; ++i) {
        block[8 + i] = static_cast<unsigned char>(8 - i);
        block[16 + i] = static_cast<unsigned char>(0x11 * (8 - i));
    }
    const struct {
        MouseEventKind kind;
        std::uint32_t flags;
        std::vector<NamedFlag> events;
    } rows[] = {
        {LeftClick, kEverything, {kLeftSingle, kLeftRelease}},
        {LeftClick, kLeftRelease.flag, {kLeftRelease}},
        {LeftClick, ~(kLeftSingle.flag | kLeftRelease.flag), {}},
        {RightClick, kEverything, {kRightSingle, kRightRelease}},
        {LeftPress, kEverything, {kLeftSingle}},
        {LeftRelease, kEverything, {kLeftRelease}},
        {WheelUp, kEverything, {kWheelUp}},
        {WheelDown, kWheelDown.flag, {kWheelDown}},
    };
    for (const auto& row : rows) {
        Calls calls;
        std::vector<std::pair<ArgumentBlock, std::uint32_t>> passed;
        for (const auto& [name, flag] : row.events) {
            calls.push_back("'" + std::string(name) + "' x '" + name + "'");
            passed.emplace_back(block, flag);
        }
        EXPECT_EQ(Fired(*code, row.kind, row.flags), calls) << static_cast<int>(row.kind) << ' ' << row.flags;
        gaugeCalls.clear();
        EXPECT_TRUE(Fired(function, row.kind, row.flags).empty());
        EXPECT_EQ(gaugeCalls, passed) << static_cast<int>(row.kind) << ' ' << row.flags;
    }
    gaugeCalls.clear();
    EXPECT_EQ(Fired(*code, MouseEventKind{6}), Calls{"'WheelDown' x 'WheelDown'"});
    Fired(function, MouseEventKind{6});
    EXPECT_TRUE(gaugeCalls.empty()) << "an event of unknown kind";
}

TEST(CallbackApply, SetsVariables) {
    const CallbackXPVariable variable("sim/flap", -1, 3);
    EXPECT_EQ(Applied(variable, 0.25f), Calls{"set sim/flap 0"});
    EXPECT_EQ(Applied(variable, 1), Calls{"set sim/flap 3"});
    CallbackDraggingCode code;
    code.Code = "L:Throttle1Position";
    const std::pair<float, const char*> rows[] = {{0.425f, "42"},  {1, "100"},
                                                  {-0.005f, "0"},  {0.999f, "99"},
                                                  {-1.5f, "-150"}, {std::numeric_limits<float>::quiet_NaN(), "0"},
                                                  {0.29f, "29"},   {std::numeric_limits<float>::infinity(), "0"}};
    for (const auto& [value, number] : rows)
        EXPECT_EQ(Applied(code, value), Calls{std::string(number) + " (>L:Throttle1Position,percent)"});
}

TEST(CallbackJumpDraggingApply, ConvertsADragToSteps) {
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
        NodePart part;
        part.Reverse = row.reverse;
        EXPECT_EQ(Applied(Jump(row.xDelta, row.yDelta), row.value, part), row.calls)
            << row.xDelta << ' ' << row.yDelta << ' ' << row.reverse << ' ' << row.value;
    }
}

TEST(CallbackJumpDraggingApply, UsesTheEventTypeOfThePart) {
    const struct {
        TouchEventType type;
        Calls positive, negative;
    } rows[] = {
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
        EXPECT_EQ(Applied(Jump(0, 0), 1, part), row.positive);
        EXPECT_EQ(Applied(Jump(0, 0), -1, part), row.negative);
    }
    CallbackJumpDragging half = Jump(0, 0);
    half.NegativeCallback = nullptr;
    EXPECT_TRUE(Applied(half, -1).empty());
}

} // namespace CockpitModel
