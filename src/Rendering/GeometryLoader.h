#pragma once

#include "Rendering/Context.h"

#include <memory>
#include <string>

namespace Rendering {

/// An absolute path as it stands; a relative one below the working directory of the first call in the process.
std::string ResolveDataPath(const std::string& path);

/// Reads a mesh in Wavefront's OBJ text: "v", "vt", "vn" and triangles "f" with corners of three indices, in the
/// renderer's axes. A file that cannot be opened is a fatal error when it is required and an exception that names it
/// otherwise. A face that names no entry throws Utils::OutOfRange. Rendering thread.
std::unique_ptr<Geometry> LoadGeometryFile(Context& context, const std::string& path, bool required);

} // namespace Rendering
