#include "CockpitModel/XPlane/ObjectScan.h"

#include "CockpitModel/PartTransformCalculator.h"
#include "CockpitModel/XPlane/Manipulators.h"
#include "CockpitModel/XPlane/ValueText.h"
#include "Utils/Files.h"
#include "Utils/LineBlocks.h"

#include <algorithm>
#include <string_view>

namespace CockpitModel {

namespace {

/// The scan takes little more time than the reads, which are faster in large pieces.
constexpr std::size_t kLargeBlock = 256 << 10;
constexpr std::size_t kSmallBlock = 1 << 10;

/// Looks for lines with something to touch.
class Scan {
public:
    bool FindsTouch(std::string_view line) {
        ValueText text(line);
        const std::string_view keyword = text.Word();
        if (keyword.starts_with(kManipulatorPrefix)) {
            const auto* const known = FindManipulatorKeyword(keyword.substr(kManipulatorPrefix.size()));
            return known && known->family != ManipulatorFamily::Untouched;
        }
        if (keyword == "ANIM_rotate_key" || keyword == "ANIM_trans_key")
            return keysMoveYoke;
        if (keyword == "ANIM_rotate_begin" || keyword == "ANIM_trans_begin") {
            keysMoveYoke = IsYoke(text, keyword == "ANIM_rotate_begin" ? 3 : 0);
            return false;
        }
        if (keyword == "ANIM_rotate_end" || keyword == "ANIM_trans_end")
            keysMoveYoke = false;
        return (keyword == "ANIM_rotate" && IsYoke(text, 7)) || (keyword == "ANIM_trans" && IsYoke(text, 8));
    }

private:
    static bool IsYoke(ValueText& text, int numbersBefore) {
        for (int i = 0; i < numbersBefore; ++i)
            text.Word();
        const std::string_view name = text.Word();
        return IsYokeRollName(name, Reading::Full) || IsYokePitchName(name, Reading::Full);
    }

    bool keysMoveYoke = false; ///< a list of key frames of a yoke is open; without a key it is no animation
};

/// The first line with an underscore: all keywords looked for have one, and vertices and indices have none. Removes it
/// and all before it from the text.
bool NextNamed(std::string_view& text, std::string_view& line) {
    const std::size_t mark = text.find('_');
    if (mark == text.npos)
        return false;
    const std::size_t start = text.rfind('\n', mark) + 1; // npos + 1 is 0
    const std::size_t end = std::min(text.find('\n', mark), text.size());
    line = text.substr(start, end - start);
    text.remove_prefix(end);
    return true;
}

} // namespace

bool CanBeTouched(std::istream& object) {
    Scan scan;
    Utils::LineBlocks blocks(object, std::min(Utils::SizeLeft(object) + kSmallBlock, kLargeBlock));
    for (std::string_view block; blocks.Next(block);)
        for (std::string_view line; NextNamed(block, line);)
            if (scan.FindsTouch(line))
                return true;
    return false;
}

} // namespace CockpitModel
