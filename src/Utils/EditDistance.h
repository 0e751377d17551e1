#pragma once

#include <cstddef>
#include <string_view>

namespace Utils {

/// The number of insertions, deletions and substitutions of one byte that turn one text into the other; `most` + 1 if
/// there are more than `most`. Takes time in proportion to the length of the texts times `most`.
std::size_t EditDistance(std::string_view a, std::string_view b, std::size_t most = std::string_view::npos);

} // namespace Utils
