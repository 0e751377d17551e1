#include "Batch/Jobs/Process.h"

#include "Utils/FatalError.h"
#include "Utils/WideText.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>
#include <iostream>
#include <optional>
#include <windows.h>

#include <shellapi.h>

namespace Batch {

namespace {

std::optional<std::string> jobAircraft;

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
    for (const int stream : {1, 2})
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

} // namespace

std::vector<std::string> StartProcess(int, char**) {
    PrepareFailures();
    PrepareStreams();
    std::vector<std::string> arguments = CommandLineArguments();
    if (arguments.size() >= 2 && arguments[0] == kJobOption) {
        jobAircraft = arguments[1];
        arguments.erase(arguments.begin(), arguments.begin() + 2);
        std::cout.rdbuf(nullptr);
        std::cerr.rdbuf(nullptr);
    }
    return arguments;
}

bool ErrorsGoToTerminal() {
    const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(errors, &mode) && SetConsoleMode(errors, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

const std::string* JobAircraft() {
    return jobAircraft ? &*jobAircraft : nullptr;
}

} // namespace Batch
