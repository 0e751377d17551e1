#include "Batch/Reports/AlignedTable.h"

#include <algorithm>

namespace Batch {

namespace {

/// Counts characters: all bytes except UTF-8 continuation bytes.
std::size_t Width(const std::string& text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; }));
}

} // namespace

std::string AlignedTable(const std::vector<std::vector<std::string>>& rows, const std::string& indent) {
    std::vector<std::size_t> widths(rows.front().size());
    for (const auto& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], Width(row[i]));
    std::string text;
    for (const auto& row : rows) {
        text += indent;
        for (std::size_t i = 0; i < row.size(); ++i)
            text += row[i] + std::string(i + 1 < row.size() ? widths[i] - Width(row[i]) + 2 : 0, ' ');
        text += '\n';
    }
    return text;
}

} // namespace Batch
