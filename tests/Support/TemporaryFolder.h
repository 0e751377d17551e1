#pragma once

#include <boost/filesystem.hpp>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace Support {

/// A folder for one test, deleted with this object.
class TemporaryFolder {
public:
    TemporaryFolder()
        : path(boost::filesystem::temp_directory_path() / boost::filesystem::unique_path("vorelle-%%%%-%%%%-%%%%")) {
        boost::filesystem::create_directories(path);
    }
    ~TemporaryFolder() {
        boost::system::error_code ignored;
        boost::filesystem::remove_all(path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// Writes a file below the folder and creates missing folders in between.
    std::string Write(const std::string& name, const std::string& bytes) const {
        const boost::filesystem::path file = path / name;
        boost::filesystem::create_directories(file.parent_path());
        std::ofstream(std::filesystem::path(file.native()), std::ios::binary) << bytes;
        return file.string();
    }
    std::string Read(const std::string& name) const {
        std::ifstream file(std::filesystem::path((path / name).native()), std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }
    std::string operator/(const std::string& name) const { return (path / name).string(); }

    const boost::filesystem::path path;
};

/// Changes the working directory for a scope.
class WorkingDirectory {
public:
    explicit WorkingDirectory(const boost::filesystem::path& folder) { boost::filesystem::current_path(folder); }
    ~WorkingDirectory() { boost::filesystem::current_path(before); }
    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;

private:
    const boost::filesystem::path before = boost::filesystem::current_path();
};

} // namespace Support
