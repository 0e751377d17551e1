#pragma once

#include "Rendering/Stage.h"
#include "Threading/RunQueue.h"

namespace Threading {

/// Drains a queue in each frame. The queue must outlive the stage.
class RunQueueStage : public Rendering::Stage {
public:
    explicit RunQueueStage(RunQueue& runQueue) : queue(&runQueue) {}
    void Render(Rendering::Context&, const Utils::Matrix4& /*view*/, const Utils::Matrix4& /*projection*/) override {
        queue->RunAll();
    }

private:
    RunQueue* queue;
};

} // namespace Threading
