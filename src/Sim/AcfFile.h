#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Sim {

/// The last property of a key in an .acf text whose line has a value, as the words behind the key; empty when there is
/// none. A property line is "P <key> <value...>", its words parted by blanks and tabs.
std::vector<std::string_view> LastAcfProperty(std::string_view acf, std::string_view key);

/// Calls `use` with the value words of each property line of a key, in file order.
void ForEachAcfProperty(std::string_view acf, std::string_view key,
                        const std::function<void(const std::vector<std::string_view>&)>& use);

} // namespace Sim
