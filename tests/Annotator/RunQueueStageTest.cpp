#include "Annotator/RunQueueStage.h"
#include "Rendering/Memory/NullContext.h"
#include "Rendering/Stage.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using Utils::Matrix4;

/// Records its arguments and what it sees.
struct NotingStage : Rendering::Stage {
    NotingStage(const int& watched, std::vector<int>& seen) : watched(watched), seen(seen) {}
    void Render(Rendering::Context& context, const Matrix4& view, const Matrix4& projection) override {
        seen.push_back(watched);
        given = {&context, view, projection};
    }

    const int& watched;
    std::vector<int>& seen;
    std::tuple<Rendering::Context*, Matrix4, Matrix4> given;
};

TEST(StageListTest, RunsStagesInOrderSoThatALaterOneSeesWhatAnEarlierOneChanged) {
    Rendering::Memory::NullContext context;
    int scene = 1;
    std::vector<int> seen;
    Threading::RunQueue queue;
    Rendering::StageList stages;
    const auto before = std::make_shared<NotingStage>(scene, seen), after = std::make_shared<NotingStage>(scene, seen);
    stages.Add(before);
    stages.Add(std::make_shared<Threading::RunQueueStage>(queue));
    stages.Add(after);
    const Matrix4 view = Utils::Translation({1, 2, 3}), projection = Utils::PerspectiveFov(1.0f, 2.0f, 0.05f, 30.0f);
    queue.Post([&] { throw std::runtime_error("in a frame"); });
    EXPECT_THROW(stages.Run(context, view, projection), std::runtime_error);
    queue.Post([&] { scene = 2; });
    stages.Run(context, view, projection); // the exception must have released the lock
    EXPECT_THAT(seen, ElementsAre(1, 1, 2));
    EXPECT_EQ(before->given, std::tuple(&context, view, projection));
    EXPECT_EQ(after->given, before->given);
}

} // namespace
