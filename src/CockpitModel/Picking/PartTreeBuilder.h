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

/// Splits the triangles of one tree by the rule of PartTree.
class PartTreeBuilder : Utils::NonAssignable {
public:
    /// What stops a split, so that memory and time stay in proportion to the number of triangles: by the rule alone,
    /// three thousand triangles half as large as the space that they are scattered in take 300,000 references, and
    /// twenty chosen triangles 10,000. Parts of real cockpits need up to 19 levels, 26 words of lists and nodes a
    /// triangle, and 17 entries a triangle in all lists together that nodes are handed.
    static constexpr std::uint32_t kMaxDepth = 96;
    static constexpr std::uint64_t kMaxWords = 100, kMaxHanded = 128; ///< a triangle
    static constexpr std::uint64_t kAlways = 4096;                    ///< words and handed entries for any part
    /// References a triangle in large leaves that get packs; real parts need 4.
    static constexpr std::uint64_t kMaxPacked = 8;

    explicit PartTreeBuilder(PartTree& builtTree);
    /// Fills everything but the tree's triangles and texture coordinates, which it needs.
    void Build();

private:
    /// Lanes x, y, z; the fourth holds anything.
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
    std::array<std::byte, 8192> room; ///< most parts need no more
    std::pmr::monotonic_buffer_resource pool{room.data(), room.size()};
    std::pmr::vector<Extent> extents{&pool};         ///< by triangle
    std::pmr::vector<std::uint32_t> lists{&pool};    ///< those that wait for their node, the next one last
    std::pmr::vector<std::uint32_t> leftList{&pool}; ///< while a list is divided
    std::pmr::vector<std::uint8_t> sides{&pool};     ///< by place in the present list: bit a is left of the middle of
                                                     ///< axis a, bit a + 4 right of it
    std::pmr::vector<std::uint32_t> kept{&pool};
    std::pmr::vector<PartTreeNode> nodes{&pool};
    std::vector<std::uint64_t> sortedLeaf;           ///< room for large leaves
    std::uint64_t words = 0, handed = 0, packed = 0; ///< words: also those of lists that wait
    std::uint64_t wordsLimit, handedLimit, packedLimit;
};

} // namespace CockpitModel
