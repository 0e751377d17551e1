#pragma once

#include "Rendering/DdsFormats.h"

#include <stdexcept>
#include <string>

namespace Rendering {

/// What is wrong with a DDS file, in words that begin with its name and tell its pixel format if it has one.
class DdsFault : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct DdsHeader {
    std::uint32_t width = 0, height = 0, levels = 0;
    DdsFormat format;
    std::size_t pixelsAt = 0; ///< bytes from the file's start

    std::uint32_t WidthOf(std::uint32_t level) const { return width >> level ? width >> level : 1; }
    std::uint32_t HeightOf(std::uint32_t level) const { return height >> level ? height >> level : 1; }
    std::size_t BytesOf(std::uint32_t level) const;
};

/// Reads and checks the header of a whole file, which then holds all the bytes of the levels promised. Throws DdsFault.
DdsHeader ReadDdsHeader(std::string_view bytes, const std::string& name);

} // namespace Rendering
