#include "CockpitModel/Touch/MouseFlags.h"

namespace CockpitModel {

namespace {

struct NamedFlag {
    std::uint32_t mask;
    bool MouseFlagSet::*field;
    const char* name;
};

/// In the order of the text.
constexpr NamedFlag kNamedFlags[] = {
    {MouseFlag::All, &MouseFlagSet::All, "All"},
    {MouseFlag::Leave, &MouseFlagSet::Leave, "Leave"},
    {MouseFlag::MoveRepeat, &MouseFlagSet::MoveRepeat, "MoveRepeat"},
    {MouseFlag::WheelDown, &MouseFlagSet::WheelDown, "WheelDown"},
    {MouseFlag::WheelUp, &MouseFlagSet::WheelUp, "WheelUp"},
    {MouseFlag::WheelSkip, &MouseFlagSet::WheelSkip, "WheelSkip"},
    {MouseFlag::WheelFlip, &MouseFlagSet::WheelFlip, "WheelFlip"},
    {MouseFlag::LeftRelease, &MouseFlagSet::LeftRelease, "LeftRelease"},
    {MouseFlag::MiddleRelease, &MouseFlagSet::MiddleRelease, "MiddleRelease"},
    {MouseFlag::RightRelease, &MouseFlagSet::RightRelease, "RightRelease"},
    {MouseFlag::DownRepeat, &MouseFlagSet::DownRepeat, "DownRepeat"},
    {MouseFlag::Move, &MouseFlagSet::Move, "Move"},
    {MouseFlag::LeftDrag, &MouseFlagSet::LeftDrag, "LeftDrag"},
    {MouseFlag::MiddleDrag, &MouseFlagSet::MiddleDrag, "MiddleDrag"},
    {MouseFlag::RightDrag, &MouseFlagSet::RightDrag, "RightDrag"},
    {MouseFlag::LeftSingle, &MouseFlagSet::LeftSingle, "LeftSingle"},
    {MouseFlag::MiddleSingle, &MouseFlagSet::MiddleSingle, "MiddleSingle"},
    {MouseFlag::RightSingle, &MouseFlagSet::RightSingle, "RightSingle"},
};

} // namespace

MouseFlagSet DecodeMouseFlags(std::uint32_t word) {
    MouseFlagSet flags;
    for (const NamedFlag& flag : kNamedFlags)
        flags.*flag.field = (word & flag.mask) != 0;
    return flags;
}

std::string MouseFlagsToText(const MouseFlagSet& flags) {
    std::string text;
    for (const NamedFlag& flag : kNamedFlags) {
        if (!(flags.*flag.field))
            continue;
        if (!text.empty())
            text += ',';
        text += flag.name;
    }
    return text.empty() ? "None" : text;
}

} // namespace CockpitModel
