#include "Batch/Command.h"

#include <boost/filesystem/operations.hpp>

namespace Batch {

std::string Session::ResolveArgument(const std::string& path) const {
    return boost::filesystem::absolute(path, startFolder).string();
}

} // namespace Batch
