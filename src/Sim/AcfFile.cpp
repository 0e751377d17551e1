#include "Sim/AcfFile.h"

#include "Utils/Text.h"

#include <algorithm>
#include <cstring>

namespace Sim {

namespace {

std::string_view WithoutTrailingBlanks(std::string_view text) {
    while (!text.empty() && Utils::IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Whether a text ends where the key of a property line starts: only "P" comes before it on the line.
bool IsBeforeKey(std::string_view text) {
    const std::string_view mark = WithoutTrailingBlanks(text);
    if (mark.size() == text.size() || !mark.ends_with('P'))
        return false;
    const std::string_view before = WithoutTrailingBlanks(mark.substr(0, mark.size() - 1));
    return before.empty() || before.ends_with('\n');
}

/// Position of the next occurrence of a key; the text's size if there is none.
std::size_t Find(std::string_view text, std::string_view key) {
#ifdef __GLIBC__ // memmem is twice as fast as the standard library's search
    const void* hit = memmem(text.data(), text.size(), key.data(), key.size());
    return hit ? static_cast<std::size_t>(static_cast<const char*>(hit) - text.data()) : text.size();
#else
    return std::min(text.find(key), text.size());
#endif
}

} // namespace

void ForEachAcfProperty(std::string_view acf, std::string_view key, const std::function<void(std::string_view)>& use) {
    ForEachAcfPropertyBelow(acf, key, [&](std::string_view rest, std::string_view value) {
        if (rest.empty())
            use(value);
    });
}

void ForEachAcfPropertyBelow(std::string_view acf, std::string_view prefix,
                             const std::function<void(std::string_view rest, std::string_view value)>& use) {
    std::string_view rest = acf;
    for (std::size_t at = Find(rest, prefix); at != rest.size(); at = Find(rest, prefix)) {
        const std::string_view before = acf.substr(0, acf.size() - rest.size() + at);
        rest.remove_prefix(at + prefix.size());
        if (!IsBeforeKey(before))
            continue;
        std::string_view line;
        Utils::NextLine(rest, line);
        const std::size_t keyEnd = std::min(line.find_first_of(Utils::kBlanks), line.size());
        if (const std::string_view value = Utils::Trim(line.substr(keyEnd)); !value.empty())
            use(line.substr(0, keyEnd), value);
    }
}

std::string_view LastAcfProperty(std::string_view acf, std::string_view key) {
    std::string_view last;
    ForEachAcfProperty(acf, key, [&](std::string_view value) { last = value; });
    return last;
}

std::string LastAcfProperty(std::istream& acf, std::string_view key) {
    std::string block;
    std::size_t blockSize = 64 << 10;
    std::size_t end = acf.seekg(0, std::ios::end) ? static_cast<std::size_t>(acf.tellg()) : 0;
    while (end != 0) {
        const std::size_t begin = end - std::min(end, blockSize);
        block.resize(end - begin);
        acf.seekg(static_cast<std::streamoff>(begin));
        if (!acf.read(block.data(), static_cast<std::streamsize>(block.size())))
            return {};
        const std::size_t firstLine = begin == 0 ? 0 : block.find('\n') + 1;
        if (begin != 0 && (firstLine == 0 || firstLine == block.size())) {
            blockSize *= 2; // the block is a part of one line
            continue;
        }
        const std::string_view value = LastAcfProperty(std::string_view(block).substr(firstLine), key);
        if (!value.empty())
            return std::string(value);
        end = begin + firstLine;
    }
    return {};
}

} // namespace Sim
