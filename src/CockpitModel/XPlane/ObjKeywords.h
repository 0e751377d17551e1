#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace CockpitModel {

/// Kinds of values on a line.
inline constexpr char kNumber = 'n', kInteger = 'i', kCursor = 'c', kDataref = 'd', kCommand = 'm', kName = 'w';
/// The values after it may be missing.
inline constexpr char kOptional = '?';

struct ObjKeyword {
    std::string_view name;
    /// The kinds of the values that the keyword needs, in order. Values after them are not checked: tooltips,
    /// parameters of lights, and values on which X-Plane's own objects differ.
    std::string_view values = {};
};

/// The keywords of the OBJ8 format of X-Plane 12.2 other than the manipulators, including shading directives shared
/// with terrain and undocumented keywords used by exporters and X-Plane's own objects. In byte order.
inline constexpr ObjKeyword kObjKeywords[] = {
    {"ANIM_begin"},
    {"ANIM_end"},
    {"ANIM_hide", "nnd"},
    {"ANIM_keyframe_loop", "n"},
    {"ANIM_rotate", "nnnnn?nnd"},
    {"ANIM_rotate_begin", "nnnd"},
    {"ANIM_rotate_end"},
    {"ANIM_rotate_key", "nn"},
    {"ANIM_show", "nnd"},
    {"ANIM_trans", "nnnnnn?nnd"},
    {"ANIM_trans_begin", "d"},
    {"ANIM_trans_end"},
    {"ANIM_trans_key", "nnnn"},
    {"ATTR_LOD", "nn"},
    {"ATTR_LOD_draped", "n"},
    {"ATTR_ambient_rgb", "nnn"},
    {"ATTR_axis_detent_range", "nnn"},
    {"ATTR_axis_detented", "nnnnnd"},
    {"ATTR_blend"},
    {"ATTR_cockpit"},
    {"ATTR_cockpit_device"},
    {"ATTR_cockpit_hud"},
    {"ATTR_cockpit_hud_only"},
    {"ATTR_cockpit_lit_only"},
    {"ATTR_cockpit_region", "i"},
    {"ATTR_cull"},
    {"ATTR_depth"},
    {"ATTR_diffuse_rgb", "nnn"},
    {"ATTR_draped"},
    {"ATTR_draw_disable"},
    {"ATTR_draw_enable"},
    {"ATTR_emission_rgb", "nnn"},
    {"ATTR_flat"},
    {"ATTR_hard"},
    {"ATTR_hard_deck"},
    {"ATTR_hud_glass"},
    {"ATTR_hud_reset"},
    {"ATTR_landing_gear"},
    {"ATTR_layer_group", "wi"},
    {"ATTR_layer_group_draped", "wi"},
    {"ATTR_light_level", "nnd"},
    {"ATTR_light_level_reset"},
    {"ATTR_no_blend"},
    {"ATTR_no_cockpit"},
    {"ATTR_no_cull"},
    {"ATTR_no_depth"},
    {"ATTR_no_draped"},
    {"ATTR_no_hard"},
    {"ATTR_no_shadow"},
    {"ATTR_no_solid_camera"},
    {"ATTR_poly_os", "n"},
    {"ATTR_reset"},
    {"ATTR_shade_flat"},
    {"ATTR_shade_smooth"},
    {"ATTR_shadow"},
    {"ATTR_shadow_blend"},
    {"ATTR_shiny_rat", "n"},
    {"ATTR_slope_limit"},
    {"ATTR_smooth"},
    {"ATTR_solid_camera"},
    {"ATTR_specular_rgb", "nnn"},
    {"ATTR_tilted"},
    {"BLEND_GLASS"},
    {"BUMP_LEVEL"},
    {"COCKPIT_REGION", "nnnn"},
    {"DEBUG"},
    {"DECAL"},
    {"DECAL_KEYED"},
    {"DECAL_LIB"},
    {"DECAL_PARAMS"},
    {"DECAL_PARAMS_PROJ"},
    {"DECAL_RGBA"},
    {"DITHER_ALPHA"},
    {"EMITTER", "wnnnnnn"},
    {"ENDIF"},
    {"EXPORT"},
    {"GLOBAL_cockpit_lit"},
    {"GLOBAL_luminance"},
    {"GLOBAL_no_blend"},
    {"GLOBAL_no_shadow"},
    {"GLOBAL_shadow_blend"},
    {"GLOBAL_specular", "n"},
    {"GLOBAL_tint"},
    {"IDX", "i"},
    {"IDX10", "iiiiiiiiii"},
    {"IF"},
    {"LIGHTS", "ii"},
    {"LIGHT_CUSTOM", "nnnnnnnnnnnn?d"},
    {"LIGHT_NAMED", "wnnn"},
    {"LIGHT_PARAM", "wnnn"},
    {"LIGHT_SPILL_CUSTOM", "nnnnnnnnnnnn?d"},
    {"LINES", "ii"},
    {"MAGNET", "wwnnnnnn"},
    {"NORMAL_DECAL"},
    {"NORMAL_DECAL_PARAMS"},
    {"NORMAL_DECAL_PARAMS_PROJ"},
    {"NORMAL_METALNESS"},
    {"NORMAL_TRANSLUCENCY"},
    {"NO_ALPHA"},
    {"NO_BLEND"},
    {"NO_SHADOW"},
    {"PARTICLE_SYSTEM"},
    {"POINT_COUNTS", "iiii"},
    {"RAIN_SCALE"},
    {"RAIN_friction"},
    {"RAIN_scale"},
    {"REQUIRE_DRY"},
    {"REQUIRE_WET"},
    {"SHADOW_BLEND"},
    {"SLOPE_LIMIT"},
    {"SNOW_ALBEDO_LUMA"},
    {"SPECULAR"},
    {"SUPER_ROUGHNESS"},
    {"TEXTURE"},
    {"TEXTURE_CONTROL"},
    {"TEXTURE_DRAPED"},
    {"TEXTURE_DRAPED_NORMAL"},
    {"TEXTURE_LIT"},
    {"TEXTURE_MAP"},
    {"TEXTURE_MODULATOR"},
    {"TEXTURE_NORMAL"},
    {"TEXTURE_TERRAIN"},
    {"TEXTURE_TILE"},
    {"THERMAL_source"},
    {"THERMAL_source2"},
    {"THERMAL_texture"},
    {"TILTED"},
    {"TRIS", "ii"},
    {"VLIGHT", "nnnnnn"},
    {"VLINE", "nnnnnn"},
    {"VT", "nnnnnnnn"},
    {"WEATHER"},
    {"WEATHER_TRANSPARENT"},
    {"WIPER_param"},
    {"WIPER_texture"},
    {"slung_load_weight", "n"},
    {"smoke_black", "nnnn"},
    {"smoke_white", "nnnn"},
};
static_assert(std::ranges::is_sorted(kObjKeywords, {}, &ObjKeyword::name));

/// Null if the format has no such keyword.
constexpr const ObjKeyword* FindObjKeyword(std::string_view name) {
    const auto* const found = std::ranges::lower_bound(kObjKeywords, name, {}, &ObjKeyword::name);
    return found != std::end(kObjKeywords) && found->name == name ? found : nullptr;
}

/// How many numbers a keyword needs at the beginning of its values.
consteval std::size_t NumberCount(std::string_view name) {
    const std::string_view values = FindObjKeyword(name)->values;
    return std::min(values.find_first_not_of("ni"), values.size());
}

} // namespace CockpitModel
