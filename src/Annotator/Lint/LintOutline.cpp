#include "Annotator/Lint/LintOutline.h"

#include "CockpitModel/XPlane/Manipulators.h"
#include "CockpitModel/XPlane/ObjKeywords.h"
#include "CockpitModel/XPlane/ObjValues.h"
#include "Utils/Text.h"

#include <algorithm>
#include <optional>
#include <tuple>
#include <utility>

namespace Annotator {

namespace {

using CockpitModel::ManipulatorKeyword;
using CockpitModel::ObjLine;
using CockpitModel::PlainEffect;

/// "I", a version and "OBJ" are in the first lines, before all keywords.
constexpr std::uint32_t kHeaderLines = 8;
/// Every draw call copies the name, so its length is limited.
constexpr std::size_t kLongestKeyword = 64;

/// More faults of one file are only counted.
constexpr std::size_t kMostFaults = 1000;

/// A check of its own finds a manipulator in force without a dataref.
std::string KindsToCheck(const ManipulatorKeyword& keyword) {
    std::string kinds = CockpitModel::ValueKinds(keyword);
    if (SetsPlain(keyword.plain))
        kinds.insert(kinds.size() - 1, 1, CockpitModel::kOptional);
    return kinds;
}

class OutlineReader {
public:
    explicit OutlineReader(LintOutline& target) : outline(target) {}

    void Line(std::string_view text);
    void Finish() {
        for (; block != 0; block = outline.blocks[block].parent)
            outline.beginsWithoutEnd.push_back(outline.blocks[block].line);
    }

    void Vertex(ObjLine&) { ++outline.vertices; }
    void Index(ObjLine& line) { outline.indices.push_back(line.Integer()); }
    void TenIndices(ObjLine& line);
    void Triangles(ObjLine& line);
    void Begin(ObjLine&);
    void End(ObjLine&);
    void Translation(ObjLine& line);
    void Rotation(ObjLine& line);
    void Keyframes(ObjLine&) { outline.blocks[block].keyframes = true; }
    void Texture(ObjLine& line);
    void UsePanel(ObjLine&) { panel = true; }
    void UseOwn(ObjLine&) { panel = false; }
    void Draw(ObjLine&) { drawn = true; }
    void NoDraw(ObjLine&) { drawn = false; }

private:
    std::string_view WithoutReturns(std::string_view text);
    void CheckValues(std::string_view keyword, std::string_view kinds, const ObjLine& values);
    void Known(std::string_view keyword, ObjLine& values);
    void Manipulator(std::string_view word, const ManipulatorKeyword* keyword, ObjLine& values);
    void NoManipulator();
    void Step();
    void PlainManipulator(std::string_view word, const ManipulatorKeyword* keyword, ObjLine& values);
    void FullManipulator(std::string_view word, const ManipulatorKeyword* keyword, ObjLine& values);
    LintManipulator& Add(std::string_view word, const ManipulatorKeyword& keyword);
    void Unknown(std::string_view keyword);

