#include "Utils/Files.h"

#include "Logging/Logger.h"
#include "Support/TemporaryFolder.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace fs = boost::filesystem;

namespace Utils {
namespace {

TEST(Files, ReadsWholeFiles) {
    const Support::TemporaryFolder folder;
    const std::string bytes = std::string("a\0\r\n\x1A", 5) + std::string(300000, 'x');
    EXPECT_EQ(ReadFile(folder.Write("file", bytes)), bytes);

    // What would keep a reader waiting or fill the memory is not opened.
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    fs::create_symlink("/dev/zero", folder / "zeros");
    fs::create_symlink("circle", folder / "circle");
    for (const char* name : {"pipe", "zeros", "circle", "missing", "."}) {
        EXPECT_EQ(ReadFile(folder / name), "") << name;
        EXPECT_FALSE(OpenFile(folder / name).is_open()) << name;
    }

    std::istringstream stream(bytes);
    EXPECT_EQ(ReadAll(stream.seekg(5)), std::string(300000, 'x'));
    std::ifstream missing(folder / "missing");
    EXPECT_EQ(ReadAll(missing), "");
}

TEST(Files, LogsAFileThatIsTooLargeToBeRead) {
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
    EXPECT_EXIT(read(), testing::ExitedWithCode(0), ""); // the log is one for a process
    EXPECT_TRUE(folder.Read("Vorelle/log.txt")
                    .ends_with("/sparse has 1073741825 bytes; a file of more than 1073741824 bytes is not read\n"));
}

TEST(Files, ReadsStreamsThatDoNotKnowTheirSize) {
    struct Pipe : std::stringbuf {
        using std::stringbuf::basic_stringbuf;
        pos_type seekoff(off_type, std::ios::seekdir, std::ios::openmode) override { return -1; }
    };
    const std::string text = std::string(300'000, 'x') + "end";
    Pipe pipe(text);
    std::istream stream(&pipe);
    EXPECT_EQ(ReadAll(stream), text);
}

} // namespace
} // namespace Utils
