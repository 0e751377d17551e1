#include "Utils/Platform.h"

#include "Utils/WideText.h"

#include <boost/filesystem/path.hpp>
#include <codecvt>
#include <locale>
#include <shlobj.h>
#include <string>
#include <windows.h>

namespace Utils::Platform {

namespace {

/// Narrow texts are UTF-8 everywhere in the program, so that a path may contain any characters; the system's code page,
/// which path conversion uses by default, has only some. Set before main, which already creates paths.
const bool pathsAreUtf8 = [] {
    using Conversion = std::codecvt_utf8_utf16<wchar_t>;
    boost::filesystem::path::imbue(std::locale(std::locale::classic(), new Conversion));
    return true;
}();

} // namespace

std::uint32_t LastError() {
    return GetLastError();
}

bool ReadCounter(std::int64_t& count) {
    LARGE_INTEGER now;
    if (!QueryPerformanceCounter(&now))
        return false;
    count = now.QuadPart;
    return true;
}

std::int64_t CounterFrequency() {
    LARGE_INTEGER frequency;
    return QueryPerformanceFrequency(&frequency) && frequency.QuadPart > 0 ? frequency.QuadPart : 1;
}

boost::filesystem::path DataFolder() {
    wchar_t folder[MAX_PATH];
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder)))
        return {};
    return folder;
}

boost::filesystem::path ProgramPath() {
    std::wstring path(MAX_PATH, L'\0');
    constexpr std::size_t longest = 1 << 15;
    for (; path.size() <= longest; path.resize(2 * path.size())) {
        // A path that does not fit is truncated and fills the buffer.
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size())
            return path.substr(0, length);
    }
    return {};
}

void ShowErrorBox(const std::string& caption, const std::string& text) {
    MessageBoxA(nullptr, ToCodePage(text).c_str(), ToCodePage(caption).c_str(), MB_ICONERROR);
}

} // namespace Utils::Platform
