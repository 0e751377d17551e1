#include "Batch/Jobs/Process.h"

#include "Utils/FatalError.h"
#include "Utils/WideText.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

namespace Batch {

namespace {

HANDLE answers = nullptr; ///< of a worker: its standard output at the start

/// The arguments of main are in the system's code page, which lacks many characters.
std::vector<std::string> CommandLineArguments() {
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> texts;
    for (int i = 1; arguments && i < count; ++i)
        texts.push_back(Utils::FromWideText(arguments[i]));
    LocalFree(arguments);
    return texts;
}

/// A console gets UTF-8; a file or another program gets the same bytes as on any system.
void PrepareStreams() {
    for (const int stream : {0, 1, 2})
        _setmode(stream, _O_BINARY);
    static const UINT before = GetConsoleOutputCP();
    if (before != 0 && SetConsoleOutputCP(CP_UTF8))
        std::atexit([] { SetConsoleOutputCP(before); });
}

/// There may be no user at the screen to dismiss a box.
void PrepareFailures() {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    Utils::SetFatalErrorDialog([](const std::string& caption, const std::string& text) {
        std::fprintf(stderr, "%s: %s\n", caption.c_str(), text.c_str());
    });
}

void StartWorker() {
    DuplicateHandle(GetCurrentProcess(), GetStdHandle(STD_OUTPUT_HANDLE), GetCurrentProcess(), &answers, 0, FALSE,
                    DUPLICATE_SAME_ACCESS);
    const int nowhere = _open("NUL", _O_WRONLY | _O_BINARY);
    _dup2(nowhere, 1);
    _close(nowhere);
}

} // namespace

std::vector<std::string> StartProcess(int, char**) {
    PrepareFailures();
    PrepareStreams();
    std::vector<std::string> arguments = CommandLineArguments();
    if (!arguments.empty() && arguments[0] == kWorkerOption) {
        StartWorker();
        arguments.erase(arguments.begin());
    }
    return arguments;
}

bool ErrorsGoToTerminal() {
    const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(errors, &mode) && SetConsoleMode(errors, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

bool IsWorker() {
    return answers != nullptr;
}

bool SendAnswer(std::string_view bytes) {
    constexpr std::size_t kWriteSize = 65536;
    while (!bytes.empty()) {
        DWORD written = 0;
        if (!WriteFile(answers, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), kWriteSize)), &written,
                       nullptr))
            return false;
        bytes.remove_prefix(written);
    }
    return true;
}

} // namespace Batch
