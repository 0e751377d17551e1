#include "Annotator/Lint/LintOutline.h"

#include "Annotator/Lint/LintKeywords.h"
#include "CockpitModel/XPlane/Manipulators.h"
#include "Utils/Text.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <span>
#include <tuple>
#include <utility>

namespace Annotator {

namespace {

/// "I", a version and "OBJ" are in the first lines, before all keywords.
constexpr std::uint32_t kHeaderLines = 8;
/// Every draw call copies the name, so its length is limited.
constexpr std::size_t kLongestKeyword = 64;

using WordSpan = std::span<const std::string_view>;

template <typename Number>
Number NumberAt(WordSpan words, std::size_t index) {
    Number number = 0;
    if (index >= words.size())
        return number;
    std::string_view word = words[index];
    if (word.starts_with('+'))
        word.remove_prefix(1);
    std::from_chars(word.data(), word.data() + word.size(), number);
    return number;
}

float FloatAt(WordSpan words, std::size_t index) {
    return NumberAt<float>(words, index);
}

std::string WordAt(WordSpan words, std::size_t index) {
    return index < words.size() ? std::string(words[index]) : std::string();
}

class OutlineReader {
public:
    explicit OutlineReader(LintOutline& target) : outline(target) {}

    void Line(std::string_view text);
    void Finish() {
        for (; block != 0; block = outline.blocks[block].parent)
            outline.beginsWithoutEnd.push_back(outline.blocks[block].line);
    }

    void Vertex(WordSpan) { ++outline.vertices; }
    void Indices(WordSpan words);
    void Triangles(WordSpan words);
    void Begin(WordSpan);
    void End(WordSpan);
    void Translation(WordSpan words);
    void Rotation(WordSpan words);
    void Keyframes(WordSpan) { outline.blocks[block].keyframes = true; }
    void Texture(WordSpan words);
    void UsePanel(WordSpan) { panel = true; }
    void UseOwn(WordSpan) { panel = false; }
    void Draw(WordSpan) { drawn = true; }
    void NoDraw(WordSpan) { drawn = false; }
    void Toggle(WordSpan words) { Take(words, 2); }
    void Drag(WordSpan words) { Take(words, 5); }
    void NoManipulator(WordSpan);

private:
    std::string_view WithoutReturns(std::string_view text);
    void Step();
    void Take(WordSpan words, std::size_t values);
    void TakeAny(std::string_view keyword, std::string_view values);
    void Add(const CockpitModel::Manipulator& read, std::string_view keyword);
    void Other(std::string_view keyword);

