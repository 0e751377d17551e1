#pragma once

#include "Rendering/Context.h"

#include <boost/filesystem/path.hpp>
#include <memory>
#include <string>

namespace Rendering {

/// A second folder for relative data paths; none without it. Set before any thread looks for a file.
void SetFallbackDataFolder(const boost::filesystem::path& folder);
/// The path itself, unless only the spare folder has such a file: then its path there.
std::string FindDataFile(const std::string& path);
/// An absolute path as it stands; a relative one below the working directory of the first call in the process, or in
/// the spare folder if only that has it.
std::string ResolveDataPath(const std::string& path);

/// Reads a mesh in Wavefront's OBJ text: "v", "vt", "vn" and triangles "f" with corners of three indices, in the
/// renderer's axes. A file that cannot be opened is a fatal error when it is required and an exception that names it
/// otherwise. A face that names no entry throws Utils::OutOfRange. Rendering thread.
std::unique_ptr<Geometry> LoadGeometryFile(Context& context, const std::string& path, bool required);

} // namespace Rendering
