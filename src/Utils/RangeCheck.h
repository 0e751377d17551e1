#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>

namespace Utils {

/// An index that names no entry. what() is the fixed text of the checked containers; Reason() says in words, for
/// whoever shows it to a person, which file, which line and what was wrong, and is empty where nobody knew.
class OutOfRange : public std::out_of_range {
public:
    explicit OutOfRange(std::string why = {})
        : std::out_of_range("invalid vector<T> subscript"), reason(std::move(why)) {}
    const std::string& Reason() const { return reason; }

private:
    std::string reason;
};

/// The entry of a vector-like list at an index, which throws OutOfRange when it names none. Negative indices of
/// signed types name none either.
template <typename List, typename Index>
decltype(auto) At(List& list, Index index) {
    if (std::cmp_less(index, 0) || std::cmp_greater_equal(index, list.size()))
        throw OutOfRange();
    return list[static_cast<std::size_t>(index)];
}

/// What went wrong in words: the reason of an OutOfRange where it has one, else what().
std::string Describe(const std::exception& error);

} // namespace Utils
