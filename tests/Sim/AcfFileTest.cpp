#include "Sim/AcfFile.h"

#include "Support/Sanitizers.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace Sim {
namespace {

TEST(AcfFile, FindsKeysOnlyInPropertyLines) {
    using namespace std::string_literals;
    const struct {
        std::string text, value;
    } rows[] = {
        {"P key one\nP key two\n", "two"},
        {"P key one\nP key \t\r\n", "one"},
        {" \tP\t \tkey\tone  two \t", "one  two"},
        {"p key one", ""},
        {"P keys one", ""},
        {"Pkey one", ""},
        {"\rP key one", ""},
        {"P keykey key\nP\tkey one", "one"},
        {"\0\0P key one\nx\0\nP key t\0o"s, "t\0o"s},
        {"P key \xE9t\xE9\r", "\xE9t\xE9"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(LastAcfProperty(row.text, "key"), row.value) << row.text;
}

TEST(AcfFile, ReadsAFileFromItsEnd) {
    const std::string line = "P key " + std::string(100'000, 'x'), filler(65'530, '\n');
    for (const std::string& after : {std::string(), filler, filler + line.substr(5), line.substr(5) + filler})
        for (const std::string& before : {std::string("P key one\n"), filler}) {
            std::istringstream file(before + line + '\n' + after);
            EXPECT_EQ(LastAcfProperty(file, "key"), line.substr(6)) << before.size() << ' ' << after.size();
        }
}

TEST(AcfFile, ReturnsEachLineOfAKeyInOrder) {
    std::vector<std::string> values;
    ForEachAcfProperty("P key 1\nP key\nP other 2\nP key 3 4\nP key key", "key",
                       [&](std::string_view value) { values.emplace_back(value); });
    EXPECT_EQ(values, (std::vector<std::string>{"1", "3 4", "key"}));
}

} // namespace
} // namespace Sim
