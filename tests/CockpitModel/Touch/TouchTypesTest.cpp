#include "CockpitModel/Touch/TouchTypes.h"

#include <exception>
#include <gtest/gtest.h>

namespace CockpitModel {

TEST(TouchTypes, ReadsAndWritesEachWord) {
    const char* const words[] = {"None", "Tap", "Twist", "Move", "Radio", "YokePart", "YokePrimary"};
    for (std::uint32_t value = 0; value < std::size(words); ++value) {
        EXPECT_EQ(TouchInteractionTypeFromText(words[value]), TouchInteractionType{value});
        EXPECT_EQ(TouchInteractionTypeToText(TouchInteractionType{value}), words[value]);
    }
    EXPECT_EQ(TouchInteractionTypeFromText("Push"), TouchInteractionType::Tap);
    const char* const eventWords[] = {"Wheel", "LClick/RClick", "LClick/LClick"};
    for (std::uint32_t value = 0; value < std::size(eventWords); ++value) {
        EXPECT_EQ(TouchEventTypeFromText(eventWords[value]), TouchEventType{value});
        EXPECT_EQ(TouchEventTypeToText(TouchEventType{value}), eventWords[value]);
    }
}

TEST(TouchTypes, RejectsOtherWordsAndValues) {
    for (const char* word : {"tap", "", "push", "Tap ", "LClick/RClick", "YokePrimaryX"})
        EXPECT_THROW(TouchInteractionTypeFromText(word), std::exception) << word;
    for (const char* word : {"wheel", "", "LClickRClick", "Tap"})
        EXPECT_THROW(TouchEventTypeFromText(word), std::exception) << word;
    EXPECT_THROW(TouchInteractionTypeToText(TouchInteractionType{7}), std::exception);
    EXPECT_THROW(TouchEventTypeToText(TouchEventType{3}), std::exception);
}

} // namespace CockpitModel
