#include "Annotator/Preview/PartGroups.h"

#include <gtest/gtest.h>

namespace Annotator {
namespace {

using Groups = std::vector<std::vector<std::size_t>>;

TEST(PartGroups, SplitsWhereThePointsAreFarApart) {
    const struct {
        const char* name;
        std::vector<float> places; ///< along the y axis
        GroupLimits limits;
        Groups groups;
    } rows[] = {
        {"nothing", {}, {3, 4}, {}},
        {"few enough", {5, 1}, {3, 4}, {{0, 1}}},
        {"two panels, although the middle is in the first", {2, 0, 1, 11, 10}, {3, 4}, {{0, 1, 2}, {3, 4}}},
        // Gap times the smaller side: 1.2 x 1 at the end, 1 x 2 in the middle.
        {"evenly rather than at a slightly wider gap at the end", {0, 1, 2, 3.2f}, {3, 4}, {{0, 1}, {2, 3}}},
        {"all at one place", {7, 7, 7, 7, 7, 7}, {3, 4}, {{0, 1}, {2, 3}, {4, 5}}},
        {"more than both limits allow", {0, 1, 2, 3, 4, 5, 6}, {3, 2}, {{0, 1, 2}, {3, 4, 5, 6}}},
    };
    for (const auto& row : rows) {
        std::vector<Utils::Vector3> points;
        for (const float place : row.places)
            points.emplace_back(3.0f, place, 0.0f);
        const Groups groups = GroupByPlace(points, row.limits);
        EXPECT_EQ(groups, row.groups) << row.name;
    }
}

TEST(PartGroups, KeepsTheLimits) {
    for (const std::size_t count : {60u, 61u, 481u, 719u, 720u}) {
        std::vector<Utils::Vector3> points;
        for (std::size_t i = 0; i < count; ++i) // most of them close together
            points.emplace_back(static_cast<float>(i * i % 97), static_cast<float>(i % 7), i % 50 == 0 ? 99.0f : 0.0f);
        const Groups groups = GroupByPlace(points);
        std::vector<bool> seen(count);
        for (const auto& group : groups) {
            EXPECT_LE(group.size(), 60u) << count;
            for (const std::size_t index : group)
                seen.at(index) = true;
        }
        EXPECT_LE(groups.size(), 12u) << count;
        EXPECT_EQ(seen, std::vector<bool>(count, true));
    }
}

} // namespace
} // namespace Annotator