    LintOutline& outline;
    std::string buffer; ///< the line with the bytes that its reader needs after it
    std::uint32_t lineNumber = 0, block = 0, unreadLine = 0;
    std::string unreadKeyword;
    int manipulator = -1;
    bool panel = false, drawn = true, textured = false, outside = false;
    bool complete = true; ///< the line has no fault
};

struct Handler {
    std::string_view keyword;
    void (OutlineReader::*read)(ObjLine& line);
};

constexpr Handler kHandlers[] = {
    {"VT", &OutlineReader::Vertex},
    {"IDX10", &OutlineReader::TenIndices},
    {"IDX", &OutlineReader::Index},
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
};

void OutlineReader::Line(std::string_view text) {
    ++lineNumber;
    buffer.assign(WithoutReturns(text)).append(1, '\n');
    const std::size_t end = buffer.size();
    buffer.append(CockpitModel::kNumberPadding, '\0');
    ObjLine values(buffer.data(), buffer.data() + end);
    const std::string_view keyword = values.Token();
    if (keyword.empty() || keyword.starts_with('#'))
        return;
    complete = true;
    if (keyword.starts_with(CockpitModel::kManipulatorPrefix))
        Manipulator(keyword,
                    CockpitModel::FindManipulatorKeyword(keyword.substr(CockpitModel::kManipulatorPrefix.size())),
                    values);
    else
        Known(keyword, values);
}

void OutlineReader::Known(std::string_view keyword, ObjLine& values) {
    const CockpitModel::ObjKeyword* const known = CockpitModel::FindObjKeyword(keyword);
    if (!known) {
        Unknown(keyword);
        return;
    }
    CheckValues(keyword, known->values, values);
    const auto handler = std::ranges::find(kHandlers, keyword, &Handler::keyword);
    if (handler != std::end(kHandlers))
        (this->*handler->read)(values);
}

void OutlineReader::CheckValues(std::string_view keyword, std::string_view kinds, const ObjLine& values) {
    const auto fault = CockpitModel::FindFault(values, kinds);
    if (!fault)
        return;
    complete = false;
    if (outline.faults.size() < kMostFaults)
        outline.faults.push_back({lineNumber, static_cast<std::uint32_t>(fault->place - buffer.data() + 1),
                                  std::string(keyword), std::string(fault->found.substr(0, kLongestKeyword)),
                                  fault->needed});
    else if (++outline.moreFaults.count == 1)
        outline.moreFaults.firstLine = lineNumber;
}

/// Counts and removes extra CRs at the end of the line, so that they do not affect the other checks.
std::string_view OutlineReader::WithoutReturns(std::string_view text) {
    if (!text.ends_with('\r'))
        return text;
    if (++outline.doubledReturns.count == 1)
        outline.doubledReturns.firstLine = lineNumber;
    return text.substr(0, text.find_last_not_of('\r') + 1);
}

void OutlineReader::TenIndices(ObjLine& line) {
    std::int32_t index = 0;
    for (std::size_t i = 0; i < CockpitModel::NumberCount("IDX10") && line.Read(index); ++i)
        outline.indices.push_back(index);
}

void OutlineReader::Triangles(ObjLine& line) {
    if (!drawn && manipulator < 0)
        return;
    const std::int32_t offset = line.Integer(), count = line.Integer();
    outline.draws.push_back(
        {lineNumber, block, offset, count, panel, panel || textured, manipulator, unreadLine, unreadKeyword});
}

void OutlineReader::Begin(ObjLine&) {
    const auto index = static_cast<std::uint32_t>(outline.blocks.size());
    outline.blocks.push_back({.line = lineNumber, .parent = block});
    block = index;
}

void OutlineReader::End(ObjLine&) {
    if (block == 0)
        outline.endsWithoutBegin.push_back(lineNumber);
    else
        block = outline.blocks[block].parent;
}

/// The first step outside all blocks moves nothing; later ones move everything that the file draws.
void OutlineReader::Step() {
    outline.blocks[block].steps = block != 0 || outside;
    outside |= block == 0;
}

void OutlineReader::Translation(ObjLine& line) {
    Step();
    const CockpitModel::XPObjAnimStep step = CockpitModel::ReadTranslation(line);
    const std::array<float, 6>& ends = *step.translation;
    const bool moves = !std::equal(ends.begin(), ends.begin() + 3, ends.begin() + 3);
    outline.steps.push_back(
        {.line = lineNumber, .block = block, .moves = moves, .dataref = step.dataref, .complete = complete});
}

void OutlineReader::Rotation(ObjLine& line) {
    Step();
    const CockpitModel::XPObjAnimStep step = CockpitModel::ReadRotation(line);
    const auto [x, y, z, from, to] = *step.rotation;
    const bool zeroAxis = x == 0 && y == 0 && z == 0 && (from != 0 || to != 0);
    outline.steps.push_back({lineNumber, block, true, zeroAxis, from != to, step.dataref, complete});
}

void OutlineReader::Texture(ObjLine& line) {
    const std::string_view path = line.Token();
    if (path.empty()) {
        outline.emptyTexture = outline.emptyTexture == 0 ? lineNumber : outline.emptyTexture;
        return;
    }
    textured = true;
    outline.textures.push_back({lineNumber, std::string(path), !line.Token().empty()});
}

void OutlineReader::NoManipulator() {
    manipulator = -1;
    unreadLine = 0;
    unreadKeyword.clear();
}

/// `keyword` is null for a word that the format does not have.
void OutlineReader::Manipulator(std::string_view word, const ManipulatorKeyword* keyword, ObjLine& values) {
    if (keyword)
        CheckValues(word, KindsToCheck(*keyword), values);
    else
        Unknown(word);
    if (outline.reading == CockpitModel::Reading::Full)
        FullManipulator(word, keyword, values);
    else
        PlainManipulator(word, keyword, values);
}

void OutlineReader::PlainManipulator(std::string_view word, const ManipulatorKeyword* keyword, ObjLine& values) {
    const PlainEffect effect = keyword ? keyword->plain : PlainEffect::Leaves;
    if (effect != PlainEffect::Leaves) {
        NoManipulator();
    } else if (!(keyword && keyword->adds) && manipulator >= 0 && unreadLine == 0) {
        unreadLine = lineNumber;
        unreadKeyword = word.substr(0, kLongestKeyword);
    }
    if (!SetsPlain(effect))
        return;
    const CockpitModel::XPObjManip read = CockpitModel::ReadPlainManipulator(values, *keyword);
    LintManipulator& added = Add(word, *keyword);
    added.dataref = read.dataref;
    added.names = complete ? "dataref" : nullptr;
    added.hasRange = complete;
    added.from = read.value1;
    added.to = read.value2;
}

LintManipulator& OutlineReader::Add(std::string_view word, const ManipulatorKeyword& keyword) {
    manipulator = static_cast<int>(outline.manipulators.size());
    LintManipulator& added = outline.manipulators.emplace_back();
    added.line = lineNumber;
    added.block = block;
    added.keyword = word;
    added.effect = keyword.plain;
    return added;
}

/// A word that the format does not have ends the manipulator in force.
void OutlineReader::FullManipulator(std::string_view word, const ManipulatorKeyword* keyword, ObjLine& values) {
    if (keyword && keyword->adds)
        return;
    NoManipulator();
    if (!keyword || keyword->family == CockpitModel::ManipulatorFamily::Untouched)
        return;
    const CockpitModel::Manipulator read = CockpitModel::ReadManipulator(*keyword, values.Rest(), lineNumber);
    LintManipulator& added = Add(word, *keyword);
    if (complete && keyword->names > 0)
        added.names = keyword->name.starts_with("command") ? "command" : "dataref";
    added.dataref = read.names.empty() ? "" : read.names.front();
    const auto range = complete && !read.names.empty() ? read.Range() : std::nullopt;
    added.hasRange = range.has_value();
    std::tie(added.from, added.to) = range.value_or(std::pair(0.0f, 0.0f));
}

void OutlineReader::Unknown(std::string_view keyword) {
    const bool header =
        lineNumber <= kHeaderLines && (keyword == "I" || keyword == "A" || keyword == "OBJ" ||
                                       keyword.find_first_not_of("0123456789") == std::string_view::npos);
    if (header)
        return;
    const auto [entry, isNew] = outline.unknown.try_emplace(std::string(keyword), LintUnknown{lineNumber, 0});
    ++entry->second.count;
}

} // namespace

LintOutline ReadLintOutline(std::string_view text, CockpitModel::Reading reading) {
    LintOutline outline;
    outline.reading = reading;
    OutlineReader reader(outline);
    std::string_view line;
    while (Utils::NextLine(text, line))
        reader.Line(line);
    reader.Finish();
    return outline;
}

std::string KeywordLike(std::string_view word) {
    const std::string lower = Utils::ToLowerAscii(word);
    const auto isLike = [&](std::string_view keyword) { return Utils::ToLowerAscii(keyword) == lower; };
    for (const CockpitModel::ObjKeyword& keyword : CockpitModel::kObjKeywords)
        if (isLike(keyword.name))
            return std::string(keyword.name);
    for (const ManipulatorKeyword& keyword : CockpitModel::ManipulatorKeywords())
        if (const std::string name = std::string(CockpitModel::kManipulatorPrefix) + std::string(keyword.name);
            isLike(name))
            return name;
    return {};
}

} // namespace Annotator
