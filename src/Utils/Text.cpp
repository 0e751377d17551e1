#include "Utils/Text.h"

#include <algorithm>
#include <cstddef>

namespace Utils {

namespace {

constexpr const char* kBlanks = " \t";
constexpr const char* kReplacementCharacter = "\xEF\xBF\xBD";

struct ByteRange {
    unsigned char low = 0x80, high = 0xBF;
    bool Holds(char byte) const {
        const auto value = static_cast<unsigned char>(byte);
        return low <= value && value <= high;
    }
};

std::size_t Utf8Length(unsigned char lead) {
    if (lead < 0x80)
        return 1;
    if (lead < 0xC2 || lead > 0xF4)
        return 0;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

/// Rejects overlong forms, surrogates and values above U+10FFFF.
ByteRange SecondByte(unsigned char lead) {
    switch (lead) {
    case 0xE0:
        return {0xA0, 0xBF};
    case 0xED:
        return {0x80, 0x9F};
    case 0xF0:
        return {0x90, 0xBF};
    case 0xF4:
        return {0x80, 0x8F};
    default:
        return {};
    }
}

/// Length in bytes of the first character; 0 if the text does not begin with a valid one.
std::size_t CharacterLength(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = Utf8Length(lead);
    if (length > text.size() || (length > 1 && !SecondByte(lead).Holds(text[1])))
        return 0;
    for (std::size_t i = 2; i < length; ++i)
        if (!ByteRange{}.Holds(text[i]))
            return 0;
    return length;
}

} // namespace

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == text.npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string_view> SplitBlanks(std::string_view line) {
    std::vector<std::string_view> words;
    for (std::size_t start = line.find_first_not_of(kBlanks); start != line.npos;) {
        const std::size_t end = std::min(line.find_first_of(kBlanks, start), line.size());
        words.push_back(line.substr(start, end - start));
        start = line.find_first_not_of(kBlanks, end);
    }
    return words;
}

bool NextLine(std::string_view& text, std::string_view& line) {
    if (text.empty())
        return false;
    const std::size_t end = text.find('\n');
    line = text.substr(0, end);
    text.remove_prefix(end == text.npos ? text.size() : end + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return true;
}

std::string ToLowerAscii(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

std::string ToValidUtf8(std::string_view text) {
    std::string readable;
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        if (length == 0)
            readable += kReplacementCharacter;
        else
            readable += text.substr(0, length);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return readable;
}

} // namespace Utils
