#include "Batch/Reports/CsvLine.h"

#include "Batch/Console.h"

#include <boost/algorithm/string/replace.hpp>
#include <charconv>
#include <string_view>

namespace Batch {

namespace {

bool IsNumber(const std::string& text) {
    float number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

/// Spreadsheets read a field that begins with one of these as a formula.
bool LooksLikeFormula(const std::string& text) {
    return !text.empty() && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos &&
           !IsNumber(text);
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
