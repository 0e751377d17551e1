#include "Support/TemporaryFolder.h"
#include "Utils/Files.h"
#include "Utils/Paths.h"
#include "Utils/Platform.h"
#include "Utils/SaveFile.h"
#include "Utils/WideText.h"

#include <fstream>
#include <gtest/gtest.h>
#include <windows.h>

namespace Utils {
namespace {

TEST(WindowsServices, TextsAreUtf8InsideAndWideOutside) {
    const std::string text = "\xC3\x9C\xE6\x97\xA5\xF0\x9F\x9B\xA9"; // two, three and four bytes
    const std::wstring wide = L"\x00DC\x65E5\xD83D\xDEE9";
    EXPECT_EQ(ToWideText(text), wide);
    EXPECT_EQ(FromWideText(wide), text);
    EXPECT_EQ(ToWideText("a\xFFz"), L"a\xFFFDz");
    EXPECT_EQ(boost::filesystem::path(text).native(), wide);
    EXPECT_EQ(boost::filesystem::path(wide).string(), text);
}

TEST(WindowsServices, AFileFoundInAnotherCaseHasItsNameOnDisk) {
    const Support::TemporaryFolder folder;
    folder.Write("Plane/Objects/A.png", "");
    const boost::filesystem::path found = FindIgnoringCase(folder / "plane\\OBJECTS/a.PNG");
    EXPECT_EQ(OnDiskCase(found), folder.path / "Plane/Objects/A.png");
    EXPECT_EQ(OnDiskCase(folder / "plane/objects/b.png"), folder.path / "Plane/Objects/b.png");
}

TEST(WindowsServices, ASaveReplacesAllOrNothing) {
    const Support::TemporaryFolder folder;
    const std::string name = "\xE6\x97\xA5\xE6\x9C\xAC.xml", path = folder / name;
    folder.Write(name + ".saving", "left by a process that was killed");
    for (const std::string& bytes : {std::string("a\r\n\x1A"), std::string(3 << 20, 'x'), std::string()}) {
        EXPECT_TRUE(SaveFile(path, bytes));
        EXPECT_EQ(ReadFile(path), bytes);
        std::ifstream stream(StreamPath(path), std::ios::binary);
        EXPECT_EQ(ReadAll(stream), bytes);
    }
    EXPECT_NE(GetFileAttributesW((folder.path / L"\x65E5\x672C.xml").c_str()), INVALID_FILE_ATTRIBUTES);
    ASSERT_TRUE(SaveFile(path, "kept"));
    ASSERT_TRUE(SetFileAttributesW(boost::filesystem::path(path).c_str(), FILE_ATTRIBUTE_READONLY));
    for (const std::string& refused : {path, folder.path.string(), folder / "missing/f"}) {
        const SaveResult result = SaveFile(refused, "new");
        EXPECT_FALSE(result) << refused;
        EXPECT_TRUE(result.error.starts_with("Cannot save " + refused + ": ")) << result.error;
    }
    SetFileAttributesW(boost::filesystem::path(path).c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(ReadFile(path), "kept");
    EXPECT_EQ(std::distance(boost::filesystem::directory_iterator(folder.path), {}), 1) << "no temporary is left";
}

} // namespace
} // namespace Utils
