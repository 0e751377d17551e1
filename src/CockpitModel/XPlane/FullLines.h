#pragma once

#include "CockpitModel/XPlane/XPObjData.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace CockpitModel {

/// Reads the lines that only the full reading keeps: whole manipulators and key frames.
class FullLines {
public:
    explicit FullLines(XPObjData& target) : data(target) {}

    /// Any line but those of vertices and indices. `node` is that of the innermost open block.
    void Read(std::string_view keyword, std::string_view values, std::uint32_t line, std::uint32_t node);

    /// Index in XPObjData::manipulators of the one in force; kXPObjNone without one.
    std::uint32_t InForce() const { return inForce; }
    /// Whether triangles here are seen from near if every dataref is 0.
    bool Shown() const { return !farLevel && !hidden.back().above && !hidden.back().here; }

private:
    /// Of an animation block.
    struct Hidden {
        bool above = false; ///< by the blocks around it
        bool here = false;
    };

    void ReadManipulatorLine(std::string_view name, std::string_view values, std::uint32_t line);
    void ReadAnimationLine(std::string_view name, std::string_view values, XPObjAnimNode& node);
    void BeginSteps(bool turns, std::string_view values, XPObjAnimNode& node);
    void ReadVisibilityLine(std::string_view name, std::string_view values);
    void AddKey(bool turns, std::string_view values, XPObjAnimNode& node);

    XPObjData& data;
    std::uint32_t inForce = kXPObjNone;
    std::vector<Hidden> hidden{1}; ///< of the open blocks, the innermost last
    bool farLevel = false;         ///< a level of detail that is not drawn from near
    bool open = false;             ///< between the begin and the end of a list of key frames, the last of its node
};

} // namespace CockpitModel
