#pragma once

#include "Utils/Place.h"

#include <cstdint>
#include <functional>
#include <string>

namespace Utils {

/// Reports a condition that the program cannot recover from: logs a text with the source location, stops the log and
/// keeps a copy of it, shows the text in the fatal error dialog and throws a plain std::exception. Any thread may call
/// it. `file` is the source path below src with backslashes (see HERE in Utils/Place.h).
[[noreturn]] void FatalError(const char* file, std::int32_t line);
/// For a device call that returned a result code.
[[noreturn]] void FatalError(const char* file, std::int32_t line, std::int32_t result);

/// True after the first fatal error; the log has stopped by then. Any thread may call it.
bool FatalErrorReported();

/// Shows a text to the user and blocks until it is dismissed. Called on the thread that failed.
using FatalErrorDialog = std::function<void(const std::string& caption, const std::string& text)>;
/// Shows a text in the same dialog before a fatal error is reported. Any thread may call it.
void ShowErrorBox(const std::string& caption, const std::string& text);
/// Replaces the dialog and returns the previous one. The default is the system's message box, on Linux standard error.
/// Any thread may call it.
FatalErrorDialog SetFatalErrorDialog(FatalErrorDialog newDialog);

} // namespace Utils
