#pragma once

#include "Rendering/Context.h"

#include "Rendering/Images.h"
#include "Support/DdsBuilder.h"
#include "Support/FatalErrorRecorder.h"
#include "Support/Picture.h"
#include "Support/TemporaryFolder.h"

#include <cairo.h>
#include <gtest/gtest.h>
#include <memory>
#include <numbers>

/// Requirements on every device that draws: small targets are drawn, read back and compared as text images, whose
/// letters are fields of 9 by 9 pixels, so that no filter reaches from the neighbours to the middle. A device is a
/// class as for ContextObjects, with
///     void Begin(Size size);                  a frame of that size is the target, black and transparent, depth 1
///     MemBitmap ReadFrame();                  the frame's image; red, green, blue, alpha, top row first
///     MemBitmap Read(GPUBitmap& bitmap);      a bitmap's image
///     static bool IsAnisotropic();            only if a device of the class may filter without anisotropy
///     kDropsMipLevelsOfFiles                  only if an image from a file is drawn without its smaller levels
namespace Conformance {

using Rendering::GeometryDrawParams;
using Rendering::GeometryVertex;
using Rendering::RectDrawParams;
using Utils::Matrix4;
using Utils::Vector2;
using Utils::Vector3;
using Vertices = std::vector<GeometryVertex>;

/// A rectangle of two triangles; texture coordinates run from (0, 0) at the lower left to `texture` at the upper right.
inline Vertices Rectangle(Vector2 lowerLeft, Vector2 upperRight, float z = 0.5f, Vector2 texture = {1, 1},
                          Vector3 normal = {0, 0, -1}) {
    const auto corner = [&](float right, float up) {
        GeometryVertex vertex;
        vertex.position = {right ? upperRight.x() : lowerLeft.x(), up ? upperRight.y() : lowerLeft.y(), z};
        vertex.normal = normal;
        vertex.texture = vertex.secondTexture = {right * texture.x(), up * texture.y()};
        return vertex;
    };
    return {corner(0, 0), corner(0, 1), corner(1, 1), corner(1, 1), corner(1, 0), corner(0, 0)};
}

constexpr std::uint32_t kField = 9; ///< pixels per side

constexpr Rendering::Size InFields(Rendering::Size fields) {
    return {fields.width * kField, fields.height * kField};
}

inline Vertices FullView(float z = 0.5f) {
    return Rectangle({-1, -1}, {1, 1}, z);
}

/// Draws once, in an unlit colour.
inline GeometryDrawParams Flat(Vector3 colour = {1, 1, 1}) {
    GeometryDrawParams params;
    params.leftEye = params.rightEye = false;
    params.singleView = true;
    params.firstColour = colour;
    params.secondColour = {0, 0, 0};
    return params;
}

/// The first pixel: red, green, blue, alpha, tolerance 2 each.
inline void ExpectPixel(const Rendering::MemBitmap& bitmap, std::array<int, 4> wanted, const char* name) {
    const std::uint32_t pixel = bitmap.Pixels()[0];
    for (int channel = 0; channel < 4; ++channel)
        EXPECT_NEAR(static_cast<int>(pixel >> 8 * channel & 255), wanted[static_cast<std::size_t>(channel)], 2)
            << name << ": the pixel is 0x" << std::hex << pixel << ", alpha first, red last";
}

template <typename Device>
class ContextPictures : public testing::Test {
protected:
    static void SetUpTestSuite() { device = std::make_unique<Device>(); }
    static void TearDownTestSuite() { device.reset(); }

    Rendering::Context& Context() const { return device->Context(); }

    void Begin(Rendering::Size fields) { device->Begin(InFields(fields)); }
    void Draw(const Vertices& vertices, const GeometryDrawParams& params,
              const Rendering::GPUBitmap* bitmap = nullptr) {
        Draw(same, same, same, vertices, params, bitmap);
    }
    void Draw(const Matrix4& world, const Matrix4& view, const Matrix4& projection, const Vertices& vertices,
              const GeometryDrawParams& params, const Rendering::GPUBitmap* bitmap = nullptr) {
        Context().DrawGeometry(world, view, projection, *Context().CreateGeometry(vertices), bitmap, nullptr, params);
    }
    void DrawBitmap(Rendering::GPUBitmap& bitmap, const RectDrawParams& params,
                    Utils::Quaternion turn = Utils::Quaternion::Identity()) {
        Context().DrawBitmap(same, same, {{0, 0, 0.5f}, {2, 2}, turn}, bitmap, params);
    }
    std::unique_ptr<Rendering::GPUBitmap> Make(std::string_view picture, std::uint8_t alpha = 255) {
        return Context().CreateBitmap(Support::Bitmap(picture, kField, alpha));
    }
    std::unique_ptr<Rendering::GPUBitmap> MakeTarget(Rendering::Size fields, std::uint32_t samples = 1) {
        return Context().CreateRenderTarget(InFields(fields), samples, 0);
    }
    std::string Frame() { return Support::Picture(device->ReadFrame(), kField); }
    std::string PictureOf(Rendering::GPUBitmap& bitmap) { return Support::Picture(device->Read(bitmap), kField); }

