#include "Batch/Jobs/JobAnswer.h"

#include "Annotator/FailureTexts.h"
#include "CockpitModel/NoMaterial.h"

#include <cstdint>
#include <cstring>
#include <new>

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

} // namespace

std::string EncodeAnswer(const Job& job, const Sim::AircraftInfo& aircraft, const std::string& input) {
    try {
        return Frame(kReturned, job(aircraft, input));
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
    return JobResult{&aircraft, std::exchange(received, {}), std::nullopt};
}

} // namespace Batch
