#pragma once

#include "Logging/Logger.h"
#include "Utils/NonAssignable.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

namespace Fuzz {

/// No log writer runs here: lines are dropped so that they do not accumulate.
inline const std::string logIsOff = Logging::Logger::Get().Stop("");

/// Aborts the run if a property does not hold.
inline void Require(bool holds) {
    if (!holds)
        __builtin_trap();
}

inline std::string_view Text(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// A file in memory, for readers that take a path.
class MemoryFile : Utils::NonAssignable {
public:
    explicit MemoryFile(std::string_view bytes) : descriptor(memfd_create("fuzz", MFD_CLOEXEC)) {
        while (!bytes.empty()) {
            const ssize_t written = write(descriptor, bytes.data(), bytes.size());
            Require(written > 0);
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
    }
    ~MemoryFile() { close(descriptor); }

    std::string Path() const { return "/proc/self/fd/" + std::to_string(descriptor); }

private:
    int descriptor;
};

/// Takes values from the front of an input; zeros after its end.
class Values {
public:
    Values(const std::uint8_t* data, std::size_t size) : data(data), size(size) {}

    template <typename T>
    T Next() {
        T value{};
        const std::size_t taken = sizeof(T) < size ? sizeof(T) : size;
        std::memcpy(&value, data, taken);
        data += taken;
        size -= taken;
        return value;
    }
    bool Empty() const { return size == 0; }

private:
    const std::uint8_t* data;
    std::size_t size;
};

} // namespace Fuzz
