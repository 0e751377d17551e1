#include "Annotator/Preview/PartGroups.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <utility>

namespace Annotator {

namespace {

std::size_t DividedUp(std::size_t number, std::size_t divisor) {
    return (number + divisor - 1) / divisor;
}

/// Splits along the longest axis, where the gap between neighbours is widest for the sizes of the two sides.
class Splitter {
public:
    Splitter(const std::vector<Utils::Vector3>& allPoints, std::size_t mostMembers, std::size_t wantedMembers)
        : points(allPoints), members(mostMembers), wanted(wantedMembers) {}

    void Split(std::span<std::size_t> indices, std::size_t mostGroups) {
        const std::size_t groups = std::min(DividedUp(indices.size(), wanted), mostGroups);
        if (groups < 2 || indices.size() < 2) {
            std::ranges::sort(indices);
            found.emplace_back(indices.begin(), indices.end());
            return;
        }
        const Eigen::Index axis = LongestAxis(indices);
        std::ranges::sort(indices, {}, [&](std::size_t index) { return std::pair(points[index][axis], index); });
        const std::size_t left = groups / 2, cut = FindCut(indices, axis, left, groups - left);
        Split(indices.first(cut), left);
        Split(indices.subspan(cut), groups - left);
    }

    std::vector<std::vector<std::size_t>> found;

private:
    Eigen::Index LongestAxis(std::span<const std::size_t> indices) const {
        Utils::Vector3 least = points[indices.front()], greatest = least;
        for (const std::size_t index : indices) {
            least = least.cwiseMin(points[index]);
            greatest = greatest.cwiseMax(points[index]);
        }
        Eigen::Index axis = 0;
        (greatest - least).maxCoeff(&axis);
        return axis;
    }

    /// The number of points on the left side, which the groups of both sides can hold.
    std::size_t FindCut(std::span<const std::size_t> indices, Eigen::Index axis, std::size_t left,
                        std::size_t right) const {
        const std::size_t count = indices.size();
        const std::size_t least = count > members * right ? count - members * right : 1;
        const std::size_t most = std::min(members * left, count - 1);
        std::size_t best = std::clamp(count * left / (left + right), least, most);
        float bestScore = 0;
        for (std::size_t cut = least; cut <= most; ++cut) {
            const float gap = points[indices[cut]][axis] - points[indices[cut - 1]][axis];
            const float score = gap * static_cast<float>(std::min(cut * right, (count - cut) * left));
            if (score > bestScore) {
                best = cut;
                bestScore = score;
            }
        }
        return best;
    }

    const std::vector<Utils::Vector3>& points;
    const std::size_t members, wanted;
};

} // namespace

std::vector<std::vector<std::size_t>> GroupByPlace(const std::vector<Utils::Vector3>& points,
                                                   const GroupLimits& limits) {
    if (points.empty())
        return {};
    std::vector<std::size_t> indices(points.size());
    std::iota(indices.begin(), indices.end(), std::size_t{0});
    Splitter splitter(points, std::max(limits.members, DividedUp(points.size(), limits.groups)),
                      std::max<std::size_t>(limits.members * 2 / 3, 1));
    splitter.Split(indices, limits.groups);
    return std::move(splitter.found);
}

} // namespace Annotator
