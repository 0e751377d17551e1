// The jobs run in further processes of this program, each of which runs the job of its aircraft.
#include "Batch/Command.h"
#include "Batch/Jobs/Jobs.h"
#include "Batch/Jobs/Process.h"
#include "Sim/XPAircraftInfo.h"
#include "Support/TestMain.h"

#include <boost/filesystem/operations.hpp>
#include <cstdlib>
#include <gmock/gmock.h>
#include <windows.h>

namespace Batch {
namespace {

using testing::HasSubstr;

/// The aircraft's path selects what its job does.
std::string Act(const Sim::AircraftInfo& aircraft) {
    const std::string& path = aircraft.acfPath;
    if (path == "abort")
        std::abort();
    if (path == "crash")
        RaiseException(static_cast<DWORD>(EXCEPTION_ACCESS_VIOLATION), EXCEPTION_NONCONTINUABLE, 0, nullptr);
    if (path == "kill")
        TerminateProcess(GetCurrentProcess(), 7);
    if (path == "sleep")
        Sleep(INFINITE);
    if (path == "throw")
        throw std::runtime_error("no material");
    if (path == "memory")
        throw std::bad_alloc();
    if (path == "large")
        return std::string(3'000'000, 'x') + "\r\n\x1A" + path;
    return path + " from " + boost::filesystem::current_path().filename().string();
}

class JobPool : public testing::Test {
protected:
    std::vector<JobResult> Run(const std::vector<std::string>& paths, std::size_t processes) {
        aircraft.resize(paths.size());
        AircraftSelection selection;
        for (std::size_t i = 0; i < paths.size(); ++i) {
            aircraft[i].acfPath = paths[i];
            selection.push_back(&aircraft[i]);
        }
        std::vector<JobResult> results;
        RunJobs(selection, processes, Act, [&](JobResult&& result) { results.push_back(std::move(result)); });
        return results;
    }

    std::vector<Sim::XPAircraftInfo> aircraft;
};

TEST_F(JobPool, GivesResultsInOrderAndReportsHowEachProcessFailed) {
    const std::string place = " from " + boost::filesystem::current_path().filename().string();
    const std::string odd = "A b/\xC3\x9C\xE6\x97\xA5/c%d.acf";
    struct {
        const char* path;
        std::string output, failure;
    } const rows[] = {
        {"large", std::string(3'000'000, 'x') + "\r\n\x1Alarge", ""},
        {"first", "first" + place, ""},
        {"abort", "", "exit code 3 without a result"},
        {"crash", "", "exit code 0xC0000005 without a result"},
        {"kill", "", "exit code 7 without a result"},
        {"throw", "", "no material"},
        {"memory", "", "out of memory"},
        {odd.c_str(), odd + place, ""},
    };
    std::vector<std::string> paths;
    for (const auto& row : rows)
        paths.push_back(row.path);
    for (const std::size_t processes : {1, 3}) {
        const std::vector<JobResult> results = Run(paths, processes);
        ASSERT_EQ(results.size(), std::size(rows));
        for (std::size_t i = 0; i < results.size(); ++i) {
            EXPECT_EQ(results[i].aircraft, &aircraft[i]);
            EXPECT_EQ(results[i].output, rows[i].output) << paths[i];
            EXPECT_THAT(results[i].failure.value_or(""), HasSubstr(rows[i].failure)) << paths[i];
            EXPECT_EQ(results[i].failure.has_value(), !rows[i].failure.empty()) << paths[i];
        }
    }
}

TEST_F(JobPool, EndsItsProcessesWhenTheirResultsAreNotNeeded) {
    Sim::XPAircraftInfo first, second;
    first.acfPath = "first";
    second.acfPath = "sleep";
    EXPECT_THROW(RunJobs({&first, &second}, 2, Act, [](JobResult&&) { throw CommandError(kNotWritten, "full"); }),
                 CommandError);
}

} // namespace
} // namespace Batch

int main(int argc, char** argv) {
    const std::vector<std::string> arguments = Batch::StartProcess(argc, argv);
    if (const std::string* path = Batch::JobAircraft()) {
        Sim::XPAircraftInfo aircraft;
        aircraft.acfPath = *path;
        Batch::RunJobs({&aircraft}, 1, Batch::Act, {});
    }
    return Support::RunTests(argc, argv);
}
