#pragma once

namespace CockpitModel {

class SceneGraph;

/// Works out for every part of a new scene graph how a hand is to touch it, and which part is the primary yoke. The
/// lever rule can change a part's mouse rectangle.
class InteractionDetector {
public:
    void Detect(SceneGraph& sceneGraph) const;
};

} // namespace CockpitModel
