#include "Annotator/Preview/ClearView.h"

#include "Annotator/Preview/CanvasControl.h"
#include "CockpitModel/Picking/PartTree.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace Annotator {

namespace {

using CockpitModel::Node;
using CockpitModel::PartRay;
using Utils::Matrix4;
using Utils::Vector3;

constexpr std::size_t kPlaces = 8;       // between the viewer and the middle of the targets
constexpr std::size_t kMostTargets = 24; // that are tested
constexpr float kMost = 0.8f;            // of the targets that the best place shows
constexpr float kTouching = 0.01f;       // metres; a panel around a button does not hide it

/// The scene's nodes, for rays.
class Sight {
public:
    explicit Sight(CockpitModel::SceneGraph& sceneGraph) {
        sceneGraph.VisitNodes(Matrix4::Identity(), Matrix4::Identity(),
                              [this](const Matrix4& world, const Matrix4&, const Matrix4&, const Matrix4&, Node& node) {
                                  nodes.emplace_back(&node, world.inverse());
                              });
    }

    bool IsHidden(const ViewTarget& target, const Vector3& viewer) const {
        const Vector3 way = target.middle - viewer;
        const PartRay ray{viewer, Utils::Normalised(way)};
        const float clear = Utils::Length(way) - kTouching;
        return std::ranges::any_of(nodes, [&](const auto& entry) {
            const PartRay inNode = CockpitModel::TransformRay(ray, entry.second);
            return std::ranges::any_of(entry.first->parts, [&](const auto& part) {
                if (part.get() == target.part || part->IsTransparent())
                    return false;
                const auto hit = part->Tree().Intersect(inNode);
                return hit && hit->distance < clear;
            });
        });
    }

private:
    std::vector<std::pair<const Node*, Matrix4>> nodes; ///< with the matrix from the world to the node
};

bool IsInImage(const Vector3& point, const Vector3& viewer, float aspect) {
    const Vector3 way = point - viewer;
    const float height = way.z() * std::tan(kFieldOfView / 2.0f);
    return way.z() >= kNearPlane && std::abs(way.y()) <= height && std::abs(way.x()) <= height * aspect;
}

/// At most kMostTargets, evenly chosen.
std::vector<ViewTarget> Sample(const std::vector<ViewTarget>& targets) {
    std::vector<ViewTarget> sample;
    const std::size_t step = targets.size() / kMostTargets + 1;
    for (std::size_t i = 0; i < targets.size(); i += step)
        sample.push_back(targets[i]);
    return sample;
}

} // namespace

Vector3 FindClearView(CockpitModel::SceneGraph& sceneGraph, const std::vector<ViewTarget>& targets,
                      const Vector3& place, float aspect) {
    if (targets.empty())
        return place;
    const auto [nearest, farthest] =
        std::ranges::minmax_element(targets, {}, [](const ViewTarget& target) { return target.middle.z(); });
    const float ahead = (nearest->middle.z() + farthest->middle.z()) / 2.0f - place.z();
    const auto placeOf = [&](std::size_t i) -> Vector3 {
        return place + Vector3(0.0f, 0.0f, ahead * static_cast<float>(i) / static_cast<float>(kPlaces));
    };
    const Sight sight(sceneGraph);
    const std::vector<ViewTarget> sample = Sample(targets);
    std::array<std::ptrdiff_t, kPlaces> seen{};
    for (std::size_t i = 0; i < kPlaces; ++i)
        seen[i] = std::ranges::count_if(sample, [&](const ViewTarget& target) {
            return IsInImage(target.middle, placeOf(i), aspect) && !sight.IsHidden(target, placeOf(i));
        });
    const float enough = kMost * static_cast<float>(*std::ranges::max_element(seen));
    const auto chosen = std::ranges::find_if(seen, [&](auto count) { return static_cast<float>(count) >= enough; });
    return placeOf(static_cast<std::size_t>(chosen - seen.begin()));
}

} // namespace Annotator
