#pragma once

#include "CockpitModel/ModelAnimation.h"
#include "Utils/LinearAlgebra.h"

#include <cstdint>
#include <vector>

namespace CockpitModel {

/// The motions of many animations in contiguous arrays, so that an update of a whole cockpit reads memory in order. Any
/// thread may read it after it is filled.
class MotionTable {
public:
    /// One animation's tracks; none for a node that does not move.
    struct Motion {
        float length = 0; ///< end of the time axis
        std::uint32_t firstTrack = 0, trackCount = 0;
    };

    /// A track of fewer than two keys throws OutOfRange.
    Motion Add(const ModelAnimation& animation);
    /// Same as ApplyAnimation with the animation that was added.
    void Apply(const Motion& motion, Utils::Matrix4& m, float position) const;

private:
    struct TranslationStep {
        Utils::Vector3 start, whole;
    };
    /// From one key to the next; the kind is that of the first key.
    struct Segment {
        float start, end; ///< fractions of the time axis
        bool isTranslation;
        std::uint32_t place; ///< index in `translations` or `rotations`
    };
    struct Track {
        std::uint32_t firstSegment, segmentCount;
    };

    void AddSegment(const RiffBlockXANK& from, const RiffBlockXANK& to, float length);
    Utils::Matrix4 TrackMatrix(const Track& track, float fraction) const;

    std::vector<Track> tracks;
    std::vector<Segment> segments;
    std::vector<TranslationStep> translations;
    std::vector<Utils::SlerpPath> rotations;
};

} // namespace CockpitModel
