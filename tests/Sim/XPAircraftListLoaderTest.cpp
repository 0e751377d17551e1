#include "Sim/XPAircraftListLoader.h"

#include "Sim/AcfFile.h"
#include "Sim/XPAircraftInfo.h"
#include "Support/TemporaryFolder.h"

#include <boost/filesystem.hpp>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

namespace fs = boost::filesystem;

namespace Sim {
namespace {

using Names = std::map<std::string, std::string>; ///< by path

Names NamesIn(const Support::TemporaryFolder& installation) {
    const Support::WorkingDirectory inside(installation.path);
    Names names;
    for (const auto& info : XPAircraftListLoader().LoadAircraftList())
        EXPECT_TRUE(names.emplace(info->acfPath, info->displayName).second) << info->acfPath << " twice";
    return names;
}

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

TEST(XPAircraftListLoader, FindsOnlyFilesThreeLevelsDown) {
    const Support::TemporaryFolder folder;
    EXPECT_EQ(NamesIn(folder), Names());
    for (const char* elsewhere :
         {"direct.acf", "Group/direct.acf", "Group/Plane/Sub/deep.acf", "Group/Plane/n.acf.txt"})
        folder.Write(std::string("Aircraft/") + elsewhere, "P acf/_descrip no");
    fs::create_directories(folder / "Aircraft/Group/Plane/folder.acf");
    EXPECT_EQ(NamesIn(folder), Names());
    folder.Write("Aircraft/Group/Plane/Blue Bird.v2.ACF", "I\r\nP acf/_descrip \t Blue   Bird\t\tII \r\n");
    folder.Write("Aircraft/Other Group/Nameless/x.acf", "P acf/_descrip\nP acf/_name Y");
    folder.Write("Aircraft/Other Group/Twice/x.acf", "P acf/_descrip One\nP acf/_descrip Two\n");
    EXPECT_EQ(NamesIn(folder), (Names{{"Aircraft/Group/Plane/Blue Bird.v2.ACF", "Blue Bird II"},
                                      {"Aircraft/Other Group/Nameless/x.acf", "x.acf"},
                                      {"Aircraft/Other Group/Twice/x.acf", "Two"}}));
}

TEST(XPAircraftListLoader, KeepsTheOrderInWhichFoldersListTheirEntries) {
    const Support::TemporaryFolder folder;
    for (const std::string group : {"b", "a", "d", "c", "f", "e"})
        for (const std::string plane : {"z", "x", "y", "w"})
            for (const std::string name : {"/k.acf", "/j.acf", "/l.acf"})
                folder.Write("Aircraft/" + group + "/" + plane + name, "");
    const Support::WorkingDirectory inside(folder.path);
    std::vector<std::string> wanted, found;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator("Aircraft")) {
        const std::string path = entry.path().string(), plane = entry.path().parent_path().string();
        if (fs::is_regular_file(entry) &&
            (wanted.empty() || !wanted.back().starts_with(plane))) // the first in a folder
            wanted.push_back(path);
    }
    for (const auto& info : XPAircraftListLoader().LoadAircraftList())
        found.push_back(info->acfPath);
    EXPECT_EQ(found, wanted);
}

TEST(XPAircraftListLoader, FollowsLinksAndSkipsDanglingOnes) {
    const Support::TemporaryFolder folder;
    const std::string plane = folder.Write("Hangar/Plane/p.acf", "P acf/_descrip Linked");
    fs::create_directories(folder / "Aircraft/G/Own");
    fs::create_symlink(folder / "Hangar/Plane", folder / "Aircraft/G/Plane");
    fs::create_symlink(plane, folder / "Aircraft/G/Own/q.acf");
    for (const std::string place : {"Aircraft/", "Aircraft/G/", "Aircraft/G/Own/"}) {
        fs::create_symlink("no such file", folder / (place + "nowhere.acf"));
        fs::create_symlink("circle.acf", folder / (place + "circle.acf"));
    }
    EXPECT_EQ(NamesIn(folder), (Names{{"Aircraft/G/Plane/p.acf", "Linked"}, {"Aircraft/G/Own/q.acf", "Linked"}}));
}

TEST(XPAircraftListLoader, PassesFileSystemErrorsOn) {
    const Support::TemporaryFolder folder;
    folder.Write("Aircraft", "a file");
    EXPECT_THROW(NamesIn(folder), fs::filesystem_error);
}

} // namespace
} // namespace Sim
