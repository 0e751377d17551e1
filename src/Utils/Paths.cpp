#include "Utils/Paths.h"

#include "Utils/Platform.h"
#include "Utils/Text.h"

#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/split.hpp>
#include <boost/filesystem/operations.hpp>
#include <vector>

namespace fs = boost::filesystem;

namespace Utils {

namespace {

bool Exists(const fs::path& path) {
    boost::system::error_code error;
    return fs::exists(path, error);
}

/// The name of a folder's entry that equals `name` except for case: the exact name, else the first in byte order; empty
/// if there is none. Dangling links are skipped.
std::string NameOnDisk(const fs::path& folder, const std::string& name) {
    const std::string wanted = ToLowerAscii(name);
    std::string found;
    boost::system::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end; entry != end;
         entry.increment(error)) {
        const std::string candidate = entry->path().filename().string();
        if (ToLowerAscii(candidate) != wanted || !Exists(folder / candidate))
            continue;
        if (candidate == name)
            return name;
        if (found.empty() || candidate < found)
            found = candidate;
    }
    return found;
}

/// The path of the folder's entry that a name refers to; empty if there is none.
fs::path FindEntry(const fs::path& folder, const std::string& name) {
    if (Exists(folder / name))
        return folder / name;
    const std::string found = NameOnDisk(folder, name);
    return found.empty() ? fs::path() : folder / found;
}

std::vector<std::string> Split(const std::string& text, const char* separators) {
    std::vector<std::string> pieces;
    boost::split(pieces, text, boost::is_any_of(separators), boost::token_compress_on);
    std::erase(pieces, "");
    return pieces;
}

/// FindEntry for a name that can contain backslashes. On a system where they can be part of a name, the whole name is
/// tried first.
fs::path Descend(const fs::path& folder, const std::string& name) {
    const fs::path whole = FindEntry(folder, name);
    if (!whole.empty() || name.find('\\') == name.npos)
        return whole;
    fs::path found = folder;
    for (const std::string& piece : Split(name, "\\")) {
        found = FindEntry(found, piece);
        if (found.empty())
            return {};
    }
    return found;
}

} // namespace

fs::path FindIgnoringCase(const fs::path& path) {
    const std::string text = path.string();
    // System calls end a name at a NUL byte and would find another file.
    if (text.empty() || text.find('\0') != text.npos)
        return {};
    if (Exists(path))
        return path;
    fs::path found = path.root_directory();
    for (const std::string& name : Split(text, "/")) {
        found = Descend(found, name);
        if (found.empty())
            return {};
    }
    return found;
}

fs::path OnDiskCase(const fs::path& path) {
    fs::path listed;
    for (const fs::path& name : path) {
        const std::string found = NameOnDisk(listed, name.string());
        listed /= found.empty() ? name : fs::path(found);
    }
    return listed;
}

fs::path UserDataFolder() {
    return Platform::DataFolder();
}

std::filesystem::path StreamPath(const fs::path& path) {
    return path.native();
}

} // namespace Utils
