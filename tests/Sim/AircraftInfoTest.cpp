#include "Sim/AircraftInfo.h"

#include <gtest/gtest.h>

namespace Sim {

TEST(FolderStem, EndsAtTheLastDotOfTheFoldersName) {
    EXPECT_EQ(FolderStem("Aircraft/G/Big.Jet 1.2/x.acf"), "Big.Jet 1");
    EXPECT_EQ(FolderStem("Aircraft/G/Plane./x.acf"), "Plane");
    EXPECT_EQ(FolderStem("x.acf"), "");
}

} // namespace Sim
