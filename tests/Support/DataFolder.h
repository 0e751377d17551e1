#pragma once

#include "Rendering/GeometryLoader.h"
#include "Support/TemporaryFolder.h"

namespace Support {

/// Fixes the process's relative data paths, which keep the working directory of their first use, to a folder with a
/// marker mesh of one triangle and the devices' shaders. Every test that draws a preview calls it first.
inline void BindDataFolder() {
    static const TemporaryFolder folder;
    static const std::string bound = [] {
        folder.Write("QVRA/Models/Sphere.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nvt 0 0\nvn 0 0 1\nf 1/1/1 2/1/1 3/1/1\n");
        boost::filesystem::create_directories(folder.path / "QVRA/Shaders");
        for (const auto& entry : boost::filesystem::directory_iterator(VORELLE_SOURCE_DIR "/data/QVRA/Shaders"))
            boost::filesystem::copy_file(entry.path(), folder.path / "QVRA/Shaders" / entry.path().filename());
        const WorkingDirectory inside(folder.path);
        return Rendering::ResolveDataPath("QVRA");
    }();
}

} // namespace Support
