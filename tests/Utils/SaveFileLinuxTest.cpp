#include "Utils/SaveFile.h"

#include "Support/TemporaryFolder.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace Utils {

namespace {

namespace fs = boost::filesystem;

constexpr uid_t kNobody = 65534;
constexpr int kCannotTry = 77;

/// Forks a process that ends with the function's result.
pid_t Fork(const std::function<int()>& run) {
    const pid_t child = fork();
    if (child == 0)
        _exit(run());
    return child;
}

int ExitCode(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// In a child the test can only speak through its exit code: 0 when the save failed with these words.
int FailsWith(const std::string& path, const std::string& bytes, const char* words) {
    const SaveResult result = SaveFile(path, bytes);
    return !result && result.error.find(path) != std::string::npos && result.error.find(words) != std::string::npos ? 0
                                                                                                                    : 1;
}

std::vector<std::string> Names(const fs::path& folder) {
    std::vector<std::string> names;
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

using Strings = std::vector<std::string>;

} // namespace

TEST(SaveFile, MakesAndReplacesFiles) {
    const Support::TemporaryFolder folder;
    const std::string binary("a\0\r\n\xFF", 5);
    for (const std::string& bytes : {std::string("first"), binary, std::string(1 << 20, 'x'), std::string()}) {
        EXPECT_TRUE(SaveFile(folder / "f.xml", bytes));
        EXPECT_EQ(folder.Read("f.xml"), bytes);
    }
    const std::string longest(255, 'n');
    EXPECT_TRUE(SaveFile(folder / longest, "long"));
    EXPECT_EQ(folder.Read(longest), "long");
    EXPECT_EQ(Names(folder.path), (Strings{"f.xml", longest}));
}

TEST(SaveFile, KeepsTheMode) {
    const Support::TemporaryFolder folder;
    for (const mode_t mode : {0640u, 0666u, 0755u, 0600u}) {
        folder.Write("f", "old");
        chmod((folder / "f").c_str(), mode);
        EXPECT_TRUE(SaveFile(folder / "f", "new"));
        EXPECT_EQ(ModeOf(folder / "f"), mode);
    }
    const mode_t mask = umask(027);
    EXPECT_TRUE(SaveFile(folder / "g", "new"));
    umask(mask);
    EXPECT_EQ(ModeOf(folder / "g"), 0640u);
}

TEST(SaveFile, FollowsLinks) {
    const Support::TemporaryFolder folder;
    folder.Write("real/f", "old");
    fs::create_symlink("real/f", folder / "relative");
    fs::create_symlink(folder / "relative", folder / "absolute");
    fs::create_symlink("real/none-yet", folder / "dangling");
    EXPECT_TRUE(SaveFile(folder / "absolute", "new"));
    EXPECT_TRUE(SaveFile(folder / "dangling", "made"));
    EXPECT_EQ(folder.Read("real/f"), "new");
    EXPECT_EQ(folder.Read("real/none-yet"), "made");
    for (const char* link : {"relative", "absolute", "dangling"})
        EXPECT_TRUE(fs::is_symlink(folder / link)) << link;
    EXPECT_EQ(Names(folder.path / "real"), (Strings{"f", "none-yet"}));
}

TEST(SaveFile, WritesIntoDevicesAndPipes) {
    EXPECT_TRUE(SaveFile("/dev/null", "gone"));
    EXPECT_EQ(FailsWith("/dev/full", "text", "No space left"), 0);
    for (const char* device : {"/dev/null", "/dev/full"})
        EXPECT_EQ(fs::status(device).type(), fs::character_file) << device;
    const Support::TemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(SaveFile(folder / "pipe", "nobody reads"));
}

TEST(SaveFile, SaysWhatIsInTheWay) {
    const Support::TemporaryFolder folder;
    folder.Write("folder/inside", "kept");
    folder.Write("file", "kept");
    fs::create_symlink("loop", folder / "loop");
    const struct {
        const char* name;
        const char* words;
    } rows[] = {
        {"folder", "Is a directory"},  {"missing/f", "No such file"},
        {"file/f", "Not a directory"}, {"loop", "Too many levels of symbolic links"},
        {"", "Is a directory"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(FailsWith(folder / row.name, "new", row.words), 0) << row.name;
    EXPECT_FALSE(SaveFile("", "new"));
    EXPECT_FALSE(SaveFile(folder / std::string(256, 'n'), "new"));
    EXPECT_EQ(folder.Read("folder/inside"), "kept");
    EXPECT_EQ(folder.Read("file"), "kept");
    EXPECT_EQ(Names(folder.path), (Strings{"file", "folder", "loop"}));
}

TEST(SaveFile, LeavesTheOldFileWhenAFileMayNotGrow) {
    const Support::TemporaryFolder folder;
    const std::string path = folder.Write("f", "old");
    const pid_t child = Fork([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        return setrlimit(RLIMIT_FSIZE, &limit) ? kCannotTry : FailsWith(path, std::string(8192, 'x'), "File too large");
    });
    EXPECT_EQ(ExitCode(child), 0);
    EXPECT_EQ(folder.Read("f"), "old");
    EXPECT_EQ(Names(folder.path), Strings{"f"});
}

TEST(SaveFile, LeavesTheOldFileOnAFullFileSystem) {
    const Support::TemporaryFolder folder;
    // The mount lives in a name space of the child's own, and dies with it.
    const pid_t child = Fork([&] {
        if (unshare(CLONE_NEWNS) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
            return kCannotTry;
        mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
        if (mount("tmpfs", folder.path.c_str(), "tmpfs", 0, "size=64k") != 0)
            return kCannotTry;
        const std::string path = folder / "f";
        if (!SaveFile(path, "old") || FailsWith(path, std::string(1 << 20, 'x'), "No space left") != 0)
            return 1;
        if (folder.Read("f") != "old" || Names(folder.path) != Strings{"f"})
            return 2;
        return SaveFile(path, "new") && folder.Read("f") == "new" ? 0 : 3;
    });
    const int code = ExitCode(child);
    if (code == kCannotTry)
        GTEST_SKIP() << "a small file system cannot be mounted here";
    EXPECT_EQ(code, 0);
}

TEST(SaveFile, LeavesTheOldFileWithoutARight) {
    const Support::TemporaryFolder folder;
    const std::string inReadOnlyFolder = folder.Write("closed/f", "old");
    const std::string readOnly = folder.Write("open/f", "old");
    chmod(folder.path.c_str(), 0755);
    chmod(inReadOnlyFolder.c_str(), 0666);
    chmod((folder / "closed").c_str(), 0555);
    chmod(readOnly.c_str(), 0444);
    chmod((folder / "open").c_str(), 0777);
    const pid_t child = Fork([&] {
        if (geteuid() == 0 && setresuid(kNobody, kNobody, kNobody) != 0) // root needs no right
            return kCannotTry;
        return FailsWith(inReadOnlyFolder, "new", "Permission denied") +
               FailsWith(readOnly, "new", "Permission denied");
    });
    const int code = ExitCode(child);
    chmod((folder / "closed").c_str(), 0755);
    if (code == kCannotTry)
        GTEST_SKIP() << "root cannot give up its rights here";
    EXPECT_EQ(code, 0);
    EXPECT_EQ(folder.Read("closed/f"), "old");
    EXPECT_EQ(folder.Read("open/f"), "old");
    EXPECT_EQ(Names(folder.path / "closed"), Strings{"f"});
    EXPECT_EQ(Names(folder.path / "open"), Strings{"f"});
}

TEST(SaveFile, SweepsWhatTheDeadLeftAndSparesTheLiving) {
    const Support::TemporaryFolder folder;
    const pid_t dead = Fork([] { return 0; });
    ExitCode(dead);
    const std::string deadNumber = std::to_string(dead);
    const Strings spared = {".f.1.saving",
                            ".g." + deadNumber + ".saving",
                            ".f." + deadNumber + "x.saving",
                            ".f..saving",
                            ".f." + deadNumber,
                            ".f.-5.saving",
                            ".f.0.saving",
                            ".f.99999999999999.saving"};
    for (const std::string& name : spared)
        folder.Write(name, "spared");
    folder.Write(".f." + deadNumber + ".saving", "half");
    folder.Write(".f." + std::to_string(getpid()) + ".saving", "half"); // of an earlier process with this number
    EXPECT_TRUE(SaveFile(folder / "f", "new"));
    Strings expected = spared;
    expected.push_back("f");
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(Names(folder.path), expected);
}

TEST(SaveFile, AKillLeavesOneTextWhole) {
    const Support::TemporaryFolder folder;
    const std::string path = folder / "f";
    const std::string texts[] = {std::string(300'000, 'a'), std::string(200'000, 'b')};
    ASSERT_TRUE(SaveFile(path, texts[0]));
    std::mt19937 random(1);
    std::uniform_int_distribution<int> microseconds(0, 3000);
    for (int run = 0; run < 300; ++run) {
        const pid_t child = Fork([&]() -> int {
            for (int i = 0;; ++i)
                SaveFile(path, texts[i % 2]);
        });
        // Spreads the kills over all that a save does.
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
        kill(child, SIGKILL);
        ExitCode(child);
        const std::string found = folder.Read("f");
        ASSERT_TRUE(found == texts[0] || found == texts[1]) << "run " << run << ", size " << found.size();
    }
    EXPECT_TRUE(SaveFile(path, "last"));
    EXPECT_EQ(folder.Read("f"), "last");
    EXPECT_EQ(Names(folder.path), Strings{"f"});
}

TEST(SaveFile, ThreadsTakeTurns) {
    const Support::TemporaryFolder folder;
    std::atomic<int> failures = 0;
    std::vector<std::thread> threads;
    for (char letter : {'a', 'b', 'c', 'd'})
        threads.emplace_back([&, letter] {
            for (int i = 0; i < 20; ++i)
                failures += !SaveFile(folder / "f", std::string(10'000, letter));
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
    const std::string text = folder.Read("f");
    EXPECT_EQ(text, std::string(10'000, text.at(0)));
    EXPECT_EQ(Names(folder.path), Strings{"f"});
}

} // namespace Utils
