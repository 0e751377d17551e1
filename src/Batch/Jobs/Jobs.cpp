#include "Batch/Jobs/Jobs.h"

#include "Batch/Command.h"
#include "Batch/Console.h"

#include <algorithm>
#include <thread>

namespace Batch {

std::string RunJob(const Sim::AircraftInfo& aircraft, Console& console, const Job& job) {
    std::string output;
    RunJobs({&aircraft}, 1, job, [&](JobResult&& result) {
        if (result.failure)
            throw CommandError(kAircraftFailed, NameOf(aircraft) + ": " + *result.failure);
        for (const std::string& remark : result.remarks)
            console.Message(NameOf(aircraft) + ": " + remark);
        output = std::move(result.output);
    });
    return output;
}

std::size_t DefaultProcesses() {
    return std::max(1u, std::thread::hardware_concurrency());
}

} // namespace Batch
