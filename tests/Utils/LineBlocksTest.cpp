#include "Utils/LineBlocks.h"

#include <gtest/gtest.h>
#include <sstream>

namespace Utils {
namespace {

/// All blocks of a text joined; each must end with a line.
std::string Joined(const std::string& text, std::ios::iostate state = std::ios::goodbit) {
    std::istringstream stream(text);
    stream.setstate(state);
    LineBlocks blocks(stream);
    std::string all;
    for (std::string_view block; blocks.Next(block); all += block)
        EXPECT_TRUE(block.ends_with('\n'));
    return all;
}

std::string Line(std::size_t length) {
    return std::string(length, 'x') + '\n';
}

TEST(LineBlocks, ReturnsEveryLineOnceAndTerminatesTheLast) {
    EXPECT_EQ(Joined(""), "");
    EXPECT_EQ(Joined("a"), "a\n");
    EXPECT_EQ(Joined("a\n", std::ios::failbit), "") << "a file that could not be opened";
    EXPECT_EQ(Joined(std::string("a\r\n\0\n", 5)), std::string("a\r\n\0\n", 5));
    for (std::size_t length = (64 << 10) - 12; length < (64 << 10) + 3; ++length) {
        EXPECT_EQ(Joined(Line(length)), Line(length)) << length;
        EXPECT_EQ(Joined("ab\n" + std::string(length, 'x')), "ab\n" + Line(length)) << length;
    }
    std::string text = Line(5) + Line(1'000'000) + Line(0) + Line(300'000);
    for (std::size_t i = 0; i < 10'000; ++i)
        text += Line(i * 7919 % (i % 50 ? 80 : 40'000));
    EXPECT_EQ(Joined(text), text);
}

} // namespace
} // namespace Utils
