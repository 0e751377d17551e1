#include "CockpitModel/XPlane/XPAircraftCockpit.h"

#include "CockpitModel/SceneGraph.h"
#include "Sim/XPAircraftInfo.h"
#include "Support/TemporaryFolder.h"
#include "Utils/Files.h"

#include <boost/lexical_cast.hpp>
#include <cmath>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>

namespace CockpitModel {
namespace {

std::unique_ptr<AircraftCockpit> Open(const std::string& acfPath, Reading reading = Reading::Plain) {
    Sim::XPAircraftInfo info;
    info.acfPath = acfPath;
    return info.CreateCockpitFor(reading);
}

std::string Failure(const std::function<void()>& run) {
    try {
        run();
    } catch (const std::exception& error) {
        return error.what();
    }
    return "none";
}

TEST(XPAircraftCockpit, ReadsThePilotsEyeInMetres) {
    const Support::TemporaryFolder folder;
    const auto eye = [&](const std::string& text) { return Open(folder.Write("p.acf", text))->pilotEye; };
    EXPECT_EQ(eye(""), Utils::Vector3::Zero());
    EXPECT_EQ(Open(folder / "missing.acf")->pilotEye, Utils::Vector3::Zero());
    EXPECT_EQ(eye("P acf/_pe_xyz/0 1.5 9\r\nP acf/_pe_xyz/2 10\r\n"), Utils::Vector3(1.5f * 0.3048f, 0, -3.048f));
    EXPECT_EQ(eye("P acf/_pe_xyz/1 1\nP acf/_pe_xyz/1 -2e0\nP acf/_pe_xyz/1\nP acf/_pe_xyz/10 7"),
              Utils::Vector3(0, -2 * 0.3048f, 0));
    EXPECT_TRUE(std::isnan(eye("P acf/_pe_xyz/1 nan").y()));
    for (const char* bad :
         {"P acf/_pe_xyz/0 x", "P acf/_pe_xyz/1 1.5m", "P acf/_pe_xyz/2 1,5", "P acf/_pe_xyz/2 x\nP acf/_pe_xyz/2 1"})
        EXPECT_THROW(eye(bad), boost::bad_lexical_cast) << bad;
    EXPECT_EQ(Failure([&] { eye("I\n\nP acf/_pe_xyz/1 high up"); }),
              folder / "p.acf" + ": acf/_pe_xyz/1 of line 3 is \"high\"; it needs a number");
}

TEST(XPAircraftCockpit, ReloadsItsModelOnEachCallAndLoadsAnEmptyOneWithoutAnObject) {
    const Support::TemporaryFolder folder;
    const std::string object = folder.Write("p_cockpit.obj", "TEXTURE a.png\nVT 1 2 3 0 0 1 0 0\nTRIS 0 3");
    const auto cockpit = Open(folder / "p.acf");
    const auto model = cockpit->LoadModel();
    EXPECT_EQ(model->textures.Children.back(), folder / "a.png");
    EXPECT_EQ(model->parts.size(), 1u);
    EXPECT_EQ(model->sourcePath, object);
    folder.Write("p_cockpit.obj", "TRIS 0 3\nTRIS 3 3\n");
    EXPECT_EQ(cockpit->LoadModel()->parts.size(), 2u);

    boost::filesystem::resize_file(object, Utils::kLargestFile + 1);
    EXPECT_EQ(Failure([&] { cockpit->LoadModel(); }),
              object + " has 1073741825 bytes; a file of more than 1073741824 bytes is not read");

    boost::filesystem::create_directories(folder / "folder_cockpit.obj");
    for (const char* name : {"none.acf", "folder.acf"}) { // without an object
        const auto empty = Open(folder / name)->LoadModel();
        EXPECT_EQ(empty->textures.Children.size(), 1u) << name;
        EXPECT_EQ(empty->animations.size(), 1u) << name;
        EXPECT_TRUE(empty->indexBlocks.at(0).Children.empty()) << name;
    }
}

/// A draw call of one vertex at the object's origin, under a manipulator.
const std::string kButton =
    "TEXTURE a.png\nVT 0 0 0 0 0 1 0 0\nIDX 0\nIDX 0\nIDX 0\nATTR_manip_command hand a/b\nTRIS 0 3\n";

std::string Attached(int number, const std::string& file, const std::string& place = "0 0 0") {
    const std::string entry = "P _obja/" + std::to_string(number) + "/";
    std::istringstream words(place);
    std::string x, y, z;
    words >> x >> y >> z;
    return entry + "_v10_att_file_stl " + file + "\n" + entry + "_v10_att_x_acf_prt_ref " + x + "\n" + entry +
           "_v10_att_y_acf_prt_ref " + y + "\n" + entry + "_v10_att_z_acf_prt_ref " + z + "\n";
}

TEST(XPAircraftCockpit, ReadsAttachedObjectsAtTheirPlaces) {
    const Support::TemporaryFolder folder;
    folder.Write("p_cockpit.obj", kButton + "ANIM_begin\nTRIS 0 3\n");
    folder.Write("objects/Sub/Two words.OBJ", "ANIM_trans 0 0 0 0 1 0 0 1 a\n" + kButton);
    folder.Write("objects/still.obj", "VT 0 0 0 0 0 1 0 0\nATTR_manip_noop\nTRIS 0 3\n");
    folder.Write("p.acf", "P acf/_pe_xyz/2 10\n" + Attached(10, "sub/two words.obj", "1 2 9") +
                              Attached(2, "../p_cockpit.obj", "1 2 5") + Attached(3, "still.obj") +
                              Attached(11, "Sub/Two words.OBJ", "1 2 9") + Attached(12, "Sub/Two words.OBJ"));
    const auto cockpit = Open(folder / "p.acf", Reading::Full);
    EXPECT_TRUE((cockpit->modelOffset / 0.3048f).isApprox(Utils::Vector3(-1, -2, 5))); // the eye stands at -10 + 5
    const auto model = cockpit->LoadModel();
    EXPECT_TRUE(model->remarks.empty()) << model->remarks.front();
    // Nodes 0 and 1 are the cockpit object's. 2 is the place of entry 10, with the root's step in 3; 4 and 5 that
    // of 12.
    std::string parts;
    for (const RiffBlockPART& part : model->parts)
        parts += model->objects.at(part.Object).name + ":" + std::to_string(part.SourceLine) + "@" +
                 std::to_string(part.Node) + " ";
    EXPECT_EQ(parts,
              "p_cockpit.obj:7@0 p_cockpit.obj:9@1 objects/Sub/Two words.OBJ:8@3 objects/Sub/Two words.OBJ:8@5 ");
    EXPECT_EQ(model->sceneElements.Children.at(1).Peer, 2);
    EXPECT_EQ(model->sceneElements.Children.at(2).Peer, 4);
    EXPECT_TRUE((model->animations.at(2).tracks[0][1].Translation / 0.3048f).isApprox(Utils::Vector3(0, 0, -4)));
    EXPECT_EQ(model->animations.at(3).name, "a");
    EXPECT_EQ(model->vertexBlocks.size(), 2u);
    EXPECT_EQ(Open(folder / "p.acf")->LoadModel()->parts.size(), 2u);
    const SceneGraph graph(*model, *cockpit, nullptr);
    EXPECT_EQ(graph.FindPart({3, 0})->textureName, folder / "objects/Sub/a.png");
}

TEST(XPAircraftCockpit, RemarksOnAttachedObjectsThatItDoesNotRead) {
    const Support::TemporaryFolder folder;
    folder.Write("Plane/p_cockpit.obj", kButton);
    folder.Write("outside.obj", kButton);
    folder.Write("Plane/objects/a.obj", kButton);
    folder.Write("Plane/objects/bad.obj", kButton + "TRIS 0 6\n");
    folder.Write("Plane/objects/huge.obj", "");
    boost::filesystem::resize_file(folder / "Plane/objects/huge.obj", Utils::kLargestFile + 1);
    std::string many = kButton;
    for (int i = 0; i < 4096; ++i)
        many += "ANIM_begin\nANIM_end\n";
    folder.Write("Plane/objects/many.obj", many);
    const struct {
        std::string entries;
        const char* remark; ///< "" if it is read
    } rows[] = {
        {Attached(1, "../objects/a.obj"), ""},
        {Attached(1, "a.obj", "0 x 0"), "attached object 1 (a.obj) has \"x\" as its _v10_att_y_acf_prt_ref"},
        {Attached(1, "a.obj") + "P _obja/1/_v10_att_psi_ref 90\n", "attached object 1 (a.obj) has a rotation"},
        {Attached(1, "b.obj"), "attached object 1 (b.obj) is not there"},
        {Attached(1, "../../outside.obj"), "attached object 1 (../../outside.obj) leads out of"},
        {Attached(1, "../../Plane/objects/a.obj"), "attached object 1 (../../Plane/objects/a.obj) leads out of"},
        {Attached(1, "..\\..\\outside.obj"), "attached object 1 (..\\..\\outside.obj) leads out of"},
        {Attached(1, "../objects"), "attached object 1 (../objects) is a folder"},
        {Attached(1, "../P.ACF"), "attached object 1 (../P.ACF) is the .acf file itself"},
        {Attached(1, "x/../../P_cockpit.obj"), "attached object 1 (x/../../P_cockpit.obj) is the cockpit object by"},
        {Attached(1, "huge.obj"), "attached object 1 (huge.obj) is too large"},
        {Attached(1, "bad.obj"), "attached object 1 (objects/bad.obj) is not read"},
        {Attached(1, "many.obj") + Attached(2, "a.obj"),
         "attached object 1 (objects/many.obj) would give the cockpit more than 4096 nodes"},
    };
    for (const auto& row : rows) {
        folder.Write("Plane/p.acf", row.entries);
        const auto model = Open(folder / "Plane/p.acf", Reading::Full)->LoadModel();
        const std::string remark = model->remarks.empty() ? "" : model->remarks.at(0).substr(0, strlen(row.remark));
        EXPECT_EQ(remark, row.remark) << row.entries;
        EXPECT_LE(model->remarks.size(), 1u) << row.entries;
    }
    boost::filesystem::remove(folder / "Plane/p_cockpit.obj");
    folder.Write("Plane/p.acf", Attached(1, "a.obj"));
    EXPECT_EQ(Open(folder / "Plane/p.acf", Reading::Full)->LoadModel()->parts.at(0).Node,
              2u); // 0 is empty, 1 the place
    folder.Write("Plane/p.acf", Attached(1, "b.obj"));
    EXPECT_FALSE(Open(folder / "Plane/p.acf", Reading::Full)->IsValid());
}

} // namespace
} // namespace CockpitModel
