#include "Rendering/Stage.h"

#include <mutex>
#include <utility>

namespace Rendering {

namespace {

std::mutex stageLock; ///< guards the lists of all StageLists

} // namespace

void StageList::Add(std::shared_ptr<Stage> stage) {
    const std::lock_guard lock(stageLock);
    stages.push_back(std::move(stage));
}

void StageList::Run(Context& context, const Utils::Matrix4& view, const Utils::Matrix4& projection) {
    const std::lock_guard lock(stageLock);
    for (const std::shared_ptr<Stage>& listed : stages) {
        const std::shared_ptr<Stage> stage = listed; // keeps the stage alive during its call
        stage->Render(context, view, projection);
    }
}

} // namespace Rendering
