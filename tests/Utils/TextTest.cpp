#include "Utils/Text.h"

#include <gtest/gtest.h>

namespace Utils {
namespace {

using Views = std::vector<std::string_view>;

Views Lines(std::string_view text) {
    Views lines;
    for (std::string_view line; NextLine(text, line);)
        lines.push_back(line);
    return lines;
}

TEST(Text, EndsLinesAtLineFeeds) {
    using namespace std::string_view_literals;
    EXPECT_EQ(Lines(""), Views());
    EXPECT_EQ(Lines("a\r\n\r\n\nb\r"), (Views{"a", "", "", "b"}));
    EXPECT_EQ(Lines("a\rb\r\r\nc\n"), (Views{"a\rb\r", "c"}));
    EXPECT_EQ(Lines("\0\n\0"sv), (Views{"\0"sv, "\0"sv}));
}

TEST(Text, SplitsAtBlanksAndTabsAlone) {
    EXPECT_EQ(SplitBlanks(" \tP\t acf/_descrip  Sky\xA0X \r"), (Views{"P", "acf/_descrip", "Sky\xA0X", "\r"}));
    EXPECT_EQ(SplitBlanks(" \t"), Views());
    EXPECT_EQ(Trim("\t a b\v \t"), "a b\v");
    EXPECT_EQ(Trim(" \t "), "");
}

TEST(Text, LowersAsciiLettersAlone) {
    EXPECT_EQ(ToLowerAscii("AZaz@[`{09.ACF\xC9\xC3\x89"), "azaz@[`{09.acf\xC9\xC3\x89");
}

TEST(Text, ReplacesWhatIsNoUtf8) {
    const std::string bad = "\xEF\xBF\xBD";
    const struct {
        std::string text, readable;
    } rows[] = {
        {"\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x9B\xA9 \xF4\x8F\xBF\xBF",
         "\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x9B\xA9 \xF4\x8F\xBF\xBF"},
        {"Caf\xE9", "Caf" + bad},
        {"\xE9t\xE9", bad + "t" + bad},
        {"\xC0\xAF", bad + bad},                     // over-long "/"
        {"\xE0\x9F\xBF", bad + bad + bad},           // over-long
        {"\xED\xA0\x80", bad + bad + bad},           // a surrogate
        {"\xF4\x90\x80\x80", bad + bad + bad + bad}, // above U+10FFFF
        {"\xF0\x8F\xBF\xBF", bad + bad + bad + bad},
        {"\xE2\x82", bad + bad}, // cut short
        {"\xE2\x82z", bad + bad + "z"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ToValidUtf8(row.text), row.readable) << row.readable;
}

} // namespace
} // namespace Utils
