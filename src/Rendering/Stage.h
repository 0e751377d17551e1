#pragma once

#include "Rendering/Context.h"
#include "Utils/LinearAlgebra.h"
#include "Utils/NonAssignable.h"

#include <memory>
#include <vector>

namespace Rendering {

/// A rendering step of a frame.
class Stage : public Utils::NonAssignable {
public:
    virtual ~Stage() = default;
    virtual void Render(Context& context, const Utils::Matrix4& view, const Utils::Matrix4& projection) = 0;
};

/// The stages of a frame, in order. One process-wide lock guards all lists and is held for a whole run, so a stage must
/// not add stages. Stages cannot be removed.
class StageList {
public:
    void Add(std::shared_ptr<Stage> stage);
    /// Exceptions of a stage are passed on to the caller.
    void Run(Context& context, const Utils::Matrix4& view, const Utils::Matrix4& projection);

private:
    std::vector<std::shared_ptr<Stage>> stages;
};

} // namespace Rendering
