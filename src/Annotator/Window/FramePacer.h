#pragma once

#include <chrono>

namespace Annotator {

/// Detects from the duration of each present whether the driver waits for the display: it does not after eight in a row
/// of at most 4 ms each, until one takes longer.
class PresentWatch {
public:
    bool Waits(std::chrono::steady_clock::duration present);

private:
    int quickInARow = 0;
};

/// Limits a loop to 60 iterations per second if nothing else does.
class FramePacer {
public:
    /// Sleeps until 1/60 s after the last return. It skips a remainder so short that a 60 Hz display may have caused
    /// it, because otherwise the loop would miss every second frame.
    void Wait();

private:
    std::chrono::steady_clock::time_point next{};
};

} // namespace Annotator
