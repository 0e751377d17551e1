#include "Rendering/Bc7Decoder.h"

#include "Rendering/Bc7Tables.h"
#include "Rendering/LittleEndian.h"

#include <bit>
#include <utility>

namespace Rendering {

namespace {

using namespace Bc7;

/// Reads the 128 bits of a block from the lowest upwards.
class BlockBits {
public:
    explicit BlockBits(std::string_view bytes) : low(LittleEndian(bytes, 0, 8)), high(LittleEndian(bytes, 8, 8)) {}

    /// Up to eight bits; 0 for none.
    std::uint32_t Take(unsigned count) {
        if (count == 0)
            return 0;
        const auto value = static_cast<std::uint32_t>(low & ((1u << count) - 1));
        low = low >> count | high << (64 - count);
        high >>= count;
        return value;
    }

private:
    std::uint64_t low, high;
};

/// The partition of a block's pixels into subsets.
struct Division {
    std::uint32_t subsets = 0; ///< the subset of each pixel, `width` bits per pixel, the first pixel lowest
    unsigned width = 1;
    std::uint32_t anchors = 1; ///< one bit per pixel: its index has one bit less

    std::size_t SubsetOf(std::size_t pixel) const { return subsets >> width * pixel & ((1u << width) - 1); }
};

Division DivisionOf(const Mode& mode, std::size_t partition) {
    if (mode.subsets == 2)
        return {kTwoSubsets[partition], 1, 1u | 1u << kAnchorOfTwo[partition]};
    if (mode.subsets == 3)
        return {kThreeSubsets[partition], 2,
                1u | 1u << kSecondAnchorOfThree[partition] | 1u << kThirdAnchorOfThree[partition]};
    return {};
}

using EndColours = std::array<Pixel, 6>; ///< both ends of each subset, one subset after the other

/// Shifts a value to the upper bits of a byte and fills the lower ones with its upper bits.
std::uint8_t Widened(unsigned value, unsigned bits) {
    value <<= 8 - bits;
    return static_cast<std::uint8_t>(value | value >> bits);
}

/// The lowest bit of each end's channels, its own or shared by the subset.
std::array<unsigned, 6> TakeLowestBits(BlockBits& bits, const Mode& mode) {
    std::array<unsigned, 6> lowest{};
    for (std::size_t i = 0; i < 2u * mode.subsets; ++i)
        lowest[i] = mode.sharedLowestBit && i % 2 == 1 ? lowest[i - 1] : bits.Take(1);
    return lowest;
}

EndColours TakeEndColours(BlockBits& bits, const Mode& mode) {
    const std::size_t count = 2u * mode.subsets;
    EndColours ends{};
    for (std::size_t channel = 0; channel < 4; ++channel)
        for (std::size_t i = 0; i < count; ++i)
            ends[i][channel] = static_cast<std::uint8_t>(bits.Take(channel == 3 ? mode.alphaBits : mode.colourBits));
    const bool hasLowest = mode.ownLowestBit || mode.sharedLowestBit;
    const std::array<unsigned, 6> lowest = hasLowest ? TakeLowestBits(bits, mode) : std::array<unsigned, 6>{};
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t channel = 0; channel < 4; ++channel) {
            const unsigned width = channel == 3 ? mode.alphaBits : mode.colourBits;
            const unsigned value = hasLowest ? ends[i][channel] << 1 | lowest[i] : ends[i][channel];
            ends[i][channel] = width == 0 ? 255 : Widened(value, hasLowest ? width + 1 : width);
        }
    return ends;
}

using Weights = std::array<std::uint8_t, 16>; ///< of each pixel's second end, in 64ths

Weights TakeWeights(BlockBits& bits, unsigned width, std::uint32_t anchors) {
    const std::uint8_t* table = width == 2 ? kWeightsOf2.data() : width == 3 ? kWeightsOf3.data() : kWeightsOf4.data();
    Weights weights;
    for (std::uint8_t& weight : weights) {
        weight = table[bits.Take(width - (anchors & 1))];
        anchors >>= 1;
    }
    return weights;
}

std::uint8_t Between(int a, int b, int weight) {
    return static_cast<std::uint8_t>(((64 - weight) * a + weight * b + 32) >> 6);
}

} // namespace

void DecodeBc7(std::string_view bytes, PixelBlock& block) {
    const auto number = static_cast<unsigned>(std::countr_zero(static_cast<std::uint8_t>(bytes[0])));
    if (number >= kModes.size())
        return block.fill({0, 0, 0, 0});
    const Mode& mode = kModes[number];
    BlockBits bits(bytes);
    bits.Take(number + 1);
    const Division division = DivisionOf(mode, bits.Take(mode.partitionBits));
    const std::uint32_t rotation = bits.Take(mode.rotationBits);
    const bool indicesSwapped = bits.Take(mode.selectionBits) != 0;
    const EndColours ends = TakeEndColours(bits, mode);
    Weights colours = TakeWeights(bits, mode.indexBits, division.anchors);
    Weights alphas = mode.secondIndexBits ? TakeWeights(bits, mode.secondIndexBits, division.anchors) : colours;
    if (indicesSwapped)
        std::swap(colours, alphas);
    for (std::size_t i = 0; i < block.size(); ++i) {
        const std::size_t subset = division.SubsetOf(i);
        const Pixel &a = ends[2 * subset], &b = ends[2 * subset + 1];
        block[i] = {Between(a[0], b[0], colours[i]), Between(a[1], b[1], colours[i]), Between(a[2], b[2], colours[i]),
                    Between(a[3], b[3], alphas[i])};
        if (rotation != 0)
            std::swap(block[i][rotation - 1], block[i][3]);
    }
}

} // namespace Rendering
