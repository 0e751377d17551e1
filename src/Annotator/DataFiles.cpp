#include "Annotator/DataFiles.h"

#include "Annotator/FailureTexts.h"
#include "Utils/Files.h"
#include "Utils/Platform.h"
#include "Utils/SaveFile.h"

#include <boost/filesystem/operations.hpp>

namespace Annotator {

namespace {

namespace fs = boost::filesystem;

constexpr const char* kDataFolders[] = {"../share/vorelle-annotator/QVRA", "../data/QVRA", "QVRA"};

/// A broken link counts as an entry too, because the user made it.
bool HasEntry(const fs::path& path) {
    boost::system::error_code error;
    return fs::exists(fs::symlink_status(path, error));
}

void InstallFile(const fs::path& from, const fs::path& to) {
    const std::string bytes = Utils::ReadFile(from);
    if (bytes.empty())
        throw std::runtime_error("Cannot read " + from.string());
    fs::create_directories(to.parent_path());
    if (const auto saved = Utils::SaveFile(to.string(), bytes); !saved)
        throw std::runtime_error(saved.error);
}

/// Installs the other files even if one fails. Returns the first failure.
std::string InstallMissing(const fs::path& data, const fs::path& target) {
    std::string failure;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(data)) {
        const fs::path to = target / entry.path().lexically_relative(data);
        if (!fs::is_regular_file(entry.path()) || HasEntry(to))
            continue;
        try {
            InstallFile(entry.path(), to);
        } catch (const std::exception& error) {
            failure = failure.empty() ? ReasonText(error) : failure;
        }
    }
    return failure;
}

} // namespace

fs::path ProgramDataFolder(const fs::path& program) {
    if (program.empty())
        return {};
    boost::system::error_code error;
    for (const char* relative : kDataFolders)
        if (const fs::path folder = program.parent_path() / relative; fs::is_directory(folder, error))
            return fs::canonical(folder);
    return {};
}

std::string InstallDataFiles(const fs::path& data, const fs::path& installation) {
    boost::system::error_code error;
    if (data.empty() || !fs::is_directory(installation / "Aircraft", error))
        return {};
    std::string failure;
    try {
        failure = InstallMissing(data, installation / "QVRA");
    } catch (const std::exception& unlisted) { // the program's own folder
        failure = ReasonText(unlisted);
    }
    return failure.empty() ? failure : DataFilesFailureText((installation / "QVRA").string(), failure);
}

std::string InstallDataFiles() {
    boost::system::error_code error;
    const fs::path installation = fs::current_path(error);
    return InstallDataFiles(ProgramDataFolder(Utils::Platform::ProgramPath()), installation);
}

} // namespace Annotator
