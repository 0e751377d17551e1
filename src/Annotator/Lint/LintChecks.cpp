#include "Annotator/Lint/LintChecks.h"

#include "CockpitModel/XPlane/ObjKeywords.h"
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

bool IsFull(const LintOutline& outline) {
    return outline.reading == CockpitModel::Reading::Full;
}

/// The full reading gives such parts a plain material.
void CheckMaterials(const LintOutline& outline, LintFindings& findings) {
    if (IsFull(outline))
        return;
    const auto first = std::ranges::find(outline.draws, false, &LintDraw::textured);
    if (first == outline.draws.end())
        return;
    const auto count = static_cast<std::size_t>(std::ranges::count(outline.draws, false, &LintDraw::textured));
    const std::string refused = " (" + Counted(count, "part") + "), so the cockpit cannot be loaded";
    if (outline.emptyTexture != 0 && outline.emptyTexture < first->line)
        findings.Add(Error, "no-texture", outline.emptyTexture, "TEXTURE without a file name" + refused,
                     "write the texture's path after it, or use --untextured to load the cockpit as it is");
    else
        findings.Add(Error, "no-texture", first->line, "TRIS before any TEXTURE line" + refused,
                     "put a TEXTURE line before the first VT line, or use --untextured to load the cockpit as it is");
}

void CheckRanges(const LintOutline& outline, LintFindings& findings) {
    std::vector<std::size_t> bad; // positions of indices without a vertex
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
                         tris + " is out of range: the file has " + std::to_string(indices) + " indices",
                         "export the object again: its IDX and TRIS lines do not match");
            continue;
        }
        const auto first = std::ranges::lower_bound(bad, static_cast<std::size_t>(draw.offset));
        if (first != bad.end() && *first < static_cast<std::size_t>(draw.offset + draw.count))
            findings.Add(Error, "index-range", draw.line,
                         tris + " needs vertex " + std::to_string(outline.indices[*first]) +
                             " (counted from 0), but the file has " + std::to_string(outline.vertices) + " vertices",
                         "export the object again: its IDX and VT lines do not match");
        else if (draw.count % 3 != 0)
            findings.Add(Warning, "part-triangle", draw.line, tris + " ends within a triangle",
                         "make the count of TRIS a multiple of 3");
    }
}

void CheckBlocks(const LintOutline& outline, LintFindings& findings) {
    for (const std::uint32_t line : outline.endsWithoutBegin)
        findings.Add(Warning, "unbalanced", line, "ANIM_end without an ANIM_begin",
                     "remove it, or add the missing ANIM_begin");
    for (const std::uint32_t line : outline.beginsWithoutEnd)
        findings.Add(Warning, "unbalanced", line, "ANIM_begin without an ANIM_end",
                     "add an ANIM_end after the last part that moves with it");
}

void CheckSteps(const LintOutline& outline, LintFindings& findings) {
    const char* moved = "nothing"; // by the root's first step
    for (const LintStep& step : outline.steps) {
        const std::string keyword = step.rotates ? "ANIM_rotate" : "ANIM_trans";
        if (step.block == 0 && !outline.attached) {
            findings.Add(step.moves ? Warning : Note, "step-outside", step.line,
                         keyword + " outside any ANIM_begin, which moves " + std::exchange(moved, "the whole cockpit"),
                         "move it after the ANIM_begin of the parts that it should move, or remove it");
            continue;
        }
        if (!step.complete)
            continue;
        if (step.zeroAxis)
            findings.Add(step.moves ? Warning : Note, "zero-axis", step.line, keyword + " with the axis 0 0 0",
                         "write the direction of the axis, for example 0 1 0");
        if (step.moves && CockpitModel::NamesNoDataref(step.dataref))
            findings.Add(Warning, "no-dataref", step.line, keyword + " between different values without a dataref",
                         "add the dataref at the end of the line");
    }
}

void CheckManipulators(const LintOutline& outline, LintFindings& findings) {
    for (const LintManipulator& manipulator : outline.manipulators) {
        if (manipulator.hasRange && manipulator.from == manipulator.to)
            findings.Add(Warning, "equal-values", manipulator.line,
                         manipulator.keyword + " between equal values, " + FormatNumber(manipulator.from) + " and " +
                             FormatNumber(manipulator.to),
                         "write two different values for the dataref");
        if (manipulator.names && CockpitModel::NamesNoDataref(manipulator.dataref))
            findings.Add(Warning, "no-dataref", manipulator.line,
                         manipulator.keyword + " without a " + manipulator.names,
                         IsFull(outline) ? "write all values of the keyword; its names are the last"
                                         : "add the dataref after the two values");
    }
}

bool IsWithin(const LintOutline& outline, std::uint32_t block, std::uint32_t ancestor) {
    while (block > ancestor) // a parent has a smaller index
        block = outline.blocks[block].parent;
    return block == ancestor;
}

/// Parts a manipulator still applies to although it was not meant for them.
struct LeftInForce {
    std::size_t elsewhere = 0, afterUnread = 0;
    const LintDraw* firstElsewhere = nullptr;
    const LintDraw* firstAfterUnread = nullptr;
};

