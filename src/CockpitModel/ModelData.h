#pragma once

#include "CockpitModel/Blocks/ModelBlocks.h"
#include "CockpitModel/ModelAnimation.h"
#include "CockpitModel/Touch/MouseRect.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace CockpitModel {

/// The whole model of one cockpit, in left-handed axes and metres. A copy shares the mouse rectangles with its source
/// and owns everything else. Nodes are the rows of `sceneElements`; node 0 is the root.
struct ModelData {
    std::string name;
    std::vector<RiffBlockPART> parts;
    std::vector<RiffBlockIND3> indexBlocks; ///< the scene graph uses the first, which must exist
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
    std::string sourcePath;             ///< the file that the model came from, for messages
    std::uint32_t emptyTextureLine = 0; ///< the first TEXTURE line without a file name; 0 for none
};

} // namespace CockpitModel
