#pragma once

#include "Support/Installation.h"
#include "Support/Program.h"

#include <string>
#include <vector>

namespace Batch {

/// The words of a call of the real program.
inline std::vector<std::string> BatchWords(const std::vector<std::string>& arguments) {
    std::vector<std::string> words{VORELLE_BATCH_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return words;
}

/// Runs the real program with an installation as its working directory.
inline Support::ProgramResult RunBatch(const Support::Installation& installation,
                                       const std::vector<std::string>& arguments) {
    return Support::Program(BatchWords(arguments), installation.path.string()).Wait();
}

/// Three parts: (0,0) a mere shape, (0,1) a toggle, (1,0) a drag under an animation that turns nothing. Detection
/// gives None, Tap and Move.
inline Support::ObjText ThreeParts() {
    return Support::ObjText().Texture().Tris().Toggle("sim/switch").Tris().Begin().Drag("sim/lever").Tris().End();
}

/// A part with a dataref, but no texture before it: it has no material and its cockpit cannot be loaded.
inline Support::ObjText NoMaterial() {
    return Support::ObjText().Tris();
}

} // namespace Batch
