#pragma once

#include "Sim/AircraftInfo.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace Batch {

/// What a job returns.
struct JobOutput {
    JobOutput(std::string result, std::vector<std::string> notes = {})
        : text(std::move(result)), remarks(std::move(notes)) {}

    std::string text;
    std::vector<std::string> remarks; ///< messages for the user
};

/// The work for one aircraft. It runs in a worker process that has a log and whose only output is what it returns.
/// `input` is what RunJobs was given.
using Job = std::function<JobOutput(const Sim::AircraftInfo&, const std::string& input)>;

} // namespace Batch
