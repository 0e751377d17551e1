#include "Utils/Text.h"

#include <algorithm>
#include <boost/locale/utf.hpp>

namespace Utils {

namespace {

constexpr const char* kReplacementCharacter = "\xEF\xBF\xBD";

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
    namespace utf = boost::locale::utf;
    std::string valid;
    for (const char *at = text.data(), *const end = at + text.size(); at != end;) {
        const char* next = at;
        if (utf::is_valid_codepoint(utf::utf_traits<char>::decode(next, end))) {
            valid.append(at, next);
            at = next;
        } else {
            valid += kReplacementCharacter;
            ++at;
        }
    }
    return valid;
}

std::string Counted(std::size_t count, std::string_view singular, std::string_view plural) {
    std::string text = std::to_string(count) + ' ';
    if (count == 1)
        return text.append(singular);
    return plural.empty() ? text.append(singular) + 's' : text.append(plural);
}

} // namespace Utils