    const Matrix4 same = Matrix4::Identity();
    static inline std::unique_ptr<Device> device;
};

TYPED_TEST_SUITE_P(ContextPictures);

TYPED_TEST_P(ContextPictures, DrawsATriangleOfEitherWinding) {
    Vertices triangle(3); // the centres of ten pixels are below its long side
    triangle[0].position = {-1, -1, 0.5f};
    triangle[1].position = {-1, 1.25f, 0.5f};
    triangle[2].position = {1.25f, -1, 0.5f};
    // Without a gradient, Mesa's software renderer (25.0) filters to black under Direct3D.
    triangle[1].texture = {0, 1};
    triangle[2].texture = {1, 0};
    for (int winding = 0; winding < 2; ++winding) {
        this->Begin({4, 4});
        this->Draw(triangle, Flat());
        EXPECT_EQ(this->Frame(), "W...\nWW..\nWWW.\nWWWW\n");
        std::swap(triangle[1], triangle[2]);
    }
}

TYPED_TEST_P(ContextPictures, TransformsByWorldThenViewThenProjectionAndClipsDepthAtZeroAndOne) {
    this->Begin({4, 4});
    this->Draw(Utils::Translation({1, 0, 0}), Utils::Scaling(0.5f), this->same, FullView(), Flat());
    EXPECT_EQ(this->Frame(), "....\n..WW\n..WW\n....\n") << "(x + 1) / 2, not x / 2 + 1";
    this->Begin({4, 4});
    const Matrix4 quarter = Utils::PerspectiveFov(std::numbers::pi_v<float> / 2, 1.0f, 0.05f, 30.0f);
    this->Draw(Utils::Translation({0, 0, 1.5f}), this->same, quarter, FullView(), Flat());
    EXPECT_EQ(this->Frame(), "....\n.WW.\n.WW.\n....\n") << "half as large at a distance of 2";
    for (const auto& [z, picture] : {std::pair(-0.01f, ".\n"), {0.01f, "W\n"}, {0.99f, "W\n"}, {1.01f, ".\n"}}) {
        this->Begin({1, 1});
        this->Draw(FullView(z), Flat());
        EXPECT_EQ(this->Frame(), picture) << z;
    }
}

TYPED_TEST_P(ContextPictures, TestsAndWritesDepthAsRequested) {
    struct Row {
        const char* name;
        float firstDepth, secondDepth;
        bool firstWrites, firstTests, secondTests;
        const char* picture;
    };
    for (const Row& row : {Row{"nearer first", 0.2f, 0.8f, true, true, true, "R\n"},
                           Row{"equally near", 0.5f, 0.5f, true, true, true, "G\n"},
                           Row{"the first not written", 0.2f, 0.8f, false, true, true, "G\n"},
                           Row{"the first not tested, so not written", 0.2f, 0.8f, true, false, true, "G\n"},
                           Row{"the second not tested", 0.2f, 0.8f, true, true, false, "G\n"}}) {
        this->Begin({1, 1});
        GeometryDrawParams first = Flat({1, 0, 0}), second = Flat({0, 1, 0});
        first.depthWrite = row.firstWrites;
        first.depthTest = row.firstTests;
        second.depthTest = row.secondTests;
        this->Draw(FullView(row.firstDepth), first);
        this->Draw(FullView(row.secondDepth), second);
        EXPECT_EQ(this->Frame(), row.picture) << row.name;
    }
}

TYPED_TEST_P(ContextPictures, BlendsByOpacityAndTheTexturesAlpha) {
    struct Row {
        const char* name;
        bool blend, plainProgram;
        float opacity;
        std::array<int, 4> pixel;
    };
    // Blue with alpha 0.5 is drawn on red. The written alpha is the source's only.
    const auto half = this->Make("W\n", 128);
    for (const Row& row : {Row{"no blending", false, false, 0.5f, {0, 0, 255, 128}},
                           Row{"blending takes both", true, false, 0.5f, {191, 0, 64, 64}},
                           Row{"the plain program knows opacity alone", true, true, 0.5f, {128, 0, 128, 128}},
                           Row{"nothing to see", true, false, 0.0f, {255, 0, 0, 0}}}) {
        this->Begin({1, 1});
        this->Draw(FullView(), Flat({1, 0, 0}));
        GeometryDrawParams params = Flat({0, 0, 1});
        params.blend = row.blend;
        params.plainProgram = row.plainProgram;
        params.opacity = row.opacity;
        this->Draw(FullView(), params, half.get());
        ExpectPixel(this->device->ReadFrame(), row.pixel, row.name);
    }
}

TYPED_TEST_P(ContextPictures, TexturesAreUprightAndWrap) {
    const auto texture = this->Make("RG\nBW\n");
    this->Begin({2, 2});
    this->Draw(FullView(), Flat(), texture.get());
    EXPECT_EQ(this->Frame(), "RG\nBW\n") << "v is 0 at the bottom";
    this->Begin({4, 4});
    this->Draw(Rectangle({-1, -1}, {1, 1}, 0.5f, {2, 2}), Flat(), texture.get());
    EXPECT_EQ(this->Frame(), "RGRG\nBWBW\nRGRG\nBWBW\n");
    this->Begin({2, 1});
    this->Draw(FullView(), Flat({0, 1, 1}));
    EXPECT_EQ(this->Frame(), "CC\n") << "white without a bitmap";
}

TYPED_TEST_P(ContextPictures, LightsASurfaceByItsColourTerms) {
    struct Row {
        const char* name;
        Vector3 normal, second, third;
        std::array<int, 4> pixel;
    };
    // The light comes from (0.36, 0.48, -0.8) of the view; the first colour is (0.2, 0.4, 0.6) = (51, 102, 153).
    const Vector3 towards(0.36f, 0.48f, -0.8f), across(0.8f, -0.6f, 0.0f), half(0.4f, 0.4f, 0.4f), none(0, 0, 0);
    for (const Row& row : {Row{"full on from behind", -towards, half, none, {153, 204, 255, 255}},
                           Row{"across the light", across, half, none, {51, 102, 153, 255}},
                           Row{"facing the viewer takes 0.8 of it", {0, 0, -1}, half, none, {133, 184, 235, 255}},
                           Row{"the third comes on top", across, half, half, {153, 204, 255, 255}}}) {
        this->Begin({1, 1});
        GeometryDrawParams params = Flat({0.2f, 0.4f, 0.6f});
        params.secondColour = row.second;
        params.thirdColour = row.third;
        this->Draw(Rectangle({-1, -1}, {1, 1}, 0.5f, {1, 1}, row.normal), params);
        ExpectPixel(this->device->ReadFrame(), row.pixel, row.name);
    }
    // A quarter turn about z maps the world's (0.48, -0.36, -0.8) to the light's direction in the view.
    this->Begin({1, 1});
    GeometryDrawParams params = Flat({0, 0, 0});
    params.secondColour = {1, 1, 1};
    this->Draw(this->same, Utils::RotationZ(std::numbers::pi_v<float> / 2), this->same,
               Rectangle({-1, -1}, {1, 1}, 0.5f, {1, 1}, {0.48f, -0.36f, -0.8f}), params);
    EXPECT_EQ(this->Frame(), "W\n") << "the light is fixed in view space";
    params.secondColour = {0, 0, 0};
    params.fourthColour = {1, 1, 0};
    params.shaderParam2 = 2;
    this->Draw(FullView(), params);
    ExpectPixel(this->device->ReadFrame(), {163, 163, 0, 255}, "a highlight of 0.8 squared");
}

TYPED_TEST_P(ContextPictures, EffectsDoWhatTheirNamesSay) {
    const auto draw = [this](const char* effect, const Rendering::GPUBitmap& bitmap, auto&& change) {
        this->Begin({bitmap.Size().width / kField, bitmap.Size().height / kField});
        GeometryDrawParams params = Flat();
        params.effect = effect;
        change(params);
        this->Draw(FullView(), params, &bitmap);
        return this->Frame();
    };
    const auto white = this->Make("W\n");
    for (const char* effect : {"", "EdgeBlend", "timewarp", "timewarp_textureclip", "levels_adjust", "fxaa"})
        EXPECT_EQ(draw(effect, *white, [](auto& params) { params.firstColour = {0, 1, 0}; }), "G\n") << effect;
    const auto picture = this->Make("RGBW\n");
    const auto halfToTheRight = [](auto& params) { params.matrices[0] = Utils::Translation({0.5f, 0, 0}); };
    EXPECT_EQ(draw("timewarp_textureclip", *picture, halfToTheRight), "GBW.\n") << "nothing beyond the edge";
    const auto greys = this->Make("gW\n");
    EXPECT_EQ(draw("levels_adjust", *greys, [](auto& params) { params.shaderParam4 = 1; }), "<404040>W\n") << "squared";
    constexpr const char* kSlope = "W...\nWW..\nWWW.\nWWWW\n";
    const auto slope = this->Context().CreateBitmap(Support::Bitmap(kSlope));
    this->device->Begin({4, 4});
    GeometryDrawParams smoothed = Flat();
    smoothed.effect = "fxaa";
    this->Draw(FullView(), smoothed, slope.get());
    EXPECT_NE(Support::Picture(this->device->ReadFrame()), kSlope) << "smoothed";
    const auto wide = this->Make("WWWWW\nWWWWW\nWWWWW\n");
    const auto fade = [](auto& params) {
        params.blend = true;
        params.shaderParam2 = 2.0f; // from transparent at the edge to opaque in the middle
    };
    EXPECT_EQ(draw("EdgeBlend", *wide, fade), "<333333><555555><555555><555555><333333>\n"
                                              "<333333><999999>W<999999><333333>\n"
                                              "<333333><555555><555555><555555><333333>\n");
}

TYPED_TEST_P(ContextPictures, MatricesMoveTheVerticesThatReferenceThem) {
    Vertices leftHalf = Rectangle({-1, -1}, {0, 1});
    for (GeometryVertex& vertex : leftHalf) {
        vertex.blendIndices = {98, 1, 0, 0};
        vertex.blendWeights = {0.5f, 0.5f, 0, 0};
    }
    GeometryDrawParams params = Flat();
    params.matrices.assign(99, this->same);
    params.matrices[98] = Utils::Translation({1, 0, 0});
    this->Begin({4, 1});
    this->Draw(leftHalf, params);
    EXPECT_EQ(this->Frame(), ".WW.\n") << "half of one place and half of the other";
}

TYPED_TEST_P(ContextPictures, DrawsToTheHalvesOfBothEyesOrOnce) {
    for (const auto& [left, right, picture] :
         {std::tuple(true, false, "W...\n"), {false, true, "..W.\n"}, {false, false, "WW..\n"}}) {
        this->Begin({4, 1});
        GeometryDrawParams params = Flat();
        params.leftEye = left;
        params.rightEye = right;
        params.singleView = !left && !right;
        this->Draw(Rectangle({-1, -1}, {0, 1}), params);
        EXPECT_EQ(this->Frame(), picture);
    }
}

TYPED_TEST_P(ContextPictures, MinifiedTexturesShowTheirMipLevels) {
    const auto board = this->Context().CreateBitmap(Support::Bitmap(".W.W\nW.W.\n.W.W\nW.W.\n"));
    const auto shrunk = [&] {
        this->device->Begin({1, 1});
        this->Draw(FullView(), Flat(), board.get());
        return Support::Picture(this->device->ReadFrame());
    };
    EXPECT_EQ(shrunk(), "g\n");
    this->Context().ClearBitmap(board.get(), {1, 0, 0, 1});
    this->Context().GenerateMips(board.get());
    EXPECT_EQ(shrunk(), "R\n");
    if constexpr (requires { TypeParam::IsAnisotropic(); })
        if (!TypeParam::IsAnisotropic())
            return;
    const auto stripes = this->Context().CreateBitmap(Support::Bitmap(".W.W\n.W.W\n.W.W\n.W.W\n"));
    this->device->Begin({4, 1});
    this->Draw(FullView(), Flat(), stripes.get());
    const Rendering::MemBitmap frame = this->device->ReadFrame();
    EXPECT_GT(frame.Pixels()[1] & 255, (frame.Pixels()[0] & 255) + 32) << "shrunk along one side alone";
}

TYPED_TEST_P(ContextPictures, DrawsToABitmapUntilItIsRestored) {
    const auto target = this->MakeTarget({2, 2});
    this->Context().ClearBitmap(target.get(), {0, 0, 1, 1});
    this->Begin({4, 4});
    {
        const auto lock = this->Context().BeginRenderToTexture(*target, false);
        this->Draw(Rectangle({-1, 0}, {0, 1}), Flat({1, 0, 0}));
        lock->Restore();
        this->Draw(Rectangle({0, -1}, {1, 0}), Flat());
    }
    EXPECT_EQ(this->PictureOf(*target), "RB\nBB\n");
    EXPECT_EQ(this->Frame(), "....\n....\n..WW\n..WW\n");
    { const auto lock = this->Context().BeginRenderToTexture(*target, false); }
    this->Begin({2, 2});
    this->Draw(FullView(), Flat(), target.get());
    EXPECT_EQ(this->Frame(), "RB\nBB\n") << "drawn content is upright as a texture";
    this->Begin({2, 2});
    this->Draw(Rectangle({-1, -1}, {0, 1}, 0.2f), Flat());
    const auto lock = this->Context().BeginRenderToTexture(*target, true);
    this->Draw(FullView(0.8f), Flat({0, 1, 0}));
    lock->Restore();
    EXPECT_EQ(this->PictureOf(*target), "RG\nBG\n") << "the frame's depth hides the left half";
}

TYPED_TEST_P(ContextPictures, CopiesBitmapsAndRegionsAndResolvesSamples) {
    const auto source = this->Make("RGB\nCMY\n");
    const auto target = this->MakeTarget({3, 2});
    this->Context().CopyBitmap(*target, *source);
    EXPECT_EQ(this->PictureOf(*target), "RGB\nCMY\n");
    this->Context().CopyBitmapRegion(*target, *source, InFields({2, 0}), InFields({5, 5}));
    EXPECT_EQ(this->PictureOf(*target), "BGB\nYMY\n") << "to the top left; pixels outside the source are skipped";

    const auto sampled = this->MakeTarget({3, 2}, 4);
    this->Context().ClearBitmap(sampled.get(), {0, 0, 0, 1});
    this->Begin({1, 1});
    const auto lock = this->Context().BeginRenderToTexture(*sampled, false);
    this->Draw(Rectangle({-1, 0}, {0, 1}), Flat()); // ends in the middle of the second column
    lock->Restore();
    this->Context().CopyBitmap(*target, *sampled);
    EXPECT_EQ(this->PictureOf(*target), "Wg.\n...\n");
    const Support::FatalErrorRecorder dialog;
    EXPECT_THROW(this->Draw(FullView(), Flat(), sampled.get()), std::exception)
        << "shaders cannot read multisampled bitmaps";
}

TYPED_TEST_P(ContextPictures, DrawsABitmapOnARectangle) {
    const auto bitmap = this->Make("RG\nBW\n");
    const auto draw = [&](Rendering::Size size, auto&& change, Utils::Quaternion turn = Utils::Quaternion::Identity()) {
        this->Begin(size);
        RectDrawParams params;
        params.mode = 2;
        change(params);
        this->DrawBitmap(*bitmap, params, turn);
        return this->Frame();
    };
    const auto quarterTurn = Utils::RotationAboutAxis({0, 0, 1}, std::numbers::pi_v<float> / 2);
    EXPECT_EQ(draw(
                  {2, 2}, [](RectDrawParams&) {}, quarterTurn),
              "GW\nRB\n")
        << "x to y";
    EXPECT_EQ(draw({4, 4}, [](auto& params) { params.textureSize = {2, 2}; }), "RGGG\nBWWW\nBWWW\nBWWW\n") << "clamps";
    EXPECT_EQ(draw({2, 2}, [](auto& params) { params.dim = true; }), "<1A0000><001A00>\n<00001A><1A1A1A>\n");
    EXPECT_EQ(draw({4, 2}, [](auto& params) { params.mode = params.eye = 1; }), "..RG\n..BW\n");
    this->Begin({1, 1});
    this->Draw(FullView(0.2f), Flat({1, 0, 0}));
    RectDrawParams params;
    params.mode = 2;
    this->DrawBitmap(*bitmap, params);
    EXPECT_EQ(this->Frame(), "R\n") << "it is behind";
    params.depthTest = false;
    params.blend = true;
    params.colour = {0, 0, 1, 0.5f};
    this->DrawBitmap(*this->Make("W\n", 128), params);
    ExpectPixel(this->device->ReadFrame(), {191, 0, 64, 64}, "a quarter of blue");
    const auto edge = this->Make(".W\n");
    params = {};
    params.mode = 2;
    params.effect = "sobel";
    this->Begin({2, 1});
    this->DrawBitmap(*edge, params);
    EXPECT_EQ(this->Frame(), "..\n") << "the middle of a field is not an edge";
    const Rendering::MemBitmap frame = this->device->ReadFrame();
    for (const std::size_t besideTheEdge : {kField - 1, kField})
        EXPECT_GT(frame.Pixels()[besideTheEdge] & 255, 128u);
}

TYPED_TEST_P(ContextPictures, UndistortsACameraImage) {
    const std::uint8_t grey[] = {0, 128, 255, 255};
    const float map[] = {0.75f, 0.75f, -0.1f, 0.25f, 0.75f, 0.25f, 0.25f, 1.1f};
    const auto image = this->Context().CreateBitmapFromCameraImage({{2, 2}, grey, {2, 2}, map});
    EXPECT_EQ(Support::Picture(this->device->Read(*image)), "W<000080>\ng<000080>\n")
        << "dark blue where the map points outside";
}

TYPED_TEST_P(ContextPictures, LoadsImagesUprightWithCorrectColours) {
    const Support::TemporaryFolder folder;
    // The writer expects red first, the bitmap has blue first.
    const auto png = this->Context().LoadBitmap(folder.Write("a.png", Rendering::ToPng(Support::Bitmap("BG\nRW\n"))));
    EXPECT_EQ(Support::Picture(this->device->Read(*png)), "RG\nBW\n");
    unsigned char halfRed[] = {0, 0, 64, 128}; // blue, green, red, alpha; premultiplied
    cairo_surface_t* surface = cairo_image_surface_create_for_data(halfRed, CAIRO_FORMAT_ARGB32, 1, 1, 4);
    cairo_surface_write_to_png(surface, (folder / "half.png").c_str());
    cairo_surface_destroy(surface);
    ExpectPixel(this->device->Read(*this->Context().LoadBitmap(folder / "half.png")), {64, 0, 0, 128}, "premultiplied");

    // The file's first row is the image's bottom row; its second level is green.
    auto file = Support::DdsBuilder(2 * kField, 2 * kField).Plain(0xFF, 0xFF00, 0xFF0000, 0).Word(28, 2);
    for (std::uint32_t y = 0; y < 2 * kField; ++y)
        for (std::uint32_t x = 0; x < 2 * kField; ++x)
            file.Pixels({x < kField || y >= kField ? 255 : 0, y < kField ? 0 : 255, x < kField ? 0 : 255, 0});
    for (std::uint32_t i = 0; i < kField * kField; ++i)
        file.Pixels({0, 255, 0, 0});
    const auto dds = this->Context().LoadBitmap(folder.Write("a.dds", file.bytes));
    EXPECT_EQ(this->PictureOf(*dds), "YW\nRB\n");
    if constexpr (!requires { TypeParam::kDropsMipLevelsOfFiles; }) {
        this->Begin({1, 1});
        this->Draw(FullView(), Flat(), dds.get());
        EXPECT_EQ(this->Frame(), "G\n");
    }
}

REGISTER_TYPED_TEST_SUITE_P(ContextPictures, DrawsATriangleOfEitherWinding,
                            TransformsByWorldThenViewThenProjectionAndClipsDepthAtZeroAndOne,
                            TestsAndWritesDepthAsRequested, BlendsByOpacityAndTheTexturesAlpha,
                            TexturesAreUprightAndWrap, LightsASurfaceByItsColourTerms, EffectsDoWhatTheirNamesSay,
                            MatricesMoveTheVerticesThatReferenceThem, DrawsToTheHalvesOfBothEyesOrOnce,
                            MinifiedTexturesShowTheirMipLevels, DrawsToABitmapUntilItIsRestored,
                            CopiesBitmapsAndRegionsAndResolvesSamples, DrawsABitmapOnARectangle, UndistortsACameraImage,
                            LoadsImagesUprightWithCorrectColours);

} // namespace Conformance
