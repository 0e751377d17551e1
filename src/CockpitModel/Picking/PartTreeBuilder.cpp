#include "CockpitModel/Picking/PartTreeBuilder.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace CockpitModel {

using Utils::Float4;
using Utils::Mask4;

namespace {

/// Leaves of more triangles get boxes of their own; for smaller ones, building them costs more than rays gain.
constexpr std::uint32_t kPackedLeafSize = 64;

constexpr float kInfinity = std::numeric_limits<float>::infinity();
const Float4 kEmptyMin = Utils::Splat(kInfinity), kEmptyMax = Utils::Splat(-kInfinity);

Utils::Vector3 Xyz(Float4 lanes) {
    return {lanes[0], lanes[1], lanes[2]};
}

float SumOfSquares(Float4 v) {
    const Float4 squares = v * v;
    return squares[0] + squares[1] + squares[2];
}

float FarthestSquared(const PartTriangle& triangle, const Utils::Vector3& centre) {
    float farthest = 0;
    for (const Utils::Vector3& vertex : triangle)
        farthest = std::max(farthest, Utils::LengthSquared(vertex - centre));
    return farthest;
}

} // namespace

void PartTreeBuilder::Extent::Add(const Extent& other) {
    min = Utils::Min(other.min, min);
    max = Utils::Max(other.max, max);
}

PartTreeBuilder::PartTreeBuilder(PartTree& builtTree) : tree(builtTree) {
    const std::size_t count = tree.triangles.size();
    wordsLimit = kMaxWords * count + kAlways;
    handedLimit = kMaxHanded * count + kAlways;
    packedLimit = kMaxPacked * count;
    extents.reserve(count);
    lists.reserve(3 * count);
    leftList.resize(count);
    sides.resize(count);
    kept.reserve(2 * count);
}

void PartTreeBuilder::Build() {
    static_cast<PartTreeNode&>(tree) = BuildNode(AllTriangles(), 0);
    tree.nodes.assign(nodes.begin(), nodes.end());
    tree.triangleIndices.assign(kept.begin(), kept.end());
    tree.packedLeaves.ShrinkToFit();
}

PartTreeBuilder::List PartTreeBuilder::AllTriangles() {
    const auto count = static_cast<std::uint32_t>(tree.triangles.size());
    List all = {0, count, {kEmptyMin, kEmptyMax}};
    for (const PartTriangle& triangle : tree.triangles) {
        Extent& extent = extents.emplace_back(Extent{kEmptyMin, kEmptyMax});
        for (const Utils::Vector3& vertex : triangle) {
            const Float4 position = {vertex.x(), vertex.y(), vertex.z(), 0};
            extent.Add({position, position});
        }
        all.extent.Add(extent);
    }
    lists.resize(count);
    std::iota(lists.begin(), lists.end(), 0u);
    words = count;
    return all;
}

PartTreeNode PartTreeBuilder::BuildNode(const List& list, std::uint32_t depth) {
    PartTreeNode node;
    if (list.count > 0) {
        node.box.min = Xyz(list.extent.min);
        node.box.max = Xyz(list.extent.max);
    }
    const Split split = Classify(list, node.box);
    node.hasChildren = MaySplit(split, list.count, depth);
    if (!node.hasChildren || list.count < 3)
        Keep(list, node);
    if (!node.hasChildren)
        return node;

    node.left = static_cast<std::uint32_t>(nodes.size());
    node.right = node.left + 1;
    nodes.resize(nodes.size() + 2);
    const auto [left, right] = Divide(list, split.axis);
    nodes[node.left] = BuildNode(left, depth + 1);
    lists.resize(right.first + right.count);
    nodes[node.right] = BuildNode(right, depth + 1);
    return node;
}

/// The axis with the fewest triangles on both sides of the box's middle, the first if equal, and the box's radius.
PartTreeBuilder::Split PartTreeBuilder::Classify(const List& list, PartTreeBox& box) {
    const Utils::Vector3 centre = box.Centre();
    const Float4 middle = {centre.x(), centre.y(), centre.z(), 0};
    Mask4 left = {}, right = {}, both = {};
    float farthest = 0;
    for (std::uint32_t i = 0; i < list.count; ++i) {
        const std::uint32_t triangle = lists[list.first + i];
        const Extent& extent = extents[triangle];
        const Mask4 isLeft = extent.min<middle, isRight = extent.max> middle;
        left -= isLeft;
        right -= isRight;
        both -= isLeft & isRight;
        sides[i] = static_cast<std::uint8_t>(Utils::Bits(isLeft) | Utils::Bits(isRight) << 4);
        // No vertex is farther away than the farthest corner of the extent.
        if (SumOfSquares(Utils::Max(middle - extent.min, extent.max - middle)) > farthest)
            farthest = std::max(farthest, FarthestSquared(tree.triangles[triangle], centre));
    }
    box.radius = std::sqrt(farthest);
    int axis = 0;
    for (int other = 1; other < 3; ++other)
        if (both[other] < both[axis])
            axis = other;
    const auto count = [axis](Mask4 lanes) { return static_cast<std::uint32_t>(lanes[axis]); };
    return {axis, count(left), count(right), count(both)};
}

/// Whether both children get fewer triangles than the node and no limit is exceeded.
bool PartTreeBuilder::MaySplit(const Split& split, std::uint32_t count, std::uint32_t depth) {
    const std::uint64_t children = std::uint64_t{split.left} + split.right;
    if (split.both == split.left || split.both == split.right || split.left >= count || split.right >= count)
        return false;
    const std::uint64_t wordsAfter = words - count + children + 2 * sizeof(PartTreeNode) / sizeof(std::uint32_t);
    if (depth == kMaxDepth || wordsAfter > wordsLimit || handed + children > handedLimit)
        return false;
    words = wordsAfter;
    handed += children;
    return true;
}

/// Replaces the given list with the right list followed by the left list.
std::array<PartTreeBuilder::List, 2> PartTreeBuilder::Divide(const List& list, int axis) {
    const Extent none = {kEmptyMin, kEmptyMax};
    List left = {0, 0, none}, right = {list.first, 0, none};
    for (std::uint32_t i = 0; i < list.count; ++i) {
        const std::uint32_t triangle = lists[list.first + i];
        const unsigned isLeft = sides[i] >> axis & 1u, isRight = sides[i] >> (axis + 4) & 1u;
        leftList[left.count] = triangle;
        left.count += isLeft;
        left.extent.Add(isLeft ? extents[triangle] : none);
        lists[right.first + right.count] = triangle;
        right.count += isRight;
        right.extent.Add(isRight ? extents[triangle] : none);
    }
    left.first = right.first + right.count;
    lists.resize(left.first + left.count);
    std::copy_n(leftList.begin(), left.count, lists.begin() + left.first);
    return {left, right};
}

void PartTreeBuilder::Keep(const List& list, PartTreeNode& node) {
    node.firstTriangle = static_cast<std::uint32_t>(kept.size());
    node.triangleCount = list.count;
    kept.insert(kept.end(), lists.begin() + list.first, lists.begin() + list.first + list.count);
    packed += list.count > kPackedLeafSize ? list.count : 0;
    if (tree.quick && list.count > kPackedLeafSize && packed <= packedLimit)
        node.packedLeaf =
            tree.packedLeaves.Add(tree.triangles, {kept.end() - list.count, kept.end()}, node.box, sortedLeaf);
}

} // namespace CockpitModel
