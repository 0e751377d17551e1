#pragma once

#include "Annotator/AircraftLoading.h"
#include "CockpitModel/Annotations/AnnotationRecord.h"
#include "CockpitModel/Annotations/AnnotationStore.h"
#include "CockpitModel/Touch/TouchTypes.h"
#include "Sim/AircraftListLoader.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace Annotator {

/// One part's expected and detected type.
struct PartResult {
    std::int32_t NodeId = -1;
    std::int32_t PartId = -1;
    std::string rectangle; ///< text of the mouse rectangle; empty if the part is not clickable
    CockpitModel::TouchInteractionType expected = CockpitModel::TouchInteractionType::None;
    CockpitModel::TouchInteractionType detected = CockpitModel::TouchInteractionType::None; ///< before any override
    bool passed = false;
    std::uint32_t blockLine = 0; ///< of an expectation from a _vrconfig.txt: the line of its BEGIN_MANIP
    /// Of a failed test of the full reading: what the plain one detects, if it has the part.
    std::optional<CockpitModel::TouchInteractionType> plain = std::nullopt;
    std::string picture = {}; ///< a PNG of the part in base 64, if someone made one

    /// A failed test whose expectation is right for the plain reading.
    bool FailedAsPlain() const { return !passed && plain == expected; }
};

/// Where the expectations are from.
enum class ExpectationSource : std::uint8_t { Annotations, VrConfig };

/// Test results of one aircraft.
struct AircraftResult {
    std::string displayName;
    std::string acfPath;
    CockpitModel::Reading reading = CockpitModel::Reading::Plain;
    bool plainExpectations = false; ///< the full reading has no annotation file of its own yet
    bool hasCockpitObject = true;
    ExpectationSource source = ExpectationSource::Annotations;
    bool hasVrConfig = true;       ///< of this source: there is a _vrconfig.txt; without it nothing is tested
    std::string vrConfigFault;     ///< of this source: why blocks may not have been found; empty if there is no reason
    std::vector<PartResult> parts; ///< by node and part
    /// Records with an expectation for which the scene has no part, in file order.
    std::vector<CockpitModel::AnnotationRecord> unplaced;
    std::size_t clickable = 0; ///< parts with a mouse rectangle
    std::size_t covered = 0;   ///< clickable parts with an expectation

    std::size_t Total() const { return parts.size(); }
    std::size_t Passed() const;
    std::size_t Failed() const { return Total() - Passed(); }
    std::size_t FailedAsPlain() const;
};

/// An aircraft whose tests could not be run; what() contains its name and the reason.
struct AircraftCheckError : std::runtime_error {
    AircraftCheckError(const Sim::AircraftInfo& info, const std::string& why);
};

/// What else is done with an aircraft while it is loaded.
using LoadedUse = std::function<void(const LoadedAircraft& aircraft, const CockpitModel::AnnotationStore& annotations,
                                     AircraftResult& tests)>;

/// Loads one aircraft, runs the detection and compares its parts with the expectations in the reading's annotation
/// file. After a failed test of the full reading, the plain one is loaded too, if it can. An aircraft without such a
/// file is not loaded and gives an empty result. Every failure throws an AircraftCheckError with the cause nested in
/// it. Creates no files or folders. Different threads may test different aircraft.
/// `onFailed` is called if a test failed.
std::optional<AircraftResult> CheckAircraft(const Sim::AircraftInfo& info, const LoadOptions& options = {},
                                            const LoadedUse& onFailed = nullptr);

/// Loads one aircraft in the full reading and compares its parts with the kinds of the blocks in its _vrconfig.txt, of
/// two blocks for a part the first. An aircraft without this file is not loaded. Otherwise as CheckAircraft.
AircraftResult TestVrConfig(const Sim::AircraftInfo& info, const LoadedUse& onFailed = nullptr);

/// Tests every aircraft that has an annotation file, in list order, with one in memory at a time. An aircraft whose
/// file contains no expectation has a total of 0. The first aircraft that fails to load ends the run.
std::vector<AircraftResult> CheckAllAircraft(Sim::AircraftListLoader& loader,
                                             CockpitModel::Reading reading = CockpitModel::Reading::Plain);

} // namespace Annotator
