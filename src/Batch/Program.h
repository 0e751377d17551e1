#pragma once

namespace Batch {

/// The whole program behind its entry. Returns the exit code.
int Run(int argc, char** argv);

} // namespace Batch
