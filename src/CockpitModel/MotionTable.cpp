#include "CockpitModel/MotionTable.h"

#include "Utils/RangeCheck.h"

namespace CockpitModel {

namespace {

/// The position as a fraction of the time axis. NaN, which a length of 0 can give, is kept: the node's matrix becomes
/// NaN, which does no harm.
float FractionOfTime(float position, float length) {
    const float fraction = position * 100.0f / length;
    if (fraction < 0.0f)
        return 0.0f;
    return fraction > 1.0f ? 1.0f : fraction;
}

} // namespace

MotionTable::Motion MotionTable::Add(const ModelAnimation& animation) {
    const auto firstTrack = static_cast<std::uint32_t>(tracks.size());
    for (const auto& track : animation.tracks) {
        if (track.size() < 2)
            throw Utils::OutOfRange("animation \"" + animation.name + "\" has a track of " +
                                    std::to_string(track.size()) + " keys; at least two are needed");
        tracks.push_back({static_cast<std::uint32_t>(segments.size()), static_cast<std::uint32_t>(track.size() - 1)});
        for (std::size_t i = 1; i < track.size(); ++i)
            AddSegment(track[i - 1], track[i], animation.length);
    }
    return {animation.length, firstTrack, static_cast<std::uint32_t>(animation.tracks.size())};
}

void MotionTable::AddSegment(const RiffBlockXANK& from, const RiffBlockXANK& to, float length) {
    const std::size_t place = from.IsTranslation ? translations.size() : rotations.size();
    segments.push_back({from.Time / length, to.Time / length, from.IsTranslation, static_cast<std::uint32_t>(place)});
    if (from.IsTranslation)
        translations.push_back({from.Translation, to.Translation - from.Translation});
    else
        rotations.emplace_back(from.Rotation, to.Rotation);
}

void MotionTable::Apply(const Motion& motion, Utils::Matrix4& m, float position) const {
    const float fraction = FractionOfTime(position, motion.length);
    for (std::uint32_t i = 0; i < motion.trackCount; ++i)
        m = TrackMatrix(tracks[motion.firstTrack + i], fraction) * m;
}

Utils::Matrix4 MotionTable::TrackMatrix(const Track& track, float fraction) const {
    // The last segment that starts strictly before the fraction, else the first.
    const Segment* segment = &segments[track.firstSegment];
    for (const Segment *next = segment, *end = segment + track.segmentCount; next != end; ++next)
        if (next->start < fraction)
            segment = next;
    // Not clamped: before the first key the motion is extrapolated.
    const float u =
        segment->end > segment->start ? (fraction - segment->start) / (segment->end - segment->start) : 1.0f;
    if (!segment->isTranslation)
        return Utils::Rotation(rotations[segment->place].At(u));
    const TranslationStep& shift = translations[segment->place];
    return Utils::Translation(shift.start + shift.whole * u);
}

} // namespace CockpitModel
