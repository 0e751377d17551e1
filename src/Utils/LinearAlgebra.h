#pragma once

#include <Eigen/Geometry>
#include <cmath>

/// The linear algebra of the whole system, in 32-bit floats: row vectors, row-major matrices, left-handed axes. A point
/// transforms as p * M and a chain is local * parent. Where a formula is written out instead of calling Eigen, its
/// order of rounding must not depend on Eigen's version.
namespace Utils {

using Vector2 = Eigen::Matrix<float, 1, 2, Eigen::RowMajor>;
using Vector3 = Eigen::Matrix<float, 1, 3, Eigen::RowMajor>;
using Vector4 = Eigen::Matrix<float, 1, 4, Eigen::RowMajor>;
using Matrix4 = Eigen::Matrix<float, 4, 4, Eigen::RowMajor>;
/// Stored x, y, z, w; its constructor takes w first. The product is Hamilton's.
using Quaternion = Eigen::Quaternionf;

/// Sums from left to right: detection compares the results with limits, so the order of rounding is fixed.
inline float Dot(const Vector3& a, const Vector3& b) {
    return a.x() * b.x() + a.y() * b.y() + a.z() * b.z();
}
inline float LengthSquared(const Vector3& v) {
    return Dot(v, v);
}
inline float Length(const Vector3& v) {
    return std::sqrt(LengthSquared(v));
}
/// The vector divided by its length; zero stays zero.
Vector3 Normalised(const Vector3& v);

/// The point (v, 1) times the matrix; the w of the result is ignored.
inline Vector3 TransformPoint(const Vector3& v, const Matrix4& m) {
    return v.x() * m.row(0).head<3>() + v.y() * m.row(1).head<3>() + v.z() * m.row(2).head<3>() + m.row(3).head<3>();
}

Matrix4 Translation(const Vector3& offset);
Matrix4 Scaling(float factor);
Matrix4 Rotation(const Quaternion& rotation);
Matrix4 RotationX(float radians);
Matrix4 RotationY(float radians);
Matrix4 RotationZ(float radians);
/// Left-handed perspective with depth 0 at the near and 1 at the far plane.
Matrix4 PerspectiveFov(float verticalFieldOfView, float aspect, float nearPlane, float farPlane);

/// Rotation by an angle in radians about an axis of any length; a zero axis gives (0, 0, 0, cos(radians / 2)).
Quaternion RotationAboutAxis(const Vector3& axis, float radians);

/// The shorter arc from one rotation to another, prepared for many interpolations along it.
class SlerpPath {
public:
    SlerpPath(const Quaternion& from, const Quaternion& to);
    /// Spherical interpolation; u is not clamped.
    Quaternion At(float u) const;

private:
    Vector4 start, end; ///< x, y, z, w; the end is negated if needed for the shorter arc
    float angle = 0;    ///< 0 for an arc short enough for linear interpolation
    float sine = 1;     ///< of the angle
};

} // namespace Utils
