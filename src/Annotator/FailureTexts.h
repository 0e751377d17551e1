#pragma once

#include "Annotator/DetectedDataExport.h"
#include "Sim/AircraftInfo.h"

#include <exception>
#include <string>

namespace Annotator {

/// Error messages of the desktop tool: what failed, on which file or folder, and why.

/// Shown after a fatal error that does not end the program.
inline constexpr const char* kLogEndedText = "The log ended with this error; restart the program to log again.";

/// True for the exception that a fatal error throws after its dialog has been dismissed.
bool WasFatalError(const std::exception& error);
/// The reason as text, with the path if the error has one.
std::string ReasonText(const std::exception& error);
/// The same without the path of the aircraft's .acf file at the start, for a message that already contains it.
std::string ReasonText(const Sim::AircraftInfo& info, const std::exception& error);

std::string ScanFailureText(const std::exception& error);
std::string DataFilesFailureText(const std::string& folder, const std::string& reason);
std::string LoadFailureText(const Sim::AircraftInfo& info, const std::exception& error);
std::string ExportFailureText(const std::exception& error);
/// The result of an export, for a program whose log has ended.
std::string ExportDoneText(const ExportResult& result);
std::string TestRunFailureText(const std::exception& error);
std::string SaveFailureText(const std::string& path, const std::string& reason);
/// The annotations were saved and replaced a file that was not readable.
std::string KeptCopyText(const std::string& path, const std::string& copy);
std::string SelectionFailureText(const std::exception& error);
std::string AnimationFailureText(const std::exception& error);
std::string FrameFailureText(const std::exception& error);

} // namespace Annotator
