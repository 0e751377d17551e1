#include "Rendering/Memory/NullContext.h"
#include "Rendering/ContextConformance.h"

#include <gmock/gmock.h>

namespace Conformance {

struct MemoryDevice {
    Rendering::Context& Context() { return context; }
    void MakeCurrent() {}

    Rendering::Memory::NullContext context;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, ContextObjects, MemoryDevice);

namespace {

using testing::ElementsAre;

TEST(MemoryContextTest, KeepsThePicturesOfItsBitmaps) {
    Rendering::Memory::NullContext context;
    const auto pixelsOf = [](Rendering::GPUBitmap& bitmap) {
        return dynamic_cast<Rendering::Memory::MemoryBitmap&>(bitmap).pixels.Pixels();
    };
    Rendering::MemBitmap picture(3, 2);
    for (std::uint8_t i = 0; i < 6; ++i)
        picture.SetPixel(i % 3, i / 3, i, i, i, i);
    const auto source = context.CreateBitmap(picture);
    const auto target = context.CreateRenderTarget({2, 2}, 1, 0);
    context.ClearBitmap(target.get(), {1, 1, 1, 1});
    context.CopyBitmapRegion(*target, *source, {1, 1}, {5, 5});
    EXPECT_THAT(pixelsOf(*target), ElementsAre(0x04040404, 0x05050505, 0xFFFFFFFF, 0xFFFFFFFF)) << "and stays inside";
    context.CopyBitmapRegion(*target, *source, {9, 9}, {1, 1});
    context.CopyBitmapRegion(*target, *source, {0, 0}, {3, 1});
    EXPECT_THAT(pixelsOf(*target), ElementsAre(0, 0x01010101, 0xFFFFFFFF, 0xFFFFFFFF));
    context.CopyBitmap(*target, *source);
    EXPECT_THAT(pixelsOf(*target), ElementsAre(0, 0x01010101, 0x03030303, 0x04040404));

    const std::uint8_t grey[] = {0, 0x10, 0xFF};
    EXPECT_THAT(pixelsOf(*context.CreateBitmapFromCameraImage({{3, 1}, grey, {}, {}})),
                ElementsAre(0xFF000000, 0xFF101010, 0xFFFFFFFF));
}

} // namespace
} // namespace Conformance
