#include "Utils/FatalError.h"

#include "Logging/Logger.h"
#include "Utils/Platform.h"

#include <atomic>
#include <boost/date_time/posix_time/posix_time.hpp>
#include <exception>
#include <mutex>

namespace Utils {

namespace {

constexpr const char* kSupportForum = "https://vorelle.example/support";
constexpr const char* kDialogCaption = "Vorelle FSX"; // caption shared by all programs of the product line
constexpr const char* kPlace = "Utils\\Asserts.cpp";  // fixed source path of these log lines

std::mutex dialogMutex; // guards dialog
FatalErrorDialog dialog = Platform::ShowErrorBox;
std::atomic<bool> reported{false};

std::string CrashLogName() {
    return "error-" + to_iso_string(boost::posix_time::second_clock::local_time()) + ".txt";
}

[[noreturn]] void Report(const std::string& codes, const char* file, std::int32_t line) {
    const std::string crashLog = CrashLogName();
    reported = true;
    std::string text = "Vorelle Fatal Error Encountered (" + codes + ")\n";
    text += std::string(file) + ": Line " + std::to_string(line) + "\n";
    text += std::string("Please post this message to ") + kSupportForum + "\n";
    text += "Be sure to include what hardware, software, and versions you are running\n";
    Logging::Logger::Get().Log(kPlace, __LINE__, text);
    const std::string crashLogPath = Logging::Logger::Get().Stop(crashLog);
    text += "\nBe sure to attach the crash-log: " + crashLogPath;
    ShowErrorBox(kDialogCaption, text);
    throw std::exception();
}

} // namespace

void FatalError(const char* file, std::int32_t line) {
    const std::uint32_t lastError = Platform::LastError();
    Report("W:" + std::to_string(lastError), file, line);
}

void FatalError(const char* file, std::int32_t line, std::int32_t result) {
    const std::uint32_t lastError = Platform::LastError();
    Report(std::to_string(result) + ", " + std::to_string(lastError), file, line);
}

bool FatalErrorReported() {
    return reported;
}

void ShowErrorBox(const std::string& caption, const std::string& text) {
    FatalErrorDialog show;
    {
        const std::lock_guard lock(dialogMutex);
        show = dialog;
    }
    if (show)
        show(caption, text);
}

FatalErrorDialog SetFatalErrorDialog(FatalErrorDialog newDialog) {
    const std::lock_guard lock(dialogMutex);
    std::swap(dialog, newDialog);
    return newDialog;
}

} // namespace Utils
