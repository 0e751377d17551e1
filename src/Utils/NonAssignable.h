#pragma once

namespace Utils {

/// Base of classes that own a resource and are neither copied nor assigned.
class NonAssignable {
public:
    NonAssignable(const NonAssignable&) = delete;
    NonAssignable& operator=(const NonAssignable&) = delete;

protected:
    NonAssignable() = default;
    ~NonAssignable() = default;
};

} // namespace Utils
