#pragma once

#include "Rendering/Context.h"

#include <boost/filesystem/path.hpp>
#include <memory>
#include <string>

namespace Rendering {

/// Sets a second folder for relative data paths; there is none by default. Set before any thread looks for a file.
void SetFallbackDataFolder(const boost::filesystem::path& folder);
/// The path itself, or the path in the second folder if the file exists only there.
std::string FindDataFile(const std::string& path);
/// An absolute path unchanged; a relative one below the working directory of the first call in the process, or in the
/// second folder if the file exists only there.
std::string ResolveDataPath(const std::string& path);

/// Reads a mesh in Wavefront's OBJ text: "v", "vt", "vn" and triangles "f" with corners of three indices, in the
/// renderer's axes. If a file cannot be opened, it is a fatal error if the file is required, otherwise an exception
/// that names it. A face with an index out of range throws Utils::OutOfRange. Rendering thread.
std::unique_ptr<Geometry> LoadGeometryFile(Context& context, const std::string& path, bool required);

} // namespace Rendering
