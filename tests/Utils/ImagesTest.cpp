#include "Utils/Images.h"

#include <array>
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

TEST(ImagesTest, CopiesTheRowsOfASurfaceWithoutTheirGaps) {
    constexpr int kStride = 64;
    std::array<unsigned char, 2 * kStride> data;
    data.fill(0xEE);
    const std::array<unsigned char, 8> rows[] = {{1, 2, 3, 4, 5, 6, 7, 8}, {9, 10, 11, 12, 13, 14, 15, 16}};
    std::copy(rows[0].begin(), rows[0].end(), data.begin());
    std::copy(rows[1].begin(), rows[1].end(), data.begin() + kStride);
    cairo_surface_t* surface = cairo_image_surface_create_for_data(data.data(), CAIRO_FORMAT_ARGB32, 2, 2, kStride);
    Rendering::MemBitmap target(7, 7);
    Utils::FromCairoSurface(target, surface);
    ASSERT_EQ(target.Pixels().size(), 4u);
    EXPECT_EQ(target.Pixels()[0], 0x04030201u);
    EXPECT_EQ(target.Pixels()[1], 0x08070605u);
    EXPECT_EQ(target.Pixels()[2], 0x0C0B0A09u);
    EXPECT_EQ(target.Pixels()[3], 0x100F0E0Du);
    cairo_surface_destroy(surface);
}

// The other cases run in processes of their own, as they write to the log or end it, and there is one log a process.

TEST(ImagesTest, ASurfaceWithoutASizeIsOneTransparentPixel) {
    const auto onePixelOf = [](cairo_surface_t* surface) {
        Rendering::MemBitmap target(3, 3);
        Utils::FromCairoSurface(target, surface);
        std::_Exit(target.Width() == 1 && target.Height() == 1 && target.Pixels()[0] == 0 ? 0 : 1);
    };
    EXPECT_EXIT(onePixelOf(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 0, 5)), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(onePixelOf(cairo_image_surface_create_from_png("no/such.png")), testing::ExitedWithCode(0), "");
}

TEST(ImagesTest, ASurfaceWhoseRowsAreTooShortIsAFatalError) {
    const auto readNarrow = [] {
        Rendering::MemBitmap target;
        try {
            Utils::FromCairoSurface(target, cairo_image_surface_create(CAIRO_FORMAT_A8, 9, 2)); // one byte a pixel
        } catch (const std::exception&) {
            std::_Exit(3);
        }
        std::_Exit(0);
    };
    EXPECT_EXIT(readNarrow(), testing::ExitedWithCode(3), "Vorelle Fatal Error Encountered");
}

} // namespace
