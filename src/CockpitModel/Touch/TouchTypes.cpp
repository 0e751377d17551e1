#include "CockpitModel/Touch/TouchTypes.h"

#include <exception>
#include <span>

namespace CockpitModel {

namespace {

template <typename Value>
struct Word {
    Value value;
    std::string_view text;
};

constexpr Word<TouchInteractionType> kInteractionWords[] = {
    {TouchInteractionType::None, "None"},
    {TouchInteractionType::Tap, "Tap"},
    {TouchInteractionType::Twist, "Twist"},
    {TouchInteractionType::Move, "Move"},
    {TouchInteractionType::Radio, "Radio"},
    {TouchInteractionType::YokePart, "YokePart"},
    {TouchInteractionType::YokePrimary, "YokePrimary"},
    // An alias that files may contain; never written, because the first match is used.
    {TouchInteractionType::Tap, "Push"},
};

constexpr Word<TouchEventType> kEventWords[] = {
    {TouchEventType::Wheel, "Wheel"},
    {TouchEventType::LClickRClick, "LClick/RClick"},
    {TouchEventType::LClickLClick, "LClick/LClick"},
};

template <typename Value>
Value ValueOf(std::span<const Word<Value>> words, std::string_view text) {
    for (const Word<Value>& word : words)
        if (word.text == text)
            return word.value;
    throw std::exception();
}

template <typename Value>
std::string TextOf(std::span<const Word<Value>> words, Value value) {
    for (const Word<Value>& word : words)
        if (word.value == value)
            return std::string(word.text);
    throw std::exception();
}

} // namespace

TouchInteractionType TouchInteractionTypeFromText(std::string_view text) {
    return ValueOf<TouchInteractionType>(kInteractionWords, text);
}

std::string TouchInteractionTypeToText(TouchInteractionType type) {
    return TextOf<TouchInteractionType>(kInteractionWords, type);
}

TouchEventType TouchEventTypeFromText(std::string_view text) {
    return ValueOf<TouchEventType>(kEventWords, text);
}

std::string TouchEventTypeToText(TouchEventType type) {
    return TextOf<TouchEventType>(kEventWords, type);
}

std::vector<TouchInteractionType> SelectableInteractionTypes() {
    using enum TouchInteractionType;
    return {None, Tap, Twist, Move, Radio};
}

std::vector<TouchEventType> SelectableEventTypes() {
    using enum TouchEventType;
    return {Wheel, LClickRClick, LClickLClick};
}

} // namespace CockpitModel
