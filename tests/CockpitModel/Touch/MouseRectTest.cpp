#include "CockpitModel/Touch/MouseRect.h"

#include "CockpitModel/NodePart.h"
#include "CockpitModel/Touch/MouseRectCallbacks.h"

#include <cstring>
#include <gtest/gtest.h>
#include <sstream>

namespace CockpitModel {

namespace {

using enum MouseEventKind;

constexpr std::uint32_t kEverything = 0xFFFFFFFF, kBothWheels = 0x6000;

/// Shows each action as text that ends with "; ".
struct ActionLog final : MouseRectCallbackTarget {
    void RunCode(const std::string& code) override { text << code << "; "; }
    void SendEvent(std::uint32_t eventNumber, std::uint32_t parameter) override {
        text << "event " << eventNumber << ' ' << parameter << "; ";
    }
    void ToggleVariable(const std::string& variable, float a, float b) override {
        text << "toggle " << variable << ' ' << a << ' ' << b << "; ";
    }
    void SetVariable(const std::string& variable, float value) override {
        text << "set " << variable << ' ' << value << "; ";
    }

    std::ostringstream text;
};

MouseRect RectWith(std::shared_ptr<MouseRectCallbackEvent> callback, std::uint32_t flags = kBothWheels,
                   std::uint32_t type = 1) {
    MouseRect rect;
    rect.MouseFlags = flags;
    rect.CallbackType = type;
    rect.EventCallback = std::move(callback);
    return rect;
}

std::string Fired(const MouseRectCallbackEvent& callback, MouseEventKind kind, std::uint32_t flags = kEverything) {
    ActionLog log;
    callback.Fire(log, RectWith(nullptr, flags), kind);
    return log.text.str();
}

std::string Applied(const MouseRectCallbackVariable& callback, float value, const NodePart& part = NodePart()) {
    ActionLog log;
    callback.Apply(log, RectWith(nullptr, kEverything), value, part);
    return log.text.str();
}

std::shared_ptr<CallbackCode> Code(const std::string& text) {
    auto callback = std::make_shared<CallbackCode>();
    callback->Code = text;
    return callback;
}

} // namespace

TEST(MouseRectCallbacks, FireForEachStepThatTheRectangleAccepts) {
    const auto code = Code("(M:Event)");
    const struct {
        MouseEventKind kind;
        std::uint32_t flags;
        const char* actions;
    } rows[] = {
        {LeftClick, kEverything, "'LeftSingle'; 'LeftRelease'; "},
        {LeftClick, 0x00020000, "'LeftRelease'; "},
        {RightClick, kEverything, "'RightSingle'; 'RightRelease'; "},
        {LeftPress, kEverything, "'LeftSingle'; "},
        {WheelUp, kEverything, "'WheelUp'; "},
        {WheelDown, ~0x00002000u, ""},
        {MouseEventKind{6}, kEverything, "'WheelDown'; "}, // an unknown event
    };
    for (const auto& row : rows)
        EXPECT_EQ(Fired(*code, row.kind, row.flags), row.actions) << static_cast<int>(row.kind) << ' ' << row.flags;
    CallbackEventID event;
    event.EventID = 7;
    EXPECT_EQ(Fired(event, WheelUp), "event 7 0; ");
    EXPECT_EQ(Fired(CallbackXPToggle("sim/a", 0.5f, 2), LeftClick), "toggle sim/a 0.5 2; ");
}

TEST(MouseRectCallbacks, CallAGaugesFunctionWithItsArguments) {
    static std::vector<std::uint64_t> passed; // the function takes no context
    passed.clear();
    CallbackFSFunc function;
    Fired(function, LeftClick);
    function.Func = [](void* arguments, std::uint32_t flag) {
        passed.resize(passed.size() + 5);
        std::memcpy(&passed[passed.size() - 5], arguments, 40);
        passed.push_back(flag);
        std::memset(arguments, 0xEE, 40); // must not affect the next call
    };
    function.ArgumentA = 11;
    function.ArgumentB = 22;
    Fired(function, LeftClick);
    Fired(function, MouseEventKind{6});
    EXPECT_EQ(passed, (std::vector<std::uint64_t>{0, 22, 11, 0, 0, 0x20000000, 0, 22, 11, 0, 0, 0x00020000}));
}

TEST(MouseRectCallbacks, SetVariables) {
    EXPECT_EQ(Applied(CallbackXPVariable("sim/flap", -1, 3), 0.25f), "set sim/flap 0; ");
    CallbackDraggingCode code;
    code.Code = "L:A";
    for (const auto& [value, actions] :
         {std::pair(0.425f, "42 (>L:A,percent); "), {-1.5f, "-150 (>L:A,percent); "}, {1e30f, "0 (>L:A,percent); "}})
        EXPECT_EQ(Applied(code, value), actions);
}

TEST(MouseRectCallbacks, ConvertADragToSteps) {
    CallbackJumpDragging jump;
    jump.PositiveCallback = Code("more (M:Event)");
    jump.NegativeCallback = Code("less (M:Event)");
    const struct {
        std::int32_t xDelta, yDelta;
        bool reverse;
        float value;
        TouchEventType type;
        const char* actions;
    } rows[] = {
        {1, 0, false, -2, TouchEventType::Wheel, "less 'WheelDown'; "},
        {0, -1, true, 2, TouchEventType::Wheel, "more 'WheelUp'; "},
        {-1, 0, false, 0, TouchEventType::Wheel, "more 'WheelUp'; "},
        {0, 0, false, -1, TouchEventType::LClickRClick, "less 'RightSingle'; less 'RightRelease'; "},
        {0, 0, false, -1, TouchEventType::LClickLClick, "less 'LeftSingle'; less 'LeftRelease'; "},
    };
    for (const auto& row : rows) {
        NodePart part;
        part.Reverse = row.reverse;
        part.EventType = row.type;
        jump.XDelta = row.xDelta, jump.YDelta = row.yDelta;
        EXPECT_EQ(Applied(jump, row.value, part), row.actions) << row.xDelta << ' ' << row.yDelta << ' ' << row.value;
    }
    jump.NegativeCallback = nullptr;
    EXPECT_EQ(Applied(jump, -1), "");
}

TEST(ConvertWheelToJump, StepsWithTheCallbackOfBothWheelEvents) {
    enum Outcome { Untouched, Converted, ConvertedButForClicks };
    const struct {
        MouseRect rect;
        Outcome outcome;
    } rows[] = {
        {RectWith(Code("LeftSingle")), Untouched},
        {RectWith(Code("WheelUp"), 0x2000), Untouched},
        {RectWith(Code("WheelUp"), kBothWheels, 2), Untouched},
        {RectWith(nullptr), Untouched},
        {RectWith(Code("WheelDown only")), Converted},
        {RectWith(Code("WheelUp or LeftRelease")), ConvertedButForClicks},
        {RectWith(std::make_shared<CallbackFSFunc>()), ConvertedButForClicks},
    };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const auto callback = rows[i].rect.EventCallback;
        MouseRect rect = rows[i].rect;
        ConvertWheelToJump(rect);
        EXPECT_EQ(rect.EventCallback, rows[i].outcome == Converted ? nullptr : callback) << i;
        const auto* jump = dynamic_cast<CallbackJumpDragging*>(rect.VariableCallback.get());
        ASSERT_EQ(jump != nullptr, rows[i].outcome != Untouched) << i;
        EXPECT_EQ(rect.CallbackType, jump ? 3u : rows[i].rect.CallbackType) << i;
        if (jump) {
            EXPECT_EQ(std::tuple(jump->PositiveCallback, jump->NegativeCallback, jump->XDelta, jump->YDelta),
                      std::tuple(callback, callback, 1, 0))
                << i;
        }
    }
}

TEST(MouseRectDump, ShowsFieldsAndCallbacks) {
    MouseRect rect = RectWith(Code("go"), 0xA0000000, 3);
    rect.Tooltip = "Flaps";
    rect.TooltipID = -3;
    rect.CursorID = 7;
    rect.HelpID = 8;
    rect.DragVector = Utils::Vector3(0.07f, 0.0f, -1.5f);
    rect.VariableCallback = std::make_shared<CallbackXPVariable>("sim/a", -0.5f, 1.0f);
    std::ostringstream dump;
    rect.Dump(dump, "> ");
    EXPECT_EQ(dump.str(), "> MouseRect:\n"
                          ">     Tooltip: Flaps/-3\n"
                          ">     CursorID: 7\n"
                          ">     HelpID: 8\n"
                          ">     MouseFlags: LeftSingle,RightSingle\n"
                          ">     DragVector: 0.07, 0, -1.5\n"
                          ">     CallbackType: 3\n"
                          ">         CallbackCode:\n"
                          ">             Code: go\n"
                          ">         CallbackXPVariable:\n"
                          ">             Var: sim/a\n"
                          ">             Min: -0.5\n"
                          ">             Max: 1\n");
}

} // namespace CockpitModel
