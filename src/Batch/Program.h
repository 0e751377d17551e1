#pragma once

#include <string>
#include <vector>

namespace Batch {

/// The whole program behind its entry. Returns the exit code.
int Run(std::vector<std::string> words);

} // namespace Batch
