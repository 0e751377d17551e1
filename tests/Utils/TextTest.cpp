#include "Utils/Text.h"

#include "Utils/LineBlocks.h"

#include <gtest/gtest.h>
#include <sstream>

namespace Utils {
namespace {

using Views = std::vector<std::string_view>;

Views Lines(std::string_view text) {
    Views lines;
    for (std::string_view line; NextLine(text, line);)
        lines.push_back(line);
    return lines;
}

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

TEST(Text, EndsLinesAtLineFeeds) {
    EXPECT_EQ(Lines(""), Views());
    EXPECT_EQ(Lines("a\r\n\r\n\nb\r"), (Views{"a", "", "", "b"}));
    EXPECT_EQ(Lines("a\rb\r\r\nc\n"), (Views{"a\rb\r", "c"}));
}

TEST(Text, SplitsAtBlanksAndTabsAlone) {
    EXPECT_EQ(SplitBlanks(" \tP\t acf/_descrip  Sky\xA0X \r"), (Views{"P", "acf/_descrip", "Sky\xA0X", "\r"}));
    EXPECT_EQ(Trim("\t a b\v \t"), "a b\v");
    EXPECT_EQ(Trim(" \t "), "");
}

TEST(Text, LowersOnlyAsciiLetters) {
    EXPECT_EQ(ToLowerAscii("AZaz@[`{09.ACF\xC9\xC3\x89"), "azaz@[`{09.acf\xC9\xC3\x89");
}

TEST(Text, ReplacesInvalidUtf8) {
    const std::string bad = "\xEF\xBF\xBD";
    const struct {
        std::string text, readable;
    } rows[] = {
        {"\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x9B\xA9 \xF4\x8F\xBF\xBF",
         "\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x9B\xA9 \xF4\x8F\xBF\xBF"},
        {"Caf\xE9", "Caf" + bad},
        {"\xC0\xAF", bad + bad},                     // over-long "/"
        {"\xED\xA0\x80", bad + bad + bad},           // a surrogate
        {"\xF4\x90\x80\x80", bad + bad + bad + bad}, // above U+10FFFF
        {"\xE2\x82z", bad + bad + "z"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ToValidUtf8(row.text), row.readable) << row.readable;
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
