#include "CockpitModel/ModelAnimation.h"

#include "Utils/RangeCheck.h"

namespace CockpitModel {

namespace {

/// The position as a fraction of the time axis. Not-a-number, also from a length of 0, stays what it is: it places
/// the node nowhere, but does no harm.
float FractionOfTime(float position, float length) {
    const float fraction = position * 100.0f / length;
    if (fraction < 0.0f)
        return 0.0f;
    return fraction > 1.0f ? 1.0f : fraction;
}

/// Index of the last key, apart from the track's last, that lies strictly before the fraction; 0 when none does.
std::size_t SegmentAt(const std::vector<RiffBlockXANK>& track, float length, float fraction) {
    std::size_t segment = 0;
    for (std::size_t i = 0; i + 1 < track.size(); ++i)
        if (track[i].Time / length < fraction)
            segment = i;
    return segment;
}

Utils::Matrix4 TrackMatrix(const std::vector<RiffBlockXANK>& track, float length, float fraction) {
    const std::size_t segment = SegmentAt(track, length, fraction);
    const RiffBlockXANK& from = track[segment];
    const RiffBlockXANK& to = track[segment + 1];
    const float start = from.Time / length, end = to.Time / length;
    // Not clamped: ahead of the first key the motion is carried on backwards.
    const float u = end > start ? (fraction - start) / (end - start) : 1.0f;
    if (from.IsTranslation)
        return Utils::Translation(from.Translation + (to.Translation - from.Translation) * u);
    return Utils::Rotation(Utils::Slerp(from.Rotation, to.Rotation, u));
}

} // namespace

void ApplyAnimation(const ModelAnimation& animation, Utils::Matrix4& m, float position) {
    const float fraction = FractionOfTime(position, animation.length);
    for (const auto& track : animation.tracks) {
        if (track.size() < 2)
            throw Utils::OutOfRange("animation \"" + animation.name + "\" has a track of " +
                                    std::to_string(track.size()) + " keys, where two are needed");
        m = TrackMatrix(track, animation.length, fraction) * m;
    }
}

} // namespace CockpitModel
