#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Annotator {

/// What the checks look at in the text of a cockpit object: a second, plain reading that keeps lines and also what the
/// model's reader skips in silence. Lines count from 1.

struct LintManipulator {
    std::uint32_t line = 0;
    std::uint32_t block = 0;
    std::string keyword;
    float from = 0, to = 0;
    std::string dataref;
};

struct LintStep {
    std::uint32_t line = 0;
    std::uint32_t block = 0; ///< 0 outside any ANIM_begin
    bool turns = false;      ///< ANIM_rotate
    bool zeroAxis = false;   ///< of a turn that has an angle
    bool moves = false;      ///< its two ends differ
    std::string dataref;
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
    bool panel = false; ///< under ATTR_cockpit, which shows the panel's picture
    bool textured = false;
    int manipulator = -1;         ///< in LintOutline::manipulators: the one in force; negative for none
    std::uint32_t unreadLine = 0; ///< of a manipulator behind that one that is not read; 0 for none
    std::string unreadKeyword;
};

struct LintTexture {
    std::uint32_t line = 0;
    std::string path;
    bool blank = false; ///< more words follow, so that the path is cut short
};

struct LintUnknown {
    std::uint32_t firstLine = 0;
    std::size_t count = 0;
};

struct LintOutline {
    std::vector<LintManipulator> manipulators; ///< those that make a part clickable
    std::vector<LintStep> steps;
    std::vector<LintBlock> blocks{{}}; ///< entry 0 is the root
    std::vector<LintDraw> draws;       ///< those that become parts
    std::vector<LintTexture> textures;
    std::vector<std::int64_t> indices;
    std::int64_t vertices = 0;
    std::map<std::string, LintUnknown, std::less<>> unknown; ///< keywords that are none of the format
    std::uint32_t emptyTexture = 0;                          ///< line of the first TEXTURE without a path; 0 for none
    LintUnknown doubledReturns;                              ///< lines that end in CR CR LF
    std::vector<std::uint32_t> endsWithoutBegin, beginsWithoutEnd;
};

LintOutline ReadLintOutline(std::string_view text);

/// The keyword of the format that a word is but for its case; empty where it is none.
std::string_view KeywordLike(std::string_view word);

} // namespace Annotator
