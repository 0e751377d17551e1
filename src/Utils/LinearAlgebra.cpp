#include "Utils/LinearAlgebra.h"

namespace Utils {

namespace {

/// Below this difference of the cosine from 1, linear interpolation is exact enough and sin(angle) is too small to
/// divide by.
constexpr float kStraightArc = 0.001f;

} // namespace

Vector3 Normalised(const Vector3& v) {
    const float length = Length(v);
    return length == 0.0f ? Vector3(Vector3::Zero()) : Vector3(v / length);
}

Matrix4 Translation(const Vector3& offset) {
    Matrix4 m = Matrix4::Identity();
    m.row(3).head<3>() = offset;
    return m;
}

Matrix4 Scaling(float factor) {
    return Vector4(factor, factor, factor, 1.0f).asDiagonal();
}

Matrix4 Rotation(const Quaternion& q) {
    const float x = q.x(), y = q.y(), z = q.z(), w = q.w();
    Matrix4 m = Matrix4::Identity();
    m(0, 0) = 1.0f - 2.0f * (y * y + z * z);
    m(0, 1) = 2.0f * (x * y + z * w);
    m(0, 2) = 2.0f * (x * z - y * w);
    m(1, 0) = 2.0f * (x * y - z * w);
    m(1, 1) = 1.0f - 2.0f * (x * x + z * z);
    m(1, 2) = 2.0f * (y * z + x * w);
    m(2, 0) = 2.0f * (x * z + y * w);
    m(2, 1) = 2.0f * (y * z - x * w);
    m(2, 2) = 1.0f - 2.0f * (x * x + y * y);
    return m;
}

Matrix4 RotationX(float radians) {
    Matrix4 m = Matrix4::Identity();
    m(1, 1) = m(2, 2) = std::cos(radians);
    m(1, 2) = std::sin(radians);
    m(2, 1) = -m(1, 2);
    return m;
}

Matrix4 RotationY(float radians) {
    Matrix4 m = Matrix4::Identity();
    m(0, 0) = m(2, 2) = std::cos(radians);
    m(2, 0) = std::sin(radians);
    m(0, 2) = -m(2, 0);
    return m;
}

Matrix4 RotationZ(float radians) {
    Matrix4 m = Matrix4::Identity();
    m(0, 0) = m(1, 1) = std::cos(radians);
    m(0, 1) = std::sin(radians);
    m(1, 0) = -m(0, 1);
    return m;
}

Matrix4 PerspectiveFov(float verticalFieldOfView, float aspect, float nearPlane, float farPlane) {
    const float yScale = 1.0f / std::tan(verticalFieldOfView / 2.0f);
    Matrix4 m = Matrix4::Zero();
    m(0, 0) = yScale / aspect;
    m(1, 1) = yScale;
    m(2, 2) = farPlane / (farPlane - nearPlane);
    m(2, 3) = 1.0f;
    m(3, 2) = -nearPlane * m(2, 2);
    return m;
}

Quaternion RotationAboutAxis(const Vector3& axis, float radians) {
    const float half = radians / 2.0f;
    const Vector3 v = Normalised(axis) * std::sin(half);
    return {std::cos(half), v.x(), v.y(), v.z()};
}

SlerpPath::SlerpPath(const Quaternion& from, const Quaternion& to) : start(from.coeffs()), end(to.coeffs()) {
    float cosine = from.x() * to.x() + from.y() * to.y() + from.z() * to.z() + from.w() * to.w();
    if (cosine < 0.0f) {
        cosine = -cosine;
        end = -end;
    }
    if (1.0f - cosine > kStraightArc) {
        angle = std::acos(cosine);
        sine = std::sin(angle);
    }
}

Quaternion SlerpPath::At(float u) const {
    float a = 1.0f - u, b = u;
    if (angle != 0.0f) {
        a = std::sin(angle * a) / sine;
        b = std::sin(angle * b) / sine;
    }
    Quaternion result;
    result.coeffs() = a * start + b * end;
    return result;
}

} // namespace Utils
