#pragma once

#include "CockpitModel/Reading.h"
#include "CockpitModel/Touch/Manipulator.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Annotator {

/// The text of a cockpit object as the checks need it: with line numbers, counted from 1, and with content that the
/// model's reader skips silently.

struct LintManipulator {
    std::uint32_t line = 0;
    std::uint32_t block = 0;
    std::string keyword;
    CockpitModel::PlainEffect effect = CockpitModel::PlainEffect::Leaves;
    bool hasRange = false;
    float from = 0, to = 0;      ///< if it has a range
    std::string dataref;         ///< the first name; may be a command
    const char* names = nullptr; ///< what its names are; null without names or if its line has a fault
};

struct LintStep {
    std::uint32_t line = 0;
    std::uint32_t block = 0; ///< 0 outside any ANIM_begin
    bool rotates = false;    ///< ANIM_rotate
    bool zeroAxis = false;   ///< of a rotation by a nonzero angle
    bool moves = false;      ///< its two values differ
    std::string dataref;
    bool complete = true; ///< its line has no fault
};

struct LintBlock {
    std::uint32_t line = 0; ///< of its ANIM_begin; 0 for the root
    std::uint32_t parent = 0;
    bool steps = false, keyframes = false;
};

struct LintDraw {
    std::uint32_t line = 0;
    std::uint32_t block = 0;
    std::int64_t offset = 0, count = 0;
    bool panel = false; ///< under ATTR_cockpit, which shows the panel texture
    bool textured = false;
    int manipulator = -1;         ///< in LintOutline::manipulators: the one in force; negative for none
    std::uint32_t unreadLine = 0; ///< of an unsupported manipulator after that one; 0 for none
    std::string unreadKeyword;
};

struct LintTexture {
    std::uint32_t line = 0;
    std::string path;
    bool truncated = false; ///< at a space, with more text after it
};

struct LintUnknown {
    std::uint32_t firstLine = 0;
    std::size_t count = 0;
};

/// A value that is missing or not of the kind that its keyword needs.
struct LintFault {
    std::uint32_t line = 0, column = 0; ///< from 1, in bytes
    std::string keyword;
    std::string found; ///< empty if the value is missing
    char needed = 0;   ///< its kind, as in CockpitModel::ObjKeyword
};

struct LintOutline {
    CockpitModel::Reading reading = CockpitModel::Reading::Plain;
    bool attached = false;                     ///< not the cockpit object
    std::vector<LintManipulator> manipulators; ///< those that make a part clickable
    std::vector<LintStep> steps;
    std::vector<LintBlock> blocks{{}}; ///< entry 0 is the root
    std::vector<LintDraw> draws;       ///< those that become parts
    std::vector<LintTexture> textures;
    std::vector<std::int32_t> indices;
    std::int64_t vertices = 0;
    std::map<std::string, LintUnknown, std::less<>> unknown; ///< keywords that the format does not have
    std::vector<LintFault> faults;                           ///< the first ones
    LintUnknown moreFaults;                                  ///< lines with faults after those
    std::uint32_t emptyTexture = 0;                          ///< line of the first TEXTURE without a path; 0 for none
    LintUnknown doubledReturns;                              ///< lines that end in CR CR LF
    std::vector<std::uint32_t> endsWithoutBegin, beginsWithoutEnd;
};

/// The full reading has the manipulators of all keywords.
LintOutline ReadLintOutline(std::string_view text, CockpitModel::Reading reading = CockpitModel::Reading::Plain);

/// The keyword of the format that differs from the word only in case; empty if there is none.
std::string KeywordLike(std::string_view word);

} // namespace Annotator
