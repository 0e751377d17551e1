#include "Utils/RangeCheck.h"

namespace Utils {

std::string Describe(const std::exception& error) {
    const auto* outOfRange = dynamic_cast<const OutOfRange*>(&error);
    return outOfRange && !outOfRange->Reason().empty() ? outOfRange->Reason() : error.what();
}

} // namespace Utils
