#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Utils {

/// The only white space of .acf and X-Plane object lines.
inline constexpr std::string_view kBlanks = " \t";
constexpr bool IsBlank(char c) {
    return c == kBlanks[0] || c == kBlanks[1];
}

/// The text without leading and trailing spaces and tabs.
std::string_view Trim(std::string_view text);

/// The words of a line, split at runs of spaces and tabs.
std::vector<std::string_view> SplitBlanks(std::string_view line);

/// Removes the next line from the front of `text` and returns it without its LF or CR LF; false if nothing is left. A
/// CR at the end of the last line is removed too.
bool NextLine(std::string_view& text, std::string_view& line);

/// ASCII letters in lower case, all other bytes unchanged.
std::string ToLowerAscii(std::string_view text);

/// The text as valid UTF-8 for display: invalid bytes become the replacement character.
std::string ToValidUtf8(std::string_view text);

/// "1 part", "2 parts". The default plural is the singular with an s.
std::string Counted(std::size_t count, std::string_view singular, std::string_view plural = {});

} // namespace Utils
