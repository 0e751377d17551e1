#include "Utils/LinearAlgebra.h"

#include <gmock/gmock.h>
#include <numbers>

namespace Utils {
namespace {

constexpr float kHalfPi = std::numbers::pi_v<float> / 2.0f;

TEST(LinearAlgebra, RotationsMapEachAxisToTheNextAsRowVectors) {
    const struct {
        Matrix4 matrix;
        Vector3 from, to, axis;
    } rows[] = {
        {RotationX(kHalfPi), {0, 1, 0}, {0, 0, 1}, {1, 0, 0}},
        {RotationY(kHalfPi), {0, 0, 1}, {1, 0, 0}, {0, 1, 0}},
        {RotationZ(kHalfPi), {1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(TransformPoint(row.from, row.matrix).isApprox(row.to, 1e-6f)) << row.axis;
        EXPECT_TRUE(TransformPoint(row.axis, row.matrix).isApprox(row.axis)) << row.axis;
        // The quaternion's matrix is the same rotation, for an axis of any length and at an angle that is not
        // symmetric.
        const Matrix4 third = Rotation(RotationAboutAxis(7 * row.axis, kHalfPi / 3));
        EXPECT_TRUE((third * third * third).isApprox(row.matrix, 1e-6f)) << row.axis;
    }
    const Matrix4 chain = Scaling(2) * RotationZ(kHalfPi) * Translation({10, 20, 30});
    EXPECT_TRUE(TransformPoint({1, 0, 5}, chain).isApprox(Vector3(10, 22, 40))) << "local times parent";
}

TEST(LinearAlgebra, SlerpIsEvenAndExtrapolates) {
    const Vector3 axis(1, 2, -2);
    const Quaternion from = RotationAboutAxis(axis, 0.2f), to = RotationAboutAxis(axis, 1.4f);
    Quaternion otherSign = to;
    otherSign.coeffs() *= -1.0f;
    for (const float u : {-0.5f, 0.0f, 0.25f, 1.0f, 1.5f}) {
        const Quaternion expected = RotationAboutAxis(axis, 0.2f + 1.2f * u);
        EXPECT_TRUE(SlerpPath(from, to).At(u).isApprox(expected, 1e-5f)) << u;
        EXPECT_TRUE(SlerpPath(from, otherSign).At(u).isApprox(expected, 1e-5f)) << u;
    }
    EXPECT_TRUE(SlerpPath(from, from).At(0.5f).isApprox(from));
}

TEST(LinearAlgebra, PerspectiveIsLeftHandedWithDepthFromZeroToOne) {
    const Matrix4 projection = PerspectiveFov(kHalfPi, 2, 0.5f, 10);
    const auto project = [&](const Vector4& v) -> Vector3 {
        const Vector4 clip = v * projection;
        return clip.head<3>() / clip.w();
    };
    EXPECT_TRUE(project({0, 0, 0.5f, 1}).isZero(1e-6f));
    EXPECT_TRUE(project({0, 0, 10, 1}).isApprox(Vector3(0, 0, 1)));
    // At 90 degrees the height at distance 4 is from -4 to 4, the width twice that.
    EXPECT_TRUE(project({8, 4, 4, 1}).head<2>().isApprox(Vector2(1, 1)));
}

} // namespace
} // namespace Utils
