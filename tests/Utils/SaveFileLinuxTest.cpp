#include "Utils/SaveFile.h"

#include "Support/OwnProcess.h"
#include "Support/TemporaryFolder.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

namespace Utils {

namespace {

namespace fs = boost::filesystem;

using Strings = std::vector<std::string>;
using Support::ExitCode;
using Support::Fork;

bool FailsWith(const std::string& path, const std::string& bytes, const char* words) {
    const SaveResult result = SaveFile(path, bytes);
    return !result && result.error.starts_with("Cannot save " + path + ": ") &&
           result.error.find(words) != std::string::npos;
}

Strings Names(const fs::path& folder) {
    Strings names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

mode_t ModeOf(const std::string& path) {
    struct stat status {};
    stat(path.c_str(), &status);
    return status.st_mode & 07777;
}

} // namespace

TEST(SaveFile, CreatesAndReplacesFilesAndKeepsTheirMode) {
    const Support::TemporaryFolder folder;
    const std::string longest(255, 'n');
    for (const std::string& bytes : {std::string("a\0\r\n\xFF", 5), std::string(1 << 20, 'x'), std::string()})
        for (const std::string& name : {std::string("f"), longest}) {
            EXPECT_TRUE(SaveFile(folder / name, bytes));
            EXPECT_EQ(folder.Read(name), bytes);
        }
    for (const mode_t mode : {0666u, 0755u}) {
        chmod((folder / "f").c_str(), mode);
        EXPECT_TRUE(SaveFile(folder / "f", "new"));
        EXPECT_EQ(ModeOf(folder / "f"), mode);
    }
    const mode_t mask = umask(027);
    EXPECT_TRUE(SaveFile(folder / "g", "new"));
    umask(mask);
    EXPECT_EQ(ModeOf(folder / "g"), 0640u);
    EXPECT_EQ(Names(folder.path), (Strings{"f", "g", longest}));
}

TEST(SaveFile, FollowsLinks) {
    const Support::TemporaryFolder folder;
    folder.Write("real/f", "old");
    fs::create_symlink("real/f", folder / "relative");
    fs::create_symlink(folder / "relative", folder / "absolute");
    fs::create_symlink("real/none-yet", folder / "dangling");
    for (const char* link : {"absolute", "dangling"}) {
        EXPECT_TRUE(SaveFile(folder / link, "new"));
        EXPECT_EQ(folder.Read(link), "new");
        EXPECT_TRUE(fs::is_symlink(folder / link)) << link;
    }
    EXPECT_EQ(Names(folder.path / "real"), (Strings{"f", "none-yet"}));
}

TEST(SaveFile, ReportsTheReasonOfAFailure) {
    const Support::TemporaryFolder folder;
    const std::string inside = folder.Write("folder/inside", "kept"), file = folder.Write("file", "kept");
    fs::create_symlink("loop", folder / "loop");
    const std::string pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::pair<std::string, const char*> rows[] = {
        {folder / "folder", "Is a directory"},
        {folder / "missing/f", "No such file"},
        {folder / "loop", "Too many levels of symbolic links"},
        {pipe, "No such device"}, // no reader
        {"/dev/full", "No space left"},
    };
    for (const auto& [path, words] : rows)
        EXPECT_TRUE(FailsWith(path, "new", words)) << path;
    EXPECT_TRUE(SaveFile("/dev/null", "gone"));
    EXPECT_EQ(fs::status("/dev/null").type(), fs::character_file);
    EXPECT_EQ(folder.Read("folder/inside") + folder.Read("file"), "keptkept");
    EXPECT_EQ(Names(folder.path), (Strings{"file", "folder", "loop", "pipe"}));
}

TEST(SaveFile, LeavesTheOldFileIfTheSizeLimitIsReached) {
    const Support::TemporaryFolder folder;
    const std::string path = folder.Write("f", "old");
    const pid_t child = Fork([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        return setrlimit(RLIMIT_FSIZE, &limit) != 0 || !FailsWith(path, std::string(8192, 'x'), "File too large");
    });
    EXPECT_EQ(ExitCode(child), 0);
    EXPECT_EQ(folder.Read("f"), "old");
    EXPECT_EQ(Names(folder.path), Strings{"f"});
}

TEST(SaveFile, LeavesTheOldFileWithoutPermission) {
    const Support::TemporaryFolder folder;
    const std::string inReadOnlyFolder = folder.Write("closed/f", "old");
    const std::string readOnly = folder.Write("open/f", "old");
    chmod(folder.path.c_str(), 0755);
    chmod(inReadOnlyFolder.c_str(), 0666);
    chmod((folder / "closed").c_str(), 0555);
    chmod(readOnly.c_str(), 0444);
    chmod((folder / "open").c_str(), 0777);
    const int code = ExitCode(Fork([&] {
        if (!Support::BecomeNobody())
            return 2;
        const char* const words = "Permission denied";
        return FailsWith(inReadOnlyFolder, "new", words) && FailsWith(readOnly, "new", words) ? 0 : 1;
    }));
    chmod((folder / "closed").c_str(), 0755);
    ASSERT_EQ(code, 0);
    for (const std::string place : {"closed", "open"}) {
        EXPECT_EQ(folder.Read(place + "/f"), "old");
        EXPECT_EQ(Names(folder.path / place), Strings{"f"});
    }
}

TEST(SaveFile, RemovesOnlyTemporariesOfDeadProcesses) {
    const Support::TemporaryFolder folder;
    const pid_t dead = Fork([] { return 0; });
    ExitCode(dead);
    const std::string deadNumber = std::to_string(dead);
    Strings expected = {".f.1.saving", // of process 1, which is running
                        ".g." + deadNumber + ".saving",
                        ".f." + deadNumber + "x.saving",
                        ".f..saving",
                        ".f.-5.saving",
                        ".f.99999999999999.saving"};
    for (const std::string& name : expected)
        folder.Write(name, "spared");
    folder.Write(".f." + deadNumber + ".saving", "half");
    folder.Write(".f." + std::to_string(getpid()) + ".saving", "half"); // of an earlier process with this id
    EXPECT_TRUE(SaveFile(folder / "f", "new"));
    expected.push_back("f");
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(Names(folder.path), expected);
}

TEST(SaveFile, AKillLeavesOneTextComplete) {
    const Support::TemporaryFolder folder;
    const std::string path = folder / "f";
    const std::string texts[] = {std::string(300'000, 'a'), std::string(200'000, 'b')};
    ASSERT_TRUE(SaveFile(path, texts[0]));
    int changed = 0; // on a loaded machine a child may need more time before its first save
    for (int run = 0; run < 300 || (changed == 0 && run < 3000); ++run) {
        const pid_t child = Fork([&]() -> int {
            for (int i = 0;; ++i)
                SaveFile(path, texts[i % 2]);
        });
        // Spreads the kills over all steps of a save.
        std::this_thread::sleep_for(std::chrono::microseconds(run * 10));
        kill(child, SIGKILL);
        ExitCode(child);
        const std::string found = folder.Read("f");
        ASSERT_TRUE(found == texts[0] || found == texts[1]) << "run " << run << ", size " << found.size();
        changed += found == texts[1];
    }
    EXPECT_GT(changed, 0) << "no kill hit a save";
    EXPECT_TRUE(SaveFile(path, "last"));
    EXPECT_EQ(folder.Read("f"), "last");
    EXPECT_EQ(Names(folder.path), Strings{"f"});
}

} // namespace Utils
