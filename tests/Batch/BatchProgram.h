#pragma once

#include "Support/Installation.h"
#include "Support/Program.h"

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace Batch {

/// The command line of the real program.
inline std::vector<std::string> BatchWords(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), VORELLE_BATCH_PROGRAM);
    return arguments;
}

/// Runs the real program with a folder, mostly an installation, as its working directory.
inline Support::ProgramResult RunBatch(const Support::TemporaryFolder& folder,
                                       const std::vector<std::string>& arguments) {
    return Support::Program(BatchWords(arguments), folder.path.string()).Wait();
}

/// Of a process with a single thread, including children that have ended and were not waited for.
inline std::vector<pid_t> ChildrenOf(pid_t process) {
    const std::string id = std::to_string(process);
    std::ifstream file("/proc/" + id + "/task/" + id + "/children");
    return {std::istream_iterator<pid_t>(file), {}};
}

/// Three parts: (0,0) without manipulator, (0,1) a toggle, (1,0) a drag under an animation without rotation. Detection
/// gives None, Tap and Move.
inline Support::ObjText ThreeParts() {
    return Support::ObjText().Texture().Tris().Toggle("sim/switch").Tris().Begin().Drag("sim/lever").Tris().End();
}

/// A part without a texture, and therefore without a material: its cockpit cannot be loaded.
inline Support::ObjText NoMaterial() {
    return Support::ObjText().Tris();
}

} // namespace Batch
