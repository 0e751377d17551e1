#include "CockpitModel/Touch/MouseRect.h"

#include "CockpitModel/Touch/MouseFlags.h"

#include <gtest/gtest.h>
#include <sstream>

namespace CockpitModel {

namespace {

constexpr std::uint32_t kBothWheels = 0x6000;

std::shared_ptr<CallbackCode> Code(const std::string& text) {
    auto callback = std::make_shared<CallbackCode>();
    callback->Code = text;
    return callback;
}

MouseRect RectWith(std::shared_ptr<MouseRectCallbackEvent> callback, std::uint32_t flags = kBothWheels,
                   std::uint32_t type = 1) {
    MouseRect rect;
    rect.MouseFlags = flags;
    rect.CallbackType = type;
    rect.EventCallback = std::move(callback);
    return rect;
}

template <typename Dumped>
std::string DumpOf(const Dumped& dumped) {
    std::ostringstream stream;
    dumped.Dump(stream, "> ");
    return stream.str();
}

} // namespace

TEST(MouseFlags, NamesEachBitInOrder) {
    const struct {
        int bit;
        std::string name;
    } bits[] = {
        {10, "All"},        {11, "Leave"},        {12, "MoveRepeat"},  {13, "WheelDown"},     {14, "WheelUp"},
        {15, "WheelSkip"},  {16, "WheelFlip"},    {17, "LeftRelease"}, {18, "MiddleRelease"}, {19, "RightRelease"},
        {21, "DownRepeat"}, {22, "Move"},         {23, "LeftDrag"},    {24, "MiddleDrag"},    {25, "RightDrag"},
        {29, "LeftSingle"}, {30, "MiddleSingle"}, {31, "RightSingle"},
    };
    std::string all;
    std::uint32_t unnamed = 0xFFFFFFFF;
    for (const auto& [bit, name] : bits) {
        EXPECT_EQ(MouseFlagsToText(DecodeMouseFlags(1u << bit)), name);
        all += (all.empty() ? "" : ",") + name;
        unnamed &= ~(1u << bit);
    }
    EXPECT_EQ(MouseFlagsToText(DecodeMouseFlags(0xFFFFFFFF)), all);
    for (const std::uint32_t word : {0u, unnamed, 0x00100000u, 0x04000000u})
        EXPECT_EQ(MouseFlagsToText(DecodeMouseFlags(word)), "None") << word;
    EXPECT_EQ(MouseFlagsToText(DecodeMouseFlags(0xA0000000)), "LeftSingle,RightSingle");
    EXPECT_EQ(MouseFlagsToText(DecodeMouseFlags(0x00006000)), "WheelDown,WheelUp");
}

TEST(ConvertWheelToJump, LeavesOtherRectanglesAlone) {
    const MouseRect rects[] = {
        RectWith(Code("(M:Event) 'LeftSingle' scmp")),
        RectWith(Code("WheelUp"), 0x2000),
        RectWith(Code("WheelUp"), 0x4000),
        RectWith(Code("WheelUp"), kBothWheels, 2),
        RectWith(Code("WheelUp"), 0, 1),
        RectWith(nullptr),
    };
    for (const MouseRect& before : rects) {
        MouseRect rect = before;
        ConvertWheelToJump(rect);
        EXPECT_EQ(rect.CallbackType, before.CallbackType);
        EXPECT_EQ(rect.EventCallback, before.EventCallback);
        EXPECT_EQ(rect.VariableCallback, nullptr);
    }
}

TEST(ConvertWheelToJump, StepsWithTheCallbackItHad) {
    const struct {
        std::shared_ptr<MouseRectCallbackEvent> callback;
        bool keepsEvent;
    } rows[] = {
        {Code("WheelUp only"), false},
        {Code("WheelDown only"), false},
        {Code("WheelUp or LeftSingle"), true},
        {Code("WheelDown or LeftRelease"), true},
        {std::make_shared<CallbackEventID>(), true},
        {std::make_shared<CallbackFSFunc>(), true},
    };
    for (const auto& row : rows) {
        MouseRect rect = RectWith(row.callback);
        ConvertWheelToJump(rect);
        EXPECT_EQ(rect.CallbackType, 3u);
        EXPECT_EQ(rect.EventCallback, row.keepsEvent ? row.callback : nullptr);
        const auto* jump = dynamic_cast<CallbackJumpDragging*>(rect.VariableCallback.get());
        ASSERT_NE(jump, nullptr);
        EXPECT_EQ(jump->PositiveCallback, row.callback);
        EXPECT_EQ(jump->NegativeCallback, row.callback);
        EXPECT_EQ(jump->XDelta, 1);
        EXPECT_EQ(jump->YDelta, 0);
        EXPECT_FALSE(jump->TwoCallbacks);
    }
}

TEST(MouseRectDump, ShowsFieldsAndCallbacks) {
    MouseRect rect;
    rect.Tooltip = "Flaps";
    rect.TooltipID = -3;
    rect.CursorID = 7;
    rect.HelpID = 8;
    rect.MouseFlags = 0xA0000000;
    EXPECT_EQ(DumpOf(rect), "> MouseRect:\n"
                            ">     Tooltip: Flaps/-3\n"
                            ">     CursorID: 7\n"
                            ">     HelpID: 8\n"
                            ">     MouseFlags: LeftSingle,RightSingle\n"
                            ">     CallbackType: 0\n");
    rect.DragVector = Utils::Vector3(0.07f, 0.0f, -1.5f);
    rect.CallbackType = 3;
    rect.EventCallback = Code("go");
    rect.VariableCallback = std::make_shared<CallbackXPVariable>("sim/a", -0.5f, 1.0f);
    const std::string text = DumpOf(rect);
    EXPECT_EQ(text.substr(text.find(">     DragVector")), ">     DragVector: 0.07, 0, -1.5\n"
                                                          ">     CallbackType: 3\n"
                                                          ">         CallbackCode:\n"
                                                          ">             Code: go\n"
                                                          ">         CallbackXPVariable:\n"
                                                          ">             Var: sim/a\n"
                                                          ">             Min: -0.5\n"
                                                          ">             Max: 1\n");
}

TEST(MouseRectDump, ShowsEachCallbackClass) {
    CallbackEventID event;
    event.EventID = 4294967295u;
    EXPECT_EQ(DumpOf(event), "> CallbackEventID: 4294967295\n");
    EXPECT_EQ(DumpOf(CallbackXPToggle("sim/b", 0.25f, 2.0f)),
              "> CallbackXPToggle:\n>     Var: sim/b\n>     ValA: 0.25\n>     ValB: 2\n");
    EXPECT_EQ(DumpOf(CallbackFSFunc()), "> CallbackFSunc:\n>     Func: 0\n");
    EXPECT_EQ(DumpOf(CallbackDraggingCode()), "");
    CallbackJumpDragging jump;
    jump.XDelta = 1;
    jump.YDelta = -2;
    jump.NegativeCallback = Code("hidden");
    EXPECT_EQ(DumpOf(jump), "> CallbackJumpDragging:\n>     XDelta: 1\n>     YDelta: -2\n");
    jump.PositiveCallback = Code("up");
    EXPECT_EQ(DumpOf(jump), "> CallbackJumpDragging:\n>     XDelta: 1\n>     YDelta: -2\n"
                            ">     CallbackCode:\n>         Code: up\n");
}

} // namespace CockpitModel
