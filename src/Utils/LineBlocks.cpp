#include "Utils/LineBlocks.h"

#include <cstring>

namespace Utils {

LineBlocks::LineBlocks(std::istream& source, std::size_t blockSize) : stream(source), buffer(blockSize, '\0') {}

bool LineBlocks::Next(std::string_view& block) {
    std::memmove(buffer.data(), buffer.data() + given, filled - given);
    filled -= given;
    given = 0;
    while (given == 0 && stream) {
        if (filled > buffer.size() / 2)
            buffer.resize(2 * buffer.size());
        const std::size_t space = buffer.size() - filled - kPadding - 1; // one byte for the last line's end
        stream.read(buffer.data() + filled, static_cast<std::streamsize>(space));
        const auto count = static_cast<std::size_t>(stream.gcount());
        const std::size_t end = std::string_view(buffer.data() + filled, count).rfind('\n');
        if (end != std::string_view::npos)
            given = filled + end + 1;
        filled += count;
        if (!stream && filled > given) {
            buffer[filled++] = '\n';
            given = filled;
        }
    }
    block = {buffer.data(), given};
    return given != 0;
}

} // namespace Utils
