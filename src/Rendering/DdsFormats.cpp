#include "Rendering/DdsFormats.h"

#include "Rendering/LittleEndian.h"

#include <algorithm>
#include <iterator>

namespace Rendering {

namespace {

struct DxgiRow {
    std::uint32_t first, last;
    DdsFormat format;
};

constexpr ChannelBits kNone = {};
constexpr PixelLayout kBlueFirst = {4, {{{16, 8}, {8, 8}, {0, 8}, {24, 8}}}};
constexpr PixelLayout kBlueFirstOpaque = {4, {{{16, 8}, {8, 8}, {0, 8}, kNone}}};

constexpr DxgiRow kDxgiRows[] = {
    {2, 2, {{}, {16, {{{0, 32}, {32, 32}, {64, 32}, {96, 32}}}, true}}},  // R32G32B32A32_FLOAT
    {10, 10, {{}, {8, {{{0, 16}, {16, 16}, {32, 16}, {48, 16}}}, true}}}, // R16G16B16A16_FLOAT
    {11, 11, {{}, {8, {{{0, 16}, {16, 16}, {32, 16}, {48, 16}}}}}},       // R16G16B16A16_UNORM
    {16, 16, {{}, {8, {{{0, 32}, {32, 32}, kNone, kNone}}, true}}},       // R32G32_FLOAT
    {24, 24, {{}, {4, {{{0, 10}, {10, 10}, {20, 10}, {30, 2}}}}}},        // R10G10B10A2_UNORM
    {27, 29, {{}, {4, {{{0, 8}, {8, 8}, {16, 8}, {24, 8}}}}}},            // R8G8B8A8
    {34, 34, {{}, {4, {{{0, 16}, {16, 16}, kNone, kNone}}, true}}},       // R16G16_FLOAT
    {35, 35, {{}, {4, {{{0, 16}, {16, 16}, kNone, kNone}}}}},             // R16G16_UNORM
    {41, 41, {{}, {4, {{{0, 32}, kNone, kNone, kNone}}, true}}},          // R32_FLOAT
    {49, 49, {{}, {2, {{{0, 8}, {8, 8}, kNone, kNone}}}}},                // R8G8_UNORM
    {54, 54, {{}, {2, {{{0, 16}, kNone, kNone, kNone}}, true}}},          // R16_FLOAT
    {56, 56, {{}, {2, {{{0, 16}, kNone, kNone, kNone}}}}},                // R16_UNORM
    {61, 61, {{}, {1, {{{0, 8}, kNone, kNone, kNone}}}}},                 // R8_UNORM
    {65, 65, {{}, {1, {{kNone, kNone, kNone, {0, 8}}}}}},                 // A8_UNORM
    {70, 72, {BlockCode::Bc1, {}}},
    {73, 75, {BlockCode::Bc2, {}}},
    {76, 78, {BlockCode::Bc3, {}}},
    {79, 80, {BlockCode::Bc4, {}}},
    {81, 81, {BlockCode::Bc4Signed, {}}},
    {82, 83, {BlockCode::Bc5, {}}},
    {84, 84, {BlockCode::Bc5Signed, {}}},
    {85, 85, {{}, {2, {{{11, 5}, {5, 6}, {0, 5}, kNone}}}}},   // B5G6R5_UNORM
    {86, 86, {{}, {2, {{{10, 5}, {5, 5}, {0, 5}, {15, 1}}}}}}, // B5G5R5A1_UNORM
    {87, 87, {{}, kBlueFirst}},                                // B8G8R8A8, below X8 for A8 and both again in sRGB
    {88, 88, {{}, kBlueFirstOpaque}},
    {90, 91, {{}, kBlueFirst}},
    {92, 93, {{}, kBlueFirstOpaque}},
    {97, 99, {BlockCode::Bc7, {}}},
    {115, 115, {{}, {2, {{{8, 4}, {4, 4}, {0, 4}, {12, 4}}}}}}, // B4G4R4A4_UNORM
};

constexpr struct {
    std::string_view code;
    BlockCode block;
} kCodeRows[] = {
    {"DXT1", BlockCode::Bc1}, {"DXT2", BlockCode::Bc2}, // with colours premultiplied by alpha, like DXT4
    {"DXT3", BlockCode::Bc2}, {"DXT4", BlockCode::Bc3}, {"DXT5", BlockCode::Bc3},
    {"ATI1", BlockCode::Bc4}, {"BC4U", BlockCode::Bc4}, {"BC4S", BlockCode::Bc4Signed},
    {"ATI2", BlockCode::Bc5}, {"BC5U", BlockCode::Bc5}, {"BC5S", BlockCode::Bc5Signed},
};

/// D3DFMT numbers that files store as the code because no masks describe them.
constexpr struct {
    std::uint32_t number, dxgi;
} kNumberRows[] = {
    {36, 11},  // A16B16G16R16
    {111, 54}, // R16F
    {112, 34}, // G16R16F
    {113, 10}, // A16B16G16R16F
    {114, 41}, // R32F
    {115, 16}, // G32R32F
    {116, 2},  // A32B32G32R32F
};

} // namespace

std::optional<DdsFormat> DxgiFormat(std::uint32_t number) {
    const auto* row = std::ranges::find_if(
        kDxgiRows, [&](const DxgiRow& candidate) { return candidate.first <= number && number <= candidate.last; });
    return row == std::end(kDxgiRows) ? std::nullopt : std::optional(row->format);
}

std::optional<DdsFormat> FourCCFormat(std::string_view code) {
    for (const auto& row : kCodeRows)
        if (row.code == code)
            return DdsFormat{row.block, {}};
    for (const auto& row : kNumberRows)
        if (row.number == LittleEndian(code, 0, 4))
            return DxgiFormat(row.dxgi);
    return std::nullopt;
}

} // namespace Rendering
