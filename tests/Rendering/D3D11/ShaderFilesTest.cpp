#include "Utils/Paths.h"

#include <boost/filesystem.hpp>
#include <gtest/gtest.h>
#include <map>
#include <regex>

namespace {

/// The fields of the buffer that a file binds to a slot, a blank behind each; empty where it binds none.
std::string FieldsOf(const std::string& text, const std::string& slot) {
    const std::size_t bound = text.find("register(" + slot + ")");
    if (bound == text.npos)
        return {};
    const std::string buffer = text.substr(bound, text.find('}', bound) - bound);
    std::string fields;
    const std::regex field(R"(\s(float\w*\s+\w+(\[\d+\])?;))");
    for (std::sregex_iterator next(buffer.begin(), buffer.end(), field), end; next != end; ++next)
        fields += (*next)[1].str() + ' ';
    return fields;
}

// Where the language lays these fields, ShaderConstants.h tells: nothing crosses a border of 16 bytes, and matrices
// begin at one.
const std::string kPlace = "float4x4 world; float4x4 view; float4x4 projection; ";
const std::string kGeometry = kPlace +
                              "float4 firstColour; float4 secondColour; float4 thirdColour; float opacity; "
                              "float shaderParam1; float shaderParam2; float shaderParam3; float shaderParam4; "
                              "float unused1; float unused2; float unused3; float4 fourthColour; "
                              "float4x4 matrices[100]; ";
const std::string kRect = kPlace + "float4 parameters; float4 colour; float4 textureRectangle; ";

TEST(ShaderFiles, ReadTheConstantsWhereTheDeviceWritesThem) {
    const std::map<std::string, std::string> files = {
        {"D3D11Geometry.fx", kGeometry},
        {"D3D11GeometryWithBlending.fx", kGeometry},
        {"D3D11GeometryEdgeBlend.fx", kGeometry},
        {"D3D11GeometryTW.fx", kGeometry},
        {"D3D11GeometryLevels.fx", kGeometry},
        {"D3D11GeometryTW_TextureClip.fx", kGeometry},
        {"FXAA.fx", kGeometry},
        {"D3D11Rect.fx", kRect},
        {"D3D11RectSobel.fx", kRect},
        {"D3D11LeapTransform.fx", ""},
    };
    std::size_t found = 0;
    for (const auto& entry : boost::filesystem::directory_iterator(VORELLE_SOURCE_DIR "/data/QVRA/Shaders")) {
        const std::string name = entry.path().filename().string(), text = Utils::ReadFile(entry.path());
        ASSERT_TRUE(files.contains(name)) << name;
        EXPECT_EQ(FieldsOf(text, "b0"), files.at(name)) << name;
        EXPECT_EQ(FieldsOf(text, "b1").starts_with("float2 texel; "), files.at(name) != "") << name;
        EXPECT_EQ(text.find("#include"), text.npos) << name;
        ++found;
    }
    EXPECT_EQ(found, files.size());
}

} // namespace
