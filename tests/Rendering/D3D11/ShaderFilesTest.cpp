#include "Rendering/D3D11/ShaderConstants.h"
#include "Utils/Paths.h"

#include <boost/filesystem.hpp>
#include <gtest/gtest.h>
#include <map>
#include <regex>

namespace {

using Rendering::D3D11::GeometryConstants;
using Rendering::D3D11::RectConstants;

/// Where the language lays the fields of a buffer: nothing crosses a border of 16 bytes, and matrices begin at one.
using Offsets = std::map<std::string, std::size_t>;

Offsets LayOut(const std::string& fields, std::size_t& size) {
    const std::map<std::string, std::size_t> sizes = {{"float", 4}, {"float2", 8}, {"float4", 16}, {"float4x4", 64}};
    const std::regex field(R"(\s(float\w*)\s+(\w+)(\[(\d+)\])?;)");
    Offsets offsets;
    std::size_t at = 0;
    for (std::sregex_iterator next(fields.begin(), fields.end(), field), end; next != end; ++next) {
        const std::size_t one = sizes.at((*next)[1]);
        if (at % 16 + std::min<std::size_t>(one, 16) > 16)
            at += 16 - at % 16;
        offsets[(*next)[2]] = at;
        at += one * ((*next)[4].matched ? std::stoul((*next)[4]) : 1);
    }
    size = (at + 15) / 16 * 16;
    return offsets;
}

/// The fields of the buffer that a file binds to a slot; empty where it binds none.
std::string FieldsOf(const std::string& text, const std::string& slot) {
    const std::size_t bound = text.find("register(" + slot + ")");
    if (bound == text.npos)
        return {};
    const std::size_t open = text.find('{', bound);
    return text.substr(open, text.find('}', open) - open);
}

const Offsets kGeometry = {{"world", offsetof(GeometryConstants, world)},
                           {"view", offsetof(GeometryConstants, view)},
                           {"projection", offsetof(GeometryConstants, projection)},
                           {"firstColour", offsetof(GeometryConstants, firstColour)},
                           {"secondColour", offsetof(GeometryConstants, secondColour)},
                           {"thirdColour", offsetof(GeometryConstants, thirdColour)},
                           {"opacity", offsetof(GeometryConstants, opacity)},
                           {"shaderParam1", offsetof(GeometryConstants, shaderParam1)},
                           {"shaderParam2", offsetof(GeometryConstants, shaderParam2)},
                           {"shaderParam3", offsetof(GeometryConstants, shaderParam3)},
                           {"shaderParam4", offsetof(GeometryConstants, shaderParam4)},
                           {"unused1", 260},
                           {"unused2", 264},
                           {"unused3", 268},
                           {"fourthColour", offsetof(GeometryConstants, fourthColour)},
                           {"matrices", offsetof(GeometryConstants, matrices)}};
const Offsets kRect = {{"world", 0},
                       {"view", 64},
                       {"projection", 128},
                       {"parameters", offsetof(RectConstants, parameters)},
                       {"colour", offsetof(RectConstants, colour)},
                       {"textureRectangle", offsetof(RectConstants, textureRectangle)}};

TEST(ShaderFiles, ReadTheConstantsWhereTheDeviceWritesThem) {
    const struct {
        const char* file;
        const Offsets offsets;
        std::size_t size;
    } rows[] = {
        {"D3D11Geometry", kGeometry, 6688},
        {"D3D11GeometryWithBlending", kGeometry, 6688},
        {"D3D11GeometryEdgeBlend", kGeometry, 6688},
        {"D3D11GeometryTW", kGeometry, 6688},
        {"D3D11GeometryLevels", kGeometry, 6688},
        {"D3D11GeometryTW_TextureClip", kGeometry, 6688},
        {"FXAA", kGeometry, 6688},
        {"D3D11Rect", kRect, 240},
        {"D3D11RectSobel", kRect, 240},
        {"D3D11LeapTransform", {}, 0},
    };
    const boost::filesystem::path folder(VORELLE_SOURCE_DIR "/data/QVRA/Shaders");
    for (const auto& row : rows) {
        const std::string text = Utils::ReadFile(folder / (std::string(row.file) + ".fx"));
        ASSERT_NE(text, "") << row.file;
        std::size_t size = 0;
        EXPECT_EQ(LayOut(FieldsOf(text, "b0"), size), row.offsets) << row.file;
        EXPECT_EQ(size, row.size) << row.file;
        const Offsets picture = LayOut(FieldsOf(text, "b1"), size);
        EXPECT_EQ(picture.contains("texel"), row.size != 0) << row.file;
        EXPECT_EQ(text.find("#include"), text.npos) << row.file;
    }
    const auto files = boost::filesystem::directory_iterator(folder);
    EXPECT_EQ(static_cast<std::size_t>(std::distance(files, {})), std::size(rows)) << "each file is in the table";
}

} // namespace
