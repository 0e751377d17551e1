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

/// The text without blanks and tabs at its ends.
std::string_view Trim(std::string_view text);

/// The words of a line, split at runs of blanks and tabs.
std::vector<std::string_view> SplitBlanks(std::string_view line);

/// Takes the next line off the front of `text`, without its LF or CR LF; false when nothing is left.
/// A last line that only a CR ends loses it too.
bool NextLine(std::string_view& text, std::string_view& line);

/// ASCII letters in lower case, all other bytes as they stand.
std::string ToLowerAscii(std::string_view text);

/// The text as UTF-8 for a person to read: bytes that are no UTF-8 become the replacement character.
std::string ToValidUtf8(std::string_view text);

/// "1 part", "2 parts". Without `plural` it is the singular with an s.
std::string Counted(std::size_t count, std::string_view singular, std::string_view plural = {});

} // namespace Utils
