#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>

namespace Utils {

/// An index out of range. what() is the fixed text of checked containers; Reason() is a message for the user with the
/// file, the line and the fault, empty if unknown.
class OutOfRange : public std::out_of_range {
public:
    explicit OutOfRange(std::string why = {})
        : std::out_of_range("invalid vector<T> subscript"), reason(std::move(why)) {}
    const std::string& Reason() const { return reason; }

private:
    std::string reason;
};

/// The element at an index of a vector-like list. Throws OutOfRange for an index out of range, including negative
/// values of signed types.
template <typename List, typename Index>
decltype(auto) At(List& list, Index index) {
    if (std::cmp_less(index, 0) || std::cmp_greater_equal(index, list.size()))
        throw OutOfRange();
    return list[static_cast<std::size_t>(index)];
}

/// The message of an exception: the reason of an OutOfRange if it has one, else what().
std::string Describe(const std::exception& error);

} // namespace Utils
