#include "Batch/Jobs/Jobs.h"

#include "Batch/BatchProgram.h"
#include "Batch/Command.h"
#include "Batch/Jobs/JobResult.h"
#include "Batch/Jobs/ScopedSignalBlock.h"
#include "Sim/XPAircraftInfo.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <iostream>
#include <new>
#include <poll.h>
#include <unistd.h>

namespace Batch {
namespace {

using testing::HasSubstr;

class Jobs : public testing::Test {
protected:
    Jobs() { setenv("XDG_DATA_HOME", data.path.c_str(), 1); }

    Support::TemporaryFolder data; // for the log of the processes
};

std::size_t NumberOf(const Sim::AircraftInfo& aircraft) {
    return std::stoul(aircraft.displayName);
}

/// Results of jobs for aircraft named by numbers, in the order of arrival.
std::vector<JobResult> Results(std::size_t count, std::size_t processes, const Job& job) {
    std::vector<Sim::XPAircraftInfo> aircraft(count);
    AircraftSelection all;
    for (std::size_t i = 0; i < count; ++i) {
        aircraft[i].displayName = std::to_string(i);
        all.push_back(&aircraft[i]);
    }
    std::vector<JobResult> results;
    RunJobs(all, processes, job, [&](JobResult&& result) {
        EXPECT_EQ(NumberOf(*result.aircraft), results.size()) << processes;
        results.push_back(std::move(result));
    });
    EXPECT_EQ(results.size(), count) << processes;
    results.resize(count);
    return results;
}

TEST_F(Jobs, GiveTheirOutputInOrderForAnyNumberOfProcesses) {
    // Some are larger than a pipe's buffer, and the first ones take longer than those after them.
    const auto output = [](std::size_t index) {
        return std::string(index < 3 ? 3'000'000 : index, static_cast<char>('a' + index % 26));
    };
    for (const std::size_t processes : {1, 2, 7, 100}) {
        const std::vector<JobResult> results =
            Results(40, processes, [&](const Sim::AircraftInfo& aircraft) { return output(NumberOf(aircraft)); });
        for (std::size_t i = 0; i < results.size(); ++i)
            EXPECT_TRUE(results[i].output == output(i) && !results[i].failure) << i << " of " << processes;
    }
    EXPECT_TRUE(Results(0, 4, {}).empty());
}

TEST_F(Jobs, ReportHowEachProcessFailedAndKeepTheOthers) {
    // The pipe for the result is one of the files that a process opened for writing after the test began.
    const int firstFree = dup(0);
    close(firstFree);
    const auto beginAnswer = [firstFree] {
        for (int file = firstFree; file < firstFree + 8; ++file)
            if ((fcntl(file, F_GETFL) & O_ACCMODE) == O_WRONLY && write(file, "Rfi", 3) != 3)
                _exit(8);
    };
    const std::function<void()> ends[] = {
        [] {},
        [] { std::abort(); },
        [&] { beginAnswer(), raise(SIGKILL); },
        [] { throw std::runtime_error("no material"); },
        [] { _exit(7); },
        [] { throw std::bad_alloc(); },
        [] {},
    };
    const char* const failures[] = {
        "", "signal 6 (Aborted)", "signal 9 (Killed)", "no material", "exit code 7", "out of memory", ""};
    const auto results = Results(std::size(ends), 3, [&](const Sim::AircraftInfo& aircraft) -> std::string {
        ends[NumberOf(aircraft)]();
        return "fine";
    });
    for (std::size_t i = 0; i < results.size(); ++i) {
        EXPECT_THAT(results[i].failure.value_or(""), HasSubstr(failures[i]));
        EXPECT_EQ(results[i].output, results[i].failure ? "" : "fine") << i;
        EXPECT_EQ(results[i].failure.has_value(), *failures[i] != '\0') << i;
    }
}

TEST_F(Jobs, RunUpToTheLimitAndNotTooFarAfterASlowOne) {
    // The first waits until all jobs whose results may wait for it have started, and then for one more.
    int begun[2];
    ASSERT_EQ(pipe(begun), 0);
    const Job job = [&](const Sim::AircraftInfo& aircraft) -> std::string {
        char byte = 'x';
        if (NumberOf(aircraft) != 0)
            return write(begun[1], &byte, 1) == 1 ? std::to_string(ChildrenOf(getppid()).size()) : "no pipe";
        for (std::size_t others = 1; others < 2 * kMaxPendingPerProcess; ++others)
            EXPECT_EQ(read(begun[0], &byte, 1), 1);
        pollfd more{begun[0], POLLIN, 0};
        return poll(&more, 1, 100) == 0 ? "1" : "too many have begun";
    };
    for (const JobResult& result : Results(40, 2, job))
        EXPECT_THAT(result.output, testing::AnyOf("1", "2"));
}

TEST_F(Jobs, EndTheirProcessesWhenTheirResultsAreNotNeeded) {
    int alive[2];
    ASSERT_EQ(pipe(alive), 0);
    const Job job = [&](const Sim::AircraftInfo& info) -> std::string {
        close(alive[0]);
        if (info.displayName.empty())
            pause();
        return {};
    };
    Sim::XPAircraftInfo first, second;
    first.displayName = "ends";
    EXPECT_THROW(RunJobs({&first, &second}, 2, job, [](JobResult&&) { throw CommandError(kNotWritten, "full"); }),
                 CommandError);
    close(alive[1]);
    char byte = 0;
    EXPECT_EQ(read(alive[0], &byte, 1), 0) << "a process still holds the pipe";
}

TEST(ScopedSignalBlock, EndTheProcessAfterwards) {
    const auto hold = [] {
        const ScopedSignalBlock held;
        raise(SIGINT);
        std::cerr << "written";
    };
    EXPECT_EXIT(hold(), testing::KilledBySignal(SIGINT), "written");
}

} // namespace
} // namespace Batch
