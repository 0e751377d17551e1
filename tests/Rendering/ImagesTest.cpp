#include "Rendering/Images.h"

#include "Logging/Logger.h"
#include "Support/FatalErrorRecorder.h"
#include "Support/TemporaryFolder.h"

#include <cstdlib>
#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// The pixels of a bitmap that had another size before.
std::vector<std::uint32_t> PixelsOf(cairo_surface_t* surface) {
    Rendering::MemBitmap target(7, 7);
    Rendering::FromCairoSurface(target, surface);
    return {target.Pixels().begin(), target.Pixels().end()};
}

TEST(ImagesTest, CopiesTheRowsOfASurfaceWithoutPadding) {
    std::uint32_t rows[2][16] = {{1, 2, 0xEE}, {3, 4, 0xEE}};
    cairo_surface_t* surface = cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(rows),
                                                                   CAIRO_FORMAT_ARGB32, 2, 2, sizeof(rows[0]));
    EXPECT_THAT(PixelsOf(surface), ElementsAre(1, 2, 3, 4));
    cairo_surface_destroy(surface);
}

TEST(ImagesTest, ASurfaceWithoutASizeIsOneTransparentPixelAndTooShortRowsAreFatal) {
    const auto readOdd = [] {
        {
            const Support::TemporaryFolder data;
            setenv("XDG_DATA_HOME", data.path.c_str(), 1);
            Logging::Logger::Get().Start();
            EXPECT_THAT(PixelsOf(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 0, 5)), ElementsAre(0));
            EXPECT_THAT(PixelsOf(cairo_image_surface_create_from_png("no/such.png")), ElementsAre(0));
            const Support::FatalErrorRecorder dialog;
            EXPECT_THROW(PixelsOf(cairo_image_surface_create(CAIRO_FORMAT_A8, 9, 2)),
                         std::exception); // one byte a pixel
            EXPECT_EQ(dialog.texts.size(), 1u);
            EXPECT_THAT(data.Read("Vorelle/log.txt"), HasSubstr("\t\tInvalid Bitmap from Cairo\n"));
        }
        std::_Exit(testing::Test::HasFailure() ? 1 : 0);
    };
    // In a new process, because a fatal error ends the one log of a process, and an earlier test may have done so.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(readOdd(), testing::ExitedWithCode(0), "");
}

TEST(ImagesTest, MakesAPngAsSmallAsNeeded) {
    Rendering::MemBitmap noise(320, 200);
    std::uint32_t random = 1;
    for (std::uint32_t& pixel : noise.Pixels())
        pixel = random = random * 1664525u + 1013904223u;
    const std::string full = Rendering::ToPng(noise);
    EXPECT_EQ(Rendering::ToPng(noise, full.size()), full);
    const std::string small = Rendering::ToPng(noise, 22'500);
    EXPECT_LE(small.size(), 22'500u);
    EXPECT_GT(small.size(), 2'000u) << "not plainer than needed";
    EXPECT_EQ(small.substr(16, 8), std::string("\0\0\1\x40\0\0\0\xC8", 8)) << "320 x 200";
    EXPECT_THROW(Rendering::ToPng(noise, 10), std::runtime_error);
}

} // namespace
