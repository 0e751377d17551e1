#include "Sim/AcfFile.h"

#include "Utils/Text.h"

#include <cstring>

namespace Sim {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

/// The text without the blanks and tabs at its end.
std::string_view WithoutBlanksBehind(std::string_view text) {
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Whether a text is that of an .acf file up to the key of a property line: "P" alone stands before it on the line.
bool IsBeforeKey(std::string_view text) {
    const std::string_view mark = WithoutBlanksBehind(text);
    if (mark.size() == text.size() || !mark.ends_with('P'))
        return false;
    const std::string_view before = WithoutBlanksBehind(mark.substr(0, mark.size() - 1));
    return before.empty() || before.ends_with('\n');
}

/// Where a text holds a key next; its size where it does not.
std::size_t Find(std::string_view text, std::string_view key) {
    const auto* hit = static_cast<const char*>(memmem(text.data(), text.size(), key.data(), key.size()));
    return hit ? static_cast<std::size_t>(hit - text.data()) : text.size();
}

} // namespace

void ForEachAcfProperty(std::string_view acf, std::string_view key,
                        const std::function<void(const std::vector<std::string_view>&)>& use) {
    std::size_t at = Find(acf, key);
    while (at != acf.size()) {
        std::string_view rest = acf.substr(at + key.size());
        if (!rest.empty() && IsBlank(rest.front()) && IsBeforeKey(acf.substr(0, at))) {
            std::string_view line;
            Utils::NextLine(rest, line);
            const std::vector<std::string_view> words = Utils::Words(line);
            if (!words.empty())
                use(words);
        }
        at = acf.size() - rest.size() + Find(rest, key);
    }
}

std::vector<std::string_view> LastAcfProperty(std::string_view acf, std::string_view key) {
    std::vector<std::string_view> last;
    ForEachAcfProperty(acf, key, [&](const std::vector<std::string_view>& words) { last = words; });
    return last;
}

} // namespace Sim
