#include "Batch/BatchProgram.h"

#include <gmock/gmock.h>

namespace Batch {
namespace {

using Support::ProgramResult;
using testing::HasSubstr;

TEST(ExplainCommand, TellsOfAPartWithWhatIsRecordedOfIt) {
    const Support::Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    installation.Annotations("Cub",
                             "<Override><NodeId>1</NodeId><PartId>0</PartId><InteractionType>Radio</InteractionType>"
                             "<InteractionTypeTest>Twist</InteractionTypeTest></Override>");
    const ProgramResult lever = RunBatch(installation, {"explain", "Cub", "1,0"});
    EXPECT_EQ(lever.exitCode, 0) << lever.errors;
    EXPECT_THAT(lever.output, testing::StartsWith("Cub (Aircraft/Props/Cub/plane.acf), part 1,0 is Move\n  because:"));
    EXPECT_THAT(lever.output, testing::EndsWith("  annotated:   Radio in its place\n  expected:    Twist\n"));
    const ProgramResult shape = RunBatch(installation, {"explain", "Cub", "0,0"});
    EXPECT_THAT(shape.output, HasSubstr("part 0,0 is None\n"));
    EXPECT_THAT(shape.output, testing::Not(HasSubstr("expected:")));

    for (const char* part : {"0,2", "9,0", "0", "a,0", "0,-1", "0,0x"})
        EXPECT_EQ(RunBatch(installation, {"explain", "Cub", part}).exitCode, 2) << part;
}

} // namespace
} // namespace Batch
