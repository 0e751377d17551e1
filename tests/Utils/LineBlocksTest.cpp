#include "Utils/LineBlocks.h"

#include <gtest/gtest.h>
#include <random>
#include <sstream>

namespace Utils {
namespace {

/// All blocks of a text joined; each must end with a line.
std::string Joined(const std::string& text) {
    std::istringstream stream(text);
    LineBlocks blocks(stream);
    std::string all;
    for (std::string_view block; blocks.Next(block); all += block)
        EXPECT_TRUE(block.ends_with('\n'));
    return all;
}

std::string Line(std::size_t length) {
    return std::string(length, 'x') + '\n';
}

TEST(LineBlocks, GivesEveryLineOnceAndEndsTheLast) {
    EXPECT_EQ(Joined(""), "");
    EXPECT_EQ(Joined("\n"), "\n");
    EXPECT_EQ(Joined("a"), "a\n");
    EXPECT_EQ(Joined(std::string("a\r\n\0\n", 5)), std::string("a\r\n\0\n", 5));
    for (std::size_t length = (64 << 10) - 12; length < (64 << 10) + 3; ++length) {
        EXPECT_EQ(Joined(Line(length)), Line(length)) << length;
        EXPECT_EQ(Joined(std::string(length, 'x')), Line(length)) << length;
        EXPECT_EQ(Joined("ab\n" + std::string(length, 'x')), "ab\n" + Line(length)) << length;
    }
    const std::string longer = Line(5) + Line(1000000) + Line(0) + Line(300000) + Line(7);
    EXPECT_EQ(Joined(longer), longer);

    std::mt19937 random(5);
    std::string text;
    while (text.size() < 1000000)
        text += Line(random() % (random() % 50 ? 80 : 40000));
    EXPECT_EQ(Joined(text), text);
}

TEST(LineBlocks, GivesNothingForAStreamThatIsNotOpen) {
    std::istringstream stream("a\n");
    stream.setstate(std::ios::failbit);
    std::string_view block;
    EXPECT_FALSE(LineBlocks(stream).Next(block));
}

} // namespace
} // namespace Utils
