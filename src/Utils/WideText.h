#pragma once

#include <string>
#include <string_view>

namespace Utils {

/// A UTF-8 text as UTF-16 for Windows calls; an invalid byte becomes the replacement character. Windows only.
std::wstring ToWideText(std::string_view text);
std::string FromWideText(std::wstring_view text);
/// A UTF-8 text in the system's code page, for calls that take narrow texts.
std::string ToCodePage(std::string_view text);

} // namespace Utils
