#pragma once

#include "Rendering/Context.h"

#include "Support/DdsBuilder.h"
#include "Support/FatalErrorRecorder.h"
#include "Support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <memory>
#include <stdexcept>

/// Requirements on every Context, whether it draws or not. A device is a class with
///     Rendering::Context& Context();
///     void MakeCurrent();     the calling thread's operations go to this device from now on
namespace Conformance {

template <typename Device>
class ContextObjects : public testing::Test {
protected:
    static void SetUpTestSuite() { device = std::make_unique<Device>(); }
    static void TearDownTestSuite() { device.reset(); }

    Rendering::Context& Context() const { return device->Context(); }

    static inline std::unique_ptr<Device> device;
};

TYPED_TEST_SUITE_P(ContextObjects);

inline std::vector<Rendering::GeometryVertex> AnyTriangle() {
    return std::vector<Rendering::GeometryVertex>(3);
}

TYPED_TEST_P(ContextObjects, KnowsItsOwnObjects) {
    Rendering::Context& own = this->Context();
    EXPECT_FALSE(own.IsBitmapValid(nullptr) || own.IsGeometryValid(nullptr));
    const auto bitmap = own.CreateRenderTarget({2, 3}, 1, 0);
    const auto geometry = own.CreateGeometry(AnyTriangle());
    EXPECT_TRUE(own.IsBitmapValid(bitmap.get()) && own.IsGeometryValid(geometry.get()));
    auto other = std::make_unique<TypeParam>();
    const auto theirs = other->Context().CreateBitmap(Rendering::MemBitmap(1, 1));
    const auto theirGeometry = other->Context().CreateGeometry(AnyTriangle());
    EXPECT_FALSE(own.IsBitmapValid(theirs.get()) || own.IsGeometryValid(theirGeometry.get()));
    other.reset();
    other = std::make_unique<TypeParam>(); // often at the same address
    EXPECT_FALSE(other->Context().IsBitmapValid(theirs.get()) || other->Context().IsGeometryValid(theirGeometry.get()));
    other.reset();
    this->device->MakeCurrent();
}

TYPED_TEST_P(ContextObjects, BitmapsHaveTheSizeTheyWereMadeWith) {
    using Rendering::Size;
    EXPECT_EQ(this->Context().CreateRenderTarget({5, 7}, 1, 0)->Size(), (Size{5, 7}));
    EXPECT_EQ(this->Context().CreateBitmap(Rendering::MemBitmap(3, 9))->Size(), (Size{3, 9}));
    EXPECT_EQ(this->Context().LoadBitmap("no/such.png")->Size(), (Size{1, 1}));
    const Support::TemporaryFolder folder;
    const std::string dds = Support::DdsBuilder(4, 8).Code("DXT1").bytes + std::string(16, '\0');
    EXPECT_EQ(this->Context().LoadBitmap(folder.Write("x.DDS", dds))->Size(), (Size{4, 8}));
    const Support::FatalErrorRecorder dialog;
    EXPECT_THROW(this->Context().LoadBitmap(folder.Write("cut.dds", "DDS ")), std::exception);
    EXPECT_EQ(dialog.texts.size(), 1u);
}

TYPED_TEST_P(ContextObjects, RefusesBadDrawParameters) {
    Rendering::Context& context = this->Context();
    const auto geometry = context.CreateGeometry(AnyTriangle());
    const auto bitmap = context.CreateBitmap(Rendering::MemBitmap(1, 1));
    const auto target = context.CreateRenderTarget({1, 1}, 1, 0);
    const auto lock = context.BeginRenderToTexture(*target, false);
    const auto same = Utils::Matrix4::Identity();
    Rendering::GeometryDrawParams params;
    const auto draw = [&] { context.DrawGeometry(same, same, same, *geometry, bitmap.get(), nullptr, params); };
    params.effect = "nothing";
    EXPECT_THAT(draw, testing::ThrowsMessage<std::out_of_range>("invalid unordered_map<K, T> key"));
    const Support::FatalErrorRecorder dialog;
    params.effect.clear();
    params.matrices.assign(100, same);
    EXPECT_THROW(draw(), std::exception);
    EXPECT_EQ(dialog.texts.size(), 1u);
    lock->Restore();
}

REGISTER_TYPED_TEST_SUITE_P(ContextObjects, KnowsItsOwnObjects, BitmapsHaveTheSizeTheyWereMadeWith,
                            RefusesBadDrawParameters);

} // namespace Conformance
