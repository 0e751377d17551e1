#include "Utils/Files.h"

#include "Logging/Logger.h"
#include "Utils/Paths.h"

#include <algorithm>
#include <boost/filesystem/operations.hpp>

namespace fs = boost::filesystem;

namespace Utils {

namespace {

/// Bytes of the first read from a stream of unknown size.
constexpr std::size_t kFirstRead = 64 << 10;
/// A greater size is not that of a file: seeking to the end of a folder opened as a file reports one.
constexpr std::streamoff kGreatestSize = std::streamoff{4} << 30;

} // namespace

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
