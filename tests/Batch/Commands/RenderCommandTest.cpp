#include "Batch/BatchProgram.h"
#include "Batch/Command.h"
#include "Rendering/BitmapFile.h"
#include "Rendering/Images.h"

#include <array>
#include <gmock/gmock.h>

namespace Batch {
namespace {

using Support::ObjText;
using Support::ProgramResult;
using testing::HasSubstr;

using Colour = std::array<int, 3>; ///< red, green, blue

constexpr Colour kGround{128, 128, 128};

/// A cockpit of one red triangle, (0,0,0) (1,0,0) (0,1,0), which "sim/slide" moves 5 m to the right, on the only part
/// of node 1.
struct RenderCommand : testing::Test {
    RenderCommand() {
        installation.Aircraft("Aircraft/Props/Cub", "Cub", "P acf/_pe_xyz/0 -9\nP acf/_pe_xyz/2 10\n");
        installation.Write(
            "Aircraft/Props/Cub/plane_cockpit.obj",
            ObjText().Texture("red.png").Begin().Line("ANIM_trans 0 0 0 5 0 0 0 1 sim/slide").Tris().End().Text());
        Rendering::MemBitmap red(1, 1);
        red.SetPixel(0, 0, 255, 0, 0, 255);
        installation.Write("Aircraft/Props/Cub/red.png", Rendering::ToPng(red));
    }

    ProgramResult Render(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"render", "--out", "picture.png"});
        return RunBatch(installation, arguments);
    }

    /// The colour in the middle of an image taken 2 m in front of the triangle's corner.
    Colour Middle(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--size", "64x32", "--eye", "0.1,0.1,2"});
        arguments.push_back("Cub"); // after the options, which must not consume it
        const ProgramResult result = Render(arguments);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        const Rendering::MemBitmap picture = Rendering::ReadPngFile(installation / "picture.png"); // blue comes first
        EXPECT_EQ(std::pair(picture.Width(), picture.Height()), std::pair(std::uint64_t{64}, std::uint64_t{32}));
        const std::uint32_t pixel = picture.Pixels()[picture.Pixels().size() / 2 + 32];
        return {static_cast<int>(pixel >> 16 & 255), static_cast<int>(pixel >> 8 & 255), static_cast<int>(pixel & 255)};
    }

    const Support::Installation installation;
};

TEST_F(RenderCommand, DrawsWhatTheCameraSees) {
    const Colour red = Middle({});
    EXPECT_GT(red[0], 60);
    EXPECT_EQ(red, (Colour{red[0], 0, 0}));
    EXPECT_EQ(Middle({"--look", "180,0"}), kGround);
    EXPECT_EQ(Middle({"--look=0,-60"}), kGround);
    EXPECT_EQ(Middle({"--position", "sim/slide=1"}), kGround);
    EXPECT_EQ(Middle({"--position", "sim/slide=1", "--position", "sim/slide=0"}), red) << "the last one counts";
    // The selection's blue light on a red texture.
    EXPECT_EQ(Middle({"--select", "1,0"}), (Colour{0, 0, 0}));
    EXPECT_TRUE(boost::filesystem::is_empty(installation / "QVRA")) << "drawn with the program's own data";
}

TEST_F(RenderCommand, DrawsTheCabinOfTheFullReading) {
    installation.Write("Aircraft/Props/Cub/objects/wall.obj",
                       ObjText().Texture("../red.png").Line("ANIM_trans 0 0 -1 0 0 -1 0 0").Tris().Text());
    installation.Aircraft("Aircraft/Props/Cub", "Cub",
                          "P _obja/0/_v10_att_file_stl wall.obj\nP _obja/0/_obj_flags 1\n");
    const Colour red = Middle({});
    EXPECT_EQ(Middle({"--full", "--position", "sim/slide=1"}), red) << "the slide is off the wall behind it";
    EXPECT_EQ(Middle({"--full", "--bare", "--position", "sim/slide=1"}), kGround);
    EXPECT_EQ(Render({"Cub", "--bare"}).exitCode, kWrongUsage);
}

TEST_F(RenderCommand, UsesThePilotsEyeByDefault) {
    // Nothing is in front of the eye, at x = -9 feet; the triangle is 45 degrees to the right.
    const ProgramResult ahead = Render({"Cub"});
    EXPECT_EQ(ahead.exitCode, 0) << ahead.errors;
    EXPECT_THAT(ahead.errors, HasSubstr("plane.acf): no part is visible; try --fit\n"));
    const std::string empty = installation.Read("picture.png");
    for (const auto& look : {std::vector<std::string>{"Cub", "--look", "45,0"}, {"Cub", "--fit"}}) {
        EXPECT_EQ(Render(look).errors, "");
        EXPECT_NE(installation.Read("picture.png"), empty);
    }
}

