#include "Batch/BatchLog.h"

#include "Batch/Jobs/Process.h"
#include "Logging/Logger.h"
#include "Utils/Paths.h"

#include <boost/filesystem/operations.hpp>

namespace Batch {

namespace {

constexpr const char* kLogName = "batch-log.txt";

} // namespace

void BeginLog() {
    Logging::Logger::Create();
    if (IsWorker())
        return;
    // The workers append, so an older log must be removed first.
    const boost::filesystem::path data = Utils::UserDataFolder();
    boost::system::error_code ignored;
    if (!data.empty())
        boost::filesystem::remove(data / "Vorelle" / kLogName, ignored);
}

void JoinLog() {
    Logging::Logger::Get().Start(kLogName, std::ios::app);
}

} // namespace Batch
