#include "CockpitModel/Panels/Gauge.h"

#include "CockpitModel/Panels/StreamNumbers.h"
#include "Utils/Text.h"

#include <algorithm>
#include <boost/algorithm/string/trim.hpp>

namespace CockpitModel {

namespace {

/// The trimmed pieces of a text; two separators in a row give an empty piece. Splitting stops once there are more than
/// `most` pieces.
std::vector<std::string> Pieces(const std::string& text, char separator, std::size_t most) {
    std::vector<std::string> pieces;
    for (std::size_t start = 0; start <= text.size() && pieces.size() <= most;) {
        const std::size_t end = std::min(text.find(separator, start), text.size());
        pieces.push_back(text.substr(start, end - start));
        boost::trim(pieces.back(), std::locale::classic());
        start = end + 1;
    }
    return pieces;
}

} // namespace

GaugeLine ParseGaugeLine(const std::string& text) {
    GaugeLine line;
    const std::vector<std::string> pieces = Pieces(text, ',', 5);
    if (pieces.size() != 3 && pieces.size() != 5)
        return line;
    const std::vector<std::string> names = Pieces(pieces[0], '!', 2);
    if (names.size() == 2) {
        line.File = Utils::ToLowerAscii(names[0]);
        line.Name = Utils::ToLowerAscii(names[1]);
    }
    line.X = FloatFromText(pieces[1]);
    line.Y = FloatFromText(pieces[2]);
    if (pieces.size() == 5) {
        line.Width = FloatFromText(pieces[3]);
        line.Height = FloatFromText(pieces[4]);
    }
    return line;
}

} // namespace CockpitModel
