#include "Rendering/ContextConformance.h"
#include "Rendering/D3D11/D3D11Device.h"
#include "Rendering/PictureConformance.h"
#include "Support/FatalErrorRecorder.h"
#include "Support/Picture.h"

#include <gtest/gtest.h>

namespace {

using Rendering::D3D11::ComPtr;
using Rendering::D3D11::D3D11GPUBitmap;

class D3D11ContextTest : public testing::Test {
protected:
    static void SetUpTestSuite() { device = std::make_unique<Conformance::D3D11Device>(); }
    static void TearDownTestSuite() { device.reset(); }

    static ComPtr<ID3D11Texture2D> Texture(DXGI_FORMAT format, UINT samples) {
        D3D11_TEXTURE2D_DESC description{};
        description.Width = 3;
        description.Height = 2;
        description.MipLevels = description.ArraySize = 1;
        description.SampleDesc.Count = samples;
        description.Format = format;
        description.BindFlags = D3D11_BIND_SHADER_RESOURCE | D3D11_BIND_RENDER_TARGET;
        ComPtr<ID3D11Texture2D> texture;
        EXPECT_HRESULT_SUCCEEDED(device->Device()->CreateTexture2D(&description, nullptr, &texture));
        return texture;
    }

    static inline std::unique_ptr<Conformance::D3D11Device> device;
};

TEST_F(D3D11ContextTest, ViewsOfTypelessTexturesHaveATypedFormat) {
    const D3D11GPUBitmap bitmap(device->Device(), Texture(DXGI_FORMAT_R8G8B8A8_TYPELESS, 4).Get(), false);
    D3D11_SHADER_RESOURCE_VIEW_DESC shaderView;
    bitmap.ShaderView()->GetDesc(&shaderView);
    D3D11_RENDER_TARGET_VIEW_DESC targetView;
    bitmap.TargetView()->GetDesc(&targetView);
    EXPECT_EQ(shaderView.Format, DXGI_FORMAT_R8G8B8A8_UNORM);
    EXPECT_EQ(targetView.Format, DXGI_FORMAT_R8G8B8A8_UNORM);
    EXPECT_EQ(targetView.ViewDimension, D3D11_RTV_DIMENSION_TEXTURE2DMS);
}

TEST_F(D3D11ContextTest, AFailedCallIsFatalWithItsCode) {
    Support::FatalErrorRecorder dialog;
    EXPECT_THROW(device->Context().CreateGeometry({}), std::exception);
    EXPECT_THROW(device->Context().CreateRenderTarget({1u << 20, 1}, 1, 0), std::exception);
    ASSERT_EQ(dialog.texts.size(), 2u);
    const std::string invalidArgument = std::to_string(E_INVALIDARG);
    EXPECT_TRUE(dialog.texts[0].starts_with("Vorelle Fatal Error Encountered (" + invalidArgument + ", "));
    EXPECT_NE(dialog.texts[1].find("Rendering\\D3D11\\D3D11Context.cpp: Line "), std::string::npos);
}

TEST_F(D3D11ContextTest, AFileThatDoesNotCompileIsShownBeforeTheFatalError) {
    constexpr const char* kGood = "float4 VS(float3 at : POSITION) : SV_Position { return float4(at, 1.0); }\n"
                                  "float4 PS() : SV_Target { return float4(1.0, 1.0, 1.0, 1.0); }\n";
    constexpr const char* kBad = "float4 PS() : SV_Target { return nonsense; }\n";
    const Support::TemporaryFolder folder;
    const std::string good = folder.Write("good.fx", kGood), bad = folder.Write("bad.fx", kBad);
    const auto compile = [&](const std::string& pixelFile) {
        Rendering::D3D11::Shader(device->Device(), Rendering::D3D11::kQuadLayout, good, pixelFile);
    };
    Support::FatalErrorRecorder dialog;
    EXPECT_NO_THROW(compile(good));
    EXPECT_THROW(compile(bad), std::exception);
    ASSERT_EQ(dialog.captions, (std::vector<std::string>{"Vorelle FSX: Shader compilation error", "Vorelle FSX"}));
    EXPECT_NE(dialog.texts[0].find("nonsense"), std::string::npos) << dialog.texts[0];
    EXPECT_THROW(compile(folder / "missing.fx"), std::exception);
    EXPECT_EQ(dialog.captions.size(), 3u) << "no compiler messages about a missing file";
}

} // namespace

namespace Conformance {

INSTANTIATE_TYPED_TEST_SUITE_P(D3D11, ContextObjects, D3D11Device);
INSTANTIATE_TYPED_TEST_SUITE_P(D3D11, ContextPictures, D3D11Device);

} // namespace Conformance
