#include "Batch/BatchProgram.h"
#include "Support/Sanitizers.h"

#include <gmock/gmock.h>

namespace Batch {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

std::string Repeated(const std::string& text, int count) {
    std::string all;
    all.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

/// A command line with limited address space. The sanitizers need all of it, so there is no limit under them.
std::vector<std::string> WithMemory(int megabytes, std::vector<std::string> arguments) {
    const std::string limit = "ulimit -v " + std::to_string(megabytes * 1024) + " && exec \"$@\"";
    if (!Support::kSanitized)
        arguments.insert(arguments.begin(), {"/bin/sh", "-c", limit, "sh"});
    return arguments;
}

/// Objects that need far more memory, time or stack than their size suggests: each is read, or refused with a reason,
/// within one gigabyte.
TEST(Growth, StaysWithinOneGigabyteForAnyObject) {
    const std::string vertex = "TEXTURE a.png\nVT 0 0 0 0 0 1 0 0\n",
                      index = Repeated("IDX10 0 0 0 0 0 0 0 0 0 0\n", 3000);
    const struct {
        const char* name;
        std::string object;
        std::string reason; ///< empty for an object that is read
    } rows[] = {
        {"Nested", Repeated("ANIM_begin\n", 1'000'000) + "TRIS 0 3\n" + Repeated("ANIM_end\n", 1'000'000),
         "1000001 nodes"},
        {"Steps", vertex + "ANIM_begin\n" + Repeated("ANIM_trans\n", 100'000), "100001 nodes"},
        {"Counts", vertex + "POINT_COUNTS 2147483647 0 0 2147483647\nTRIS 0 2147483647\n",
         "(4): TRIS 0 2147483647 reaches beyond the 0 indices"},
        {"Index", vertex + "IDX 0\nIDX 0\nIDX 2147483647\nTRIS 0 3\n",
         "vertex 2147483647 (counted from 0), but the model has 1"},
        {"Drawn", vertex + index + Repeated("TRIS 0 30000\n", 30'000),
         "the TRIS lines up to this one draw 16800000 vertices; a cockpit draws at most 16777216"},
        {"Names", "TEXTURE " + std::string(1 << 20, 't') + "\nVT\nIDX10 0 0 0\n" + Repeated("TRIS 0 3\n", 1000),
         " bytes; a cockpit takes at most 268435456"},
        {"Rectangles",
         vertex + "IDX10 0 0 0\nATTR_manip_toggle hand 0 1 " + std::string(1 << 20, 'd') + "\n" +
             Repeated("TRIS 0 3\n", 1000),
         "(71): the manipulators' datarefs, once for each TRIS line up to this one, have 70254592 bytes; "
         "an object of this size may have at most 69224162"}, // 64 MiB and twice its 1057649 bytes
        {"Line", "", ""},
    };
    const Support::Installation installation;
    for (const auto& row : rows) {
        const std::string folder = std::string("Aircraft/A/") + row.name;
        installation.Aircraft(folder, row.name);
        installation.Write(folder + "/plane_cockpit.obj", row.object);
    }
    boost::filesystem::resize_file(installation / "Aircraft/A/Line/plane_cockpit.obj", 200'000'000);

    Support::Program program(WithMemory(1024, BatchWords({"detect", "--out", "out", "--jobs", "1"})),
                             installation.path.string());
    const Support::ProgramResult result = program.Wait();
    EXPECT_EQ(result.exitCode, 3);
    for (const auto& row : rows) {
        const std::string name = row.name, prefix = name + " (Aircraft/A/" + name + "/plane.acf): ";
        if (row.reason.empty())
            EXPECT_THAT(result.errors, Not(HasSubstr(prefix)));
        else
            EXPECT_THAT(result.errors, AllOf(HasSubstr(prefix), HasSubstr(row.reason)));
        EXPECT_EQ(boost::filesystem::exists(installation / ("out/" + name + ".xml")), row.reason.empty()) << name;
    }
}

} // namespace
} // namespace Batch
