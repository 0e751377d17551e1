#include "Annotator/FailureTexts.h"

#include "Annotator/DetectedDataExport.h"
#include "Utils/RangeCheck.h"

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

} // namespace

bool WasFatalError(const std::exception& error) {
    // It throws the base class itself, which nothing else does.
    return typeid(error) == typeid(std::exception);
}

std::string ReasonText(const std::exception& error) {
    if (const auto* file = dynamic_cast<const fs::filesystem_error*>(&error))
        return file->path1().string() + ": " + file->code().message();
    if (WasFatalError(error))
        return "A fatal error was met, which has been shown and logged.";
    return Utils::Describe(error);
}

std::string ReasonText(const Sim::AircraftInfo& info, const std::exception& error) {
    std::string reason = ReasonText(error);
    if (const std::string file = info.acfPath + ": "; reason.starts_with(file))
        reason.erase(0, file.size());
    return reason;
}

std::string ScanFailureText(const std::exception& error) {
    return "The aircraft of this folder cannot be listed:\n" + Absolute("Aircraft") + "\n\n" + ReasonText(error) +
           "\n\nStart the program in the folder of an X-Plane installation.";
}

std::string DataFilesFailureText(const std::string& folder, const std::string& reason) {
    return "The program's own files cannot all be put into " + folder + ": " + reason;
}

std::string LoadFailureText(const Sim::AircraftInfo& info, const std::exception& error) {
    return info.displayName + " cannot be loaded:\n" + info.acfPath + "\n\n" + ReasonText(info, error);
}

std::string ExportFailureText(const std::exception& error) {
    return "The detected data cannot be saved into this folder:\n" + Absolute(DetectedDataFolder()) + "\n\n" +
           ReasonText(error);
}

std::string TestRunFailureText(const std::exception& error) {
    return "The tests cannot be run to their end:\n\n" + ReasonText(error);
}

std::string SaveFailureText(const std::string& path, const std::string& reason) {
    return "The annotations cannot be saved:\n" + Absolute(path) + "\n\n" + reason;
}

std::string KeptCopyText(const std::string& path, const std::string& copy) {
    return "The annotations are saved:\n" + Absolute(path) +
           "\n\nThe file that stood there was no annotation file that could be read. As it was, it is kept in\n" +
           Absolute(copy);
}

std::string SelectionFailureText(const std::exception& error) {
    return "This part cannot be shown:\n\n" + ReasonText(error);
}

std::string FrameFailureText(const std::exception& error) {
    return "The cockpit cannot be shown:\n\n" + ReasonText(error);
}

} // namespace Annotator
