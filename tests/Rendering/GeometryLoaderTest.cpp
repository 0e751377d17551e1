#include "Rendering/GeometryLoader.h"
#include "Rendering/Memory/NullContext.h"

#include "Support/FatalErrorRecorder.h"
#include "Support/TemporaryFolder.h"
#include "Utils/RangeCheck.h"

#include <gmock/gmock.h>

namespace {

using Rendering::GeometryVertex;
using Utils::Vector2;
using Utils::Vector3;

std::vector<GeometryVertex> Load(const std::string& path) {
    Rendering::Memory::NullContext context;
    const auto geometry = Rendering::LoadGeometryFile(context, path, false);
    return dynamic_cast<const Rendering::Memory::MemoryGeometry&>(*geometry).vertices;
}

TEST(GeometryLoaderTest, ReadsTrianglesUnchanged) {
    const Support::TemporaryFolder folder;
    const auto vertices = Load(folder.Write(
        "mesh.obj", "# a comment\r\no thing\nvn 0 0 -1\nvn\t1 0 0\nv 1 2 -3.5e0\nv +4 5 6\r\n  v 7 8 9\nvt .25 .75\n"
                    "vt 0.5 1\nVT 9 9\ns off\nf 1/1/1 2/2/2 3/1/2\nf 3/2/1 2/1/1 1/1/1 9/9/9\n"));
    ASSERT_EQ(vertices.size(), 6u);
    const Vector3 positions[] = {{1, 2, -3.5f}, {4, 5, 6}, {7, 8, 9}, {7, 8, 9}, {4, 5, 6}, {1, 2, -3.5f}};
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_EQ(vertices[i].position, positions[i]) << "the order of the file, without a fourth corner: " << i;
    EXPECT_EQ(vertices[0].normal, Vector3(0, 0, -1));
    EXPECT_EQ(vertices[0].texture, Vector2(0.25f, 0.75f));
    EXPECT_EQ(vertices[1].normal, Vector3(1, 0, 0));
    EXPECT_EQ(vertices[1].texture, Vector2(0.5f, 1.0f));
    EXPECT_EQ(vertices[1].secondTexture, Vector2(0.5f, 1.0f));
    EXPECT_EQ(vertices[1].blendWeights, (std::array{1.0f, 0.0f, 0.0f, 0.0f}));
}

TEST(GeometryLoaderTest, AFaceWithAnInvalidIndexThrowsWithItsLocation) {
    const Support::TemporaryFolder folder;
    const std::string lists = "v 1 2 3\nvt 0 0\nvn 0 0 1\n";
    for (const char* face : {"f 0/1/1 1/1/1 1/1/1", "f 1/1/1 1/2/1 1/1/1", "f 1/1/1 1/1/99999999999", "f 1/1/1"}) {
        try {
            Load(folder.Write("mesh.obj", lists + face + "\nv 1 1 1\n"));
            ADD_FAILURE() << face << " was taken";
        } catch (const Utils::OutOfRange& error) {
            EXPECT_STREQ(error.what(), "invalid vector<T> subscript");
            EXPECT_TRUE(error.Reason().starts_with(folder / "mesh.obj" + "(4): ")) << error.Reason();
        }
    }
}

TEST(GeometryLoaderTest, AMissingFileIsNamedAndFatalOnlyWhenRequired) {
    Rendering::Memory::NullContext context;
    const Support::FatalErrorRecorder dialog;
    EXPECT_THAT([&] { Rendering::LoadGeometryFile(context, "no/such.obj", false); },
                testing::ThrowsMessage<std::exception>("Could not open no/such.obj"));
    EXPECT_THROW(Rendering::LoadGeometryFile(context, "no/such.obj", true), std::exception);
    EXPECT_EQ(dialog.texts.size(), 1u);
}

TEST(GeometryLoaderTest, RelativePathsKeepTheFolderOfTheFirstCall) {
    const Support::TemporaryFolder folder;
    const std::string before = Rendering::ResolveDataPath("a/b.obj");
    EXPECT_TRUE(before.starts_with('/') && before.ends_with("/a/b.obj")) << before;
    const Support::WorkingDirectory elsewhere(folder.path);
    EXPECT_EQ(Rendering::ResolveDataPath("a/b.obj"), before);
    EXPECT_EQ(Rendering::ResolveDataPath("/x/y.obj"), "/x/y.obj");
}

} // namespace
