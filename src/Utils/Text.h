#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Utils {

/// The only white space of .acf and X-Plane object lines.
constexpr bool IsBlank(char c) {
    return c == ' ' || c == '\t';
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

} // namespace Utils
