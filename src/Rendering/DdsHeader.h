#pragma once

#include "Rendering/DdsFormats.h"

#include <stdexcept>
#include <string>

namespace Rendering {

/// A fault of a DDS file. The message begins with the file's name and includes its pixel format if known.
class DdsFault : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct DdsHeader {
    std::uint32_t width = 0, height = 0, levels = 0;
    DdsFormat format;
    std::size_t pixelsAt = 0; ///< byte offset in the file

    std::uint32_t WidthOf(std::uint32_t level) const { return width >> level ? width >> level : 1; }
    std::uint32_t HeightOf(std::uint32_t level) const { return height >> level ? height >> level : 1; }
    std::size_t BytesOf(std::uint32_t level) const;
};

/// Reads and checks the header of a whole file, including that the file contains all levels in full. Throws DdsFault.
DdsHeader ReadDdsHeader(std::string_view bytes, const std::string& name);

} // namespace Rendering
