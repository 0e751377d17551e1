#pragma once

#include "CockpitModel/XPlane/NumberText.h"
#include "Utils/Text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace CockpitModel {

/// One line of an X-Plane object, read from left to right: the keyword, then the values in order. From the first
/// missing or malformed value on, numbers read as 0 and words as empty. The text ends with a line feed, so scans need
/// no end check, and kNumberPadding bytes after it can be read.
class ObjLine {
public:
    ObjLine(const char* place, const char* textEnd) : at(place), end(textEnd) {}

    /// The next run of bytes other than spaces, tabs and the line's end.
    std::string_view Token() {
        while (Utils::IsBlank(*at))
            ++at;
        const char* start = at;
        while (!Utils::IsBlank(*at) && *at != '\n' && !(*at == '\r' && at[1] == '\n'))
            ++at;
        return {start, at};
    }

    bool Read(std::int32_t& value) {
        const NumberRead<std::int32_t> number = good ? ReadInteger(SkipSpace(at), end) : NumberRead<std::int32_t>();
        good = number.next;
        at = good ? number.next : at;
        value = number.value;
        return good;
    }

    std::int32_t Integer() {
        std::int32_t value = 0;
        Read(value);
        return value;
    }

    template <std::size_t N>
    std::array<float, N> Floats() {
        std::array<float, N> values{};
        const char* place = at; // a local copy stays in a register, `at` does not
        for (std::size_t i = 0; i < N && good; ++i) {
            const NumberRead<float> number = ReadFloat(SkipSpace(place), end);
            good = number.next;
            place = good ? number.next : place;
            values[i] = number.value;
        }
        at = place;
        return values;
    }

    float Float() { return Floats<1>()[0]; }

    std::string_view Word() {
        at = SkipSpace(at);
        const char* start = at;
        at = good ? WordEnd(at) : at;
        good = at != start;
        return {start, at};
    }

    /// The next word, which is not read.
    std::string_view Peek() const {
        const char* const start = SkipSpace(at);
        return {start, WordEnd(start)};
    }

    /// The end of what was read.
    const char* Place() const { return at; }

    /// What stands behind the values that were read.
    std::string_view Rest() const { return {at, NextLine() - 1}; }

    const char* NextLine() const {
        return static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at))) + 1;
    }

private:
    /// Separators of the values: a stream's white space without the line feed.
    static bool IsSpace(char c) { return Utils::IsBlank(c) || c == '\r' || c == '\v' || c == '\f'; }

    static const char* SkipSpace(const char* place) {
        while (IsSpace(*place))
            ++place;
        return place;
    }

    static const char* WordEnd(const char* place) {
        while (!IsSpace(*place) && *place != '\n')
            ++place;
        return place;
    }

    const char* at;
    const char* end;
    bool good = true;
};

} // namespace CockpitModel
