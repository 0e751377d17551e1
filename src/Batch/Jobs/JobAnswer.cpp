#include "Batch/Jobs/JobAnswer.h"

#include "Annotator/FailureTexts.h"
#include "CockpitModel/NoMaterial.h"
#include "Utils/Numbers.h"

#include <cstdint>
#include <cstring>
#include <new>
#include <string_view>

namespace Batch {

namespace {

constexpr char kReturned = 'R';
constexpr char kThrew = 'T';
constexpr std::size_t kHeaderSize = 1 + sizeof(std::uint64_t);

std::string Frame(char kind, const std::string& text) {
    const std::uint64_t size = text.size();
    std::string frame;
    frame.reserve(kHeaderSize + text.size());
    frame.append(1, kind).append(reinterpret_cast<const char*>(&size), sizeof size);
    return frame.append(text);
}

/// "<number of remarks>\n", each remark after its length and a line feed, then the text.
std::string Encode(const JobOutput& output) {
    const auto number = [](std::size_t value) { return std::to_string(value) + '\n'; };
    std::string answer = number(output.remarks.size());
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

JobResult Decode(const Sim::AircraftInfo& aircraft, std::string_view answer) {
    JobResult result{&aircraft, {}, std::nullopt};
    for (std::size_t left = TakeNumber(answer); left > 0; --left) {
        const std::size_t size = TakeNumber(answer);
        result.remarks.emplace_back(answer.substr(0, size));
        answer.remove_prefix(size);
    }
    result.output = answer;
    return result;
}

} // namespace

std::string EncodeAnswer(const Job& job, const Sim::AircraftInfo& aircraft, const std::string& input) {
    try {
        return Frame(kReturned, Encode(job(aircraft, input)));
    } catch (const std::bad_alloc&) {
        return Frame(kThrew, "out of memory");
    } catch (const CockpitModel::NoMaterial& error) {
        return Frame(kThrew, Annotator::ReasonText(error) + "; use --untextured to load it with a plain material");
    } catch (const std::exception& error) {
        return Frame(kThrew, Annotator::ReasonText(aircraft, error));
    }
}

std::optional<JobResult> DecodeAnswer(const Sim::AircraftInfo& aircraft, std::string& received) {
    std::uint64_t size = 0;
    if (received.size() < kHeaderSize)
        return std::nullopt;
    std::memcpy(&size, received.data() + 1, sizeof size);
    if (received.size() - kHeaderSize < size)
        return std::nullopt;
    const char kind = received[0];
    received.erase(0, kHeaderSize);
    if (kind == kThrew)
        return JobResult{&aircraft, {}, std::exchange(received, {})};
    return Decode(aircraft, std::exchange(received, {}));
}

} // namespace Batch
