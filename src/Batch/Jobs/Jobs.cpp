#include "Batch/Jobs/Jobs.h"

#include "Annotator/FailureTexts.h"
#include "Batch/Command.h"
#include "Batch/Jobs/JobResult.h"
#include "CockpitModel/NoMaterial.h"

#include <algorithm>
#include <new>
#include <thread>

namespace Batch {

namespace {

/// The first byte of an encoded result.
constexpr char kReturned = 'R';
constexpr char kThrew = 'T';

} // namespace

std::string EncodeResult(const Job& job, const Sim::AircraftInfo& aircraft) {
    try {
        return kReturned + job(aircraft);
    } catch (const std::bad_alloc&) {
        return kThrew + std::string("out of memory");
    } catch (const CockpitModel::NoMaterial& error) {
        return kThrew + Annotator::ReasonText(error) + "; use --untextured to load it with a plain material";
    } catch (const std::exception& error) {
        return kThrew + Annotator::ReasonText(aircraft, error);
    }
}

JobResult DecodeResult(const Sim::AircraftInfo& aircraft, const std::string& answer) {
    if (answer[0] == kThrew)
        return {&aircraft, {}, answer.substr(1)};
    return {&aircraft, answer.substr(1), std::nullopt};
}

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
