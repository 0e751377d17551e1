#include "Rendering/Memory/NullContext.h"

#include "Rendering/ContextConformance.h"
#include "Support/FatalErrorRecorder.h"

#include <gmock/gmock.h>
#include <thread>

namespace {

using Rendering::Memory::NullContext;
using testing::ElementsAre;
using Utils::Matrix4;

TEST(ContextTest, ReleasesObjectsOfAnyThreadOnceAndInOrder) {
    NullContext context;
    std::vector<int> released;
    const auto noting = [&](int number) {
        return std::shared_ptr<void>(nullptr, [&released, number](void*) { released.push_back(number); });
    };
    context.DeferRelease(noting(1));
    std::thread([&] { context.DeferRelease(noting(2)); }).join();
    EXPECT_THAT(released, ElementsAre());
    context.ReleaseDeferred();
    context.ReleaseDeferred();
    EXPECT_THAT(released, ElementsAre(1, 2));
}

TEST(ContextTest, DrawsTheQueueFarthestFirstAndEmptiesIt) {
    NullContext context;
    const Matrix4 view = Utils::Translation({0, 0, 10});
    std::vector<int> drawn;
    const auto queue = [&](float z, bool last, int number) {
        context.QueueDraw({0, 0, z}, last, [&, number](auto&&...) { drawn.push_back(number); });
    };
    queue(5, true, 4);
    queue(-9, false, 3); // 1 from the viewer, though 9 from the world's origin
    for (const int number : {1, 2})
        queue(5, false, number);
    context.FlushDrawQueue(view, nullptr);
    context.FlushDrawQueue(view, nullptr);
    EXPECT_THAT(drawn, ElementsAre(1, 2, 3, 4));
}

TEST(ContextTest, ALockThatWasNotRestoredIsAFatalError) {
    struct ForgetfulLock : Rendering::RenderToTextureLock {
        explicit ForgetfulLock(bool forget) { restored = !forget; }
        void Restore() override {}
    };
    const Support::FatalErrorRecorder dialog;
    EXPECT_NO_THROW(ForgetfulLock{false});
    EXPECT_THROW(ForgetfulLock{true}, std::exception);
    const auto drawRefused = [] {
        const ForgetfulLock lock{true};
        throw std::out_of_range("refused");
    };
    EXPECT_THROW(drawRefused(), std::out_of_range) << "not a second exception";
    EXPECT_EQ(dialog.texts.size(), 1u);
}

} // namespace

namespace Conformance {

struct MemoryDevice {
    Rendering::Context& Context() { return context; }
    void MakeCurrent() {}

    Rendering::Memory::NullContext context;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, ContextObjects, MemoryDevice);

} // namespace Conformance
