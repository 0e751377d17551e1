#pragma once

#include <string>
#include <vector>

namespace Batch {

/// One record of a table as in RFC 4180, with a line feed at its end. A field with a comma, a quote or a line feed is
/// quoted, other control characters are escaped as on a terminal, and text that a spreadsheet would read as a formula
/// gets a ' in front.
std::string CsvLine(const std::vector<std::string>& fields);

} // namespace Batch
