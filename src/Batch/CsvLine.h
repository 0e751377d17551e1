#pragma once

#include <string>
#include <vector>

namespace Batch {

/// One record of a table as RFC 4180 writes it, with a line feed at its end. A field that holds a comma, a quote or a
/// line's end stands in quotes.
std::string CsvLine(const std::vector<std::string>& fields);

} // namespace Batch
