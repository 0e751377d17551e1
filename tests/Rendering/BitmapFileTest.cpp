#include "Rendering/BitmapFile.h"

#include "Support/DdsBuilder.h"
#include "Support/FatalErrorRecorder.h"
#include "Support/TemporaryFolder.h"

#include <cairo.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

namespace {

using Rendering::ReadBitmapFile;
using testing::ElementsAre;

TEST(BitmapFileTest, APngComesWithTheColoursThatItsPainterChose) {
    const Support::TemporaryFolder folder;
    // As cairo holds them: alpha, red, green, blue in a word, premultiplied.
    std::uint32_t pixels[] = {0xFF010203, 0x80400000, 0x00000000, 0x40404040};
    cairo_surface_t* surface =
        cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixels), CAIRO_FORMAT_ARGB32, 2, 2, 8);
    ASSERT_EQ(cairo_surface_write_to_png(surface, (folder / "a.png").c_str()), CAIRO_STATUS_SUCCESS);
    cairo_surface_destroy(surface);
    const auto levels = ReadBitmapFile(folder / "a.png");
    ASSERT_EQ(levels.size(), 1u);
    // Red is the lowest byte; half of red 128 at alpha 128 was 64.
    EXPECT_THAT(levels[0].Pixels(), ElementsAre(0xFF030201, 0x80000080, 0, 0x40FFFFFF));
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
        const auto levels = ReadBitmapFile(path);
        ASSERT_EQ(levels.size(), 1u) << path;
        EXPECT_THAT(levels[0].Pixels(), ElementsAre(0)) << path;
    }
}

TEST(BitmapFileTest, AnyNameThatHoldsDdsTakesThatRoadAndADamagedOneIsFatal) {
    const Support::TemporaryFolder folder;
    const std::string bytes = Support::DdsBuilder(1, 1).Plain(0xFF, 0xFF00, 0xFF0000, 0).Pixels({1, 2, 3, 4}).bytes;
    for (const char* name : {"a.dds", "A.DDS", "a.dds.png", "b.DdS old"})
        EXPECT_THAT(ReadBitmapFile(folder.Write(name, bytes)).at(0).Pixels(), ElementsAre(0xFF030201)) << name;
    const Support::FatalErrorRecorder dialog;
    EXPECT_THROW(ReadBitmapFile(folder.Write("cut.dds", bytes.substr(0, 131))), std::exception);
    EXPECT_EQ(dialog.texts.size(), 1u);
}

} // namespace
