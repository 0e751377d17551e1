#include "Annotator/Preview/Surroundings.h"

#include "Support/DdsBuilder.h"
#include "Support/ObjText.h"
#include "Support/RecordingContext.h"
#include "Support/TemporaryFolder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <thread>

namespace Annotator {
namespace {

using Support::ObjText;
using Utils::Matrix4;

struct SurroundingsTest : testing::Test {
    void Add(const std::string& name, const std::string& text, bool mayBeHidden = false) {
        found.objects.push_back({name, folder.Write(name, text), Utils::Vector3::Zero(), mayBeHidden});
    }
    /// An object with a texture of its own, of one pixel with this alpha.
    void AddPainted(const std::string& name, int alpha = 255) {
        Support::DdsBuilder texture(1, 1);
        texture.Plain(0xFF, 0xFF00, 0xFF0000, 0xFF000000).Pixels({1, 2, 3, alpha});
        folder.Write(name + ".dds", texture.bytes);
        Add(name, ObjText().Texture(name + ".dds").Tris().Text());
    }
    std::size_t Draw(Surroundings& surroundings) {
        context.draws.clear();
        surroundings.Draw(context, view, projection);
        return context.draws.size();
    }
    std::ptrdiff_t Painted() const {
        return std::ranges::count_if(context.draws, [](const auto& draw) { return draw.bitmap != nullptr; });
    }

    const Support::TemporaryFolder folder;
    CockpitModel::SurroundingObjects found;
    Support::RecordingContext context;
    Matrix4 view = Utils::Translation({0, 0, 3}), projection = Utils::PerspectiveFov(1, 1, 0.1f, 10);
};

TEST_F(SurroundingsTest, LeavesOutWhatStandsForAnotherInItsPlace) {
    const auto moved = [](float x) {
        const std::string shift = std::to_string(x) + " 0 0 ";
        return ObjText().Line("ANIM_trans " + shift + shift + "0 0").Tris().Text();
    };
    const struct {
        const char* name;
        bool mayBeHidden;
        std::string second;
        std::size_t drawn;
    } rows[] = {
        {"the same panel in another language", true, moved(0.04f), 1},
        {"always there", false, moved(0.0f), 2},
        {"aside", true, moved(0.06f), 2},
        {"smaller", true, ObjText().Line("VT 0.9 0 0 0 0 1 0 0\nIDX 0\nIDX 3\nIDX 2\nTRIS 3 3").Text(), 2},
    };
    for (const auto& row : rows) {
        found.objects.clear();
        Add("first.obj", moved(0.0f));
        Add("second.obj", row.second, row.mayBeHidden);
        Surroundings surroundings(found);
        surroundings.Complete(context);
        EXPECT_EQ(Draw(surroundings), row.drawn) << row.name;
    }
    found.objects[1].place = {0, 0, 1};
    folder.Write("second.obj", moved(0.0f));
    Surroundings elsewhere(found);
    elsewhere.Complete(context);
    EXPECT_EQ(Draw(elsewhere), 2u);
}

TEST_F(SurroundingsTest, AreGreyUntilEachFrameBringsATexture) {
    AddPainted("a.obj");
    AddPainted("b.obj", 254);
    AddPainted("c.obj");
    Surroundings surroundings(found);
    while (Draw(surroundings) < 3)
        std::this_thread::yield();
    EXPECT_EQ(Painted(), 0) << "a frame that brings a mesh brings no texture";
    const Utils::Vector3 grey = context.draws[0].params.firstColour;
    for (std::ptrdiff_t before = 0; before < 3; before = Painted()) {
        Draw(surroundings);
        EXPECT_LE(Painted(), before + 1);
    }
    EXPECT_NE(context.draws[0].params.firstColour, grey);
    EXPECT_FALSE(context.draws[0].params.blend);
    EXPECT_TRUE(context.draws[1].params.blend) << "its texture has a transparent pixel";

    view = Utils::Translation({0, 0, -3});
    EXPECT_EQ(Draw(surroundings), 0u) << "behind the camera";
}

TEST_F(SurroundingsTest, ComeBackOnANewDeviceAndAfterAFailedCall) {
    AddPainted("a.obj");
    Add("broken.obj", "TRIS 0 3\n");
    Add("b.obj", ObjText().Tris().Text());
    Surroundings surroundings(found);
    context.beforeCall = [] { throw std::runtime_error("lost"); };
    EXPECT_THROW(surroundings.Complete(context), std::runtime_error);
    context.beforeCall = nullptr;
    surroundings.Complete(context);
    EXPECT_EQ(Draw(surroundings), 2u) << "in the order of the objects";
    EXPECT_EQ(Painted(), 1);
    EXPECT_NE(context.draws[0].bitmap, nullptr);

    Support::RecordingContext other;
    surroundings.Complete(other);
    surroundings.Draw(other, view, projection);
    ASSERT_EQ(other.draws.size(), 2u);
    EXPECT_TRUE(other.IsGeometryValid(other.draws[0].geometry) && other.IsBitmapValid(other.draws[0].bitmap));
}

} // namespace
} // namespace Annotator
