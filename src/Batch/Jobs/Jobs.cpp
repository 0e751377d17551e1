#include "Batch/Jobs/Jobs.h"

#include "Batch/Command.h"

#include <algorithm>
#include <thread>

namespace Batch {

std::string RunJob(const Sim::AircraftInfo& aircraft, const Job& job) {
    std::string output;
    RunJobs({&aircraft}, 1, job, [&](JobResult&& result) {
        if (result.failure)
            throw CommandError(kAircraftFailed, NameOf(aircraft) + ": " + *result.failure);
        output = std::move(result.output);
    });
    return output;
}

std::size_t DefaultProcesses() {
    return std::max(1u, std::thread::hardware_concurrency());
}

} // namespace Batch
