#pragma once

#include <string>
#include <vector>

namespace Batch {

/// One record of a table as RFC 4180 writes it, with a line feed at its end. A field that holds a comma, a quote or a
/// line feed stands in quotes, other control characters are shown as on a terminal, and text that a spreadsheet would
/// take for a formula gets a ' in front.
std::string CsvLine(const std::vector<std::string>& fields);

} // namespace Batch
