#include "Annotator/DataFiles.h"
#include "Support/TemporaryFolder.h"
#include "Utils/Files.h"

#include <gmock/gmock.h>
#include <map>
#include <sys/stat.h>
#include <unistd.h>

namespace Annotator {
namespace {

namespace fs = boost::filesystem;

using Support::TemporaryFolder;
using testing::HasSubstr;
using Files = std::map<std::string, std::string>; // name to bytes

Files FilesBelow(const fs::path& folder) {
    Files files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder))
        if (!fs::is_directory(entry.path()))
            files[entry.path().lexically_relative(folder).string()] = Utils::ReadFile(entry.path());
    return files;
}

/// Drops root's right to write everywhere if the tests run as root.
struct AsNobody {
    AsNobody() { EXPECT_EQ(before == 0 ? seteuid(65534) : 0, 0); }
    ~AsNobody() { EXPECT_EQ(seteuid(before), 0); }
    const uid_t before = geteuid();
};

struct DataFiles : testing::Test {
    DataFiles() {
        data.Write("Images/checker.png", "png\n");
        data.Write("Models/Sphere.obj", "ball\r\n");
        data.Write("readme", "text");
        fs::create_directories(installation / "Aircraft");
    }

    std::string Install() const { return InstallDataFiles(data.path, installation.path); }

    const TemporaryFolder data, installation;
    const Files all{{"Images/checker.png", "png\n"}, {"Models/Sphere.obj", "ball\r\n"}, {"readme", "text"}};
};

TEST_F(DataFiles, AreInstalledWithoutReplacingExistingEntries) {
    EXPECT_EQ(Install(), "");
    EXPECT_EQ(FilesBelow(installation / "QVRA"), all);
    fs::remove(installation / "QVRA/Images/checker.png");
    fs::remove(installation / "QVRA/readme");
    installation.Write("QVRA/Models/Sphere.obj", "mine");
    fs::create_symlink("gone", installation / "QVRA/readme");
    EXPECT_EQ(Install(), "");
    EXPECT_EQ(fs::read_symlink(installation / "QVRA/readme"), "gone");
    EXPECT_FALSE(fs::exists(installation / "QVRA/gone"));
    EXPECT_EQ(FilesBelow(installation / "QVRA"),
              (Files{{"Images/checker.png", "png\n"}, {"Models/Sphere.obj", "mine"}, {"readme", ""}}));
}

TEST_F(DataFiles, AreInstalledInInstallationsOnly) {
    const TemporaryFolder home;
    home.Write("Aircraft", "a file, so not an installation");
    EXPECT_EQ(InstallDataFiles(data.path, home.path), "");
    EXPECT_EQ(FilesBelow(home.path).size(), 1u);
    EXPECT_EQ(InstallDataFiles({}, installation.path), "") << "a program without data files installs none";
    EXPECT_FALSE(fs::exists(installation / "QVRA"));
}

TEST_F(DataFiles, ThatCannotBeWrittenAreReported) {
    {
        ASSERT_EQ(chmod(installation.path.c_str(), 0555), 0);
        const AsNobody nobody;
        EXPECT_THAT(Install(), testing::AllOf(HasSubstr(installation / "QVRA"), HasSubstr("ermission")));
    }
    ASSERT_EQ(chmod(installation.path.c_str(), 0755), 0);
    EXPECT_FALSE(fs::exists(installation / "QVRA"));

    // A file instead of a folder does not prevent the installation of the other files.
    installation.Write("QVRA/Images", "a file");
    EXPECT_THAT(Install(), HasSubstr("QVRA/Images"));
    EXPECT_EQ(FilesBelow(installation / "QVRA"),
              (Files{{"Images", "a file"}, {"Models/Sphere.obj", "ball\r\n"}, {"readme", "text"}}));
}

TEST(ProgramDataFolder, IsFoundByTheProgramsPath) {
    const TemporaryFolder folder;
    for (const char* file :
         {"usr/bin/vorelle-batch", "build/src/vorelle-batch", "usr/share/vorelle-annotator/QVRA/readme",
          "build/data/QVRA/readme", "Vorelle/QVRA/readme", "alone/QVRA"})
        folder.Write(file, "");
    const std::pair<const char*, const char*> rows[] = {
        {"usr/bin/vorelle-batch", "usr/share/vorelle-annotator/QVRA"},
        {"build/src/vorelle-batch", "build/data/QVRA"},
        {"Vorelle/vorelle-annotator.exe", "Vorelle/QVRA"},
    };
    for (const auto& [program, data] : rows)
        EXPECT_EQ(ProgramDataFolder(folder / program), fs::canonical(folder.path) / data) << program;
    EXPECT_EQ(ProgramDataFolder(folder / "alone/vorelle-batch"), "") << "a file of that name";
    EXPECT_EQ(ProgramDataFolder({}), "") << "a program with unknown path";
}

} // namespace
} // namespace Annotator
