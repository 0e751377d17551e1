#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <unordered_map>
#include <utility>

namespace CockpitModel {

/// Values that are looked up by name and iterated in the order in which their names were first used.
template <typename Value>
class OrderedTable {
public:
    /// Creates an empty value for a new name. References stay valid as long as the table.
    Value& operator[](const std::string& name) {
        const auto [place, isNew] = places.try_emplace(name, entries.size());
        return isNew ? entries.emplace_back(name, Value()).second : entries[place->second].second;
    }
    /// Null if there is no such name.
    const Value* Find(const std::string& name) const {
        const auto place = places.find(name);
        return place == places.end() ? nullptr : &entries[place->second].second;
    }
    auto begin() const { return entries.begin(); }
    auto end() const { return entries.end(); }

private:
    std::deque<std::pair<std::string, Value>> entries;
    std::unordered_map<std::string, std::size_t> places;
};

} // namespace CockpitModel
