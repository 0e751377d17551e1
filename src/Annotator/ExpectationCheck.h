#pragma once

#include "Annotator/AircraftLoading.h"
#include "CockpitModel/Annotations/AnnotationRecord.h"
#include "CockpitModel/Touch/TouchTypes.h"
#include "Sim/AircraftListLoader.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace Annotator {

/// One part's expectation held against what the detection found.
struct PartResult {
    std::int32_t NodeId = -1;
    std::int32_t PartId = -1;
    std::string rectangle; ///< text of the part's mouse rectangle; empty for a part that cannot be clicked
    CockpitModel::TouchInteractionType expected = CockpitModel::TouchInteractionType::None;
    CockpitModel::TouchInteractionType detected = CockpitModel::TouchInteractionType::None; ///< before any override
    bool passed = false;
};

/// What the tests of one aircraft gave.
struct AircraftResult {
    std::string displayName;
    std::string acfPath;
    bool hasCockpitObject = true;
    std::vector<PartResult> parts; ///< by node and part
    /// Records of the annotation file with an expectation, but without a place in the scene; in file order.
    std::vector<CockpitModel::AnnotationRecord> unplaced;
    std::size_t clickable = 0; ///< parts with a mouse rectangle
    std::size_t covered = 0;   ///< those of them that have an expectation

    std::size_t Total() const { return parts.size(); }
    std::size_t Passed() const;
    std::size_t Failed() const { return Total() - Passed(); }
};

/// An aircraft whose tests could not be run; what() names it and says why.
struct AircraftCheckError : std::runtime_error {
    AircraftCheckError(const Sim::AircraftInfo& info, const std::string& why);
};

/// Loads one aircraft, runs the detection and holds its parts against the expectations of its annotation file. Empty,
/// and nothing loaded, for an aircraft without such a file. Whatever stops it comes out as an AircraftCheckError with
/// the cause nested in it. It makes no file or folder, and different threads may test different aircraft.
std::optional<AircraftResult> CheckAircraft(const Sim::AircraftInfo& info, const LoadOptions& options = {});

/// Tests every aircraft that has an annotation file, in list order, one in memory at a time. An aircraft whose file
/// holds no expectation is in the result with a total of 0. The first one that fails to load ends the run.
std::vector<AircraftResult> CheckAllAircraft(Sim::AircraftListLoader& loader);

} // namespace Annotator
