#pragma once

#include "Utils/Place.h"

#include <cstdint>

namespace Rendering::OpenGL {

/// Asks the driver once whether a call failed since the last check; a failure is logged in the driver's words, with
/// the operation's name, and is a fatal error with GL's error code as the result.
void CheckGL(const char* file, std::int32_t line, const char* operation);
/// The same for the framebuffer that is bound for drawing: whether it can be drawn to.
void CheckFramebuffer(const char* file, std::int32_t line, const char* operation);
/// Lets the driver keep its error messages for CheckGL, where it can.
void KeepDriverMessages();

} // namespace Rendering::OpenGL
