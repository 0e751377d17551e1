#include "CockpitModel/XPlane/VrConfigFile.h"

#include "CockpitModel/XPlane/Manipulators.h"
#include "CockpitModel/XPlane/XPObjData.h"
#include "Utils/Numbers.h"
#include "Utils/Text.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

namespace CockpitModel {

namespace {

using enum VrConfigRule;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kSpace = " \t\r\v\f";
constexpr std::string_view kBeginBlock = "BEGIN_MANIP", kEndBlock = "END_MANIP";
constexpr std::string_view kBeginHotspot = "BEGIN_TELEPORT_HOTSPOT", kEndHotspot = "END_TELEPORT_HOTSPOT";
constexpr std::string_view kRefPoint = "REF_POINT_ACF";
constexpr std::string_view kBox = "AABB", kHead = "PRESET_XYZ";
constexpr std::string_view kPsi = "PRESET_PSI", kThe = "PRESET_THE", kPhi = "PRESET_PHI";
constexpr std::string_view kHotspotWords[] = {kBox, kHead, kPsi, kThe, kPhi};
constexpr std::string_view kAction = "ACTION";
constexpr std::string_view kSitting = "SITTING";
constexpr std::size_t kLongestShown = 60; ///< bytes of a word in a fault

/// A directive of a block, with the number of its values; negative where it is
/// not known.
struct BlockWord {
    std::string_view word;
    int numbers = -1;
};
constexpr BlockWord kBlockWords[] = {
    {"DEG_PER_ACTION", 1},
    {kAction},
    {"HOLD_MANIP"},
    {"WRAP_MANIP"},
    {"INVERT_MANIP"},
    {"SWITCH_THRESHOLD"},
    {"YOKE_MANIP_ROTATE", 16},
    {"YOKE_MANIP_TRANSLATE"},
    {"JOYSTICK_MANIP"},
};

std::vector<std::string_view> WordsOf(std::string_view line) {
    std::vector<std::string_view> words;
    for (std::size_t at = line.find_first_not_of(kSpace); at != line.npos; at = line.find_first_not_of(kSpace, at)) {
        const std::size_t end = std::min(line.find_first_of(kSpace, at), line.size());
        words.push_back(line.substr(at, end - at));
        at = end;
    }
    return words;
}

/// What follows the first words of a line, without blanks around it.
std::string_view RestAfter(std::string_view line, std::string_view lastWord) {
    const std::string_view rest =
        line.substr(static_cast<std::size_t>(lastWord.data() + lastWord.size() - line.data()));
    const std::size_t first = std::min(rest.find_first_not_of(kSpace), rest.size());
    return rest.substr(first, rest.find_last_not_of(kSpace) + 1 - first);
}

/// The text from one of its words to a later one.
std::string_view Between(std::string_view first, std::string_view last) {
    return {first.data(), last.data() + last.size()};
}

std::string Quoted(std::string_view word) {
    const bool isLong = word.size() > kLongestShown;
    return "'" + Utils::ToValidUtf8(word.substr(0, kLongestShown)) + (isLong ? "...'" : "'");
}

std::optional<float> NumberOf(std::string_view word) {
    if (word.starts_with('+') && !word.starts_with("+-"))
        word.remove_prefix(1);
    const auto number = Utils::ParseWhole<float>(word);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

bool IsWholeNumber(std::string_view word) {
    return !word.empty() && word.find_first_not_of("0123456789") == word.npos;
}

/// Reads the lines one after the other into a file.
class Parser {
public:
    explicit Parser(VrConfigFile& target) : file(target) {}

    void Line(std::string_view text) {
        ++line;
        if (line == 1 && text.starts_with(kByteOrderMark))
            text.remove_prefix(kByteOrderMark.size());
        const std::vector<std::string_view> words = WordsOf(text);
        if (line <= std::size(kHeader) && Header(words))
            return;
        if (words.empty() || words[0].starts_with('#'))
            return;
        Directive(text, words);
    }

    void Finish() {
        if (line < std::size(kHeader) && !headerFault)
            Fault(VrConfigRule::Header, line + 1, "the end of the file", std::string(kHeader[line]));
        Close(line, "the end of the file");
    }

private:
    using Words = std::span<const std::string_view>;

    static constexpr std::string_view kHeader[] = {"A", "1100", "VRCONFIG"};

    void Fault(VrConfigRule rule, std::uint32_t at, std::string found, std::string needed) {
        if (file.faults.size() == kMostVrConfigFaults)
            ++file.moreFaults;
        else
            file.faults.push_back({rule, at, std::move(found), std::move(needed)});
    }

    void Unknown(std::string_view word) {
        if (headerFault && std::ranges::find(kHeader, word) != std::end(kHeader))
            return; // the fault tells that the header is wrong
        if (file.unknown.size() == kMostVrConfigFaults)
            ++file.moreUnknown;
        else
            file.unknown.push_back({std::string(word), line});
    }

    /// False for a line that is not one of the header, which ends it.
    bool Header(const std::vector<std::string_view>& words) {
        const std::string_view word = words.empty() ? std::string_view() : words[0];
        const std::size_t index = line - 1;
        const bool like = index == 0   ? word == "A" || word == "I"
                          : index == 1 ? IsWholeNumber(word)
                                       : word == kHeader[2];
        if (like && word != kHeader[index])
            Unknown(word);
        if (like || headerFault)
            return like;
        headerFault = true;
        Fault(VrConfigRule::Header, line, word.empty() ? "an empty line" : Quoted(Between(word, words.back())),
              std::string(kHeader[index]));
        return false;
    }

    void Directive(std::string_view text, const std::vector<std::string_view>& words) {
        const std::string_view word = words[0];
        const Words values = Words(words).subspan(1);
        if (word == kBeginBlock)
            BeginBlock(values);
        else if (word == kBeginHotspot)
            BeginHotspot(text, words);
        else if (word == kEndBlock)
            End(block, hotspot, word, kBeginBlock);
        else if (word == kEndHotspot)
            End(hotspot, block, word, kBeginHotspot);
        else if (word == kRefPoint)
            RefPoint();
        else if (std::ranges::find(kHotspotWords, word) != std::end(kHotspotWords))
            HotspotValue(word, values);
        else
            BlockValue(word, values);
    }

    void BeginBlock(Words values) {
        Close(line - 1, "line " + std::to_string(line));
        VrConfigBlock& added = file.blocks.emplace_back();
        added.firstLine = line;
        block = true;
        if (values.empty()) {
            Fault(Values, line, "no keyword", "the keyword of a manipulator, then its datarefs or commands");
            return;
        }
        added.keyword = values[0];
        const ManipulatorKeyword* const keyword = FindManipulatorKeyword(added.keyword);
        const std::size_t most = keyword ? keyword->names : values.size();
        for (const std::string_view name : values.subspan(1, std::min(most, values.size() - 1)))
            if (!NamesNoDataref(name))
                added.names.emplace_back(name);
    }

    void BeginHotspot(std::string_view text, const std::vector<std::string_view>& words) {
        Close(line - 1, "line " + std::to_string(line));
        VrConfigHotspot& added = file.hotspots.emplace_back();
        added.firstLine = line;
        hotspot = true;
        if (words.size() < 3) {
            Fault(Values, line, words.size() < 2 ? "no kind and no name" : "no name",
                  "SITTING and the name of the place");
            return;
        }
        added.kind = words[1];
        added.name = RestAfter(text, words[1]);
        if (added.kind != kSitting)
            Unknown(added.kind);
    }

    void RefPoint() {
        if (block || hotspot)
            Fault(Nesting, line, std::string(kRefPoint) + " inside " + OpenText(), "it before the first block");
        file.refPointLine = file.refPointLine == 0 ? line : file.refPointLine;
    }

    /// "the BEGIN_MANIP of line 4"
    std::string OpenText() const {
        return "the " + std::string(block ? kBeginBlock : kBeginHotspot) + " of line " +
               std::to_string(block ? file.blocks.back().firstLine : file.hotspots.back().firstLine);
    }

    void End(bool& open, bool other, std::string_view word, std::string_view begin) {
        if (other) {
            const std::string right(block ? kEndBlock : kEndHotspot);
            Fault(Nesting, line, std::string(word), right + " for " + OpenText());
        } else if (!open) {
            Fault(Nesting, line, std::string(word), std::string(begin) + " before it");
        }
        CloseAt(line);
    }

    /// Ends what is open in front of a line that should not come before its END.
    void Close(std::uint32_t lastLine, const std::string& where) {
        if (block || hotspot) {
            const std::uint32_t at = block ? file.blocks.back().firstLine : file.hotspots.back().firstLine;
            const std::string end(block ? kEndBlock : kEndHotspot), begin(block ? kBeginBlock : kBeginHotspot);
            Fault(Nesting, at, "no " + end + " before " + where, "one for this " + begin);
        }
        CloseAt(lastLine);
    }

    void CloseAt(std::uint32_t lastLine) {
        if (block)
            file.blocks.back().lastLine = lastLine;
        if (hotspot)
            FinishHotspot(lastLine);
        block = hotspot = false;
        seen.clear();
    }

    void FinishHotspot(std::uint32_t lastLine) {
        VrConfigHotspot& ended = file.hotspots.back();
        ended.lastLine = lastLine;
        for (const std::string_view word : kHotspotWords)
            if (std::ranges::find(seen, word) == seen.end())
                Fault(Complete, ended.firstLine, "no " + std::string(word) + " in this hotspot", "one");
    }

    bool IsInside(bool open, std::string_view word, std::string_view begin) {
        if (!open)
            Fault(Nesting, line, Quoted(word), std::string(begin) + " before it");
        return open;
    }

    void HotspotValue(std::string_view word, Words values) {
        if (!IsInside(hotspot, word, kBeginHotspot))
            return;
        if (std::ranges::find(seen, word) != seen.end()) {
            Fault(Complete, line, "a second " + std::string(word), "one in each hotspot");
            return;
        }
        seen.push_back(word);
        VrConfigHotspot& target = file.hotspots.back();
        if (word == kHead) {
            target.headLine = line;
            target.head = Numbers<3>(word, values);
        } else if (word == kBox) {
            target.box = Numbers<6>(word, values);
        } else if (const auto angle = Numbers<1>(word, values)) {
            (word == kPsi ? target.psi : word == kThe ? target.the : target.phi) = (*angle)[0];
        }
    }

    /// Reports what keeps the values from being exactly `count` numbers; a comment may follow them.
    bool CheckNumbers(std::string_view word, Words values, std::size_t count) {
        const auto comment = std::ranges::find_if(values, [](auto value) { return value.starts_with('#'); });
        const Words numbers = values.first(static_cast<std::size_t>(comment - values.begin()));
        const std::string needed = Utils::Counted(count, "number") + " after " + std::string(word);
        const auto wrong = std::ranges::find_if(numbers, [](auto value) { return !NumberOf(value); });
        if (wrong != numbers.end())
            Fault(Values, line, Quoted(*wrong), needed);
        else if (numbers.size() != count)
            Fault(Values, line, Utils::Counted(numbers.size(), "number"), needed);
        else
            return true;
        return false;
    }

    template <std::size_t N>
    std::optional<std::array<float, N>> Numbers(std::string_view word, Words values) {
        if (!CheckNumbers(word, values, N))
            return std::nullopt;
        std::array<float, N> numbers{};
        std::ranges::transform(values.first(N), numbers.begin(), [](auto value) { return *NumberOf(value); });
        return numbers;
    }

    void BlockValue(std::string_view word, Words values) {
        const auto* const known = std::ranges::find(kBlockWords, word, &BlockWord::word);
        if (known == std::end(kBlockWords))
            Unknown(word);
        else if (!IsInside(block, word, kBeginBlock))
            return;
        if (!block)
            return;
        file.blocks.back().directives.push_back({std::string(word), {values.begin(), values.end()}, line});
        if (known == std::end(kBlockWords))
            return;
        if (known->numbers >= 0)
            CheckNumbers(word, values, static_cast<std::size_t>(known->numbers));
        else if (word == kAction)
            CheckAction(values);
    }

    /// The number of values of an ACTION is known only for keywords without any.
    void CheckAction(Words values) {
        if (values.empty()) {
            Fault(Values, line, "no keyword", "the keyword of a manipulator after ACTION, then its values and names");
            return;
        }
        const ManipulatorKeyword* const keyword = FindManipulatorKeyword(values[0]);
        if (!keyword || keyword->names == 0)
            return;
        const Words rest = values.subspan(1);
        const auto first = std::ranges::find_if(rest, [](auto value) { return !NumberOf(value); });
        const auto names = static_cast<std::size_t>(rest.end() - first), numbers = rest.size() - names;
        const std::string needed = Utils::Counted(keyword->names, "name") + " in ACTION " + std::string(values[0]);
        if (names < keyword->names)
            Fault(Values, line, Utils::Counted(names, "name"), needed);
        else if ((numbers == 0) != (keyword->numbers == 0))
            Fault(Values, line, Utils::Counted(numbers, "number"),
                  (keyword->numbers == 0 ? "no numbers" : "numbers") + std::string(" before the ") + needed);
    }

    VrConfigFile& file;
    std::uint32_t line = 0;
    bool headerFault = false;
    bool block = false, hotspot = false; ///< which of them is open: the last of its list
    std::vector<std::string_view> seen;  ///< keywords of the open hotspot
};

/// The next line with its end.
std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end == text.npos ? end : end + 1);
    text.remove_prefix(line.size());
    return line;
}

} // namespace

