#include "Rendering/Memory/MemoryContext.h"

#include "Support/FatalErrorRecorder.h"

#include <gmock/gmock.h>
#include <thread>

namespace {

using Rendering::Context;
using Rendering::Memory::MemoryContext;
using testing::ElementsAre;
using testing::IsEmpty;
using Utils::Matrix4;

/// Notes its number when the last reference to it goes.
std::shared_ptr<void> Noting(std::vector<int>& notes, int number) {
    return {nullptr, [&notes, number](void*) { notes.push_back(number); }};
}

TEST(ContextTest, ReleasesWhatAnyThreadHandedOverOnceAndInOrder) {
    MemoryContext context;
    std::vector<int> released;
    context.ReleaseDeferred();
    context.DeferRelease(Noting(released, 1));
    std::thread([&] { context.DeferRelease(Noting(released, 2)); }).join();
    context.DeferRelease({nullptr, [&](void*) { context.DeferRelease(Noting(released, 4)); }});
    context.DeferRelease(Noting(released, 3));
    EXPECT_THAT(released, IsEmpty());
    context.ReleaseDeferred();
    EXPECT_THAT(released, ElementsAre(1, 2, 3)) << "what an object hands over when it goes waits for the next call";
    context.ReleaseDeferred();
    context.ReleaseDeferred();
    EXPECT_THAT(released, ElementsAre(1, 2, 3, 4));
}

TEST(ContextTest, DrawsTheQueueFromTheFarthestAndEmptiesIt) {
    MemoryContext context;
    const Matrix4 view = Utils::Translation({0, 0, 10});
    int argument = 0;
    std::vector<int> drawn;
    const auto queue = [&](float z, bool last, int number) {
        context.QueueDraw({0, 0, z}, last, [&, number](Context& on, const Matrix4& with, void* given) {
            EXPECT_EQ(&on, &context);
            EXPECT_EQ(with, view);
            EXPECT_EQ(given, &argument);
            drawn.push_back(number);
        });
    };
    queue(5, true, 4);
    queue(-9, false, 3); // 1 from the viewer, though 9 from the world's origin
    queue(5, false, 1);
    queue(5, false, 2);
    context.FlushDrawQueue(view, &argument);
    EXPECT_THAT(drawn, ElementsAre(1, 2, 3, 4));
    context.FlushDrawQueue(view, &argument);
    EXPECT_EQ(drawn.size(), 4u);
    context.QueueDraw({0, 0, 0}, false, nullptr);
    EXPECT_THROW(context.FlushDrawQueue(view, nullptr), std::bad_function_call);
}

class ForgetfulLock : public Rendering::RenderToTextureLock {
public:
    explicit ForgetfulLock(bool forget) { restored = !forget; }
    void Restore() override {}
};

TEST(ContextTest, ALockThatWasNotRestoredIsAFatalError) {
    Support::FatalErrorRecorder dialog;
    EXPECT_NO_THROW(ForgetfulLock{false});
    EXPECT_TRUE(dialog.texts.empty());
    EXPECT_THROW(ForgetfulLock{true}, std::exception);
    EXPECT_EQ(dialog.texts.size(), 1u);
}

} // namespace
