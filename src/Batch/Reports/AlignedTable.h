#pragma once

#include <string>
#include <vector>

namespace Batch {

/// Lines of text for a terminal. Each column is as wide as its longest cell in characters. Columns are separated by two
/// spaces; lines have no trailing spaces. All rows have the same number of cells.
std::string AlignedTable(const std::vector<std::vector<std::string>>& rows, const std::string& indent = {});

} // namespace Batch
