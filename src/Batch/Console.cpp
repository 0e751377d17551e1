#include "Batch/Console.h"

#include "Batch/Jobs/Process.h"
#include "Utils/Text.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iomanip>
#include <iostream>
#include <sstream>

namespace Batch {

namespace {

constexpr std::size_t kBarWidth = 30;
/// Moves to the start of the line and clears it; every common terminal supports this sequence.
constexpr const char* kEraseLine = "\r\033[K";

std::string MinutesAndSeconds(double seconds) {
    const auto whole = static_cast<long>(seconds + 0.5);
    std::ostringstream text;
    text << whole / 60 << ':' << std::setw(2) << std::setfill('0') << whole % 60;
    return text.str();
}

/// The length of the control character at the start of the text: U+0000 to U+001F, or U+007F to U+009F, which
/// terminals also interpret. 0 if there is none.
std::size_t ControlLength(std::string_view text) {
    const auto byte = [&](std::size_t place) { return static_cast<unsigned char>(text[place]); };
    if (byte(0) < 0x20 || byte(0) == 0x7F)
        return 1;
    return byte(0) == 0xC2 && text.size() > 1 && byte(1) < 0xA0 ? 2 : 0;
}

/// Control characters become a backslash, the letter and hexadecimal digits.
std::string Escaped(std::string_view text, char letter, int digits, bool lines) {
    const std::string readable = Utils::ToValidUtf8(text);
    std::string shown;
    std::size_t begin = 0;
    for (std::size_t at = 0; at < readable.size();) {
        const std::string_view left = std::string_view(readable).substr(at);
        const std::size_t control = lines && left.front() == '\n' ? 0 : ControlLength(left);
        if (control > 0) {
            char code[16];
            std::snprintf(code, sizeof code, "\\%c%0*x", letter, digits,
                          unsigned{static_cast<unsigned char>(left[control - 1])});
            shown.append(readable, begin, at - begin) += code;
            begin = at + control;
        }
        at += std::max<std::size_t>(control, 1);
    }
    return shown.append(readable, begin);
}

int outputError = 0; ///< of the first failed write to stdout

void Write(const std::string& text) {
    errno = 0;
    if (!(std::cout << text) && outputError == 0)
        outputError = errno;
}

} // namespace

std::string Shown(std::string_view text) {
    return Escaped(text, 'x', 2, false);
}

std::string ShownLines(std::string_view text) {
    return Escaped(text, 'x', 2, true);
}

void Print(std::string_view text) {
    Write(ShownLines(text));
}

void PrintJson(std::string_view json) {
    Write(Escaped(json, 'u', 4, true));
}

void FlushPrinted() {
    errno = 0;
    if (!std::cout.flush() && outputError == 0)
        outputError = errno;
}

std::optional<std::string> OutputFailure() {
    FlushPrinted();
    if (std::cout)
        return {};
    return outputError != 0 ? std::strerror(outputError) : "";
}

Console::Console() : terminal(ErrorsGoToTerminal()) {}

void Console::Message(std::string_view text) {
    EraseProgress();
    std::cerr << "vorelle-batch: " << ShownLines(text) << '\n';
    DrawProgress();
}

void Console::BeginProgress(std::size_t steps) {
    total = steps;
    done = 0;
    started = std::chrono::steady_clock::now();
    progressShown = terminal && total > 1;
    DrawProgress();
}

void Console::Advance() {
    ++done;
    EraseProgress();
    DrawProgress();
}

void Console::EndProgress() {
    EraseProgress();
    progressShown = false;
}

void Console::DrawProgress() const {
    if (!progressShown)
        return;
    const std::size_t filled = kBarWidth * done / total;
    std::cerr << '[' << std::string(filled, '#') << std::string(kBarWidth - filled, '.') << "] " << done << '/'
              << total;
    if (done > 0) {
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - started;
        std::cerr << "  " << MinutesAndSeconds(elapsed.count() / double(done) * double(total - done)) << " left";
    }
    std::cerr << std::flush;
}

void Console::EraseProgress() const {
    if (progressShown)
        std::cerr << kEraseLine;
}

} // namespace Batch
