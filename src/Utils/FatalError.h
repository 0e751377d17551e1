#pragma once

#include "Utils/Place.h"

#include <cstdint>
#include <functional>
#include <string>

namespace Utils {

/// Reports a condition that the program cannot go on from: logs a text that names the place, stops the log and keeps a
/// copy of it, shows the text in the fatal error dialog and throws a plain std::exception. Any thread may call it.
/// `file` is the place's path below src with back-slashes (see HERE in Utils/Place.h).
[[noreturn]] void FatalError(const char* file, std::int32_t line);
/// The same for a device call that returned a result code.
[[noreturn]] void FatalError(const char* file, std::int32_t line, std::int32_t result);

/// True from the first fatal error on: the log has stopped then. Any thread may ask.
bool FatalErrorReported();

/// Shows a text to the person and blocks until it is dismissed. Called on the thread that failed.
using FatalErrorDialog = std::function<void(const std::string& caption, const std::string& text)>;
/// Shows a text that comes ahead of a fatal error in the same dialog. Any thread may call it.
void ShowErrorBox(const std::string& caption, const std::string& text);
/// Replaces the dialog, which is the system's own box until then (on Linux the standard error stream), and returns the
/// one before.
/// Any thread may call it.
FatalErrorDialog SetFatalErrorDialog(FatalErrorDialog newDialog);

} // namespace Utils
