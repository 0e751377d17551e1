#include "Batch/Reports/CsvLine.h"

#include "Batch/Console.h"
#include "Utils/Numbers.h"

#include <boost/algorithm/string/replace.hpp>
#include <string_view>

namespace Batch {

namespace {

/// Spreadsheets read a field that begins with one of these as a formula.
bool LooksLikeFormula(const std::string& text) {
    return !text.empty() && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos &&
           !Utils::ParseWhole<float>(text);
}

std::string CsvField(const std::string& text) {
    const std::string field = (LooksLikeFormula(text) ? "'" : "") + ShownLines(text);
    if (field.find_first_of(",\"\n") == field.npos)
        return field;
    return '"' + boost::replace_all_copy(field, "\"", "\"\"") + '"';
}

} // namespace

std::string CsvLine(const std::vector<std::string>& fields) {
    std::string line;
    for (const std::string& field : fields)
        line += (&field == fields.data() ? "" : ",") + CsvField(field);
    return line + '\n';
}

} // namespace Batch
