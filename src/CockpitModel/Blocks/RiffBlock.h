#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

namespace CockpitModel {

/// One step of indentation in a dump.
inline constexpr const char* kDumpIndent = "  ";

/// Common fields of the model blocks, which are named after the chunks of a RIFF model file. No such file is read here:
/// Name, Data and FileOffset keep their defaults for X-Plane cockpits. Blocks are stored and copied by value.
class RiffBlock {
public:
    virtual void Print(std::string indent, std::ostream& stream) const;

    std::string Name;
    std::string Data;
    std::uint64_t FileOffset = 0;
};

/// A block that is a list of records of one type.
template <typename T>
class RiffBlockWithChildObject : public RiffBlock {
public:
    /// Prints each child in order, up to the limit.
    virtual void PrintChildren(std::string indent, std::ostream& stream, std::size_t limit) const {
        for (std::size_t i = 0; i < Children.size() && i < limit; ++i)
            PrintChild(Children[i], indent, stream);
    }
    virtual void PrintChild(const T&, std::string, std::ostream&) const {}

    std::vector<T> Children;
};

} // namespace CockpitModel
