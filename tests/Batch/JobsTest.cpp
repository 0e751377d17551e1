#include "Batch/Jobs.h"

#include "Batch/Command.h"
#include "Sim/XPAircraftInfo.h"
#include "Support/TemporaryFolder.h"

#include <csignal>
#include <cstdlib>
#include <gmock/gmock.h>
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

/// Aircraft that are numbered by their names.
class Numbered {
public:
    explicit Numbered(std::size_t count) : infos(count) {
        for (std::size_t i = 0; i < count; ++i)
            infos[i].displayName = std::to_string(i);
    }
    AircraftSelection All() const {
        AircraftSelection all;
        for (const Sim::XPAircraftInfo& info : infos)
            all.push_back(&info);
        return all;
    }

private:
    std::vector<Sim::XPAircraftInfo> infos;
};

std::size_t NumberOf(const Sim::AircraftInfo& aircraft) {
    return std::stoul(aircraft.displayName);
}

std::vector<JobResult> Results(const Numbered& aircraft, std::size_t processes, const Job& job) {
    std::vector<JobResult> results;
    RunJobs(aircraft.All(), processes, job, [&](JobResult&& result) { results.push_back(std::move(result)); });
    return results;
}

TEST_F(Jobs, GiveTheirOutputInOrderHoweverManyRunAtOnce) {
    // Some are larger than a pipe's buffer, and the first ones take longer than those behind them.
    const Job job = [](const Sim::AircraftInfo& aircraft) {
        const std::size_t index = NumberOf(aircraft);
        return std::string(index < 3 ? 3'000'000 : index, char('a' + index % 26));
    };
    const Numbered aircraft(40);
    for (const std::size_t processes : {1, 2, 7, 100}) {
        const std::vector<JobResult> results = Results(aircraft, processes, job);
        ASSERT_EQ(results.size(), 40u) << processes;
        for (std::size_t i = 0; i < results.size(); ++i) {
            EXPECT_EQ(results[i].aircraft, aircraft.All()[i]) << processes;
            EXPECT_EQ(results[i].output, job(*results[i].aircraft)) << processes;
            EXPECT_FALSE(results[i].failure) << processes;
        }
    }
    EXPECT_TRUE(Results(Numbered(0), 4, job).empty());
}

TEST_F(Jobs, NameHowEachProcessFailedAndKeepTheOthers) {
    const std::vector<JobResult> results =
        Results(Numbered(7), 3, [](const Sim::AircraftInfo& aircraft) -> std::string {
            switch (NumberOf(aircraft)) {
            case 1:
                std::abort();
            case 2:
                raise(SIGKILL);
                break;
            case 3:
                throw std::runtime_error("no material");
            case 4:
                _exit(7);
            case 5:
                throw std::bad_alloc();
            default:
                break;
            }
            return "fine";
        });
    ASSERT_EQ(results.size(), 7u);
    EXPECT_EQ(results[0].output, "fine");
    EXPECT_THAT(results[1].failure.value_or(""), HasSubstr("signal 6 (Aborted)"));
    EXPECT_THAT(results[2].failure.value_or(""), HasSubstr("signal 9 (Killed)"));
    EXPECT_EQ(results[3].failure, "no material");
    EXPECT_THAT(results[4].failure.value_or(""), HasSubstr("exit code 7"));
    EXPECT_EQ(results[5].failure, "out of memory");
    EXPECT_EQ(results[6].output, "fine");
}

TEST_F(Jobs, RunAtOnceUpToTheLimit) {
    // Each job waits until the other has begun, which two in turn never would.
    int firstToSecond[2], secondToFirst[2];
    ASSERT_EQ(pipe(firstToSecond) + pipe(secondToFirst), 0);
    const auto results = Results(Numbered(2), 2, [&](const Sim::AircraftInfo& aircraft) {
        const std::size_t index = NumberOf(aircraft);
        const int out = index == 0 ? firstToSecond[1] : secondToFirst[1];
        const int in = index == 0 ? secondToFirst[0] : firstToSecond[0];
        char byte = 'x';
        return std::string(write(out, &byte, 1) == 1 && read(in, &byte, 1) == 1 ? "met" : "alone");
    });
    ASSERT_EQ(results.size(), 2u);
    EXPECT_EQ(results[0].output, "met");
    EXPECT_EQ(results[1].output, "met");
}

TEST_F(Jobs, EndTheirProcessesWhenTheirResultsAreNotWantedAnyMore) {
    int alive[2];
    ASSERT_EQ(pipe(alive), 0);
    const Job job = [&](const Sim::AircraftInfo& info) -> std::string {
        close(alive[0]);
        if (NumberOf(info) == 1)
            pause();
        return {};
    };
    const Numbered aircraft(2);
    EXPECT_THROW(RunJobs(aircraft.All(), 2, job, [](JobResult&&) { throw CommandError(kNotWritten, "full"); }),
                 CommandError);
    close(alive[1]);
    char byte = 0;
    EXPECT_EQ(read(alive[0], &byte, 1), 0) << "a process still holds the pipe";
}

TEST_F(Jobs, OneAloneEndsTheCommandWithItsReason) {
    Sim::XPAircraftInfo cub;
    cub.displayName = "Cub";
    cub.acfPath = "Aircraft/Cub.acf";
    EXPECT_EQ(RunJob(cub, [](const Sim::AircraftInfo& info) { return info.displayName; }), "Cub");
    try {
        RunJob(cub, [](const Sim::AircraftInfo&) -> std::string { throw std::runtime_error("no material"); });
        ADD_FAILURE() << "it threw nothing";
    } catch (const CommandError& error) {
        EXPECT_EQ(error.code, kAircraftFailed);
        EXPECT_STREQ(error.what(), "Cub (Aircraft/Cub.acf): no material");
    }
}

} // namespace
} // namespace Batch
