#include "FuzzInput.h"

#include "Rendering/BitmapFile.h"
#include "Rendering/Memory/NullContext.h"

/// Larger images only test the library and slow down the search.
constexpr std::size_t kLargestInput = 1 << 16;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > kLargestInput)
        return 0;
    const Fuzz::MemoryFile file(Fuzz::Text(data, size));
    const Rendering::MemBitmap image = Rendering::ReadPngFile(file.Path());
    Fuzz::Require(image.Width() > 0 && image.Height() > 0);
    return 0;
}
