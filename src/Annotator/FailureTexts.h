#pragma once

#include "Annotator/DetectedDataExport.h"
#include "Sim/AircraftInfo.h"

#include <exception>
#include <string>

namespace Annotator {

/// What the desktop tool tells the user when something fails: what was tried, on which file or folder, and why it went
/// wrong.

/// Told after a fatal error that the window survives.
inline constexpr const char* kLogEndedText = "The log ended with this error; restart the program to log again.";

/// True for what a fatal error throws when its own dialog has been dismissed.
bool WasFatalError(const std::exception& error);
/// The reason in words, with the path where the error names one.
std::string ReasonText(const std::exception& error);
/// The same for a text that names the aircraft's .acf file already: a reason that begins with it begins without it.
std::string ReasonText(const Sim::AircraftInfo& info, const std::exception& error);

std::string ScanFailureText(const std::exception& error);
std::string DataFilesFailureText(const std::string& folder, const std::string& reason);
std::string LoadFailureText(const Sim::AircraftInfo& info, const std::exception& error);
std::string ExportFailureText(const std::exception& error);
/// What an export did, for a program whose log has ended.
std::string ExportDoneText(const ExportResult& result);
std::string TestRunFailureText(const std::exception& error);
std::string SaveFailureText(const std::string& path, const std::string& reason);
/// The annotations are saved, over a file that held something unreadable.
std::string KeptCopyText(const std::string& path, const std::string& copy);
std::string SelectionFailureText(const std::exception& error);
std::string AnimationFailureText(const std::exception& error);
std::string FrameFailureText(const std::exception& error);

} // namespace Annotator
