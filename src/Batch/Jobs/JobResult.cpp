#include "Batch/Jobs/JobResult.h"

#include "Annotator/FailureTexts.h"
#include "CockpitModel/NoMaterial.h"
#include "Utils/Numbers.h"

#include <new>
#include <string_view>

namespace Batch {

namespace {

/// The first byte of an encoded result.
constexpr char kReturned = 'R';
constexpr char kThrew = 'T';

/// "<number of remarks>\n", each remark after its length and a line feed, then the text.
std::string Encode(const JobOutput& output) {
    const auto number = [](std::size_t value) { return std::to_string(value) + '\n'; };
    std::string answer = kReturned + number(output.remarks.size());
    for (const std::string& remark : output.remarks)
        answer += number(remark.size()) + remark;
    return answer + output.text;
}

std::size_t TakeNumber(std::string_view& answer) {
    const std::size_t end = answer.find('\n');
    const std::size_t number = Utils::ParseWhole<std::size_t>(answer.substr(0, end)).value_or(0);
    answer.remove_prefix(end + 1);
    return number;
}

} // namespace

std::string EncodeResult(const Job& job, const Sim::AircraftInfo& aircraft) {
    try {
        return Encode(job(aircraft));
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
        return {&aircraft, {}, answer.substr(1), {}};
    std::string_view rest = std::string_view(answer).substr(1);
    JobResult result{&aircraft, {}, std::nullopt, {}};
    for (std::size_t left = TakeNumber(rest); left > 0; --left) {
        const std::size_t size = TakeNumber(rest);
        result.remarks.emplace_back(rest.substr(0, size));
        rest.remove_prefix(size);
    }
    result.output = rest;
    return result;
}

} // namespace Batch
