#include "Batch/CsvLine.h"

#include <boost/algorithm/string/replace.hpp>

namespace Batch {

namespace {

std::string CsvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == text.npos)
        return text;
    return '"' + boost::replace_all_copy(text, "\"", "\"\"") + '"';
}

} // namespace

std::string CsvLine(const std::vector<std::string>& fields) {
    std::string line;
    for (const std::string& field : fields)
        line += (&field == fields.data() ? "" : ",") + CsvField(field);
    return line + '\n';
}

} // namespace Batch
