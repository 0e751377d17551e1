#pragma once

#include <string>
#include <vector>

namespace CockpitModel {
struct VrConfigFile;
}

namespace Annotator {

/// The lines of a block of a _vrconfig.txt between its BEGIN and its END, and the comments before it. Without line
/// ends.
struct VrConfigLines {
    std::vector<std::string> comments;
    std::vector<std::string> directives; ///< empty if there is nothing to write
    bool guessed = false;                ///< one of its numbers is a guess, as a comment says
};

/// The shortest text without an exponent that reads back as the same number, which must be finite.
std::string VrConfigNumber(float number);
/// The same for a computed number, rounded to whole parts of 1: " 0.4572". With a space before it.
std::string VrConfigRounded(float number, float partsOfOne);

/// The first fault that keeps the file from being divided into blocks: of its header, or a BEGIN and END that do not
/// match. Empty if there is none.
std::string VrConfigStructureFault(const CockpitModel::VrConfigFile& file);

} // namespace Annotator
