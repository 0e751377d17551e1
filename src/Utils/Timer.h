#pragma once

#include <cstdint>

namespace Utils {

/// Seconds on the high-resolution counter since construction or the last restart.
class Timer {
public:
    Timer();
    double Elapsed();
    double ElapsedAndRestart();

private:
    void Start();

    std::int64_t start = 0;     ///< counter value
    std::int64_t frequency = 0; ///< counts per second
    bool started = false;
    bool valid = false; ///< whether the counter could be read at the start
};

} // namespace Utils
