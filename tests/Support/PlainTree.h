#pragma once

#include "CockpitModel/Picking/PartTree.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <optional>
#include <vector>

namespace Support {

/// The distance at which a ray hits a triangle.
inline std::optional<float> Hit(const CockpitModel::PartTriangle& triangle, const CockpitModel::PartRay& ray) {
    const Utils::Vector3 e1 = triangle[1] - triangle[0], e2 = triangle[2] - triangle[0];
    const Utils::Vector3 pv = ray.direction.cross(e2), s = ray.origin - triangle[0], qv = s.cross(e1);
    const float det = Utils::Dot(e1, pv), inverse = 1 / det;
    const float u = Utils::Dot(s, pv) * inverse, v = Utils::Dot(ray.direction, qv) * inverse;
    const float t = Utils::Dot(e2, qv) * inverse;
    const bool edgeOn = det > -1e-8 && det < 1e-8;
    if (edgeOn || u < 0 || u > 1 || v < 0 || u + v > 1 || t < 1e-8)
        return std::nullopt;
    return t;
}

inline void Keep(std::optional<float>& nearest, std::optional<float> distance) {
    if (distance && (!nearest || *distance < *nearest))
        nearest = distance;
}

/// Over all triangles, including those in no node of a tree.
inline std::optional<float> BruteForce(const std::vector<CockpitModel::PartTriangle>& triangles,
                                       const CockpitModel::PartRay& ray) {
    std::optional<float> nearest;
    for (const auto& triangle : triangles)
        Keep(nearest, Hit(triangle, ray));
    return nearest;
}

/// Reference implementation of the picking tree: built list by list, searched node by node, triangle by triangle.
struct PlainTree {
    struct Node {
        Utils::Vector3 min = Utils::Vector3::Zero(), max = Utils::Vector3::Zero();
        std::vector<std::uint32_t> triangles;
        std::size_t left = 0;
        bool hasChildren = false;
    };

    explicit PlainTree(std::vector<CockpitModel::PartTriangle> soup) : triangles(std::move(soup)), nodes(1) {
        std::vector<std::uint32_t> all(triangles.size());
        std::iota(all.begin(), all.end(), 0u);
        Build(0, all);
    }

    std::optional<float> Distance(const CockpitModel::PartRay& ray) const { return Walk(nodes[0], ray); }

    std::vector<CockpitModel::PartTriangle> triangles;
    std::vector<Node> nodes; ///< the root first

private:
    void Build(std::size_t at, const std::vector<std::uint32_t>& list) {
        SetBox(nodes[at], list);
        const Utils::Vector3 middle = (nodes[at].min + nodes[at].max) / 2;
        std::vector<std::uint32_t> left[3], right[3];
        std::size_t both[3] = {};
        for (int axis = 0; axis < 3; ++axis)
            for (const std::uint32_t index : list) {
                bool isLeft = false, isRight = false;
                for (const auto& vertex : triangles[index]) {
                    isLeft = isLeft || vertex[axis] < middle[axis];
                    isRight = isRight || vertex[axis] > middle[axis];
                }
                if (isLeft)
                    left[axis].push_back(index);
                if (isRight)
                    right[axis].push_back(index);
                both[axis] += isLeft && isRight;
            }
        const int axis = both[1] < both[0] ? (both[2] < both[1] ? 2 : 1) : (both[2] < both[0] ? 2 : 0);
        const bool split = both[axis] != left[axis].size() && both[axis] != right[axis].size() &&
                           left[axis].size() < list.size() && right[axis].size() < list.size();
        if (!split || list.size() < 3)
            nodes[at].triangles = list;
        if (!split)
            return;
        nodes[at].hasChildren = true;
        const std::size_t child = nodes[at].left = nodes.size();
        nodes.resize(child + 2);
        Build(child, left[axis]);
        Build(child + 1, right[axis]);
    }

    void SetBox(Node& node, const std::vector<std::uint32_t>& list) const {
        if (list.empty())
            return;
        node.min.setConstant(std::numeric_limits<float>::infinity());
        node.max = -node.min;
        for (const std::uint32_t index : list)
            for (const auto& vertex : triangles[index])
                for (int axis = 0; axis < 3; ++axis) {
                    node.min[axis] = std::fmin(node.min[axis], vertex[axis]);
                    node.max[axis] = std::fmax(node.max[axis], vertex[axis]);
                }
    }

    std::optional<float> Walk(const Node& node, const CockpitModel::PartRay& ray) const {
        float near = -std::numeric_limits<float>::infinity(), far = -near;
        for (int axis = 0; axis < 3; ++axis) {
            if (ray.direction[axis] == 0)
                continue;
            const float t1 = (node.min[axis] - ray.origin[axis]) / ray.direction[axis];
            const float t2 = (node.max[axis] - ray.origin[axis]) / ray.direction[axis];
            const float less = t2 < t1 ? t2 : t1, greater = t1 < t2 ? t2 : t1;
            near = near < less ? less : near;
            far = greater < far ? greater : far;
        }
        std::optional<float> nearest;
        if (!(far >= near))
            return nearest;
        for (const std::uint32_t index : node.triangles)
            Keep(nearest, Hit(triangles[index], ray));
        if (node.hasChildren) {
            Keep(nearest, Walk(nodes[node.left], ray));
            Keep(nearest, Walk(nodes[node.left + 1], ray));
        }
        return nearest;
    }
};

} // namespace Support
