#pragma once

#include "Utils/FatalError.h"

#include <gtest/gtest.h>
#include <iostream>

namespace Support {

/// Runs the tests of a program. A fatal error that no test waits for fails the one that runs, where the system's own
/// box would wait for a person.
inline int RunTests(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    Utils::SetFatalErrorDialog([](const std::string& caption, const std::string& text) {
        std::cerr << caption << ": " << text << std::endl; // where death tests look for it
        ADD_FAILURE() << "a fatal error that nothing waits for";
    });
    return RUN_ALL_TESTS();
}

} // namespace Support
