#pragma once

#include "CockpitModel/Touch/Manipulator.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CockpitModel {

/// For "none" in the unsigned fields below.
inline constexpr std::uint32_t kXPObjNone = 0xFFFFFFFF;

/// The texture selected by ATTR_cockpit, in the aircraft's folder.
inline constexpr const char* kPanelTexture = "cockpit_3d/-PANELS-/Panel.png";

/// Exporters write one of these words if a line of the format needs a dataref and there is none.
inline bool NamesNoDataref(std::string_view name) {
    return name.empty() || name == "none" || name == "no_ref";
}

/// As in the file: X-Plane's right-handed axes, metres.
struct XPObjVertex {
    float x = 0, y = 0, z = 0;
    float nx = 0, ny = 0, nz = 0;
    float u = 0, v = 0;
};

/// A manipulator that the cockpit model can use.
struct XPObjManip {
    std::string dataref;
    float value1 = 0, value2 = 0;
};

/// One "TRIS" line with the state in force there.
struct XPObjDrawCall {
    std::uint32_t animNode = 0;
    std::int32_t offset = 0, count = 0; ///< into XPObjData::indices
    std::uint32_t texture = kXPObjNone;
    bool drawEnabled = true;
    std::optional<XPObjManip> toggle, drag; ///< at most one is set
    std::uint32_t line = 0;                 ///< line number in the file, from 1
    std::uint32_t manipLine = 0;            ///< line of the toggle or drag in force; 0 for none
    std::uint32_t manipulator = kXPObjNone; ///< full reading: the one in force, in XPObjData::manipulators
    bool shown = true;                      ///< full reading: seen from near, with every dataref at 0
};

/// One "ANIM_trans" or "ANIM_rotate": exactly one of the two is set.
struct XPObjAnimStep {
    std::optional<std::array<float, 6>> translation; ///< x1 y1 z1 x2 y2 z2
    std::optional<std::array<float, 5>> rotation;    ///< axis x y z, degrees r1 r2
    float value1 = 0, value2 = 0;                    ///< the dataref's values at the two ends
    std::string dataref;
};

/// One "ANIM_trans_key" or "ANIM_rotate_key".
struct XPObjKey {
    float value = 0;              ///< the dataref's
    std::array<float, 3> shift{}; ///< of a translation
    float degrees = 0;            ///< of a rotation
};

/// One list of key frames, from its "ANIM_trans_begin" or "ANIM_rotate_begin" on.
struct XPObjKeyStep {
    bool turns = false;
    std::array<float, 3> axis{}; ///< if it turns
    std::string dataref;
    std::vector<XPObjKey> keys;  ///< in the order of the file; without any it is no step
    float loop = 0;              ///< of "ANIM_keyframe_loop"; 0 for none
    std::size_t stepsBefore = 0; ///< number of the node's simple steps before it
};

struct XPObjAnimNode {
    std::uint32_t index = 0;
    std::uint32_t parent = kXPObjNone;
    std::vector<XPObjAnimStep> steps;
    std::vector<XPObjKeyStep> keySteps; ///< only in the full reading
    std::vector<std::uint32_t> children;
};

/// Draw calls copy the dataref of the manipulator in force. This is the first whose copy is dropped because the total
/// would exceed the reader's limit.
struct XPObjNameExcess {
    std::uint32_t line = 0; ///< of the draw call
    std::size_t bytes = 0, most = 0;
};

/// The parts of an X-Plane object that the cockpit model needs.
struct XPObjData {
    std::vector<std::string> textures; ///< relative to the aircraft folder; entry 0 is the panel's
    std::vector<XPObjVertex> vertices;
    std::vector<std::int32_t> indices;
    std::vector<XPObjDrawCall> drawCalls;
    std::vector<XPObjAnimNode> animNodes;  ///< entry 0 is the root
    std::vector<Manipulator> manipulators; ///< full reading, in the order of the file
    std::uint32_t emptyTextureLine = 0;    ///< the first TEXTURE line without a path; 0 for none
    std::optional<XPObjNameExcess> nameExcess;
};

} // namespace CockpitModel
