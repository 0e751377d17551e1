#include "CockpitModel/Panels/ConfigFile.h"

#include "Utils/Text.h"

#include <boost/algorithm/string/trim.hpp>
#include <locale>

namespace CockpitModel {

namespace {

constexpr std::size_t kShortestLine = 4;

std::string WithoutWhiteSpace(const std::string& text) {
    return boost::trim_copy(text, std::locale::classic());
}

} // namespace

ConfigFile::ConfigFile(std::istream& stream, bool caseSensitive) : caseSensitive(caseSensitive) {
    Table* current = nullptr;
    for (std::string line; std::getline(stream, line);) {
        boost::trim(line, std::locale::classic());
        if (line.size() < kShortestLine || line.front() == '#')
            continue;
        if (line.front() != '[')
            ReadKey(line, current);
        else if (line.back() == ']')
            current = &sections[Folded(line.substr(1, line.size() - 2))];
    }
}

void ConfigFile::ReadKey(const std::string& line, Table* section) const {
    const std::size_t equals = line.find('=');
    if (!section || equals == 0 || equals == line.npos)
        return;
    (*section)[Folded(WithoutWhiteSpace(line.substr(0, equals)))] = WithoutWhiteSpace(line.substr(equals + 1));
}

std::optional<std::string> ConfigFile::Get(const std::string& section, const std::string& key) const {
    const Table* table = sections.Find(Folded(section));
    const std::string* value = table ? table->Find(Folded(key)) : nullptr;
    return value ? std::optional(*value) : std::nullopt;
}

ConfigFile::Table ConfigFile::Section(const std::string& section) const {
    const Table* table = sections.Find(Folded(section));
    return table ? *table : Table();
}

std::string ConfigFile::Folded(const std::string& name) const {
    return caseSensitive ? name : Utils::ToLowerAscii(name);
}

} // namespace CockpitModel
