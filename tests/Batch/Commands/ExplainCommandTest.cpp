#include "Batch/BatchProgram.h"

#include <gmock/gmock.h>

namespace Batch {
namespace {

TEST(ExplainCommand, AcceptsOnlyExistingParts) {
    const Support::Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    EXPECT_THAT(RunBatch(installation, {"explain", "Cub", "1,0"}).output, testing::HasSubstr("part 1,0 is Move\n"));
    for (const char* part : {"0,2", "9,0", "0", "a,0", "0,-1", "0,0x", ",0", "0,0,0"})
        EXPECT_EQ(RunBatch(installation, {"explain", "Cub", part}).exitCode, 2) << part;
}

} // namespace
} // namespace Batch
