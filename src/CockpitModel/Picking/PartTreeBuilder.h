#pragma once

#include "CockpitModel/Picking/Float4.h"
#include "CockpitModel/Picking/PartTree.h"
#include "Utils/NonAssignable.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <vector>

namespace CockpitModel {

/// Builds one tree by the splitting rule of PartTree.
class PartTreeBuilder : Utils::NonAssignable {
public:
    /// Limits on splitting that keep memory and time linear in the number of triangles. Without them, three thousand
    /// triangles half as large as the space that they are scattered in take 300,000 references, and twenty chosen
    /// triangles 10,000. Parts of real cockpits need up to 19 levels and, per triangle, 26 words of lists and nodes and
    /// 17 entries in all lists that are passed to nodes.
    static constexpr std::uint32_t kMaxDepth = 96;
    static constexpr std::uint64_t kMaxWords = 100, kMaxHanded = 128; ///< per triangle
    static constexpr std::uint64_t kAlways = 4096;                    ///< words and list entries allowed for any part
    /// References per triangle in large leaves that get packs; real parts need 4.
    static constexpr std::uint64_t kMaxPacked = 8;

    explicit PartTreeBuilder(PartTree& builtTree);
    /// Fills everything except the tree's triangles and texture coordinates, which must be set before.
    void Build();

private:
    /// Lanes x, y, z; the fourth is undefined.
    struct Extent {
        Utils::Float4 min, max;
        void Add(const Extent& other);
    };
    /// A list of triangles at the end of `lists`.
    struct List {
        std::uint32_t first, count;
        Extent extent;
    };
    struct Split {
        int axis;
        std::uint32_t left, right, both; ///< triangles
    };

    List AllTriangles();
    PartTreeNode BuildNode(const List& list, std::uint32_t depth);
    Split Classify(const List& list, PartTreeBox& box);
    bool MaySplit(const Split& split, std::uint32_t count, std::uint32_t depth);
    std::array<List, 2> Divide(const List& list, int axis);
    void Keep(const List& list, PartTreeNode& node);

    PartTree& tree;
    std::array<std::byte, 8192> buffer; ///< enough for most parts
    std::pmr::monotonic_buffer_resource pool{buffer.data(), buffer.size()};
    std::pmr::vector<Extent> extents{&pool};         ///< by triangle
    std::pmr::vector<std::uint32_t> lists{&pool};    ///< those waiting for their node, the next one last
    std::pmr::vector<std::uint32_t> leftList{&pool}; ///< while a list is split
    std::pmr::vector<std::uint8_t> sides{&pool};     ///< by index in the current list: bit a is left of the middle of
                                                     ///< axis a, bit a + 4 right of it
    std::pmr::vector<std::uint32_t> kept{&pool};
    std::pmr::vector<PartTreeNode> nodes{&pool};
    std::vector<std::uint64_t> sortedLeaf;           ///< scratch buffer for large leaves
    std::uint64_t words = 0, handed = 0, packed = 0; ///< words: including those of waiting lists
    std::uint64_t wordsLimit, handedLimit, packedLimit;
};

} // namespace CockpitModel
