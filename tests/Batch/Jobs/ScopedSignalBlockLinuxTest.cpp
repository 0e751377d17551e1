#include "Batch/Jobs/ScopedSignalBlock.h"

#include <gtest/gtest.h>
#include <iostream>

namespace Batch {
namespace {

TEST(ScopedSignalBlock, EndTheProcessAfterwards) {
    const auto hold = [] {
        const ScopedSignalBlock held;
        raise(SIGINT);
        std::cerr << "written";
    };
    EXPECT_EXIT(hold(), testing::KilledBySignal(SIGINT), "written");
}

} // namespace
} // namespace Batch
