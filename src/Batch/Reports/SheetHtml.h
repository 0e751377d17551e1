#pragma once

#include "CockpitModel/PartAddress.h"
#include "CockpitModel/Touch/TouchTypes.h"
#include "Rendering/Context.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Batch {

/// A touchable part. Texts are those of the aircraft's files.
struct SheetPart {
    std::uint32_t number = 0; ///< on the picture
    CockpitModel::PartAddress address;
    CockpitModel::TouchInteractionType type = CockpitModel::TouchInteractionType::None; ///< override included
    CockpitModel::TouchInteractionType detected = CockpitModel::TouchInteractionType::None;
    std::string manipulator, names; ///< empty if the part has none
    std::string object;             ///< file of the part; empty if it is from none
    std::uint32_t line = 0;         ///< of its TRIS in that file
};

struct SheetPicture {
    std::string png; ///< in base 64; empty if it could not be drawn
    std::vector<SheetPart> parts;
};

/// The touchable parts of a cockpit.
struct CockpitSheet {
    std::string displayName, acfPath;
    std::vector<std::string> remarks;
    Rendering::Size size; ///< of the pictures
    std::vector<SheetPicture> pictures;
};

/// One self-contained page: the pictures, each with the table of its parts beside it. The same bytes for the same
/// sheet.
std::string SheetHtml(const CockpitSheet& sheet);

} // namespace Batch
