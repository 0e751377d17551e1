#pragma once

#include <cstdint>
#include <cstring>
#ifdef __SSE__
#include <xmmintrin.h>
#endif

/// Four floats or truth values computed at once with the compiler's vector types. Each lane rounds as a single float
/// does, so scalar and vector code give the same results.
namespace Utils {

using Float4 = float __attribute__((vector_size(16)));
using Mask4 = std::int32_t __attribute__((vector_size(16))); ///< lanes of all ones or all zeros

inline Float4 Splat(float value) {
    return Float4{value, value, value, value};
}
/// The address need not be aligned.
inline Float4 Load4(const float* values) {
    Float4 lanes;
    std::memcpy(&lanes, values, sizeof lanes);
    return lanes;
}
/// The second argument in lanes where the comparison is false, including those with NaN.
inline Float4 Min(Float4 a, Float4 b) {
    return a < b ? a : b;
}
inline Float4 Max(Float4 a, Float4 b) {
    return a > b ? a : b;
}
inline Float4 Abs(Float4 a) {
    return Max(a, -a);
}
inline float LeastLane(Float4 a) {
    a = Min(a, __builtin_shufflevector(a, a, 2, 3, 0, 1));
    return Min(a, __builtin_shufflevector(a, a, 1, 0, 3, 2))[0];
}
inline float GreatestLane(Float4 a) {
    a = Max(a, __builtin_shufflevector(a, a, 2, 3, 0, 1));
    return Max(a, __builtin_shufflevector(a, a, 1, 0, 3, 2))[0];
}
/// Bit i is lane i.
inline unsigned Bits(Mask4 mask) {
#ifdef __SSE__
    return static_cast<unsigned>(_mm_movemask_ps(reinterpret_cast<__m128>(mask)));
#else
    return (mask[0] & 1) | (mask[1] & 2) | (mask[2] & 4) | (mask[3] & 8);
#endif
}

/// Transposes.
inline void Transpose(Float4& a, Float4& b, Float4& c, Float4& d) {
    const Float4 ac01 = __builtin_shufflevector(a, c, 0, 4, 1, 5), ac23 = __builtin_shufflevector(a, c, 2, 6, 3, 7);
    const Float4 bd01 = __builtin_shufflevector(b, d, 0, 4, 1, 5), bd23 = __builtin_shufflevector(b, d, 2, 6, 3, 7);
    a = __builtin_shufflevector(ac01, bd01, 0, 4, 1, 5);
    b = __builtin_shufflevector(ac01, bd01, 2, 6, 3, 7);
    c = __builtin_shufflevector(ac23, bd23, 0, 4, 1, 5);
    d = __builtin_shufflevector(ac23, bd23, 2, 6, 3, 7);
}

} // namespace Utils
