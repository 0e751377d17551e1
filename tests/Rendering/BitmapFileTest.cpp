#include "Rendering/BitmapFile.h"

#include "Support/DdsBuilder.h"
#include "Support/FatalErrorRecorder.h"
#include "Support/TemporaryFolder.h"

#include <cairo.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

constexpr std::atomic<bool> kGoOn{false}, kStop{true};

TEST(BitmapFileTest, APngIsReadInCairosFormat) {
    const Support::TemporaryFolder folder;
    // Alpha, red, green, blue in a 32-bit word, premultiplied.
    std::uint32_t pixels[] = {0xFF010203, 0x80400000, 0x00000000, 0x40404040};
    cairo_surface_t* surface =
        cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixels), CAIRO_FORMAT_ARGB32, 2, 2, 8);
    ASSERT_EQ(cairo_surface_write_to_png(surface, (folder / "a.png").c_str()), CAIRO_STATUS_SUCCESS);
    cairo_surface_destroy(surface);
    EXPECT_THAT(Rendering::ReadPngFile(folder / "a.png").Pixels(), ElementsAreArray(pixels));
    EXPECT_THAT(Rendering::ReadBitmapFile(folder / "a.png", kGoOn)->Pixels(), ElementsAreArray(pixels));
    EXPECT_FALSE(Rendering::ReadBitmapFile(folder / "a.png", kStop));
}

TEST(BitmapFileTest, ADdsFileIsReadInTheSameFormat) {
    const Support::TemporaryFolder folder;
    Support::DdsBuilder dds(1, 1);
    dds.Plain(0x000000FF, 0x0000FF00, 0x00FF0000, 0xFF000000).Pixels({1, 2, 3, 128});
    EXPECT_THAT(Rendering::ReadBitmapFile(folder.Write("a.DDS", dds.bytes), kGoOn)->Pixels(), ElementsAre(0x80010203));
    EXPECT_FALSE(Rendering::ReadBitmapFile(folder.Write("b.dds", "DDS "), kGoOn));
}

TEST(BitmapFileTest, AnUnreadablePngIsOneTransparentPixel) {
    const Support::TemporaryFolder folder;
#ifndef _WIN32 // there it would be just another missing file
    ASSERT_EQ(mkfifo((folder / "pipe.png").c_str(), 0600), 0);
#endif
    // A header of 32,767 by 32,767 pixels, which cairo allows but which hardly fits in memory.
    const std::string vast =
        folder.Write("vast.png", std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\x7F\xFF\0\0\x7F\xFF", 24));
    for (const std::string& path :
         {folder / "missing.png", folder.Write("not.png", "GIF89a"), folder / "pipe.png", folder.path.string(), vast}) {
        EXPECT_THAT(Rendering::ReadPngFile(path).Pixels(), ElementsAre(0)) << path;
        EXPECT_FALSE(Rendering::ReadBitmapFile(path, kGoOn)) << path;
    }
}

} // namespace
