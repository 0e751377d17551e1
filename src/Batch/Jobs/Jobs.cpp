#include "Batch/Jobs/Jobs.h"

#include "Batch/BatchLog.h"
#include "Batch/Command.h"
#include "Batch/Console.h"
#include "Batch/Jobs/JobAnswer.h"
#include "Batch/Jobs/Process.h"
#include "Logging/Logger.h"
#include "Sim/XPAircraftListLoader.h"

#include <algorithm>
#include <iostream>
#include <thread>

namespace Batch {

std::string RunJob(const Sim::AircraftInfo& aircraft, Console& console, std::chrono::milliseconds timeout,
                   const std::string& input) {
    std::string output;
    const auto use = [&](JobResult&& result) {
        if (result.failure)
            throw CommandError(kAircraftFailed, NameOf(aircraft) + ": " + *result.failure);
        for (const std::string& remark : result.remarks)
            console.Message(NameOf(aircraft) + ": " + remark);
        output = std::move(result.output);
    };
    RunJobs({&aircraft}, {.processes = 1, .timeout = timeout}, use, input);
    return output;
}

std::size_t DefaultProcesses() {
    return std::max(1u, std::thread::hardware_concurrency());
}

int ServeJobs(const Job& job) {
    std::string path, input;
    while (std::getline(std::cin, path, '\0') && std::getline(std::cin, input, '\0')) {
        JoinLog();
        const auto aircraft = Sim::XPAircraftListLoader::LoadAircraft(path);
        const std::string answer = EncodeAnswer(job, *aircraft, input);
        // The aircraft's lines are in the log whatever happens to this process later.
        Logging::Logger::Get().Stop("");
        if (!SendAnswer(answer))
            return kNotWritten;
    }
    return kDone;
}

} // namespace Batch