    LintOutline& outline;
    std::uint32_t line = 0, block = 0, unreadLine = 0;
    std::string unreadKeyword;
    int manipulator = -1;
    bool panel = false, drawn = true, textured = false, outside = false;
};

struct Handler {
    std::string_view keyword;
    void (OutlineReader::*read)(WordSpan words);
};

constexpr Handler kHandlers[] = {
    {"VT", &OutlineReader::Vertex},
    {"IDX10", &OutlineReader::Indices},
    {"IDX", &OutlineReader::Indices},
    {"TRIS", &OutlineReader::Triangles},
    {"ANIM_begin", &OutlineReader::Begin},
    {"ANIM_end", &OutlineReader::End},
    {"ANIM_trans", &OutlineReader::Translation},
    {"ANIM_rotate", &OutlineReader::Rotation},
    {"ANIM_trans_begin", &OutlineReader::Keyframes},
    {"ANIM_rotate_begin", &OutlineReader::Keyframes},
    {"TEXTURE", &OutlineReader::Texture},
    {"ATTR_cockpit", &OutlineReader::UsePanel},
    {"ATTR_no_cockpit", &OutlineReader::UseOwn},
    {"ATTR_draw_enable", &OutlineReader::Draw},
    {"ATTR_draw_disable", &OutlineReader::NoDraw},
    {"ATTR_manip_toggle", &OutlineReader::Toggle},
    {"ATTR_manip_drag_axis", &OutlineReader::Drag},
    {"ATTR_manip_none", &OutlineReader::NoManipulator},
    {"ATTR_manip_drag_xy", &OutlineReader::NoManipulator},
    {"ATTR_manip_command", &OutlineReader::NoManipulator},
    {"ATTR_manip_command_axis", &OutlineReader::NoManipulator},
};

void OutlineReader::Line(std::string_view text) {
    ++line;
    const auto words = Utils::SplitBlanks(WithoutReturns(text));
    if (words.empty() || words.front().starts_with('#'))
        return;
    if (outline.reading == CockpitModel::Reading::Full && words.front().starts_with(CockpitModel::kManipulatorPrefix)) {
        TakeAny(words.front(), text.substr(text.find(words.front()) + words.front().size()));
        return;
    }
    const auto handler = std::ranges::find(kHandlers, words.front(), &Handler::keyword);
    if (handler != std::end(kHandlers))
        (this->*handler->read)(words);
    else
        Other(words.front());
}

/// Counts and removes extra CRs at the end of the line, so that they do not affect the other checks.
std::string_view OutlineReader::WithoutReturns(std::string_view text) {
    if (!text.ends_with('\r'))
        return text;
    if (++outline.doubledReturns.count == 1)
        outline.doubledReturns.firstLine = line;
    return text.substr(0, text.find_last_not_of('\r') + 1);
}

void OutlineReader::Indices(WordSpan words) {
    const std::size_t most = words.front() == "IDX" ? 2 : 11;
    for (std::size_t i = 1; i < std::min(words.size(), most); ++i)
        outline.indices.push_back(NumberAt<std::int64_t>(words, i));
}

void OutlineReader::Triangles(WordSpan words) {
    if (!drawn && manipulator < 0)
        return;
    outline.draws.push_back({line, block, NumberAt<std::int64_t>(words, 1), NumberAt<std::int64_t>(words, 2), panel,
                             panel || textured, manipulator, unreadLine, unreadKeyword});
}

void OutlineReader::Begin(WordSpan) {
    const auto index = static_cast<std::uint32_t>(outline.blocks.size());
    outline.blocks.push_back({.line = line, .parent = block});
    block = index;
}

void OutlineReader::End(WordSpan) {
    if (block == 0)
        outline.endsWithoutBegin.push_back(line);
    else
        block = outline.blocks[block].parent;
}

/// The first step outside all blocks moves nothing; later ones move everything that the file draws.
void OutlineReader::Step() {
    outline.blocks[block].steps = block != 0 || outside;
    outside |= block == 0;
}

void OutlineReader::Translation(WordSpan words) {
    Step();
    bool moves = false;
    for (std::size_t i = 1; i <= 3; ++i)
        moves |= FloatAt(words, i) != FloatAt(words, i + 3);
    outline.steps.push_back({.line = line, .block = block, .moves = moves, .dataref = WordAt(words, 9)});
}

void OutlineReader::Rotation(WordSpan words) {
    Step();
    const float from = FloatAt(words, 4), to = FloatAt(words, 5);
    const bool zeroAxis = FloatAt(words, 1) == 0 && FloatAt(words, 2) == 0 && FloatAt(words, 3) == 0;
    outline.steps.push_back({line, block, true, zeroAxis && (from != 0 || to != 0), from != to, WordAt(words, 8)});
}

void OutlineReader::Texture(WordSpan words) {
    if (words.size() < 2) {
        outline.emptyTexture = outline.emptyTexture == 0 ? line : outline.emptyTexture;
        return;
    }
    textured = true;
    outline.textures.push_back({line, std::string(words[1]), words.size() > 2});
}

void OutlineReader::NoManipulator(WordSpan) {
    manipulator = -1;
    unreadLine = 0;
    unreadKeyword.clear();
}

void OutlineReader::Take(WordSpan words, std::size_t values) {
    NoManipulator(words);
    manipulator = static_cast<int>(outline.manipulators.size());
    outline.manipulators.push_back({line, block, std::string(words.front()), true, FloatAt(words, values),
                                    FloatAt(words, values + 1), WordAt(words, values + 2)});
}

void OutlineReader::TakeAny(std::string_view keyword, std::string_view values) {
    const std::string_view name = keyword.substr(CockpitModel::kManipulatorPrefix.size());
    if (!CockpitModel::IsManipulatorModifier(name))
        NoManipulator({});
    const CockpitModel::ManipulatorKeyword* const known = CockpitModel::FindManipulatorKeyword(name);
    if (!known)
        Other(keyword);
    else if (known->family != CockpitModel::ManipulatorFamily::Untouched)
        Add(CockpitModel::ReadManipulator(*known, values, line), keyword);
}

void OutlineReader::Add(const CockpitModel::Manipulator& read, std::string_view keyword) {
    manipulator = static_cast<int>(outline.manipulators.size());
    LintManipulator& added = outline.manipulators.emplace_back();
    added.line = line;
    added.block = block;
    added.keyword = keyword;
    const bool hasNames = CockpitModel::FindManipulatorKeyword(read.keyword)->names > 0;
    added.names = !hasNames ? nullptr : read.keyword.starts_with("command") ? "command" : "dataref";
    added.dataref = read.names.empty() ? "" : read.names.front();
    const auto range = read.names.empty() ? std::nullopt : read.Range();
    added.hasRange = range.has_value();
    std::tie(added.from, added.to) = range.value_or(std::pair(0.0f, 0.0f));
}

void OutlineReader::Other(std::string_view keyword) {
    // These lines add to the manipulator before them and do not replace it.
    const bool addition = keyword == "ATTR_manip_wheel" || keyword == "ATTR_manip_keyframe";
    if (keyword.starts_with("ATTR_manip_") && !addition && manipulator >= 0 && unreadLine == 0) {
        unreadLine = line;
        unreadKeyword = keyword.substr(0, kLongestKeyword);
    }
    if (std::ranges::binary_search(kObjKeywords, keyword))
        return;
    const bool header = line <= kHeaderLines && (keyword == "I" || keyword == "A" || keyword == "OBJ" ||
                                                 keyword.find_first_not_of("0123456789") == std::string_view::npos);
    if (header)
        return;
    const auto [entry, isNew] = outline.unknown.try_emplace(std::string(keyword), LintUnknown{line, 0});
    ++entry->second.count;
}

} // namespace

LintOutline ReadLintOutline(std::string_view text, CockpitModel::Reading reading) {
    static_assert(std::ranges::is_sorted(kObjKeywords));
    LintOutline outline;
    outline.reading = reading;
    OutlineReader reader(outline);
    std::string_view line;
    while (Utils::NextLine(text, line))
        reader.Line(line);
    reader.Finish();
    return outline;
}

std::string_view KeywordLike(std::string_view word) {
    const std::string lower = Utils::ToLowerAscii(word);
    for (const std::string_view keyword : kObjKeywords)
        if (Utils::ToLowerAscii(keyword) == lower)
            return keyword;
    return {};
}

} // namespace Annotator
