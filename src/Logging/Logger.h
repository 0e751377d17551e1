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

/// What the log tells of a texture; the fields are those of a Direct3D 11 texture description.
struct TextureDescription {
    std::uint32_t width = 0, height = 0;
    std::uint32_t format = 0;
    std::uint32_t bindFlags = 0, cpuAccessFlags = 0, miscFlags = 0;
    std::uint32_t usage = 0;
};

/// The one log of the program, a file that each run starts anew. Log may be called from any thread and never blocks:
/// lines go through a lock-free queue to a writer thread, which polls it. The process entry calls Create and Start
/// before any second thread exists. A data folder that cannot be written costs the log and nothing else.
class Logger : public Utils::NonAssignable {
public:
    static void Create();
    static Logger& Get();

    /// Starts the writer thread; a second call does nothing. `fileName` is the log's name in the folder "Vorelle" of
    /// the user's data folder. With std::ios::app it goes on with a log that other processes write to as well.
    void Start(const std::string& fileName = "log.txt", std::ios::openmode mode = std::ios::trunc);
    /// Queues one line: seconds since start, source file, line and message. After Stop the line is dropped.
    void Log(const char* file, std::int32_t line, std::string message);
    void Log(const char* file, std::int32_t line, const TextureDescription& texture);
    /// Writes out every line queued so far, ends the writer thread and copies the log to `crashLog` beside it, unless
    /// that name is empty; a file that has the name already is left as it is. Returns the path of the copy, empty where
    /// there is none. A further call only returns that path.
    std::string Stop(const std::string& crashLog);

private:
    Logger();
    void WriteLines(const boost::filesystem::path& logPath, std::ios::openmode mode);

    std::string crashLogName; ///< guarded by stopMutex until the writer thread ends
    std::string crashLogPath; ///< the writer thread's; others read it after they joined it
    std::atomic<bool> running{false};
    std::atomic<bool> accepting{true};          ///< false from Stop on
    boost::lockfree::queue<std::string*> queue; ///< finished lines, owned by the queue
    std::mutex stopMutex;                       ///< one Stop at a time
    std::mutex wakeMutex;                       ///< for `wake`
    std::condition_variable wake;               ///< Stop cuts the writer's sleep short
    Utils::Timer timer;
    std::thread thread;
};

} // namespace Logging
