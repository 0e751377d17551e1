#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Utils {

struct SaveResult {
    bool saved = false;
    std::string error; ///< message with the path, if not saved
    explicit operator bool() const { return saved; }
};

/// The result of a save that ran out of memory. The reason has at most 15 characters, which need no allocation.
template <std::size_t size>
SaveResult NotSaved(const char (&reason)[size]) noexcept {
    static_assert(size <= 16);
    return {false, reason};
}

/// Replaces a file's content, or leaves the file unchanged and returns the reason: a reader finds either the old or the
/// new content, even after a crash of the program or the machine. The new file takes the mode of the old one; a link
/// stays, and its target is replaced. A device or pipe is written to directly.
/// Any thread may call it. The bytes first go to a temporary file in the target's folder; one left by a killed process
/// is removed by the next save of the same target.
SaveResult SaveFile(const std::string& path, std::string_view bytes) noexcept;

} // namespace Utils
