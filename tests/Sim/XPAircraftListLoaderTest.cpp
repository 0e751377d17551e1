#include "Sim/XPAircraftListLoader.h"

#include "Sim/XPAircraftInfo.h"
#include "Support/TemporaryFolder.h"

#include <boost/filesystem.hpp>
#include <gtest/gtest.h>
#include <map>

namespace fs = boost::filesystem;

namespace Sim {
namespace {

/// Path to name, of the aircraft of the installation in a folder.
std::map<std::string, std::string> Names(const Support::TemporaryFolder& installation) {
    const Support::WorkingDirectory inside(installation.path);
    std::map<std::string, std::string> names;
    for (const auto& info : XPAircraftListLoader().LoadAircraftList())
        EXPECT_TRUE(names.emplace(info->acfPath, info->displayName).second) << info->acfPath << " twice";
    return names;
}

using Expected = std::map<std::string, std::string>;

TEST(XPAircraftListLoader, FindsFilesThreeLevelsDownAlone) {
    const Support::TemporaryFolder folder;
    EXPECT_EQ(Names(folder), Expected());
    folder.Write("Aircraft/direct.acf", "P acf/_descrip no");
    folder.Write("Aircraft/Group/direct.acf", "P acf/_descrip no");
    folder.Write("Aircraft/Group/Plane/Sub/deep.acf", "P acf/_descrip no");
    folder.Write("Aircraft/Group/Plane/notes.acf.txt", "P acf/_descrip no");
    fs::create_directories(folder / "Aircraft/Group/Plane/folder.acf");
    EXPECT_EQ(Names(folder), Expected());
    folder.Write(
        "Aircraft/Group/Plane/Blue Bird.v2.ACF",
        "I\r\n1000 Version\r\nP acf/_descrip \t Blue   Bird\t\tII \r\np acf/_descrip No\r\nP acf/_Descrip No\r\n");
    folder.Write("Aircraft/Other Group/Nameless/x.acf", "P acf/_descrip\nP acf/_name Y");
    folder.Write("Aircraft/Other Group/Twice/x.acf", "P acf/_descrip One\nP acf/_descrip Two\n");
    EXPECT_EQ(Names(folder), (Expected{{"Aircraft/Group/Plane/Blue Bird.v2.ACF", "Blue Bird II"},
                                       {"Aircraft/Other Group/Nameless/x.acf", "x.acf"},
                                       {"Aircraft/Other Group/Twice/x.acf", "Two"}}));
}

TEST(XPAircraftListLoader, TakesTheFirstFileAsTheFolderListsThem) {
    const Support::TemporaryFolder folder;
    for (const char* name : {"a", "b", "c", "d"})
        folder.Write(std::string("Aircraft/G/Plane/") + name + ".acf", std::string("P acf/_descrip ") + name);
    const std::string first = fs::directory_iterator(folder / "Aircraft/G/Plane")->path().stem().string();
    EXPECT_EQ(Names(folder), (Expected{{"Aircraft/G/Plane/" + first + ".acf", first}}));
}

TEST(XPAircraftListLoader, FollowsLinksAndPassesOverThoseThatLeadNowhere) {
    const Support::TemporaryFolder folder;
    const std::string plane = folder.Write("Hangar/Plane/p.acf", "P acf/_descrip Linked");
    fs::create_directories(folder / "Aircraft/G/Own");
    fs::create_symlink(folder / "Hangar/Plane", folder / "Aircraft/G/Plane");
    fs::create_symlink(plane, folder / "Aircraft/G/Own/q.acf");
    for (const char* link : {"Aircraft/nowhere", "Aircraft/G/nowhere", "Aircraft/G/Own/nowhere.acf"})
        fs::create_symlink("no such file", folder / link);
    for (const char* link : {"Aircraft/circle", "Aircraft/G/circle", "Aircraft/G/Own/circle.acf"})
        fs::create_symlink(fs::path(link).filename(), folder / link);
    EXPECT_EQ(Names(folder), (Expected{{"Aircraft/G/Plane/p.acf", "Linked"}, {"Aircraft/G/Own/q.acf", "Linked"}}));
}

TEST(XPAircraftListLoader, PassesFileSystemErrorsOn) {
    const Support::TemporaryFolder folder;
    folder.Write("Aircraft", "a file");
    EXPECT_THROW(Names(folder), fs::filesystem_error);
}

TEST(XPAircraftInfo, ComparesAndClonesItsTexts) {
    XPAircraftInfo info;
    info.acfPath = "Aircraft/G/P/p.acf";
    info.displayName = "P";
    const std::unique_ptr<AircraftInfo> clone = info.Clone();
    EXPECT_FALSE(info != *clone);
    EXPECT_NE(dynamic_cast<XPAircraftInfo*>(clone.get()), nullptr);
    clone->displayName = "p";
    EXPECT_TRUE(info != *clone);
    clone->displayName = "P";
    clone->acfPath += "2";
    EXPECT_TRUE(info != *clone);
    EXPECT_EQ(info.acfPath, "Aircraft/G/P/p.acf");
}

} // namespace
} // namespace Sim
