#pragma once

#include <cstddef>
#include <istream>
#include <string>
#include <string_view>

namespace Utils {

/// Reads a stream in blocks of whole lines through one small buffer: allocating memory for a whole file would take as
/// long as reading it. The buffer grows for a longer line.
class LineBlocks {
public:
    /// Number of bytes after a block that may be read; their values are undefined.
    static constexpr std::size_t kPadding = 8;

    static constexpr std::size_t kBlockSize = 64 << 10;

    explicit LineBlocks(std::istream& source, std::size_t blockSize = kBlockSize);

    /// The next block, valid until the next call. It ends with a line feed even if the stream does not. False at the
    /// end of the stream.
    bool Next(std::string_view& block);

private:
    std::istream& stream;
    std::string buffer;
    std::size_t given = 0, filled = 0; ///< the bytes between them begin the next line
};

} // namespace Utils
