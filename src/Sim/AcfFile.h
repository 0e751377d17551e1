#pragma once

#include <functional>
#include <string_view>

/// The text of an .acf file. Its property lines are "P <key> <value...>", the words parted by blanks and tabs. A line
/// of a key without a value counts for nothing; a value is all that stands behind the key, without blanks at its ends.
namespace Sim {

/// Calls `use` with the value of each property line of a key, in file order.
void ForEachAcfProperty(std::string_view acf, std::string_view key, const std::function<void(std::string_view)>& use);

/// The value of the last property line of a key; empty when there is none.
std::string_view LastAcfProperty(std::string_view acf, std::string_view key);

} // namespace Sim