LeftInForce FindLeft(const LintOutline& outline, std::span<const LintDraw> draws) {
    LeftInForce left;
    for (const LintDraw& draw : draws) {
        const LintManipulator& manipulator = outline.manipulators[static_cast<std::size_t>(draw.manipulator)];
        if (draw.unreadLine != 0) {
            ++left.afterUnread;
            left.firstAfterUnread = left.firstAfterUnread ? left.firstAfterUnread : &draw;
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
                     name + " still applies to " + Counted(left.elsewhere, "part") +
                         " outside its animation block, where clicks use it too",
                     "write ATTR_manip_none before " + AtLine(left.firstElsewhere->line));
    if (left.firstAfterUnread)
        findings.Add(Warning, "unread-manipulator", left.firstAfterUnread->unreadLine,
                     left.firstAfterUnread->unreadKeyword + " is not supported by this program, so " + name +
                         " still applies to " + Counted(left.afterUnread, "part") + " from " +
                         AtLine(left.firstAfterUnread->line) + " on",
                     "write ATTR_manip_none before it; this changes nothing in X-Plane");
}

/// The draw calls of a manipulator are contiguous.
void CheckInForce(const LintOutline& outline, LintFindings& findings) {
    const std::span<const LintDraw> draws = outline.draws;
    for (std::size_t first = 0, next = 0; first < draws.size(); first = next) {
        while (next < draws.size() && draws[next].manipulator == draws[first].manipulator)
            ++next;
        if (draws[first].manipulator >= 0)
            CheckOneInForce(outline, draws.subspan(first, next - first), findings);
    }
}

/// In the full reading the animation does not decide the type.
void CheckDrags(const LintOutline& outline, LintFindings& findings) {
    if (IsFull(outline))
        return;
    int last = -1;
    for (const LintDraw& draw : outline.draws) {
        if (draw.manipulator < 0 || draw.manipulator == last || draw.unreadLine != 0)
            continue;
        last = draw.manipulator;
        const LintManipulator& manipulator = outline.manipulators[static_cast<std::size_t>(draw.manipulator)];
        const LintBlock& block = outline.blocks[draw.block];
        if (manipulator.effect != CockpitModel::PlainEffect::SetsDrag || block.steps)
            continue;
        const bool root = draw.block == 0;
        findings.Add(Warning, "drag-without-animation", draw.line,
                     "a part under " + manipulator.keyword + " of " + AtLine(manipulator.line) +
                         (block.keyframes ? " moves by keyframes, which are not supported"
                          : root          ? " is not in an animation block"
                                          : " is in an animation block without ANIM_trans or ANIM_rotate"),
                     std::string("it is detected as ") + (root ? "Twist" : "Move") +
                         "; annotate its type, or add ANIM_trans or ANIM_rotate to its block");
    }
}

void CheckLineEnds(const LintOutline& outline, LintFindings& findings) {
    const LintUnknown& doubled = outline.doubledReturns;
    if (doubled.count > 0)
        findings.Add(Warning, "line-ends", doubled.firstLine,
                     Counted(doubled.count, "line ends", "lines end") +
                         " in CR CR LF; the first CR is read as part of the last word, so keywords such as ANIM_begin "
                         "and datarefs are not recognized",
                     "save the file with LF or CR LF line endings");
}

void CheckKeywords(const LintOutline& outline, LintFindings& findings) {
    for (const auto& [keyword, unknown] : outline.unknown) {
        const std::string like = KeywordLike(keyword);
        findings.Add(Warning, "unknown-keyword", unknown.firstLine,
                     keyword.substr(0, 64) + " is not a keyword of the format (" + Counted(unknown.count, "line") + ")",
                     like.empty() ? "remove it, or start a comment with #"
                                  : "write " + like + ": keywords are case-sensitive");
    }
}

std::string KindText(char kind) {
    switch (kind) {
    case CockpitModel::kNumber:
        return "a number";
    case CockpitModel::kInteger:
        return "a whole number";
    case CockpitModel::kCursor:
        return "a cursor";
    case CockpitModel::kCommand:
        return "a command";
    case CockpitModel::kDataref:
        return "a dataref";
    default:
        return "a name";
    }
}

void CheckFaults(const LintOutline& outline, LintFindings& findings) {
    for (const LintFault& fault : outline.faults) {
        const std::string place = "column " + std::to_string(fault.column) + ": ";
        if (fault.found.empty())
            findings.Add(Warning, "missing-value", fault.line,
                         place + "the line ends where " + fault.keyword + " needs " + KindText(fault.needed),
                         "add the missing values at the end of the line");
        else
            findings.Add(Warning, "bad-number", fault.line,
                         place + fault.keyword + " needs " + KindText(fault.needed) + ", but has '" + fault.found + "'",
                         fault.needed == CockpitModel::kInteger
                             ? "write it in digits only, with a space after it"
                             : "write it in digits, with a point before decimals and a space after it");
    }
    if (const LintUnknown& more = outline.moreFaults; more.count > 0)
        findings.Add(Warning, "more-faults", more.firstLine,
                     Counted(more.count, "more line has", "more lines have") + " a missing value or a malformed number",
                     "correct the lines above first, then run lint again");
}

void CheckTextureLines(const LintOutline& outline, LintFindings& findings) {
    for (const LintTexture& texture : outline.textures)
        if (texture.truncated)
            findings.Add(Warning, "texture-blank", texture.line,
                         "the path of TEXTURE ends at the first space: " + texture.path,
                         "rename the file so that its path contains no spaces");
}

constexpr LintCheck kChecks[] = {
    CheckMaterials, CheckRanges,   CheckBlocks, CheckSteps,        CheckManipulators, CheckInForce,
    CheckDrags,     CheckKeywords, CheckFaults, CheckTextureLines, CheckLineEnds,
};

} // namespace

std::span<const LintCheck> LintChecks() {
    return kChecks;
}

} // namespace Annotator
