#include "Utils/Paths.h"

#include "Logging/Logger.h"
#include "Utils/Platform.h"
#include "Utils/Text.h"

#include <algorithm>
#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/split.hpp>
#include <boost/filesystem/operations.hpp>
#include <fstream>
#include <vector>

namespace fs = boost::filesystem;

namespace Utils {

namespace {

/// Bytes of the first read from a stream of unknown size.
constexpr std::size_t kFirstRead = 64 << 10;
/// A greater size is not that of a file: seeking to the end of a folder opened as a file reports one.
constexpr std::streamoff kGreatestSize = std::streamoff{4} << 30;

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

std::string FolderStem(const std::string& filePath) {
    return fs::path(filePath).parent_path().stem().string();
}

std::string TooLargeText(const fs::path& path) {
    boost::system::error_code error;
    const std::uintmax_t size = fs::is_regular_file(path, error) ? fs::file_size(path, error) : 0;
    if (error || size <= kLargestFile)
        return {};
    return path.string() + " has " + std::to_string(size) + " bytes; a file of more than " +
           std::to_string(kLargestFile) + " bytes is not read";
}

bool IsReadableFile(const fs::path& path) {
    const std::string tooLarge = TooLargeText(path);
    if (!tooLarge.empty())
        Logging::Logger::Get().Log(HERE, tooLarge);
    boost::system::error_code error;
    return tooLarge.empty() && fs::is_regular_file(path, error);
}

std::ifstream OpenFile(const fs::path& path) {
    return IsReadableFile(path) ? std::ifstream(StreamPath(path), std::ios::binary) : std::ifstream();
}

std::string ReadFile(const fs::path& path) {
    std::ifstream file = OpenFile(path);
    return file.is_open() ? ReadAll(file) : std::string();
}

std::size_t SizeLeft(std::istream& stream) {
    if (!stream.rdbuf())
        return 0;
    std::streambuf& buffer = *stream.rdbuf();
    const std::streamoff here = buffer.pubseekoff(0, std::ios::cur, std::ios::in);
    if (here < 0)
        return 0;
    const std::streamoff end = buffer.pubseekoff(0, std::ios::end, std::ios::in);
    buffer.pubseekpos(here, std::ios::in);
    return end < here || end - here > kGreatestSize ? 0 : static_cast<std::size_t>(end - here);
}

std::string ReadAll(std::istream& stream) {
    std::string text;
    const std::size_t size = SizeLeft(stream);
    std::size_t chunk = size == 0 ? kFirstRead : size + 1; // so that the first read reaches the end
    while (stream && text.size() < kLargestFile) {
        const std::size_t had = text.size();
        text.resize(had + chunk);
        stream.read(text.data() + had, static_cast<std::streamsize>(chunk));
        text.resize(had + static_cast<std::size_t>(stream.gcount()));
        chunk = std::max(kFirstRead, text.size());
    }
    return text;
}

} // namespace Utils
