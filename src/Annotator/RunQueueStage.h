#pragma once

#include "Rendering/Stage.h"
#include "Threading/RunQueue.h"

namespace Threading {

/// Drains a queue, which must outlive it, in a frame.
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
