#pragma once

#include "Utils/NonAssignable.h"
#include "Utils/Place.h"
#include "Utils/Timer.h"

#include <atomic>
#include <boost/filesystem/path.hpp>
#include <boost/lockfree/queue.hpp>
#include <condition_variable>
#include <cstdint>
#include <ios>
#include <mutex>
#include <string>
#include <thread>

namespace Logging {

/// What the log prints about a texture: the fields of a Direct3D 11 texture description.
struct TextureDescription {
    std::uint32_t width = 0, height = 0;
    std::uint32_t format = 0;
    std::uint32_t bindFlags = 0, cpuAccessFlags = 0, miscFlags = 0;
    std::uint32_t usage = 0;
};

/// The program's log file, overwritten by each run. Log may be called from any thread and never blocks: lines go
/// through a lock-free queue to a writer thread, which polls it. The process entry calls Create and Start before any
/// second thread exists. If the data folder is not writable, the program runs without a log.
class Logger : public Utils::NonAssignable {
public:
    static void Create();
    static Logger& Get();

    /// Starts the writer thread; a second call does nothing unless Stop was called in between. `fileName` is the log's
    /// name in the folder "Vorelle" of the user's data folder. std::ios::app appends to a log that other processes also
    /// write to.
    void Start(const std::string& fileName = "log.txt", std::ios::openmode mode = std::ios::trunc);
    /// Queues one line: seconds since start, source file, line and message. After Stop the line is dropped.
    void Log(const char* file, std::int32_t line, std::string message);
    void Log(const char* file, std::int32_t line, const TextureDescription& texture);
    /// Writes every queued line, ends the writer thread and copies the log to `crashLog` in the same folder, unless
    /// that name is empty; an existing file of that name is not overwritten. Returns the path of the copy, empty if
    /// there is none. Further calls only return that path.
    std::string Stop(const std::string& crashLog);

private:
    Logger();
    void WriteLines(const boost::filesystem::path& logPath, std::ios::openmode mode);

    std::string crashLogName; ///< guarded by stopMutex until the writer thread ends
    std::string crashLogPath; ///< set by the writer thread; others read it after joining it
    std::atomic<bool> running{false};
    std::atomic<bool> accepting{true};          ///< false from Stop to the next Start
    boost::lockfree::queue<std::string*> queue; ///< finished lines, owned by the queue
    std::mutex stopMutex;                       ///< one Stop at a time
    std::mutex wakeMutex;                       ///< for `wake`
    std::condition_variable wake;               ///< Stop interrupts the writer's sleep
    Utils::Timer timer;
    std::thread thread;
};

} // namespace Logging
