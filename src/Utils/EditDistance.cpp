#include "Utils/EditDistance.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace Utils {

std::size_t EditDistance(std::string_view a, std::string_view b, std::size_t most) {
    const std::size_t longer = std::max(a.size(), b.size());
    most = std::min(most, longer);
    if (longer - std::min(a.size(), b.size()) > most)
        return most + 1;
    // Only places within `most` of the diagonal can be on a path of at most that many changes.
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        const std::size_t first = i > most ? i - most : 1, last = std::min(b.size(), i + most);
        std::size_t corner = row[first - 1];
        row[first - 1] = first == 1 ? i : most + 1;
        for (std::size_t j = first; j <= last; ++j) {
            const std::size_t changed = corner + (a[i - 1] == b[j - 1] ? 0 : 1);
            corner = row[j];
            row[j] = std::min({changed, row[j] + 1, row[j - 1] + 1});
        }
    }
    return std::min(row.back(), most + 1);
}

} // namespace Utils
