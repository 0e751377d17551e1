#include "Utils/SaveFile.h"

#include "Utils/NonAssignable.h"
#include "Utils/WideText.h"

#include <algorithm>
#include <boost/filesystem/operations.hpp>
#include <mutex>
#include <system_error>
#include <utility>
#include <windows.h>

namespace fs = boost::filesystem;

namespace Utils {

namespace {

constexpr const wchar_t* kEnding = L".saving";
/// Other programs, such as virus scanners, can lock the target for a moment.
constexpr int kAttempts = 20;
constexpr DWORD kPauseMilliseconds = 10;

/// Serialises the saves of one process, whose temporaries have the same name.
std::mutex savingMutex;

[[noreturn]] void Fail(DWORD code) {
    wchar_t text[512];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0, text,
                                  static_cast<DWORD>(std::size(text)), nullptr);
    while (length > 0 && (text[length - 1] == L'\n' || text[length - 1] == L'\r'))
        --length;
    const std::string words = FromWideText({text, length});
    throw std::runtime_error(words.empty() ? "error " + std::to_string(code) : words);
}

void Check(bool succeeded) {
    if (!succeeded)
        Fail(GetLastError());
}

/// A new file that is deleted at the end of the scope unless it replaced the target.
class Temporary : NonAssignable {
public:
    explicit Temporary(fs::path newPath) : path(std::move(newPath)) {
        file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        Check(file != INVALID_HANDLE_VALUE);
    }
    ~Temporary() {
        Close();
        if (!placed)
            DeleteFileW(path.c_str());
    }

    void Write(std::string_view bytes) {
        constexpr std::size_t kMost = 1 << 20;
        while (!bytes.empty()) {
            DWORD written = 0;
            const auto size = static_cast<DWORD>(std::min(bytes.size(), kMost));
            Check(WriteFile(file, bytes.data(), size, &written, nullptr));
            bytes.remove_prefix(written);
        }
        Check(FlushFileBuffers(file));
        Close();
    }

    void MoveOver(const fs::path& target) {
        for (int attempt = 1; !placed; ++attempt) {
            placed = Place(target);
            const DWORD error = placed ? ERROR_SUCCESS : GetLastError();
            const bool held = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
            if (!placed && (!held || attempt == kAttempts))
                Fail(error);
            if (!placed)
                Sleep(kPauseMilliseconds);
        }
    }

private:
    /// Replacing keeps the attributes and access rights of the old file, which a move would not.
    bool Place(const fs::path& target) {
        if (GetFileAttributesW(target.c_str()) != INVALID_FILE_ATTRIBUTES &&
            ReplaceFileW(target.c_str(), path.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr))
            return true;
        return MoveFileExW(path.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    }

    void Close() {
        if (file != INVALID_HANDLE_VALUE)
            CloseHandle(std::exchange(file, INVALID_HANDLE_VALUE));
    }

    fs::path path;
    HANDLE file = INVALID_HANDLE_VALUE;
    bool placed = false;
};

/// A link stays, and its target is replaced.
fs::path FollowLinks(const fs::path& path) {
    boost::system::error_code error;
    const fs::path target = fs::canonical(path, error);
    return error ? fs::absolute(path) : target;
}

void Save(const std::string& path, std::string_view bytes) {
    const std::lock_guard lock(savingMutex);
    const DWORD attributes = GetFileAttributesW(fs::path(path).c_str());
    constexpr DWORD kKept = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY;
    if (attributes != INVALID_FILE_ATTRIBUTES && attributes & kKept)
        Fail(ERROR_ACCESS_DENIED);
    const fs::path target = FollowLinks(path);
    // One name per target, not per process, so that a file left by a killed process is overwritten.
    Temporary temporary(target.native() + kEnding);
    temporary.Write(bytes);
    temporary.MoveOver(target);
}

} // namespace

SaveResult SaveFile(const std::string& path, std::string_view bytes) noexcept {
    try {
        Save(path, bytes);
        return {true, {}};
    } catch (const std::exception& error) {
        try {
            return {false, "Cannot save " + path + ": " + error.what()};
        } catch (...) {
            return NotSaved("Out of memory");
        }
    }
}

} // namespace Utils
