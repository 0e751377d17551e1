#pragma once

#include <cstddef>
#include <istream>
#include <string>
#include <string_view>

namespace Utils {

/// A stream as blocks of whole lines that go through one small buffer: fresh memory for a whole file would cost as much
/// time as reading it. A line that is longer than the buffer makes it grow.
class LineBlocks {
public:
    /// So many bytes behind a block may be read, whatever they hold.
    static constexpr std::size_t kPadding = 8;

    explicit LineBlocks(std::istream& source);

    /// The next block, which ends with a line feed also where the stream does not, and stands until the next call.
    /// False at the stream's end.
    bool Next(std::string_view& block);

private:
    std::istream& stream;
    std::string buffer;
    std::size_t given = 0, filled = 0; ///< what lies between them is the front of the next line
};

} // namespace Utils
