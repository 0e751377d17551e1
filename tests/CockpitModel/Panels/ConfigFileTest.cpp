#include "CockpitModel/Panels/ConfigFile.h"

#include "CockpitModel/Panels/Gauge.h"

#include <gtest/gtest.h>
#include <sstream>

namespace CockpitModel {

namespace {

ConfigFile Read(const std::string& text, bool caseSensitive = false) {
    std::istringstream stream(text);
    return ConfigFile(stream, caseSensitive);
}

/// "section: key=value;" and so on, in order.
std::string Text(const ConfigFile& config) {
    std::string text;
    for (const auto& [name, table] : config.Sections()) {
        text += name + ":";
        for (const auto& [key, value] : table)
            text += " " + key + "=" + value + ";";
    }
    return text;
}

} // namespace

TEST(ConfigFile, ReadsSectionsAndKeys) {
    const std::pair<const char*, const char*> rows[] = {
        {"[One]\nKey = Some Value \n", "one: key=Some Value;"},
        {" \t[One]\r\n\v key=v\f\r\n", "one: key=v;"},
        {"[One]\na=1=2\na b = c\ndd==\n", "one: a=1=2; a b=c; dd==;"},
        {"[One]\nkey=", "one: key=;"},
        {"[One]\nbb=1\na =22\nB=3\nBB= 4\n", "one: bb=4; a=22;"},
        {"[Two]\nab=1\n[One]\ncd=2\n[TWO]\nef=3\n", "two: ab=1; ef=3;one: cd=2;"},
        {"before=1\n[One]\n#key=1\n=val\nnone\nk=1\n", "one:"},
        {"[One]\n[x]\nkey=1\n[broken\nkez=2\n[]\n", "one: key=1; kez=2;"},
        {"[One] tail\nkey=1\n", ""},
        {"[ a ]\nkey=1\n", " a : key=1;"},
        {"", ""},
    };
    for (const auto& [text, sections] : rows)
        EXPECT_EQ(Text(Read(text)), sections) << text;
    std::istringstream failed("[One]\nkey=1\n");
    failed.setstate(std::ios::failbit);
    EXPECT_EQ(Text(ConfigFile(failed, false)), "");
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
