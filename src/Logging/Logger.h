#pragma once

#include "Utils/NonAssignable.h"
#include "Utils/Place.h"
#include "Utils/Timer.h"

#include <atomic>
#include <boost/lockfree/queue.hpp>
#include <cstdint>
#include <string>
#include <thread>

namespace Logging {

/// What the log tells of a texture; the fields are those of a Direct3D 11 texture description.
struct TextureDescription {
    std::uint32_t width = 0, height = 0;
    std::uint32_t format = 0;
    std::uint32_t bindFlags = 0, cpuAccessFlags = 0, miscFlags = 0;
    std::uint32_t usage = 0;
};

/// The one log of the program, a file in the per-user data folder that each run starts anew. Log may be called from any
/// thread and never blocks: lines go through a lock-free queue to a writer thread, which polls it.
/// The process entry calls Create and Start before any second thread exists.
class Logger : public Utils::NonAssignable {
public:
    static void Create();
    static Logger& Get();

    /// Starts the writer thread; a second call does nothing. `fileName` is the log's name in the "Vorelle" folder.
    void Start(const std::string& fileName = "log.txt");
    /// Queues one line: seconds since start, source file, line and message. After Stop the line is dropped.
    void Log(const char* file, std::int32_t line, std::string message);
    void Log(const char* file, std::int32_t line, const TextureDescription& texture);
    /// Writes out every line queued so far, ends the writer thread and copies the log to `crashLog` beside it, unless
    /// that name is empty or taken. Returns the full path of the copy, empty where none was made.
    std::string Stop(const std::string& crashLog);

private:
    Logger();
    void WriteLines();

    std::string crashLogName;
    std::string crashLogPath;
    std::atomic<bool> running{false};
    boost::lockfree::queue<std::string*> queue; ///< finished lines, owned by the queue
    Utils::Timer timer;
    std::thread thread;
};

} // namespace Logging
