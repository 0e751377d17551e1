#include "Sim/XPAircraftListLoader.h"

#include "Sim/XPAircraftInfo.h"
#include "Support/TemporaryFolder.h"

#include <boost/filesystem.hpp>
#include <gtest/gtest.h>
#include <map>

namespace fs = boost::filesystem;

namespace Sim {
namespace {

using Names = std::map<std::string, std::string>; ///< by path

Names NamesIn(const Support::TemporaryFolder& installation) {
    const Support::WorkingDirectory inside(installation.path);
    Names names;
    for (const auto& info : XPAircraftListLoader().LoadAircraftList())
        EXPECT_TRUE(names.emplace(info->acfPath, info->displayName).second) << info->acfPath << " twice";
    return names;
}

TEST(XPAircraftListLoader, FindsFilesThreeLevelsDownAlone) {
    const Support::TemporaryFolder folder;
    EXPECT_EQ(NamesIn(folder), Names());
    for (const char* elsewhere :
         {"direct.acf", "Group/direct.acf", "Group/Plane/Sub/deep.acf", "Group/Plane/n.acf.txt"})
        folder.Write(std::string("Aircraft/") + elsewhere, "P acf/_descrip no");
    fs::create_directories(folder / "Aircraft/Group/Plane/folder.acf");
    EXPECT_EQ(NamesIn(folder), Names());
    folder.Write("Aircraft/Group/Plane/Blue Bird.v2.ACF", "I\r\nP acf/_descrip \t Blue   Bird\t\tII \r\n");
    folder.Write("Aircraft/Other Group/Nameless/x.acf", "P acf/_descrip\nP acf/_name Y");
    folder.Write("Aircraft/Other Group/Twice/x.acf", "P acf/_descrip One\nP acf/_descrip Two\n");
    EXPECT_EQ(NamesIn(folder), (Names{{"Aircraft/Group/Plane/Blue Bird.v2.ACF", "Blue Bird II"},
                                      {"Aircraft/Other Group/Nameless/x.acf", "x.acf"},
                                      {"Aircraft/Other Group/Twice/x.acf", "Two"}}));
}

TEST(XPAircraftListLoader, TakesTheFirstFileAsTheFolderListsThem) {
    const Support::TemporaryFolder folder;
    for (const std::string name : {"a", "b", "c", "d"})
        folder.Write("Aircraft/G/Plane/" + name + ".acf", "P acf/_descrip " + name);
    const std::string first = fs::directory_iterator(folder / "Aircraft/G/Plane")->path().stem().string();
    EXPECT_EQ(NamesIn(folder), (Names{{"Aircraft/G/Plane/" + first + ".acf", first}}));
}

TEST(XPAircraftListLoader, FollowsLinksAndPassesOverThoseThatLeadNowhere) {
    const Support::TemporaryFolder folder;
    const std::string plane = folder.Write("Hangar/Plane/p.acf", "P acf/_descrip Linked");
    fs::create_directories(folder / "Aircraft/G/Own");
    fs::create_symlink(folder / "Hangar/Plane", folder / "Aircraft/G/Plane");
    fs::create_symlink(plane, folder / "Aircraft/G/Own/q.acf");
    for (const std::string place : {"Aircraft/", "Aircraft/G/", "Aircraft/G/Own/"}) {
        fs::create_symlink("no such file", folder / (place + "nowhere.acf"));
        fs::create_symlink("circle.acf", folder / (place + "circle.acf"));
    }
    EXPECT_EQ(NamesIn(folder), (Names{{"Aircraft/G/Plane/p.acf", "Linked"}, {"Aircraft/G/Own/q.acf", "Linked"}}));
}

TEST(XPAircraftListLoader, PassesFileSystemErrorsOn) {
    const Support::TemporaryFolder folder;
    folder.Write("Aircraft", "a file");
    EXPECT_THROW(NamesIn(folder), fs::filesystem_error);
}

TEST(XPAircraftInfo, DiffersInEitherTextFromItsClone) {
    XPAircraftInfo info;
    info.acfPath = info.displayName = "P";
    for (std::string AircraftInfo::*text : {&AircraftInfo::acfPath, &AircraftInfo::displayName}) {
        const std::unique_ptr<AircraftInfo> clone = info.Clone();
        EXPECT_FALSE(info != *clone);
        (*clone).*text = "p";
        EXPECT_TRUE(info != *clone);
    }
}

} // namespace
} // namespace Sim
