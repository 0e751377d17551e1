#include "Utils/SaveFile.h"

#include "Utils/NonAssignable.h"
#include "Utils/Numbers.h"

#include <algorithm>
#include <boost/filesystem/operations.hpp>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <mutex>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace fs = boost::filesystem;

namespace Utils {

namespace {

/// A temporary's name consists of the target's name, the process id and this ending: ".Jet.xml.4711.saving".
constexpr std::string_view kEnding = ".saving";
/// Bytes for the target's name in a file name of at most 255, which also holds two dots, ten digits and the ending.
constexpr std::size_t kLongestTargetName = 255 - 12 - kEnding.size();
constexpr int kMostLinks = 40;
constexpr mode_t kPermissions = 07777;

/// Serialises the saves of one process, whose temporaries have the same name.
std::mutex savingMutex;

[[noreturn]] void Fail(int code) {
    throw std::system_error(code, std::generic_category());
}

void Check(int result) {
    if (result < 0)
        Fail(errno);
}

class OpenFile : NonAssignable {
public:
    OpenFile(const fs::path& path, int flags, mode_t mode = 0)
        : descriptor(open(path.c_str(), flags | O_CLOEXEC, mode)) {
        Check(descriptor);
    }
    ~OpenFile() {
        if (descriptor >= 0)
            close(descriptor);
    }
    int Get() const { return descriptor; }

    void Write(std::string_view bytes) {
        while (!bytes.empty()) {
            const ssize_t written = write(descriptor, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR)
                continue;
            Check(static_cast<int>(std::min<ssize_t>(written, 0)));
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
    }

    /// Some file systems report a full disk only on close.
    void Close() { Check(close(std::exchange(descriptor, -1))); }

private:
    int descriptor;
};

/// A new file that is deleted at the end of the scope unless it was renamed.
class Temporary : NonAssignable {
public:
    Temporary(fs::path path, mode_t mode) : file(path, O_WRONLY | O_CREAT | O_EXCL, mode), path(std::move(path)) {}
    ~Temporary() {
        if (!path.empty())
            unlink(path.c_str());
    }
    void RenameTo(const fs::path& target) {
        file.Close();
        Check(rename(path.c_str(), target.c_str()));
        path.clear();
    }

    OpenFile file;

private:
    fs::path path;
};

/// Empty if there is no such file.
std::optional<struct stat> StatusOf(const fs::path& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0)
        return status;
    if (errno != ENOENT)
        Fail(errno);
    return std::nullopt;
}

/// Works for dangling links too. Circular links have already failed in StatusOf.
fs::path FollowLinks(fs::path path) {
    boost::system::error_code error;
    for (int links = 0; links < kMostLinks && fs::is_symlink(fs::symlink_status(path, error)); ++links) {
        const fs::path target = fs::read_symlink(path);
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    return path;
}

fs::path FolderOf(const fs::path& target) {
    return target.has_parent_path() ? target.parent_path() : fs::path(".");
}

std::string TemporaryPrefix(const fs::path& target) {
    return "." + target.filename().string().substr(0, kLongestTargetName) + ".";
}

/// The process id in a temporary's name; empty for any other file name.
std::optional<pid_t> WriterOf(std::string_view name, std::string_view prefix) {
    if (!name.starts_with(prefix) || !name.ends_with(kEnding) || name.size() <= prefix.size() + kEnding.size())
        return std::nullopt;
    name.remove_prefix(prefix.size());
    name.remove_suffix(kEnding.size());
    const auto process = ParseWhole<pid_t>(name);
    return process && *process > 0 ? process : std::nullopt;
}

/// This process has no temporary during the sweep: one with its id was left by an earlier process of that id.
bool IsAbandonedBy(pid_t process) {
    return process == getpid() || (kill(process, 0) != 0 && errno == ESRCH);
}

/// A folder that cannot be listed does not prevent saving.
void SweepAbandoned(const fs::path& target) {
    const std::string prefix = TemporaryPrefix(target);
    boost::system::error_code error;
    for (fs::directory_iterator entry(FolderOf(target), error), end; entry != end; entry.increment(error)) {
        const std::optional<pid_t> writer = WriterOf(entry->path().filename().string(), prefix);
        if (writer && IsAbandonedBy(*writer))
            unlink(entry->path().c_str());
    }
}

/// Owner first, because changing the owner can clear mode bits. A process that may not change the owner keeps the new
/// file as its own.
void TakeOver(const struct stat& old, const OpenFile& file) {
    [[maybe_unused]] const int given = fchown(file.Get(), old.st_uid, old.st_gid);
    Check(fchmod(file.Get(), old.st_mode & kPermissions));
}

/// A rename is certain to survive a crash of the machine only after its folder was flushed. Errors are ignored: not all
/// file systems support this, and the file is already in place.
void FlushFolder(const fs::path& folder) {
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

void Replace(const fs::path& target, const std::optional<struct stat>& old, std::string_view bytes) {
    // Renaming over a file needs only write access to the folder; a read-only file must not be replaced.
    if (old)
        Check(faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS));
    SweepAbandoned(target);
    const std::string name = TemporaryPrefix(target) + std::to_string(getpid()) + std::string(kEnding);
    Temporary temporary(FolderOf(target) / name, old ? S_IRUSR | S_IWUSR : 0666);
    temporary.file.Write(bytes);
    if (old)
        TakeOver(*old, temporary.file);
    Check(fsync(temporary.file.Get()));
    temporary.RenameTo(target);
    FlushFolder(FolderOf(target));
}

/// Fails on a pipe without a reader instead of waiting for one.
void WriteInto(const fs::path& path, std::string_view bytes) {
    OpenFile file(path, O_WRONLY | O_NONBLOCK);
    Check(fcntl(file.Get(), F_SETFL, 0));
    file.Write(bytes);
    file.Close();
}

void Save(const std::string& path, std::string_view bytes) {
    const std::optional<struct stat> old = StatusOf(path);
    if (old && S_ISDIR(old->st_mode))
        Fail(EISDIR);
    if (old && !S_ISREG(old->st_mode))
        return WriteInto(path, bytes);
    const std::lock_guard lock(savingMutex);
    Replace(FollowLinks(path), old, bytes);
}

SaveResult TrySave(const std::string& path, std::string_view bytes) {
    try {
        Save(path, bytes);
        return {true, {}};
    } catch (const std::exception& error) {
        return {false, "Cannot save " + path + ": " + error.what()};
    }
}

} // namespace

SaveResult SaveFile(const std::string& path, std::string_view bytes) noexcept {
    try {
        return TrySave(path, bytes);
    } catch (...) {
        return NotSaved("Out of memory");
    }
}

} // namespace Utils
