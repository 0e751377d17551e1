#pragma once

#include "Utils/Text.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Batch {

using Utils::Counted;

/// Text of a file as UTF-8 for a terminal: control characters are escaped, for example as \x1b, so that the terminal
/// does not interpret them. ShownLines keeps line feeds.
std::string Shown(std::string_view text);
std::string ShownLines(std::string_view text);

/// Print to stdout: lines of text through ShownLines, or JSON with control characters written like \u001b.
void Print(std::string_view text);
void PrintJson(std::string_view json);
/// Call before a message, so that the order is right if both streams go to one terminal.
void FlushPrinted();
/// Why printed text could not be written; empty if all of it was.
std::optional<std::string> OutputFailure();

/// The stderr stream of a run: messages, one per line, and on a terminal a progress bar below them.
class Console {
public:
    Console();

    /// Prints a message with the program's name in front, through ShownLines.
    void Message(std::string_view text);

    void BeginProgress(std::size_t steps);
    void Advance();
    void EndProgress();

private:
    void DrawProgress() const;
    void EraseProgress() const;

    bool terminal;
    bool progressShown = false;
    std::size_t total = 0, done = 0;
    std::chrono::steady_clock::time_point started;
};

} // namespace Batch
