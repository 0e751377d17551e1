// The workers are further processes of this program.
#include "Batch/Jobs/Jobs.h"

#include "Batch/Command.h"
#include "Batch/Jobs/Process.h"
#include "Sim/XPAircraftInfo.h"
#include "Support/TemporaryFolder.h"
#include "Support/TestMain.h"

#include <csignal>
#include <gmock/gmock.h>
#include <set>
#include <thread>
#include <unistd.h>
#ifdef _WIN32
#include <windows.h>
#endif

namespace Batch {
namespace {

using namespace std::chrono_literals;
using std::this_thread::sleep_for;
using testing::HasSubstr;

#ifdef _WIN32
constexpr const char* kAborted = "exit code 3 without a result";
bool Runs(unsigned long process) {
    return WaitForSingleObject(OpenProcess(SYNCHRONIZE, FALSE, process), 0) == WAIT_TIMEOUT;
}
#else
constexpr const char* kAborted = "signal 6 (Aborted)";
bool Runs(unsigned long process) {
    return kill(static_cast<pid_t>(process), 0) == 0;
}
#endif

/// The processes of the jobs that wrote a file, once for each file.
std::multiset<unsigned long> WorkersIn(const std::string& folder) {
    std::multiset<unsigned long> workers;
    for (const auto& entry : boost::filesystem::directory_iterator(folder))
        workers.insert(std::stoul(entry.path().filename().string()));
    return workers;
}

/// The aircraft's path selects what its job does; the input is a folder that all jobs share.
std::string Act(const Sim::AircraftInfo& aircraft, const std::string& folder) {
    static int served = 0;
    ++served;
    const std::string& path = aircraft.acfPath;
    if (path == "abort")
        std::abort();
    if (path == "exit")
        SendAnswer("R"), std::_Exit(7);
    if (path == "throw")
        throw std::runtime_error("no material");
    if (path == "memory")
        throw std::bad_alloc();
    if (path == "large")
        return std::string(3'000'000, 'x') + "\r\n\x1A" + path;
    if (path == "served")
        return std::to_string(served);
    std::ofstream(folder + "/" + std::to_string(getpid()) + "-" + std::to_string(served)) << path;
    if (path == "hang")
        sleep_for(1h);
    if (path.starts_with("wait ")) {
        while (WorkersIn(folder).size() < std::stoul(path.substr(5)))
            sleep_for(10ms);
        sleep_for(100ms); // for one file too many
    }
    return path + " of " + std::to_string(WorkersIn(folder).size());
}

class Jobs : public testing::Test {
protected:
    Jobs() { putenv(logs.data()); }

    std::vector<JobResult> Run(const std::vector<std::string>& paths, const JobLimits& limits, bool cancels = false) {
        aircraft.resize(paths.size());
        AircraftSelection selection;
        for (std::size_t i = 0; i < paths.size(); ++i) {
            aircraft[i].acfPath = paths[i];
            selection.push_back(&aircraft[i]);
        }
        std::vector<JobResult> results;
        const auto use = [&](JobResult&& result) {
            EXPECT_EQ(result.aircraft, &aircraft[results.size()]);
            results.push_back(std::move(result));
            if (cancels)
                throw CommandError(kNotWritten, "full");
        };
        RunJobs(selection, limits, use, folder.path.string());
        EXPECT_EQ(results.size(), paths.size());
        results.resize(paths.size());
        return results;
    }

    const Support::TemporaryFolder folder, data;
    std::string logs = "XDG_DATA_HOME=" + data.path.string();
    std::vector<Sim::XPAircraftInfo> aircraft;
};

TEST_F(Jobs, GiveTheirResultsInOrderAndNameTheAircraftThatFailed) {
    struct {
        std::string path, output, failure;
    } const rows[] = {
        {"large", std::string(3'000'000, 'x') + "\r\n\x1Alarge", "none"},
        {"exit", "", "exit code 7 without a result"},
        {"abort", "", kAborted},
        {"throw", "", "no material"},
        {"memory", "", "out of memory"},
        {"A b/\xC3\x9C\xE6\x97\xA5/\nc%d.acf", "A b/\xC3\x9C\xE6\x97\xA5/\nc%d.acf of ", "none"},
    };
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < 3 * std::size(rows); ++i)
        paths.push_back(rows[i % std::size(rows)].path);
    for (const std::size_t processes : {1, 3, 100}) {
        const std::vector<JobResult> results = Run(paths, {.processes = processes});
        for (std::size_t i = 0; i < results.size(); ++i) {
            const auto& row = rows[i % std::size(rows)];
            EXPECT_TRUE(results[i].output.starts_with(row.output)) << row.path << processes;
            EXPECT_THAT(results[i].failure.value_or("none"), HasSubstr(row.failure)) << row.path << processes;
        }
    }
}

TEST_F(Jobs, ShareAWorkerUntilOneFailsOrGivesNoAnswer) {
    const auto results =
        Run({"served", "served", "throw", "served", "hang", "served"}, {.processes = 1, .timeout = 3s});
    EXPECT_EQ(results[0].output + results[1].output + results[3].output + results[5].output, "1211");
    EXPECT_THAT(results[4].failure.value_or(""), HasSubstr("no answer within 3 s"));
}

TEST_F(Jobs, RunUpToTheLimitAndNotTooFarAfterASlowOne) {
    const std::size_t most = 2 * kMaxPendingPerWorker;
    std::vector<std::string> paths(40, "other");
    paths[0] = "wait " + std::to_string(most);
    EXPECT_EQ(Run(paths, {.processes = 2})[0].output, paths[0] + " of " + std::to_string(most));
    const std::multiset<unsigned long> workers = WorkersIn(folder.path.string());
    EXPECT_EQ(std::set(workers.begin(), workers.end()).size(), 2u);
}

TEST_F(Jobs, EndTheirWorkersWhenTheirResultsAreNotNeeded) {
    EXPECT_THROW(Run({"wait 2", "hang"}, {.processes = 2}, true), CommandError);
    for (const unsigned long worker : WorkersIn(folder.path.string()))
        EXPECT_FALSE(Runs(worker));
}

} // namespace
} // namespace Batch

int main(int argc, char** argv) {
    Batch::StartProcess(argc, argv);
    return Batch::IsWorker() ? Batch::ServeJobs(Batch::Act) : Support::RunTests(argc, argv);
}
