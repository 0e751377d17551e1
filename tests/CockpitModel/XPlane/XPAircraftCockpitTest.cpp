#include "CockpitModel/XPlane/XPAircraftCockpit.h"

#include "Sim/XPAircraftInfo.h"
#include "Support/TemporaryFolder.h"
#include "Utils/Files.h"

#include <boost/lexical_cast.hpp>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>

namespace CockpitModel {
namespace {

std::unique_ptr<AircraftCockpit> Open(const std::string& acfPath) {
    Sim::XPAircraftInfo info;
    info.acfPath = acfPath;
    return info.CreateCockpit();
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

} // namespace
} // namespace CockpitModel
