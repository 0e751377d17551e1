#pragma once

#include "Utils/FatalError.h"

#include <gtest/gtest.h>
#include <iostream>

namespace Support {

/// Runs the tests of a program. An unexpected fatal error fails the current test instead of showing a box that waits
/// for the user.
inline int RunTests(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    Utils::SetFatalErrorDialog([](const std::string& caption, const std::string& text) {
        std::cerr << caption << ": " << text << std::endl; // where death tests look for it
        ADD_FAILURE() << "an unexpected fatal error";
    });
    return RUN_ALL_TESTS();
}

} // namespace Support
