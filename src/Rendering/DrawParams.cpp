#include "Rendering/DrawParams.h"

#include <stdexcept>
#include <string_view>
#include <utility>

namespace Rendering {

namespace {

constexpr std::pair<std::string_view, GeometryProgram> kGeometryEffects[] = {
    {"EdgeBlend", GeometryProgram::EdgeBlend},
    {"timewarp", GeometryProgram::TimeWarp},
    {"timewarp_textureclip", GeometryProgram::TimeWarpTextureClip},
    {"levels_adjust", GeometryProgram::LevelsAdjust},
    {"fxaa", GeometryProgram::Fxaa},
};
constexpr std::pair<std::string_view, RectProgram> kRectEffects[] = {{"sobel", RectProgram::Sobel}};

template <typename Table>
auto Find(const Table& table, const std::string& effect) {
    for (const auto& [name, program] : table)
        if (name == effect)
            return program;
    throw std::out_of_range("invalid unordered_map<K, T> key");
}

} // namespace

GeometryProgram ProgramOf(const GeometryDrawParams& params) {
    if (!params.effect.empty())
        return Find(kGeometryEffects, params.effect);
    return params.blend && !params.plainProgram ? GeometryProgram::Blending : GeometryProgram::Plain;
}

RectProgram ProgramOf(const RectDrawParams& params) {
    return params.effect.empty() ? RectProgram::Plain : Find(kRectEffects, params.effect);
}

} // namespace Rendering
