#include "Batch/Jobs.h"

#include "Batch/Command.h"
#include "Batch/HeldSignals.h"
#include "Sim/XPAircraftInfo.h"
#include "Support/TemporaryFolder.h"

#include <csignal>
#include <cstdlib>
#include <gmock/gmock.h>
#include <iostream>
#include <new>
#include <unistd.h>

namespace Batch {
namespace {

using testing::HasSubstr;

class Jobs : public testing::Test {
protected:
    Jobs() { setenv("XDG_DATA_HOME", data.path.c_str(), 1); }

    Support::TemporaryFolder data; // the processes log there
};

std::size_t NumberOf(const Sim::AircraftInfo& aircraft) {
    return std::stoul(aircraft.displayName);
}

/// Of jobs of aircraft that are numbered by their names, whose results come in this order.
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

TEST_F(Jobs, GiveTheirOutputInOrderHoweverManyRunAtOnce) {
    // Some are larger than a pipe's buffer, and the first ones take longer than those behind them.
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

TEST_F(Jobs, NameHowEachProcessFailedAndKeepTheOthers) {
    const std::function<void()> ends[] = {
        [] {},
        [] { std::abort(); },
        [] { raise(SIGKILL); },
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

TEST_F(Jobs, RunAtOnceUpToTheLimit) {
    // Each job waits until the other has begun, which two in turn never would.
    int firstToSecond[2], secondToFirst[2];
    ASSERT_EQ(pipe(firstToSecond) + pipe(secondToFirst), 0);
    for (const JobResult& result : Results(2, 2, [&](const Sim::AircraftInfo& aircraft) {
             const std::size_t index = NumberOf(aircraft);
             const int out = index == 0 ? firstToSecond[1] : secondToFirst[1];
             const int in = index == 0 ? secondToFirst[0] : firstToSecond[0];
             char byte = 'x';
             return std::string(write(out, &byte, 1) == 1 && read(in, &byte, 1) == 1 ? "met" : "alone");
         }))
        EXPECT_EQ(result.output, "met");
}

TEST_F(Jobs, EndTheirProcessesWhenTheirResultsAreNotWantedAnyMore) {
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

TEST(HeldSignals, EndTheProcessAfterwards) {
    const auto hold = [] {
        const HeldSignals held;
        raise(SIGINT);
        std::cerr << "written";
    };
    EXPECT_EXIT(hold(), testing::KilledBySignal(SIGINT), "written");
}

} // namespace
} // namespace Batch
