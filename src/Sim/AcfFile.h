#pragma once

#include <functional>
#include <istream>
#include <string>
#include <string_view>

/// The text of an .acf file. Its property lines are "P <key> <value...>", separated by spaces and tabs. The value is
/// the rest of the line after the key, trimmed; a line without a value is ignored.
namespace Sim {

/// Calls `use` with the value of each property line of a key, in file order.
void ForEachAcfProperty(std::string_view acf, std::string_view key, const std::function<void(std::string_view)>& use);

/// The same for each property line whose key starts with a prefix, with the rest of the key before the value.
void ForEachAcfPropertyBelow(std::string_view acf, std::string_view prefix,
                             const std::function<void(std::string_view rest, std::string_view value)>& use);

/// The value of the last property line of a key; empty if there is none.
std::string_view LastAcfProperty(std::string_view acf, std::string_view key);

/// The same for a file opened in binary mode, read in blocks from its end until the key is found: a file of megabytes
/// has its keys that begin with "acf/" near its end, as X-Plane writes keys in alphabetical order after the geometry.
std::string LastAcfProperty(std::istream& acf, std::string_view key);

} // namespace Sim
