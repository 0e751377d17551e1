#pragma once

#include "CockpitModel/Blocks/ModelBlocks.h"
#include "CockpitModel/ModelAnimation.h"
#include "CockpitModel/Reading.h"
#include "CockpitModel/Touch/Manipulator.h"
#include "CockpitModel/Touch/MouseRect.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace CockpitModel {

/// A file that parts of a model came from.
struct ModelObject {
    std::string name; ///< below the aircraft's folder, with '/'
    std::string path; ///< as it was opened
};

/// The whole model of one cockpit, in left-handed axes and metres. A copy shares the mouse rectangles with its source
/// and owns everything else. Nodes are the rows of `sceneElements`; node 0 is the root.
struct ModelData {
    std::string name;
    std::vector<RiffBlockPART> parts;
    std::vector<RiffBlockIND3> indexBlocks; ///< the parts use the first, unless they name another
    std::vector<RiffBlockVERT> vertexBlocks;
    std::vector<RiffBlockVisibilityInfo> visibilityInfos; ///< by node
    std::vector<std::shared_ptr<MouseRect>> mouseRects;   ///< owners of the parts' rectangles
    std::vector<ModelAnimation> animations;               ///< by node
    RiffBlockMATE materials;
    RiffBlockTEXT textures;
    RiffBlockTRAN matrices;
    RiffBlockAMAP animationMap;
    RiffBlockSCEN sceneElements;
    RiffBlockSGAL animationLinks; ///< by node; negative for none
    RiffBlockSGVL visibilityLinks;
    std::string sourcePath;             ///< the cockpit object, for messages
    std::uint32_t emptyTextureLine = 0; ///< the first TEXTURE line without a file name; 0 for none
    Reading reading = Reading::Plain;
    std::vector<ModelObject> objects;
    std::vector<Manipulator> manipulators; ///< of the full reading
    std::vector<std::string> remarks;      ///< on files that the model goes without, for the user
};

} // namespace CockpitModel
