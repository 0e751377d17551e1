#pragma once

#include "CockpitModel/Panels/OrderedTable.h"

#include <istream>
#include <optional>
#include <string>

namespace CockpitModel {

/// A text of named sections, each a table from key to value, both in the order of the text. Malformed lines are
/// silently skipped.
class ConfigFile {
public:
    using Table = OrderedTable<std::string>;

    /// If `caseSensitive` is false, section names and keys are stored and looked up in lower case; values are
    /// unchanged.
    ConfigFile(std::istream& stream, bool caseSensitive);

    std::optional<std::string> Get(const std::string& section, const std::string& key) const;
    /// A copy of the section's table, empty if there is no such section.
    Table Section(const std::string& section) const;
    const OrderedTable<Table>& Sections() const { return sections; }

private:
    void ReadKey(const std::string& line, Table* section) const;
    std::string Folded(const std::string& name) const;

    OrderedTable<Table> sections;
    bool caseSensitive;
};

} // namespace CockpitModel
