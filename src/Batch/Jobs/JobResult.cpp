#include "Batch/Jobs/JobResult.h"

#include "Annotator/FailureTexts.h"
#include "CockpitModel/NoMaterial.h"

#include <new>

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

} // namespace Batch
