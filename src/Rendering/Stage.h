#pragma once

#include "Rendering/Context.h"
#include "Utils/LinearAlgebra.h"
#include "Utils/NonAssignable.h"

#include <memory>
#include <vector>

namespace Rendering {

/// Something that renders in a frame.
class Stage : public Utils::NonAssignable {
public:
    virtual ~Stage() = default;
    virtual void Render(Context& context, const Utils::Matrix4& view, const Utils::Matrix4& projection) = 0;
};

/// What a frame runs, in order. One process-wide stage lock guards all lists and is held for a whole run, so a stage
/// adds no stages. There is no way to remove one.
class StageList {
public:
    void Add(std::shared_ptr<Stage> stage);
    /// An exception of a stage passes through.
    void Run(Context& context, const Utils::Matrix4& view, const Utils::Matrix4& projection);

private:
    std::vector<std::shared_ptr<Stage>> stages;
};

} // namespace Rendering
