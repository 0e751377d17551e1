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

TEST(ConvertWheelToJump, StepsWithTheCallbackOfBothWheelEvents) {
    enum Outcome { Untouched, Converted, ConvertedButForClicks };
    const struct {
        MouseRect rect;
        Outcome outcome;
    } rows[] = {
        {RectWith(Code("(M:Event) 'LeftSingle' scmp")), Untouched},
        {RectWith(Code("WheelUp"), 0x2000), Untouched},
        {RectWith(Code("WheelUp"), 0x4000), Untouched},
        {RectWith(Code("WheelUp"), kBothWheels, 2), Untouched},
        {RectWith(nullptr), Untouched},
        {RectWith(Code("WheelUp only")), Converted},
        {RectWith(Code("WheelDown only")), Converted},
        {RectWith(Code("WheelUp or LeftSingle")), ConvertedButForClicks},
        {RectWith(Code("WheelDown or LeftRelease")), ConvertedButForClicks},
        {RectWith(std::make_shared<CallbackEventID>()), ConvertedButForClicks},
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
        if (!jump)
            continue;
        EXPECT_TRUE(jump->PositiveCallback == callback && jump->NegativeCallback == callback) << i;
        EXPECT_EQ(std::tuple(jump->XDelta, jump->YDelta, jump->TwoCallbacks), std::tuple(1, 0, false)) << i;
    }
}

TEST(MouseRectDump, ShowsFieldsAndCallbacks) {
    MouseRect rect;
    rect.Tooltip = "Flaps";
    rect.TooltipID = -3;
    rect.CursorID = 7;
    rect.HelpID = 8;
    rect.MouseFlags = 0xA0000000;
    const std::string top = "> MouseRect:\n"
                            ">     Tooltip: Flaps/-3\n"
                            ">     CursorID: 7\n"
                            ">     HelpID: 8\n"
                            ">     MouseFlags: LeftSingle,RightSingle\n";
    EXPECT_EQ(DumpOf(rect), top + ">     CallbackType: 0\n");
    rect.DragVector = Utils::Vector3(0.07f, 0.0f, -1.5f);
    rect.CallbackType = 3;
    rect.EventCallback = Code("go");
    rect.VariableCallback = std::make_shared<CallbackXPVariable>("sim/a", -0.5f, 1.0f);
    EXPECT_EQ(DumpOf(rect), top + ">     DragVector: 0.07, 0, -1.5\n"
                                  ">     CallbackType: 3\n"
                                  ">         CallbackCode:\n"
                                  ">             Code: go\n"
                                  ">         CallbackXPVariable:\n"
                                  ">             Var: sim/a\n"
                                  ">             Min: -0.5\n"
                                  ">             Max: 1\n");
}

} // namespace CockpitModel
