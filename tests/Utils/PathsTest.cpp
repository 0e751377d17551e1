#include "Utils/Paths.h"

#include "Logging/Logger.h"
#include "Support/TemporaryFolder.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/stat.h>

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
        {"plane/OBJECTS\\a.png", "Plane/Objects/a.png"},
        {"Plane/BACK\\slash/in.png", "Plane/back\\slash/In.png"},
        {"./plane/../PLANE/objects", "./Plane/../Plane/Objects"},
        {"Plane/Objects/a.png/b", ""},
        {"Plane/Objects/d.png", ""},
        {"dirs/x", ""},
        {"DIRS/x", "Dirs/x"},
        {"", ""},
        {std::string("other/Plane.txt\0x", 17), ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(FindIgnoringCase(row.wanted).string(), row.found) << row.wanted;
    EXPECT_EQ(FindIgnoringCase(folder / "OTHER/plane.TXT"), folder / "other/Plane.txt");
    EXPECT_EQ(OnDiskCase("PLANE/objects/../Objects/B.PNG/new"), "Plane/Objects/../Objects/B.png/new");
}

TEST(Paths, NamesAnAircraftsFilesAfterItsFolder) {
    EXPECT_EQ(FolderStem("Aircraft/G/Big.Jet 1.2/x.acf"), "Big.Jet 1");
    EXPECT_EQ(FolderStem("Aircraft/G/Plane./x.acf"), "Plane");
    EXPECT_EQ(FolderStem("x.acf"), "");
}

TEST(Paths, ReadsWholeFiles) {
    const Support::TemporaryFolder folder;
    const std::string bytes = std::string("a\0\r\n\x1A", 5) + std::string(300000, 'x');
    EXPECT_EQ(ReadFile(folder.Write("file", bytes)), bytes);
    EXPECT_EQ(ReadFile(folder.Write("empty", "")), "");

    // Files that would block a reader or exhaust memory are not opened.
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    fs::create_symlink("/dev/zero", folder / "zeros");
    fs::create_symlink("circle", folder / "circle");
    for (const char* name : {"pipe", "zeros", "circle", "missing", "."}) {
        EXPECT_EQ(ReadFile(folder / name), "") << name;
        EXPECT_FALSE(OpenFile(folder / name).is_open()) << name;
    }

    std::istringstream stream(bytes);
    stream.seekg(5);
    EXPECT_EQ(ReadAll(stream), std::string(300000, 'x'));
    for (const std::string& nothing : {folder / "missing", folder.path.string()}) {
        std::ifstream file(nothing);
        EXPECT_EQ(ReadAll(file), "") << nothing;
    }
}

TEST(Paths, LogsAFileThatIsTooLargeToBeRead) {
    const Support::TemporaryFolder folder;
    folder.Write("sparse", "x");
    fs::resize_file(folder / "sparse", kLargestFile + 1);
    const auto read = [&] {
        setenv("XDG_DATA_HOME", folder.path.c_str(), 1);
        Logging::Logger::Get().Start();
        EXPECT_EQ(ReadFile(folder / "sparse"), "");
        Logging::Logger::Get().Stop("");
        std::_Exit(testing::Test::HasFailure() ? 1 : 0);
    };
    EXPECT_EXIT(read(), testing::ExitedWithCode(0), ""); // there is one log per process
    EXPECT_TRUE(folder.Read("Vorelle/log.txt")
                    .ends_with("/sparse has 1073741825 bytes; a file of more than 1073741824 bytes is not read\n"));
}

TEST(Paths, ReadsStreamsOfUnknownSize) {
    struct Pipe : std::stringbuf {
        using std::stringbuf::basic_stringbuf;
        pos_type seekoff(off_type, std::ios::seekdir, std::ios::openmode) override { return -1; }
    };
    std::string text;
    for (int i = 0; i < 70'000; ++i)
        text += std::to_string(i);
    Pipe pipe(text);
    std::istream stream(&pipe);
    EXPECT_EQ(ReadAll(stream), text);
}

TEST(Paths, KeepsUserDataInThePlatformsFolder) {
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