TEST_F(RenderCommand, ReportsErrorsAndWritesNoImage) {
    installation.Aircraft("Aircraft/Props/Shell", "Shell");
    installation.Aircraft("Aircraft/Props/Piper", "Piper", NoMaterial());
    const struct {
        std::vector<std::string> arguments;
        int exitCode;
        const char* message;
    } rows[] = {
        {{"Cub", "--size", "0x4"}, kWrongUsage, "'0x4' is not from 1x1 to 8192x8192"},
        {{"Cub", "--eye=1,2,inf"}, kWrongUsage, "'1,2,inf' does not have the form X,Y,Z"},
        {{"Cub", "--look", "1,2,3"}, kWrongUsage, "'1,2,3' does not have the form YAW,PITCH"},
        {{"Cub", "--select", "1,7"}, kWrongUsage, "node 1 has no part 7"},
        {{"Cub", "--position", "sim/slide"}, kWrongUsage, "'sim/slide' does not have the form DATAREF=VALUE"},
        {{"Cub", "--position", "sim/slide=1.5"}, kWrongUsage, "'sim/slide=1.5' is not from 0 to 1"},
        {{"Cub", "--position", "sim/other=1"}, kWrongUsage, "no animation of the cockpit uses the dataref sim/other"},
        {{"Cub", "--fit", "--eye", "1,2,3"}, kWrongUsage, "--eye excludes --fit"},
        {{"Cub", "--sheet", "a.html"}, kWrongUsage, "--out excludes --sheet"},
        {{"Piper"}, kAircraftFailed, "--untextured"},
        {{"Shell"},
         kAircraftFailed,
         "Shell (Aircraft/Props/Shell/plane.acf): the folder of the .acf file contains no cockpit object"},
    };
    for (const auto& row : rows) {
        const ProgramResult result = Render(row.arguments);
        EXPECT_EQ(result.exitCode, row.exitCode) << row.message;
        EXPECT_THAT(result.errors, HasSubstr(row.message));
        EXPECT_FALSE(boost::filesystem::exists(installation / "picture.png")) << row.message;
    }
    const ProgramResult noDevice = Support::Program({"/usr/bin/env", "__EGL_VENDOR_LIBRARY_DIRS=/",
                                                     VORELLE_BATCH_PROGRAM, "render", "--out", "picture.png", "Cub"},
                                                    installation.path.string())
                                       .Wait();
    EXPECT_EQ(noDevice.exitCode, kAircraftFailed) << noDevice.errors;
    EXPECT_EQ(Render({"Piper", "--untextured", "--fit"}).errors, "");
    boost::filesystem::remove(installation / "picture.png");
    boost::filesystem::create_directory(installation / "picture.png");
    EXPECT_EQ(Render({"Cub"}).exitCode, kNotWritten);
}

TEST_F(RenderCommand, WritesASheetOfAllTouchableParts) {
    // 41 switches in a row, with a gap of 10 m after the first 20: a picture for each side.
    ObjText cockpit;
    cockpit.Texture("red.png").Tris();
    for (int i = 0; i < 41; ++i) {
        const std::string number = std::to_string(i), place = std::to_string(i < 20 ? i : i + 9) + " 0 0 ";
        cockpit.Toggle("sim/" + number + "<").Begin().Line("ANIM_trans " + place + place + "0 1 sim/none").Tris().End();
    }
    installation.Aircraft("Aircraft/Props/Piper", "Piper", cockpit);
    const std::vector<std::string> arguments{"render", "--sheet", "a.html", "--size", "320x200", "Piper"};
    const ProgramResult result = RunBatch(installation, arguments);
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    const std::string html = installation.Read("a.html");
    EXPECT_THAT(html, HasSubstr(">41 touchable parts<"));
    EXPECT_THAT(html, HasSubstr("alt=\"Picture 2: parts 21 to 41 of Piper\" src=\"data:image/png;base64,iVBO"));
    EXPECT_THAT(html, HasSubstr(">toggle</td><td class=\"rectangle\">sim/40&lt;</td>"));
    RunBatch(installation, arguments);
    EXPECT_EQ(installation.Read("a.html"), html);

    std::vector<std::string> words = BatchWords(arguments);
    words.insert(words.begin(), {"/usr/bin/env", "__EGL_VENDOR_LIBRARY_DIRS=/"});
    const ProgramResult noDevice = Support::Program(words, installation.path.string()).Wait();
    EXPECT_EQ(noDevice.exitCode, kAircraftFailed);
    EXPECT_THAT(noDevice.errors, HasSubstr("Piper (Aircraft/Props/Piper/plane.acf): the page lacks pictures: "));
    EXPECT_THAT(installation.Read("a.html"), HasSubstr("sim/40&lt;"));
    EXPECT_THAT(installation.Read("a.html"), testing::Not(HasSubstr("<img")));
}

} // namespace
} // namespace Batch
