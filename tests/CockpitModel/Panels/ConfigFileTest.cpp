#include "CockpitModel/Panels/ConfigFile.h"

#include "CockpitModel/Panels/Gauge.h"

#include <gtest/gtest.h>
#include <sstream>

namespace CockpitModel {

namespace {

using Sections = std::map<std::string, ConfigFile::Table>;

ConfigFile Read(const std::string& text, bool caseSensitive = false) {
    std::istringstream stream(text);
    return ConfigFile(stream, caseSensitive);
}

} // namespace

TEST(ConfigFile, ReadsSectionsAndKeys) {
    const std::pair<const char*, Sections> rows[] = {
        {"[One]\nKey = Some Value \n", {{"one", {{"key", "Some Value"}}}}},
        {" \t[One]\r\n\v key=v\f\r\n", {{"one", {{"key", "v"}}}}},
        {"[One]\na=1=2\na b = c\ndd==\n", {{"one", {{"a", "1=2"}, {"a b", "c"}, {"dd", "="}}}}},
        {"[One]\nkey=", {{"one", {{"key", ""}}}}},
        {"[One]\na=1\na =22\nA= 333\n", {{"one", {{"a", "333"}}}}},
        {"[One]\nab=1\n[Two]\ncd=2\n[ONE]\nef=3\n", {{"one", {{"ab", "1"}, {"ef", "3"}}}, {"two", {{"cd", "2"}}}}},
        {"before=1\n[One]\n#key=1\n=val\nnone\nk=1\n", {{"one", {}}}},
        {"[One]\n[x]\nkey=1\n[broken\nkez=2\n[]\n", {{"one", {{"key", "1"}, {"kez", "2"}}}}},
        {"[One] tail\nkey=1\n", {}},
        {"[ a ]\nkey=1\n", {{" a ", {{"key", "1"}}}}},
        {"", {}},
    };
    for (const auto& [text, sections] : rows)
        EXPECT_EQ(Read(text).Sections(), sections) << text;
    std::istringstream failed("[One]\nkey=1\n");
    failed.setstate(std::ios::failbit);
    EXPECT_TRUE(ConfigFile(failed, false).Sections().empty());
}

TEST(ConfigFile, LooksNamesUpAsItStoresThem) {
    const ConfigFile folded = Read("[One]\nKey=Value\n");
    EXPECT_EQ(folded.Get("ONE", "kEY"), "Value");
    EXPECT_EQ(folded.Get("one", "other"), std::nullopt);
    EXPECT_EQ(folded.Get("two", "key"), std::nullopt);
    EXPECT_EQ(folded.Section("oNe"), (ConfigFile::Table{{"key", "Value"}}));
    EXPECT_TRUE(folded.Section("two").empty());
    const ConfigFile exact = Read("[One]\nKey=Value\n[one]\nKey=Other\n", true);
    EXPECT_EQ(exact.Get("One", "Key"), "Value");
    EXPECT_EQ(exact.Get("one", "Key"), "Other");
    EXPECT_EQ(exact.Get("One", "key"), std::nullopt);
}

TEST(ParseGaugeLine, ReadsNamesPositionAndSize) {
    const auto sizeText = [](const std::optional<float>& size) {
        return size ? std::to_string(static_cast<int>(*size)) : "-";
    };
    const std::pair<const char*, const char*> rows[] = {
        {"Bendix!Radio, 10, 20", "bendix!radio at 10 20, - -"},
        {" A ! B c ,-1.5,+2e1,3,4", "a!b c at -1.5 20, 3 4"},
        {"a!b,,x,7px,\t8 9", "a!b at 0 0, 7 8"},
        {"a!b,1e99,nan,inf,0x10", "a!b at 0 0, 0 0"},
        {"noname,1,2", "! at 1 2, - -"},
        {"a!b!c,1,2", "! at 1 2, - -"},
        {"a!b,1,2,3", "! at 0 0, - -"},
        {"a!b,1,2,3,4,5", "! at 0 0, - -"},
        {"a!b", "! at 0 0, - -"},
        {"", "! at 0 0, - -"},
    };
    for (const auto& [text, expected] : rows) {
        const GaugeLine line = ParseGaugeLine(text);
        std::ostringstream shown;
        shown << line.File << '!' << line.Name << " at " << line.X << ' ' << line.Y << ", " << sizeText(line.Width)
              << ' ' << sizeText(line.Height);
        EXPECT_EQ(shown.str(), expected) << text;
    }
}

} // namespace CockpitModel
