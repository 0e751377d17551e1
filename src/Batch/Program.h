#pragma once

#include <string>
#include <vector>

namespace Batch {

/// The whole program after its entry point. Returns the exit code.
int Run(std::vector<std::string> arguments);

} // namespace Batch
