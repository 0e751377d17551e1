#include "Batch/BatchProgram.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace Batch {
namespace {

using Support::Installation;
using Support::ProgramResult;
using testing::HasSubstr;

TEST(VrConfigCheckCommand, ReportsTheOutcomeAsExitCode) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Bare", "Bare", ThreeParts());
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    installation.Write("Aircraft/Props/Cub/plane_vrconfig.txt",
                       "A\n1100\nVRCONFIG\nBEGIN_MANIP toggle sim/swich\nEND_MANIP\n");
    const ProgramResult bare = RunBatch(installation, {"vrconfig", "check", "Bare"});
    EXPECT_EQ(bare.exitCode, 0);
    EXPECT_THAT(bare.output,
                HasSubstr("plane_vrconfig.txt: note: the aircraft has no VR configuration [no-vrconfig]\n"));
    const ProgramResult all = RunBatch(installation, {"vrconfig", "check"});
    EXPECT_EQ(all.exitCode, 1);
    EXPECT_THAT(all.output,
                HasSubstr("plane_vrconfig.txt:4: warning: 'toggle sim/swich' matches no draw call; did you mean "
                          "'toggle sim/switch'"));
    EXPECT_THAT(all.errors, HasSubstr("0 errors, 1 warning and 1 note in 2 aircraft\n"));
    const auto list = nlohmann::json::parse(RunBatch(installation, {"vrconfig", "check", "--json", "Cub"}).output);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0]["line"], 4);
    EXPECT_EQ(list[0]["check"], "block-unmatched");
}

} // namespace
} // namespace Batch
