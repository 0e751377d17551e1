#include "FuzzInput.h"

#include "CockpitModel/AircraftCockpit.h"
#include "Sim/AcfFile.h"
#include "Sim/XPAircraftInfo.h"
#include "Utils/Text.h"

#include <boost/lexical_cast.hpp>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr std::string_view kKey = "acf/_descrip";

/// A simple implementation of the same rule, line by line and word by word.
std::vector<std::string> ValuesByWords(std::string_view text) {
    std::vector<std::string> values;
    std::string_view line;
    while (Utils::NextLine(text, line)) {
        const auto words = Utils::SplitBlanks(line);
        if (words.size() >= 3 && words[0] == "P" && words[1] == kKey)
            values.emplace_back(words[2].data(), words.back().data() + words.back().size());
    }
    return values;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = Fuzz::Text(data, size);
    std::vector<std::string> values;
    Sim::ForEachAcfProperty(text, kKey, [&](std::string_view value) { values.emplace_back(value); });
    Fuzz::Require(values == ValuesByWords(text));
    const std::string last = values.empty() ? "" : values.back();
    Fuzz::Require(Sim::LastAcfProperty(text, kKey) == last);
    std::istringstream file{std::string(text)};
    Fuzz::Require(Sim::LastAcfProperty(file, kKey) == last);

    const Fuzz::MemoryFile memoryFile(text);
    Sim::XPAircraftInfo info;
    info.acfPath = memoryFile.Path();
    try {
        Fuzz::Require(!info.CreateCockpit()->IsValid());
    } catch (const boost::bad_lexical_cast&) {
    }
    return 0;
}
