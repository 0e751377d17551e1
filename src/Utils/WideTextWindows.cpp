#include "Utils/WideText.h"

#include <windows.h>

namespace Utils {

namespace {

std::string Narrow(std::wstring_view text, UINT codePage) {
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(codePage, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(codePage, 0, text.data(), length, narrow.data(), size, nullptr, nullptr);
    return narrow;
}

} // namespace

std::wstring ToWideText(std::string_view text) {
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), size);
    return wide;
}

std::string FromWideText(std::wstring_view text) {
    return Narrow(text, CP_UTF8);
}

std::string ToCodePage(std::string_view text) {
    return Narrow(ToWideText(text), CP_ACP);
}

} // namespace Utils
