#pragma once

#include <string>
#include <vector>

namespace Batch {

/// Lines of text for a terminal: columns as wide as their longest cell in characters, two spaces between them and none
/// after the last. All rows have as many cells as the first.
std::string AlignedTable(const std::vector<std::vector<std::string>>& rows, const std::string& indent = {});

} // namespace Batch
