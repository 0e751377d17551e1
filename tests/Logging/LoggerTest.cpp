#include "Logging/Logger.h"

#include "Support/FatalErrorRecorder.h"
#include "Support/OwnProcess.h"
#include "Support/TemporaryFolder.h"
#include "Utils/FatalError.h"

#include <boost/algorithm/string.hpp>
#include <cstdlib>
#include <gmock/gmock.h>
#include <regex>
#include <sys/stat.h>
#include <thread>
#include <typeinfo>

namespace {

using Logging::Logger;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;

/// There is one log per process and a fatal error ends it, so each case runs in its own process with its own data
/// folder; it reports through that folder's files and its exit code.
class LoggerTest : public testing::Test {
protected:
    int InOwnProcess(const std::function<void()>& body) {
        return Support::ExitCode(Support::Fork([&] {
            setenv("XDG_DATA_HOME", data.path.c_str(), 1);
            body();
            return testing::Test::HasFailure() ? 1 : 0;
        }));
    }

    std::vector<std::string> LogLines() const {
        std::vector<std::string> lines;
        boost::split(lines, data.Read("Vorelle/log.txt"), [](char c) { return c == '\n'; });
        lines.pop_back();
        return lines;
    }

    std::vector<std::string> CrashLogs() const {
        std::vector<std::string> names;
        for (const auto& entry : boost::filesystem::directory_iterator(data.path / "Vorelle"))
            if (entry.path().filename() != "log.txt")
                names.push_back(entry.path().filename().string());
        return names;
    }