const VrConfigDirective* VrConfigBlock::Find(std::string_view wanted) const {
    const auto found = std::ranges::find(directives, wanted, &VrConfigDirective::keyword);
    return found == directives.end() ? nullptr : &*found;
}

std::string_view VrConfigBlock::ActionKeyword() const {
    const VrConfigDirective* const action = Find(kAction);
    return action && !action->values.empty() ? std::string_view(action->values[0]) : std::string_view(keyword);
}

std::string_view VrConfigFile::LineEnd() const {
    const auto crLf = std::ranges::count_if(lines, [](const std::string& line) { return line.ends_with("\r\n"); });
    return 2 * crLf > std::ssize(lines) ? "\r\n" : "\n";
}

VrConfigFile ParseVrConfig(std::string_view text) {
    VrConfigFile file;
    Parser parser(file);
    while (!text.empty()) {
        const std::string_view line = TakeLine(text);
        file.lines.emplace_back(line);
        parser.Line(line.substr(0, line.size() - (line.ends_with('\n') ? 1 : 0)));
    }
    parser.Finish();
    return file;
}

std::string PrintVrConfig(const VrConfigFile& file) {
    std::string text;
    for (const std::string& line : file.lines)
        text += line;
    return text;
}

std::vector<std::string_view> VrConfigKeywords() {
    std::vector<std::string_view> words{kBeginBlock, kEndBlock, kBeginHotspot, kEndHotspot, kRefPoint};
    words.insert(words.end(), std::begin(kHotspotWords), std::end(kHotspotWords));
    for (const BlockWord& known : kBlockWords)
        words.push_back(known.word);
    return words;
}

boost::filesystem::path VrConfigPath(const boost::filesystem::path& acf) {
    return acf.parent_path() / (acf.stem().string() + "_vrconfig.txt");
}

} // namespace CockpitModel
