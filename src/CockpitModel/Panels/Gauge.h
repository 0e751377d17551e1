#pragma once

#include "CockpitModel/Touch/MouseRectCallbacks.h"
#include "Utils/LinearAlgebra.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace CockpitModel {

/// The action of a mouse area.
struct MouseAreaAction {
    std::string Code; ///< may be empty
    std::uint32_t MouseFlags = 0;
    std::optional<std::uint32_t> EventID;
    std::optional<GaugeMouseFunction> Func;
    std::uint64_t ArgumentA = 0, ArgumentB = 0;
};

/// One node of a gauge's tree of mouse areas, in gauge pixels relative to the parent area.
struct MouseArea {
    std::string Name;
    std::int32_t TooltipID = 0;
    std::string Tooltip;
    std::string Text;
    float X = 0, Y = 0, Width = 0, Height = 0;
    std::optional<MouseAreaAction> Action;
    std::vector<MouseArea> Children;
};

/// A gauge, owned by its GaugeFile.
struct Gauge {
    Utils::Vector2 Position = Utils::Vector2::Zero();   ///< panel units
    Utils::Vector2 NativeSize = Utils::Vector2::Zero(); ///< gauge pixels
    Utils::Vector2 Size = Utils::Vector2::Zero();       ///< panel units
    std::vector<MouseArea> MouseAreas;
};

/// One "gauge" line of a panel configuration: file!name, x, y and optionally width, height.
struct GaugeLine {
    std::string File, Name;             ///< lower case; both empty if the line has no "!"
    float X = 0, Y = 0;                 ///< panel units
    std::optional<float> Width, Height; ///< both or neither
};

/// A malformed line gives empty names.
GaugeLine ParseGaugeLine(const std::string& text);

} // namespace CockpitModel
