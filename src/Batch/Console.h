#pragma once

#include "Utils/Text.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Batch {

using Utils::Counted;

/// Text of a file as UTF-8 for a terminal: control characters are shown as \x1b is, so that none is obeyed. ShownLines
/// keeps line feeds.
std::string Shown(std::string_view text);
std::string ShownLines(std::string_view text);

/// Print to the standard output: lines of text as ShownLines gives them, or JSON, in which control characters are
/// written as \u001b.
void Print(std::string_view text);
void PrintJson(std::string_view json);
/// Before a message, so that both come in this order where both streams go to one terminal.
void FlushPrinted();
/// Why what was printed, to its last byte, could not be written; nothing where it could.
std::optional<std::string> OutputFailure();

/// The standard error stream of a run: messages, each on a line of its own, and on a terminal a progress bar below
/// them.
class Console {
public:
    Console();

    /// A message with the program's name in front, as ShownLines gives it.
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
