#include "CockpitModel/PartMotion.h"

#include "CockpitModel/Node.h"
#include "Logging/Logger.h"

#include <algorithm>
#include <cmath>

namespace CockpitModel {

namespace {

using Utils::Length;
using Utils::LengthSquared;
using Utils::Vector3;

constexpr float kLeastTurn = 0.1f;   // radians
constexpr float kLeastTravel = 0.1f; // metres
constexpr float kTipBeyondAxis = 1.2f;
constexpr float kLeastBalanceDivisor = 1.0f;
/// Fixed line number in the log entry for a NaN measurement.
constexpr std::int32_t kBadNumberLine = 578;

/// Sum of the keys of an animation regardless of time: the first and the last key both count.
struct MotionSum {
    Vector3 translation = Vector3::Zero();
    Utils::Quaternion rotation = Utils::Quaternion::Identity();

    void Add(const RiffBlockXANK& key);
};

/// Axes on which points are measured: the rotation's axis and the direction of the sweep.
struct MotionFrame {
    Vector3 axisMagnitude = Vector3::Zero(); ///< zero unless the motion rotates
    Vector3 direction = Vector3::Zero();
};

/// By hand, like Normalised: Eigen may round in another order, and detection compares the results with limits.
Utils::Quaternion Product(const Utils::Quaternion& a, const Utils::Quaternion& b) {
    return {a.w() * b.w() - a.x() * b.x() - a.y() * b.y() - a.z() * b.z(),
            a.w() * b.x() + a.x() * b.w() + a.y() * b.z() - a.z() * b.y(),
            a.w() * b.y() - a.x() * b.z() + a.y() * b.w() + a.z() * b.x(),
            a.w() * b.z() + a.x() * b.y() - a.y() * b.x() + a.z() * b.w()};
}

void MotionSum::Add(const RiffBlockXANK& key) {
    if (key.IsTranslation)
        translation += key.Translation;
    else
        rotation = Product(rotation, key.Rotation);
}

/// Of key frames only the two ends count, so that a lever measures the same however many keys it has.
MotionSum SumOf(const ModelAnimation& animation) {
    MotionSum sum;
    for (const auto& track : animation.tracks)
        for (const RiffBlockXANK& key : track)
            if (!animation.keyFramed || &key == &track.front() || &key == &track.back())
                sum.Add(key);
    return sum;
}

Utils::Quaternion Normalised(const Utils::Quaternion& q) {
    const float length = std::sqrt(q.x() * q.x() + q.y() * q.y() + q.z() * q.z() + q.w() * q.w());
    return {q.w() / length, q.x() / length, q.y() / length, q.z() / length};
}

MotionFrame FrameOf(const MotionSum& sum) {
    MotionFrame frame;
    Vector3 mask = Vector3::Ones();
    const Utils::Quaternion turn = Normalised(sum.rotation);
    if (2.0f * std::acos(turn.w()) > kLeastTurn) {
        const Vector3 axis(turn.x(), turn.y(), turn.z());
        mask -= axis;
        frame.axisMagnitude = axis.cwiseAbs();
    }
    if (Length(sum.translation) > kLeastTravel)
        mask = mask.cwiseProduct(Utils::Normalised(sum.translation));
    frame.direction = Utils::Normalised(mask);
    return frame;
}

void MeasureStill(NodePart& part) {
    Vector3 sum = Vector3::Zero();
    for (const auto& corner : part.vertices)
        sum += corner.position;
    const Vector3 mean = sum * (1.0f / static_cast<float>(part.vertices.size()));
    part.FarthestVertex = part.AxisTip = mean;
    part.BalanceFactor = part.SweepRadius = 0.0f;
}

void MeasureMoving(NodePart& part, const MotionFrame& frame) {
    Vector3 sum = Vector3::Zero(), absoluteSum = Vector3::Zero();
    float farthest = 0.0f, farthestOnAxis = 0.0f, widestSquared = 0.0f;
    for (const auto& corner : part.vertices) {
        const Vector3& point = corner.position;
        const Vector3 onAxis = point.cwiseProduct(frame.axisMagnitude);
        const Vector3 swept = point.cwiseProduct(frame.direction);
        sum += swept;
        absoluteSum += swept.cwiseAbs();
        widestSquared = std::max(widestSquared, LengthSquared(swept));
        if (const float distance = Length(point); distance > farthest) {
            farthest = distance;
            part.FarthestVertex = point;
        }
        if (const float distance = Length(onAxis); distance > farthestOnAxis) {
            farthestOnAxis = distance;
            part.AxisTip = onAxis;
        }
    }
    part.AxisTip *= kTipBeyondAxis;
    const float reach = Length(absoluteSum);
    part.BalanceFactor = Length(sum) / (reach > kLeastBalanceDivisor ? reach : kLeastBalanceDivisor);
    part.SweepRadius = std::sqrt(widestSquared);
}

} // namespace

void AnalysePartMotion(NodePart& part) {
    const ModelAnimation* const animation = part.node->animation;
    if (!animation) {
        MeasureStill(part);
        return;
    }
    const MotionFrame frame = FrameOf(SumOf(*animation));
    part.RotationAxis = frame.axisMagnitude;
    MeasureMoving(part, frame);
    if (std::isnan(part.BalanceFactor))
        Logging::Logger::Get().Log("CockpitModel\\SceneGraph.cpp", kBadNumberLine, "Bad number");
}

} // namespace CockpitModel
