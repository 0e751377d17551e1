#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Utils {

struct SaveResult {
    bool saved = false;
    std::string error; ///< in words, with the path, where not saved
    explicit operator bool() const { return saved; }
};

/// The result of a save that memory ran out in. The reason has at most 15 characters, which need no memory.
template <std::size_t size>
SaveResult NotSaved(const char (&reason)[size]) noexcept {
    static_assert(size <= 16);
    return {false, reason};
}

/// Makes a file's content these bytes, or leaves the file as it was, byte for byte, and says why: a reader, also one
/// after a crash of the program or the machine, finds the old file or the new one. The new file takes the mode of the
/// old one; a link stays, and what it points to is replaced. A device or pipe is written to directly.
/// Any thread may call it. The bytes go to a file beside the target first; what a process that was killed left there is
/// removed by the next save of the same target.
SaveResult SaveFile(const std::string& path, std::string_view bytes) noexcept;

} // namespace Utils
