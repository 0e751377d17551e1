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
        std::uint32_t word;
        const char* text;
    } rows[] = {
        {0, "None"},
        {0xA0000000, "LeftSingle,RightSingle"},
        {0x00006000, "WheelDown,WheelUp"},
        {0x1C1003FF, "None"},
        {0xFFFFFFFF, "All,Leave,MoveRepeat,WheelDown,WheelUp,WheelSkip,WheelFlip,LeftRelease,MiddleRelease,"
                     "RightRelease,DownRepeat,Move,LeftDrag,MiddleDrag,RightDrag,LeftSingle,MiddleSingle,RightSingle"},
        {0x00000400, "All"},
        {0x00018000, "WheelSkip,WheelFlip"},
        {0x000E0000, "LeftRelease,MiddleRelease,RightRelease"},
        {0x03E00000, "DownRepeat,Move,LeftDrag,MiddleDrag,RightDrag"},
        {0x40001800, "Leave,MoveRepeat,MiddleSingle"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(MouseFlagsToText(DecodeMouseFlags(row.word)), row.text) << std::hex << row.word;
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
