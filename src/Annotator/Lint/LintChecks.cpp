#include "Annotator/Lint/LintChecks.h"

#include "CockpitModel/XPlane/XPObjData.h"
#include "Utils/Text.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace Annotator {

namespace {

using enum LintSeverity;
using Utils::Counted;

std::string AtLine(std::uint32_t line) {
    return "line " + std::to_string(line);
}

std::string FormatNumber(float number) {
    std::ostringstream text;
    text << number;
    return std::move(text).str();
}

void CheckMaterials(const LintOutline& outline, LintFindings& findings) {
    const auto first = std::ranges::find(outline.draws, false, &LintDraw::textured);
    if (first == outline.draws.end())
        return;
    const auto count = static_cast<std::size_t>(std::ranges::count(outline.draws, false, &LintDraw::textured));
    const std::string refused = " (" + Counted(count, "part") + "), so the cockpit cannot be loaded";
    if (outline.emptyTexture != 0 && outline.emptyTexture < first->line)
        findings.Add(Error, "no-texture", outline.emptyTexture, "TEXTURE names no file" + refused,
                     "write the texture's path after it; --untextured reads the cockpit as it is");
    else
        findings.Add(Error, "no-texture", first->line, "TRIS before any TEXTURE line" + refused,
                     "put a TEXTURE line before the first VT line; --untextured reads the cockpit as it is");
}

void CheckRanges(const LintOutline& outline, LintFindings& findings) {
    std::vector<std::size_t> bad; // places of indices that name no vertex
    for (std::size_t i = 0; i < outline.indices.size(); ++i)
        if (outline.indices[i] < 0 || outline.indices[i] >= outline.vertices)
            bad.push_back(i);
    const auto indices = static_cast<std::int64_t>(outline.indices.size());
    for (const LintDraw& draw : outline.draws) {
        const std::string tris = "TRIS " + std::to_string(draw.offset) + " " + std::to_string(draw.count);
        if (draw.count == 0)
            continue;
        if (draw.offset < 0 || draw.count < 0 || draw.offset > indices || draw.count > indices - draw.offset) {
            findings.Add(Error, "index-range", draw.line,
                         tris + " reaches beyond the " + std::to_string(indices) + " indices of the file",
                         "write the object anew; its IDX and TRIS lines do not belong together");
            continue;
        }
        const auto first = std::ranges::lower_bound(bad, static_cast<std::size_t>(draw.offset));
        if (first != bad.end() && *first < static_cast<std::size_t>(draw.offset + draw.count))
            findings.Add(Error, "index-range", draw.line,
                         tris + " needs vertex " + std::to_string(outline.indices[*first]) +
                             " (counted from 0), but the file has " + std::to_string(outline.vertices),
                         "write the object anew; its IDX and VT lines do not belong together");
        else if (draw.count % 3 != 0)
            findings.Add(Warning, "part-triangle", draw.line, tris + " ends within a triangle",
                         "a count of TRIS is three for each triangle");
    }
}

void CheckBlocks(const LintOutline& outline, LintFindings& findings) {
    for (const std::uint32_t line : outline.endsWithoutBegin)
        findings.Add(Warning, "unbalanced", line, "ANIM_end without an ANIM_begin",
                     "remove it, or write the ANIM_begin that it ends");
    for (const std::uint32_t line : outline.beginsWithoutEnd)
        findings.Add(Warning, "unbalanced", line, "ANIM_begin that no ANIM_end closes",
                     "write an ANIM_end behind the last part that moves with it");
}

void CheckSteps(const LintOutline& outline, LintFindings& findings) {
    const char* moved = "nothing"; // by the root's first step
    for (const LintStep& step : outline.steps) {
        const std::string keyword = step.turns ? "ANIM_rotate" : "ANIM_trans";
        if (step.block == 0) {
            findings.Add(step.moves ? Warning : Note, "step-outside", step.line,
                         keyword + " outside any ANIM_begin, which moves " + std::exchange(moved, "the whole cockpit"),
                         "move it after the ANIM_begin of the parts that it is to move, or remove it");
            continue;
        }
        if (step.zeroAxis)
            findings.Add(step.moves ? Warning : Note, "zero-axis", step.line, keyword + " about the axis 0 0 0",
                         "give the direction of the axis, such as 0 1 0");
        if (step.moves && CockpitModel::NamesNoDataref(step.dataref))
            findings.Add(Warning, "no-dataref", step.line, keyword + " between two places without a dataref",
                         "write the dataref that moves it at the end of the line");
    }
}

void CheckManipulators(const LintOutline& outline, LintFindings& findings) {
    for (const LintManipulator& manipulator : outline.manipulators) {
        if (manipulator.from == manipulator.to)
            findings.Add(Warning, "equal-values", manipulator.line,
                         manipulator.keyword + " between equal values, " + FormatNumber(manipulator.from) + " and " +
                             FormatNumber(manipulator.to),
                         "give the two values that the dataref is to take");
        if (CockpitModel::NamesNoDataref(manipulator.dataref))
            findings.Add(Warning, "no-dataref", manipulator.line, manipulator.keyword + " without a dataref",
                         "write the dataref behind the two values");
    }
}

bool IsWithin(const LintOutline& outline, std::uint32_t block, std::uint32_t ancestor) {
    while (block > ancestor) // a parent's index is the lesser
        block = outline.blocks[block].parent;
    return block == ancestor;
}

/// The parts of one manipulator that are not those which it was written for.
struct LeftInForce {
    std::size_t elsewhere = 0, behindUnread = 0;
    const LintDraw* firstElsewhere = nullptr;
    const LintDraw* firstBehind = nullptr;
};

LeftInForce FindLeft(const LintOutline& outline, std::span<const LintDraw> draws) {
    LeftInForce left;
    for (const LintDraw& draw : draws) {
        const LintManipulator& manipulator = outline.manipulators[static_cast<std::size_t>(draw.manipulator)];
        if (draw.unreadLine != 0) {
            ++left.behindUnread;
            left.firstBehind = left.firstBehind ? left.firstBehind : &draw;
        } else if (!IsWithin(outline, draw.block, manipulator.block)) {
            ++left.elsewhere;
            left.firstElsewhere = left.firstElsewhere ? left.firstElsewhere : &draw;
        }
    }
    return left;
}

void CheckOneInForce(const LintOutline& outline, std::span<const LintDraw> draws, LintFindings& findings) {
    const LintManipulator& manipulator = outline.manipulators[static_cast<std::size_t>(draws.front().manipulator)];
    const std::string name = manipulator.keyword + " of " + AtLine(manipulator.line);
    const LeftInForce left = FindLeft(outline, draws);
    if (left.firstElsewhere)
        findings.Add(Warning, "left-in-force", left.firstElsewhere->line,
                     name + " is still in force over " + Counted(left.elsewhere, "part") +
                         " outside its animation block, where a click works it, too",
                     "write ATTR_manip_none ahead of " + AtLine(left.firstElsewhere->line));
    if (left.firstBehind)
        findings.Add(Warning, "unread-manipulator", left.firstBehind->unreadLine,
                     left.firstBehind->unreadKeyword + " is not read by this program, so " + name +
                         " stays in force over " + Counted(left.behindUnread, "part") + " from " +
                         AtLine(left.firstBehind->line) + " on",
                     "write ATTR_manip_none ahead of it, which changes nothing in X-Plane");
}

/// The draw calls of one manipulator follow each other.
void CheckInForce(const LintOutline& outline, LintFindings& findings) {
    const std::span<const LintDraw> draws = outline.draws;
    for (std::size_t first = 0, next = 0; first < draws.size(); first = next) {
        while (next < draws.size() && draws[next].manipulator == draws[first].manipulator)
            ++next;
        if (draws[first].manipulator >= 0)
            CheckOneInForce(outline, draws.subspan(first, next - first), findings);
    }
}

void CheckDrags(const LintOutline& outline, LintFindings& findings) {
    int last = -1;
    for (const LintDraw& draw : outline.draws) {
        if (draw.manipulator < 0 || draw.manipulator == last || draw.unreadLine != 0)
            continue;
        last = draw.manipulator;
        const LintManipulator& manipulator = outline.manipulators[static_cast<std::size_t>(draw.manipulator)];
        const LintBlock& block = outline.blocks[draw.block];
        if (manipulator.keyword != "ATTR_manip_drag_axis" || block.steps)
            continue;
        const bool root = draw.block == 0;
        findings.Add(Warning, "drag-without-animation", draw.line,
                     "a part under " + manipulator.keyword + " of " + AtLine(manipulator.line) +
                         (block.keyframes ? " moves by keyframes, which are not read here"
                          : root          ? " stands in no animation block"
                                          : " stands in an animation block without ANIM_trans or ANIM_rotate"),
                     std::string("it counts as ") + (root ? "Twist" : "Move") +
                         "; say in an annotation what it is, or give its block an ANIM_trans or ANIM_rotate");
    }
}

void CheckLineEnds(const LintOutline& outline, LintFindings& findings) {
    const LintUnknown& doubled = outline.doubledReturns;
    if (doubled.count > 0)
        findings.Add(Warning, "line-ends", doubled.firstLine,
                     Counted(doubled.count, "line ends", "lines end") +
                         " in CR CR LF; the first CR is read as part of the last word, so that keywords such as "
                         "ANIM_begin and datarefs are not known",
                     "save the file with LF or CR LF at the end of each line");
}

void CheckKeywords(const LintOutline& outline, LintFindings& findings) {
    for (const auto& [keyword, unknown] : outline.unknown) {
        const std::string_view like = KeywordLike(keyword);
        findings.Add(Warning, "unknown-keyword", unknown.firstLine,
                     keyword.substr(0, 64) + " is no keyword of the format (" + Counted(unknown.count, "line") + ")",
                     like.empty() ? "remove it, or put # in front of a comment"
                                  : "write " + std::string(like) + ": keywords are told apart by case");
    }
}

void CheckTextureLines(const LintOutline& outline, LintFindings& findings) {
    for (const LintTexture& texture : outline.textures)
        if (texture.blank)
            findings.Add(Warning, "texture-blank", texture.line,
                         "the path of TEXTURE ends at its first blank: " + texture.path,
                         "give the file a name without blanks");
}

constexpr LintCheck kChecks[] = {
    CheckMaterials, CheckRanges, CheckBlocks,   CheckSteps,        CheckManipulators,
    CheckInForce,   CheckDrags,  CheckKeywords, CheckTextureLines, CheckLineEnds,
};

} // namespace

std::span<const LintCheck> LintChecks() {
    return kChecks;
}

} // namespace Annotator
