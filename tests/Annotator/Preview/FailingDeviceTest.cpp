#include "Annotator/Preview/CockpitPreview.h"

#include "Support/DataFolder.h"
#include "Support/FatalErrorRecorder.h"
#include "Support/ModelBuilder.h"
#include "Support/RecordingContext.h"
#include "Support/TemporaryFolder.h"

#include <gmock/gmock.h>

namespace Annotator {
namespace {

/// Two parts, the nearer one animated.
CockpitModel::ModelData TwoParts() {
    Support::ModelBuilder builder;
    builder.Part(0, Support::TriangleAt(3));
    builder.Part(builder.Node(0, "sim/lever", Support::Slide(0.2f, 0, 0)), Support::TriangleAt(2));
    return std::move(builder.model);
}

/// A device that fails in each of its calls, once or twice in a row, during load, frames, selection and pick: every
/// failure reaches the caller of the frame, and the next frame draws the same as an intact preview.
TEST(FailingDevice, DoesNotDamageThePreviewAtAnyFailedCall) {
    Support::BindDataFolder();
    const Support::TemporaryFolder folder;
    folder.Write("panel.png", "");
    const Support::FatalErrorRecorder dialogs;
    const Utils::Matrix4 identity = Utils::Matrix4::Identity();
    std::size_t expectedDraws = 0;
    int lastCall = 1;
    for (int failures : {0, 1, 2}) {
        for (int first = 1; first <= lastCall; ++first) {
            SCOPED_TRACE("call " + std::to_string(first) + ", " + std::to_string(failures) + " failures");
            CockpitModel::ModelData source = TwoParts();
            Support::ModelCockpit cockpit;
            cockpit.textureFolder = folder.path.string();
            Support::RecordingContext context;
            int calls = 0;
            context.beforeCall = [&] {
                ++calls;
                if (calls >= first && calls < first + failures)
                    Utils::FatalError("Rendering\\Device.cpp", calls);
            };
            CockpitPreview preview;
            CockpitModel::NodePart* picked = nullptr;
            preview.partSignal.connect([&](CockpitModel::NodePart* part) { picked = part; });
            const auto scene = std::make_shared<CockpitModel::SceneGraph>(source, cockpit, nullptr);
            const CockpitModel::AnnotationStore store(*scene);
            preview.SetScene(scene, &source, &store);

            int thrown = 0;
            const auto frame = [&] {
                context.draws.clear();
                try {
                    preview.Render(context, identity, identity);
                } catch (const std::exception&) {
                    ++thrown;
                }
            };
            frame();
            CanvasMouseEvent click;
            click.ray = {{0.3f, 0.3f, 0}, {0, 0, 1}};
            preview.OnMouseEvent(click);
            EXPECT_EQ(picked, scene->Nodes()[1]->parts[0].get());
            preview.SetSelectedPart(picked);
            for (int i = 0; i < 4; ++i)
                frame();
            EXPECT_EQ(thrown, failures);
            if (failures == 0) {
                expectedDraws = context.draws.size();
                lastCall = calls - 2 * static_cast<int>(expectedDraws); // the last frame has no failure
                EXPECT_GT(expectedDraws, 20u) << "the selected part's markers";
            }
            EXPECT_EQ(context.draws.size(), expectedDraws);
            preview.ReleaseGpuResources();
        }
    }
    EXPECT_EQ(dialogs.texts.size(), static_cast<std::size_t>(3 * lastCall)) << "one for each failure";
    EXPECT_THAT(dialogs.texts, testing::Each(testing::HasSubstr("Rendering\\Device.cpp: Line ")));
}

} // namespace
} // namespace Annotator
