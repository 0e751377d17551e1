#include "Rendering/BitmapFile.h"

#include "Support/DdsBuilder.h"
#include "Support/FatalErrorRecorder.h"
#include "Support/TemporaryFolder.h"

#include <cairo.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

/// Writes a PNG whose pixels are given as cairo holds them: alpha, red, green, blue in a word, premultiplied.
void WritePng(const std::string& path, int width, int height, std::vector<std::uint32_t> pixels) {
    cairo_surface_t* surface = cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixels.data()),
                                                                   CAIRO_FORMAT_ARGB32, width, height, 4 * width);
    ASSERT_EQ(cairo_surface_write_to_png(surface, path.c_str()), CAIRO_STATUS_SUCCESS);
    cairo_surface_destroy(surface);
}

TEST(BitmapFileTest, APngComesWithTheColoursThatItsPainterChose) {
    const Support::TemporaryFolder folder;
    WritePng(folder / "a.png", 2, 2, {0xFF010203, 0x80400000, 0x00000000, 0x40404040});
    const auto levels = Rendering::ReadBitmapFile(folder / "a.png");
    ASSERT_EQ(levels.size(), 1u);
    ASSERT_EQ(levels[0].Pixels().size(), 4u);
    EXPECT_EQ(levels[0].Pixels()[0], 0xFF030201u) << "red is the lowest byte";
    EXPECT_EQ(levels[0].Pixels()[1], 0x80000080u) << "half of red 128 at alpha 128 is 64";
    EXPECT_EQ(levels[0].Pixels()[2], 0u);
    EXPECT_EQ(levels[0].Pixels()[3], 0x40FFFFFFu);
}

TEST(BitmapFileTest, APngThatCannotBeReadIsOneTransparentPixel) {
    const Support::TemporaryFolder folder;
#ifndef _WIN32 // where it is one more file that is missing
    ASSERT_EQ(mkfifo((folder / "pipe.png").c_str(), 0600), 0);
#endif
    // A header that promises 32,767 by 32,767 pixels, for which there is room in cairo and hardly in the machine.
    const std::string vast =
        folder.Write("vast.png", std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\x7F\xFF\0\0\x7F\xFF", 24));
    for (const std::string& path :
         {folder / "missing.png", folder.Write("not.png", "GIF89a"), folder / "pipe.png", folder.path.string(), vast}) {
        const auto levels = Rendering::ReadBitmapFile(path);
        ASSERT_EQ(levels.size(), 1u) << path;
        ASSERT_EQ(levels[0].Pixels().size(), 1u) << path;
        EXPECT_EQ(levels[0].Pixels()[0], 0u) << path;
    }
}

TEST(BitmapFileTest, AnyNameThatHoldsDdsTakesThatRoadAndADamagedOneIsFatal) {
    const Support::TemporaryFolder folder;
    const std::string bytes = Support::DdsBuilder(2, 1)
                                  .Plain(0xFF, 0xFF00, 0xFF0000, 0)
                                  .Word(28, 2)
                                  .Pixels({1, 2, 3, 4, 5, 6, 7, 8, 9, 9, 9, 9})
                                  .bytes;
    for (const char* name : {"a.dds", "A.DDS", "a.dds.png", "b.DdS old"}) {
        const auto levels = Rendering::ReadBitmapFile(folder.Write(name, bytes));
        ASSERT_EQ(levels.size(), 2u) << name;
        EXPECT_EQ(levels[0].Pixels()[1], 0xFF070605u) << name;
    }
    Support::FatalErrorRecorder dialog;
    EXPECT_THROW(Rendering::ReadBitmapFile(folder.Write("cut.dds", bytes.substr(0, 139))), std::exception);
    EXPECT_EQ(dialog.texts.size(), 1u);
}

} // namespace