    Support::TemporaryFolder data;
};

TEST_F(LoggerTest, WritesFourColumnsInOrderAndOverwritesTheOldLog) {
    data.Write("Vorelle/log.txt", "of an earlier run\n");
    ASSERT_EQ(InOwnProcess([this] {
                  Logger::Get().Log("A\\B.cpp", 7, "queued before the start");
                  Logger::Get().Start();
                  Logger::Get().Log("A\\B.cpp", -1, "a\ttab");
                  Logger::Get().Log(HERE, Logging::TextureDescription{64, 32, 28, 40, 0, 1, 3});
                  const auto isWritten = [&] { return data.Read("Vorelle/log.txt").ends_with("Usage = 3}\n"); };
                  for (int wait = 0; wait < 1000 && !isWritten(); ++wait)
                      std::this_thread::sleep_for(std::chrono::milliseconds(10));
                  EXPECT_TRUE(isWritten()) << "lines are written before the stop";
                  Logger::Get().Stop("");
              }),
              0);
    // Seconds since the start; seconds of the day would be large enough to be written with e+.
    EXPECT_THAT(LogLines(),
                ElementsAre(MatchesRegex("[0-9.e-]+\t\tA\\\\B\\.cpp\t\t7\t\tqueued before the start"),
                            EndsWith("\t\tA\\B.cpp\t\t-1\t\ta\ttab"),
                            EndsWith("\t\tD3D11Tex { w = 64, h = 32, fmt = 28, BindFlags = 40, CPUAccessFlags = 0, "
                                     "MiscFlags = 1, Usage = 3}")));
}

TEST_F(LoggerTest, AcceptsLinesFromManyThreadsAndDropsThemAfterStop) {
    constexpr int kThreads = 8, kLines = 1000;
    ASSERT_EQ(InOwnProcess([] {
                  Logger::Get().Start();
                  std::vector<std::thread> threads;
                  for (int t = 0; t < kThreads; ++t)
                      threads.emplace_back([t] {
                          for (int i = 0; i < kLines; ++i)
                              Logger::Get().Log("T", t, std::to_string(i));
                      });
                  for (auto& thread : threads)
                      thread.join();
                  Logger::Get().Stop("copy.txt");
                  Logger::Get().Log("T", 0, "too late");
              }),
              0);
    std::vector<int> next(kThreads, 0);
    for (const std::string& line : LogLines()) {
        std::smatch match;
        ASSERT_TRUE(std::regex_match(line, match, std::regex(R"(.*\t\tT\t\t(\d)\t\t(\d+))"))) << line;
        EXPECT_EQ(std::stoi(match[2]), next[std::stoul(match[1])]++) << "lines of one thread keep their order";
    }
    EXPECT_EQ(next, std::vector<int>(kThreads, kLines));
    EXPECT_EQ(data.Read("Vorelle/copy.txt"), data.Read("Vorelle/log.txt"));
}

TEST_F(LoggerTest, FatalErrorKeepsACopyShowsTheTextAndThrows) {
    ASSERT_EQ(InOwnProcess([this] {
                  Logger::Get().Start();
                  Support::FatalErrorRecorder dialog;
                  errno = 13;
                  try {
                      Utils::FatalError("CockpitModel\\SceneGraph.cpp", 42);
                  } catch (const std::exception& error) {
                      EXPECT_TRUE(typeid(error) == typeid(std::exception)) << "and no derived class";
                  }
                  errno = 13;
                  EXPECT_THROW(Utils::FatalError("B.cpp", 2, -2147024809), std::exception);
                  data.Write("first", dialog.texts.at(0));
                  data.Write("second", dialog.texts.at(1));
              }),
              0);
    ASSERT_THAT(CrashLogs(), ElementsAre(MatchesRegex(R"(error-[0-9]{8}T[0-9]{6}\.txt)")));
    const std::string crashLog = "Vorelle/" + CrashLogs().front();
    const std::string logged = "Vorelle Fatal Error Encountered (W:13)\n"
                               "CockpitModel\\SceneGraph.cpp: Line 42\n"
                               "Please post this message to https://vorelle.example/support\n"
                               "Be sure to include what hardware, software, and versions you are running\n";
    const std::string attach = "\nBe sure to attach the crash-log: " + data / crashLog;
    EXPECT_EQ(data.Read("first"), logged + attach);
    EXPECT_THAT(
        data.Read("second"),
        AllOf(StartsWith("Vorelle Fatal Error Encountered (-2147024809, 13)\nB.cpp: Line 2\n"), EndsWith(attach)));
    EXPECT_THAT(data.Read("Vorelle/log.txt"), AllOf(HasSubstr("\t\tUtils\\Asserts.cpp\t\t"), EndsWith(logged + "\n")));
    EXPECT_EQ(data.Read(crashLog), data.Read("Vorelle/log.txt"));
}

TEST_F(LoggerTest, ObstaclesCostOnlyTheLog) {
    const struct {
        const char* name;
        std::function<bool()> prepare; ///< runs in the process
    } rows[] = {
        {"a file for a folder", [this] { return !data.Write("Vorelle", "in the way").empty(); }},
        {"a folder for the log", [this] { return boost::filesystem::create_directories(data / "Vorelle/log.txt"); }},
        {"a link to nowhere",
         [this] {
             boost::filesystem::create_directories(data / "Vorelle");
             return symlink("no/such/file", (data / "Vorelle/log.txt").c_str()) == 0;
         }},
        {"no home", [] { return unsetenv("XDG_DATA_HOME") == 0 && unsetenv("HOME") == 0; }},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(InOwnProcess([&] {
                      boost::filesystem::create_directories(data / "working");
                      boost::filesystem::current_path(data / "working");
                      ASSERT_TRUE(row.prepare());
                      Logger::Get().Start();
                      Logger::Get().Log(HERE, "nowhere to be written");
                      const Support::FatalErrorRecorder dialog;
                      EXPECT_THROW(Utils::FatalError("A.cpp", 7), std::exception);
                      EXPECT_THAT(dialog.texts, ElementsAre(HasSubstr("A.cpp: Line 7\n")));
                      EXPECT_TRUE(boost::filesystem::is_empty(".")) << "it logs to the working directory";
                  }),
                  0)
            << row.name;
        boost::filesystem::remove_all(data.path / "Vorelle");
    }
}

/// If the log is a pipe, the writer waits at its start for a reader.
TEST_F(LoggerTest, NeverBlocksCallers) {
    constexpr std::size_t kLines = 200'000;
    boost::filesystem::create_directories(data / "Vorelle");
    ASSERT_EQ(mkfifo((data / "Vorelle/log.txt").c_str(), 0600), 0);
    ASSERT_EQ(InOwnProcess([&] {
                  Logger::Get().Start();
                  for (std::size_t i = 0; i < kLines; ++i)
                      Logger::Get().Log("T", 1, std::string(200, 'x'));
                  std::thread reader([&] {
                      std::ifstream log(data / "Vorelle/log.txt");
                      std::size_t lines = 0;
                      for (std::string line; std::getline(log, line);)
                          ++lines;
                      EXPECT_EQ(lines, kLines);
                  });
                  Logger::Get().Stop("");
                  reader.join();
              }),
              0);
}

} // namespace
