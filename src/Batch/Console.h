#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace Batch {

/// "1 test", "2 tests".
std::string Counted(std::size_t count, const std::string& noun);

/// The standard error stream of a run: messages, each on a line of its own, and on a terminal a progress bar below
/// them.
class Console {
public:
    Console();

    /// A message with the program's name in front. Bytes that are no UTF-8 are shown with replacement characters.
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
