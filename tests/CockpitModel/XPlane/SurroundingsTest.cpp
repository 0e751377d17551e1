#include "CockpitModel/XPlane/Surroundings.h"

#include "CockpitModel/AircraftCockpit.h"
#include "CockpitModel/XPlane/SurroundingShape.h"

#include "CockpitModel/AircraftCockpit.h"
#include "Sim/XPAircraftInfo.h"
#include "Support/ObjText.h"
#include "Support/TemporaryFolder.h"

#include <cmath>
#include <gmock/gmock.h>
#include <sstream>

namespace CockpitModel {
namespace {

using Support::ObjText;
using testing::HasSubstr;

/// The lines of an attached object: "key value" by ';', with short forms of the long keys.
std::string Attached(int number, const std::string& file, const std::string& keys) {
    const std::string start = "P _obja/" + std::to_string(number) + "/";
    std::string lines = start + "_v10_att_file_stl " + file + "\n";
    std::istringstream pairs(keys);
    for (std::string pair; std::getline(pairs, pair, ';');) {
        const std::string key = pair.substr(0, pair.find(' '));
        const bool isPlace = key.size() == 1;
        const std::string name = isPlace ? "_v10_att_" + key + "_acf_prt_ref" : key;
        lines += start + name + pair.substr(key.size()) + "\n";
    }
    return lines;
}

/// "number", with '?' if a dataref may hide it, of each surrounding object; then the remarks.
std::string Surroundings(const std::string& acfPath, Reading reading = Reading::Full) {
    Sim::XPAircraftInfo info;
    info.acfPath = acfPath;
    const SurroundingObjects found = info.CreateCockpitFor(reading)->FindSurroundings();
    std::string text;
    for (const SurroundingObject& object : found.objects)
        text += object.name.substr(16, 1) + (object.mayBeHidden ? "? " : " ");
    for (const std::string& remark : found.remarks)
        text += remark;
    return text;
}

TEST(Surroundings, AreTheAttachedObjectsInsideThatHaveNoControl) {
    const Support::TemporaryFolder folder;
    folder.Write("p_cockpit.obj", ObjText().Texture().Tris().Text());
    folder.Write("objects/wall.obj", ObjText().Texture().Tris().Text());
    folder.Write("objects/knob.obj", ObjText().Texture().Toggle("a/b").Tris().Text());
    const struct {
        std::string lines;
        const char* found;
    } rows[] = {
        {Attached(1, "wall.obj", "_obj_flags 1"), "1 "},
        {Attached(1, "wall.obj", "_obj_flags 2048"), "1 "},
        {Attached(1, "wall.obj", "_obj_flags 17"), "1 "},
        {Attached(1, "wall.obj", "_obj_flags 1;_v10_att_part -1;_v10_att_phi_ref 0.0"), "1 "},
        {Attached(1, "wall.obj", "_obj_flags 1;_obj_hide_dataref a/b"), "1? "},
        {Attached(1, "wall.obj", ""), ""},
        {Attached(1, "wall.obj", "_obj_flags 16"), ""},
        {Attached(1, "wall.obj", "_obj_flags 4096"), ""},
        {Attached(1, "wall.obj", "_obj_flags 3"), ""},
        {Attached(1, "wall.obj", "_obj_flags x"), ""},
        {Attached(1, "knob.obj", "_obj_flags 1"), ""},
        {Attached(1, "none.obj", "_obj_flags 1"), ""},
        {Attached(1, "../p_cockpit.obj", "_obj_flags 1"), ""},
        {Attached(2, "wall.obj", "_obj_flags 1;x 1") + Attached(3, "Wall.obj", "_obj_flags 1;x 1") +
             Attached(1, "wall.obj", "_obj_flags 1"),
         "1 2 "},
        {Attached(1, "wall.obj", "_obj_flags 1;_v10_att_psi_ref 5"),
         "attached object 1 (objects/wall.obj) has a rotation; it is not drawn"},
        {Attached(1, "wall.obj", "_obj_flags 1;_v10_att_part 8"),
         "attached object 1 (objects/wall.obj) is on a part of the aircraft that may move; it is not drawn"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Surroundings(folder.Write("p.acf", row.lines)), row.found) << row.lines;
    EXPECT_EQ(Surroundings(folder.Write("p.acf", rows[0].lines), Reading::Plain), "");
}

/// Reads an object of this text at (1, 2, 3) metres.
struct Shape : testing::Test {
    SurroundingShape Read(const std::string& text, bool stopped = false) const {
        SurroundingObject object;
        object.path = folder.Write("objects/a.obj", text);
        object.place = {1, 2, 3};
        const std::atomic<bool> stop = stopped;
        return ReadSurroundingShape(object, folder.path.string(), stop);
    }

    const Support::TemporaryFolder folder;
};

TEST_F(Shape, IsWhatIsSeenWhileDatarefsAreZero) {
    const struct {
        const char* lines;
        const char* corners; ///< "x,y," of each triangle's first corner, from the object's origin
    } rows[] = {
        {"TRIS 0 3\nTRIS 0 3", "0,0,0,0,"},
        {"ATTR_draw_disable\nTRIS 0 3\nATTR_draw_enable\nTRIS 0 3", "0,0,"},
        {"ATTR_LOD 0 5\nTRIS 0 3\nATTR_LOD 5 50\nTRIS 0 3", "0,0,"},
        {"ANIM_begin\nANIM_hide 0 0 a\nTRIS 0 3\nANIM_end\nTRIS 0 3", "0,0,"},
        {"ANIM_hide 1 2 a\nANIM_hide -2 -1 a\nTRIS 0 3", "0,0,"},
        {"ANIM_hide -1 1 a\nANIM_show 0 0 b\nTRIS 0 3", "0,0,"},
        {"ANIM_show 0 0 b\nANIM_hide -1 1 a\nTRIS 0 3", ""},
        {"ANIM_hide 0 1 a\nANIM_begin\nANIM_show 0 1 a\nTRIS 0 3\nANIM_end\nTRIS 0 3", ""},
        {"ANIM_trans 5 0 0 5 0 0 0 0\nTRIS 0 3", "5,0,"},
        {"ANIM_trans 10 0 0 30 0 0 -1 1 a\nTRIS 0 3", "20,0,"},
        {"ANIM_trans 10 0 0 30 0 0 1 2 a\nTRIS 0 3", "-10,0,"},
        {"ANIM_trans_begin a\nANIM_trans_key 3 60 0 0\nANIM_trans_key -1 10 0 0\nANIM_trans_key 1 20 0 0\n"
         "ANIM_trans_end\nTRIS 0 3",
         "15,0,"},
        {"ANIM_trans_begin a\nANIM_trans_key 1 10 0 0\nANIM_trans_key 2 30 0 0\nANIM_trans_end\nTRIS 0 3", "-10,0,"},
        {"ANIM_trans_begin a\nANIM_trans_key 7 30 0 0\nANIM_trans_end\nTRIS 0 3", "30,0,"},
        // The later step is the inner one: a metre to the right, which the turn to the left makes a metre up.
        {"ANIM_rotate 0 0 1 0 90 -1 0 a\nANIM_trans 1 0 0 1 0 0 0 0\nTRIS 0 3", "0,1,"},
        {"ANIM_trans 1 0 0 1 0 0 0 0\nANIM_begin\nANIM_rotate_begin 0 0 1 a\nANIM_rotate_key 0 270\n"
         "ANIM_rotate_key 1 0\nANIM_rotate_end\nANIM_trans 1 0 0 1 0 0 0 0\nTRIS 0 3",
         "1,-1,"},
    };
    for (const auto& row : rows) {
        const SurroundingShape shape = Read(ObjText().Line(row.lines).Text());
        std::string corners;
        for (const SurroundingMesh& mesh : shape.meshes)
            for (std::size_t i = 0; i < mesh.vertices.size(); i += 3)
                corners += std::to_string(std::lround(mesh.vertices[i].position.x() - 1)) + "," +
                           std::to_string(std::lround(mesh.vertices[i].position.y() - 2)) + ",";
        EXPECT_EQ(corners, row.corners) << row.lines;
        EXPECT_EQ(shape.problem, "") << row.lines;
    }
}

TEST_F(Shape, IsInTheModelsSpaceWithItsTextures) {
    folder.Write("objects/Wall.DDS", "");
    folder.Write("cockpit_3d/-PANELS-/Panel.png", "");
    const std::string vertex = "VT 0 0 9 0 0 1 0.25 0.5\nIDX 3\n";
    const SurroundingShape shape =
        Read(ObjText().Line(vertex).Texture("wall.png").Line("TRIS 1 3").Line("ATTR_cockpit").Tris().Text());
    ASSERT_EQ(shape.meshes.size(), 2u) << shape.problem;
    EXPECT_EQ(shape.meshes[0].texture, folder / "objects/Wall.DDS") << "either kind of file stands for the other";
    EXPECT_EQ(shape.meshes[1].texture, folder / "cockpit_3d/-PANELS-/Panel.png");
    EXPECT_EQ(shape.meshes[0].vertices[2].position, Utils::Vector3(1, 2, 3 - 9)) << "left-handed";
    EXPECT_EQ(shape.meshes[0].vertices[2].normal, Utils::Vector3(0, 0, -1));
    EXPECT_EQ(shape.meshes[0].vertices[2].texture, Utils::Vector2(0.25f, 0.5f));
    EXPECT_EQ(shape.extent.least, Utils::Vector3(1, 2, -6));
    EXPECT_EQ(shape.extent.greatest, Utils::Vector3(2, 3, 3));
    EXPECT_EQ(shape.vertexCount, 6u);
    EXPECT_TRUE(Read(ObjText().Tris().Text(), true).meshes.empty()) << "stopped before the first byte";
}

TEST_F(Shape, NamesWhyItIsNotDrawn) {
    const struct {
        ObjText text;
        const char* problem;
    } rows[] = {
        {ObjText().Texture("none.png").Tris(), "it needs the texture none.png, which is not there"},
        {ObjText().Texture("none.png").Line("ANIM_hide 0 0").Tris(), ""},
        {ObjText().Line("ATTR_cockpit").Tris(), ""},
        {ObjText().Line("TRIS 0 6"), "a.obj(11): TRIS 0 6 reaches beyond the 3 indices of the file"},
    };
    for (const auto& row : rows)
        EXPECT_THAT(Read(row.text.Text()).problem, HasSubstr(row.problem));
}

} // namespace
} // namespace CockpitModel
