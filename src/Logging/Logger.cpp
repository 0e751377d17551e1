#include "Logging/Logger.h"

#include "Utils/Paths.h"

#include <boost/filesystem.hpp>
#include <chrono>
#include <fstream>
#include <memory>
#include <sstream>

namespace Logging {

namespace {

constexpr std::size_t kPreparedNodes = 256;
constexpr auto kPoll = std::chrono::milliseconds(100);
constexpr const char* kColumn = "\t\t";

/// The log's folder, created if missing; empty if it cannot be created.
boost::filesystem::path LogFolder() {
    const boost::filesystem::path data = Utils::UserDataFolder();
    if (data.empty())
        return {};
    boost::system::error_code error;
    boost::filesystem::create_directories(data / "Vorelle", error);
    return data / "Vorelle";
}

/// Copies the log without overwriting anything and returns the copy's path; empty if no complete copy was made.
std::string CopyBeside(const boost::filesystem::path& logPath, const std::string& name) {
    const boost::filesystem::path copy = logPath.parent_path() / name;
    boost::system::error_code error;
    boost::filesystem::copy_file(logPath, copy, error);
    return error ? std::string() : copy.string();
}

} // namespace

Logger::Logger() : queue(kPreparedNodes) {}

void Logger::Create() {
    Get();
}

Logger& Logger::Get() {
    static Logger& logger = *new Logger; // never destroyed: threads may log until the process ends
    return logger;
}

void Logger::Start(const std::string& fileName, std::ios::openmode mode) {
    if (running.exchange(true))
        return;
    accepting = true;
    const boost::filesystem::path folder = LogFolder();
    thread = std::thread([this, mode, path = folder.empty() ? folder : folder / fileName] { WriteLines(path, mode); });
}

void Logger::Log(const char* file, std::int32_t line, std::string message) {
    if (!accepting)
        return;
    std::ostringstream text;
    text << timer.Elapsed() << kColumn << file << kColumn << line << kColumn << message;
    auto finished = std::make_unique<std::string>(std::move(text).str());
    if (queue.push(finished.get()))
        static_cast<void>(finished.release());
}

void Logger::Log(const char* file, std::int32_t line, const TextureDescription& texture) {
    std::ostringstream text;
    text << "D3D11Tex { w = " << texture.width << ", h = " << texture.height << ", fmt = " << texture.format
         << ", BindFlags = " << texture.bindFlags << ", CPUAccessFlags = " << texture.cpuAccessFlags
         << ", MiscFlags = " << texture.miscFlags << ", Usage = " << texture.usage << "}";
    Log(file, line, text.str());
}

std::string Logger::Stop(const std::string& crashLog) {
    const std::lock_guard lock(stopMutex);
    accepting = false;
    if (thread.joinable()) {
        crashLogName = crashLog;
        {
            const std::lock_guard wakeLock(wakeMutex);
            running = false;
        }
        wake.notify_one();
        thread.join();
    }
    // Lines that other threads queue during the stop are dropped like all later ones.
    queue.consume_all([](std::string* late) { delete late; });
    return crashLogPath;
}

void Logger::WriteLines(const boost::filesystem::path& logPath, std::ios::openmode mode) {
    std::ofstream file(Utils::StreamPath(logPath), mode);
    const auto write = [&file](std::string* line) {
        file.clear(); // a full disk may have space again
        file << *line << std::endl;
        delete line;
    };
    while (running) {
        if (queue.consume_one(write))
            continue;
        std::unique_lock lock(wakeMutex);
        wake.wait_for(lock, kPoll, [this] { return !running; });
    }
    queue.consume_all(write);
    file.close();
    if (!crashLogName.empty() && !logPath.empty())
        crashLogPath = CopyBeside(logPath, crashLogName);
}

} // namespace Logging
