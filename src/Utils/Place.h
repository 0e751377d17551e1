#pragma once

#include <cstddef>
#include <string_view>

namespace Utils {

/// A source file's path as log lines and fatal errors print it: below src, with backslashes.
template <std::size_t N>
struct Place {
    char text[N] = {};

    consteval Place(const char (&compilerFile)[N]) { // NOLINT: converts from __FILE__ implicitly
        constexpr std::string_view root = "src/";
        const std::string_view file(compilerFile, N - 1);
        const std::size_t at = file.rfind("/src/");
        const std::size_t start = file.starts_with(root) ? root.size() : at == file.npos ? 0 : at + root.size() + 1;
        for (std::size_t i = start; i < file.size(); ++i)
            text[i - start] = file[i] == '/' ? '\\' : file[i];
    }
};

template <Place place>
inline constexpr const char* kPlaceText = place.text;

} // namespace Utils

/// The caller's source location, as the first two arguments of Logger::Log and FatalError.
#define HERE ::Utils::kPlaceText<__FILE__>, __LINE__
