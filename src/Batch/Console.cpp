#include "Batch/Console.h"

#include "Batch/Process.h"
#include "Utils/Text.h"

#include <iomanip>
#include <iostream>
#include <sstream>

namespace Batch {

namespace {

constexpr std::size_t kBarWidth = 30;
/// To the line's start, and what stood there gone, in the language of every present terminal.
constexpr const char* kEraseLine = "\r\033[K";

std::string MinutesAndSeconds(double seconds) {
    const auto whole = static_cast<long>(seconds + 0.5);
    std::ostringstream text;
    text << whole / 60 << ':' << std::setw(2) << std::setfill('0') << whole % 60;
    return text.str();
}

} // namespace

std::string Counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

Console::Console() : terminal(ErrorsGoToTerminal()) {}

void Console::Message(std::string_view text) {
    EraseProgress();
    std::cerr << "vorelle-batch: " << Utils::Readable(text) << '\n';
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
