#pragma once

#include "Utils/Place.h"

#include <cstdint>

namespace Rendering::OpenGL {

/// Checks whether a GL call failed since the last check; a failure is logged with the driver's message and the
/// operation's name, and is a fatal error with GL's error code as the result.
void CheckGL(const char* file, std::int32_t line, const char* operation);
/// Checks that the framebuffer bound for drawing is complete, with the same result of a failure.
void CheckFramebuffer(const char* file, std::int32_t line, const char* operation);
/// Makes the driver keep its error messages for CheckGL, if supported.
void KeepDriverMessages();

} // namespace Rendering::OpenGL
