#include "Annotator/FailureTexts.h"

#include "Annotator/DetectedDataFile.h"
#include "Utils/FatalError.h"
#include "Utils/RangeCheck.h"
#include "Utils/Text.h"

#include <boost/filesystem.hpp>
#include <typeinfo>

namespace Annotator {

namespace {

namespace fs = boost::filesystem;

std::string Absolute(const std::string& path) {
    boost::system::error_code ignored;
    const fs::path folder = fs::current_path(ignored);
    return (folder / path).string();
}

/// An additional line after a fatal error, which has stopped the log.
std::string LogEnded(const std::exception& error) {
    return WasFatalError(error) ? std::string("\n") + kLogEndedText : "";
}

std::string WindowReasonText(const std::exception& error) {
    return ReasonText(error) + LogEnded(error);
}

} // namespace

bool WasFatalError(const std::exception& error) {
    // Fatal errors throw std::exception itself, but so do failed text conversions.
    return Utils::FatalErrorReported() && typeid(error) == typeid(std::exception);
}

std::string ReasonText(const std::exception& error) {
    if (const auto* file = dynamic_cast<const fs::filesystem_error*>(&error))
        return file->path1().string() + ": " + file->code().message();
    if (WasFatalError(error))
        return "A fatal error occurred. It has been shown and logged.";
    return Utils::Describe(error);
}

std::string ReasonText(const Sim::AircraftInfo& info, const std::exception& error) {
    std::string reason = ReasonText(error);
    if (const std::string file = info.acfPath + ": "; reason.starts_with(file))
        reason.erase(0, file.size());
    return reason;
}

std::string ScanFailureText(const std::exception& error) {
    return "The aircraft in this folder cannot be listed:\n" + Absolute("Aircraft") + "\n\n" + ReasonText(error) +
           "\n\nStart the program in the folder of an X-Plane installation.";
}

std::string DataFilesFailureText(const std::string& folder, const std::string& reason) {
    return "Not all of the program's data files can be installed into " + folder + ": " + reason;
}

std::string LoadFailureText(const Sim::AircraftInfo& info, const std::exception& error) {
    return info.displayName + " cannot be loaded:\n" + info.acfPath + "\n\n" + ReasonText(info, error) +
           LogEnded(error);
}

std::string ExportFailureText(const std::exception& error) {
    if (const auto* stopped = dynamic_cast<const AircraftExportError*>(&error))
        return std::string("The export stopped at this aircraft. The aircraft after it were not saved:\n") +
               stopped->what();
    return "The detected data cannot be saved in this folder:\n" + Absolute(DetectedDataFolder()) + "\n\n" +
           WindowReasonText(error);
}

std::string ExportDoneText(const ExportResult& result) {
    std::string text = Utils::Counted(result.files, "file was", "files were") + " saved in this folder:\n" +
                       Absolute(DetectedDataFolder());
    if (!result.failed.empty())
        text += "\n\nNot saved:";
    for (const std::string& aircraft : result.failed)
        text += "\n" + aircraft;
    return text;
}

std::string TestRunFailureText(const std::exception& error) {
    return "The test run stopped:\n\n" + WindowReasonText(error);
}

std::string SaveFailureText(const std::string& path, const std::string& reason) {
    return "The annotations cannot be saved:\n" + Absolute(path) + "\n\n" + reason;
}

std::string KeptCopyText(const std::string& path, const std::string& copy) {
    return "The annotations were saved:\n" + Absolute(path) +
           "\n\nThe existing file was not a readable annotation file. It was kept unchanged as:\n" + Absolute(copy);
}

std::string SelectionFailureText(const std::exception& error) {
    return "This part cannot be shown:\n\n" + WindowReasonText(error);
}

std::string AnimationFailureText(const std::exception& error) {
    return "The animation cannot be shown or moved:\n\n" + WindowReasonText(error);
}

std::string FrameFailureText(const std::exception& error) {
    return "The cockpit cannot be shown:\n\n" + WindowReasonText(error);
}

} // namespace Annotator
