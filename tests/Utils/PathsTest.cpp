#include "Utils/Paths.h"

#include "Support/TemporaryFolder.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace fs = boost::filesystem;

namespace Utils {
namespace {

TEST(FindIgnoringCase, PrefersTheExactNameThenTheFirstInByteOrder) {
    const Support::TemporaryFolder folder;
    const Support::WorkingDirectory inside(folder.path);
    for (const char* file :
         {"Plane/Objects/a.png", "Plane/Objects/A.png", "Plane/Objects/b.PNG", "Plane/Objects/B.png",
          "Plane/Objects/\xC9.png", "Plane/back\\slash/In.png", "other/Plane.txt", "Dirs/x", "dirs/y"})
        folder.Write(file, "");
    fs::create_symlink("no such file", "Plane/Objects/C.png");
    folder.Write("Plane/Objects/c.PNG", "");
    const struct {
        std::string wanted, found;
    } rows[] = {
        {"PLANE/objects/a.png", "Plane/Objects/a.png"},
        {"Plane/Objects/a.PNG", "Plane/Objects/A.png"},
        {"Plane/Objects/C.png", "Plane/Objects/c.PNG"},
        {"Plane/Objects/\xE9.png", ""},
        {"Plane\\objects\\A.png", "Plane/Objects/A.png"},
        {"Plane/BACK\\slash/in.png", "Plane/back\\slash/In.png"},
        {"./plane/../PLANE/objects", "./Plane/../Plane/Objects"},
        {"Plane/Objects/a.png/b", ""},
        {"dirs/x", ""},
        {"DIRS/x", "Dirs/x"},
        {std::string("other/Plane.txt\0x", 17), ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(FindIgnoringCase(row.wanted).string(), row.found) << row.wanted;
    EXPECT_EQ(FindIgnoringCase(folder / "OTHER/plane.TXT"), folder / "other/Plane.txt");
    EXPECT_EQ(OnDiskCase("PLANE/objects/../Objects/B.PNG/new"), "Plane/Objects/../Objects/B.png/new");
}

TEST(Paths, KeepsUserDataWhereThePlatformSays) {
    const auto answer = [] {
        setenv("HOME", "/home/pilot", 1);
        setenv("XDG_DATA_HOME", "/data", 1);
        EXPECT_EQ(UserDataFolder(), "/data");
        setenv("XDG_DATA_HOME", "relative", 1); // to be ignored according to the platform's rules
        EXPECT_EQ(UserDataFolder(), "/home/pilot/.local/share");
        unsetenv("XDG_DATA_HOME");
        EXPECT_EQ(UserDataFolder(), "/home/pilot/.local/share");
        unsetenv("HOME");
        EXPECT_EQ(UserDataFolder(), "");
        std::_Exit(testing::Test::HasFailure() ? 1 : 0);
    };
    EXPECT_EXIT(answer(), testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace Utils
