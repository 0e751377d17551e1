#include "FuzzInput.h"

#include "CockpitModel/Touch/Manipulator.h"
#include "CockpitModel/XPlane/VrConfigFile.h"
#include "CockpitModel/XPlane/VrConfigParts.h"

#include <algorithm>

namespace {

using namespace CockpitModel;

/// Lines of one block or hotspot: in the file, and after those of the one before.
template <typename Range>
void CheckLines(const std::vector<Range>& list, std::size_t lineCount) {
    std::uint32_t end = 0;
    for (const Range& range : list) {
        Fuzz::Require(end < range.firstLine && range.firstLine <= range.lastLine && range.lastLine <= lineCount);
        end = range.lastLine;
    }
}

void CheckBlock(const VrConfigBlock& block) {
    for (const VrConfigDirective& directive : block.directives)
        Fuzz::Require(block.firstLine < directive.line && directive.line <= block.lastLine);
    Fuzz::Require(VrConfigKey(block).starts_with(block.keyword));
    VrConfigKind(block, Manipulator());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = Fuzz::Text(data, size);
    const VrConfigFile file = ParseVrConfig(text);
    Fuzz::Require(PrintVrConfig(file) == text);
    for (const std::string& line : file.lines)
        Fuzz::Require(line.find('\n') >= line.size() - 1 && (line.ends_with('\n') || &line == &file.lines.back()));
    CheckLines(file.blocks, file.lines.size());
    CheckLines(file.hotspots, file.lines.size());
    std::ranges::for_each(file.blocks, CheckBlock);
    for (const VrConfigFault& fault : file.faults)
        Fuzz::Require(0 < fault.line && fault.line <= file.lines.size() + 1 && !fault.found.empty());
    return 0;
}
