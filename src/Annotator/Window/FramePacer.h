#pragma once

#include <chrono>

namespace Annotator {

/// Tells from the length of each present whether the driver waits for the display in it: not once eight in a row took
/// at most 4 ms each, until one takes longer.
class PresentWatch {
public:
    bool Waits(std::chrono::steady_clock::duration present);

private:
    int quickInARow = 0;
};

/// Holds a loop to 60 rounds a second where nothing else does.
class FramePacer {
public:
    /// Sleeps until 1/60 s after the last return. A remainder so short that a display of that rate may have caused it
    /// is left, or the loop would miss every other of the display's frames.
    void Wait();

private:
    std::chrono::steady_clock::time_point next{};
};

} // namespace Annotator
