#include "FuzzInput.h"

#include "Annotator/DetectedDataFile.h"
#include "CockpitModel/Picking/PartTree.h"
#include "CockpitModel/SceneGraph.h"
#include "CockpitModel/Touch/InteractionDetector.h"
#include "CockpitModel/XPlane/XPObjConverter.h"
#include "CockpitModel/XPlane/XPObjReader.h"
#include "Support/ModelBuilder.h"

#include <cmath>
#include <sstream>
#include <stdexcept>

namespace {

using namespace CockpitModel;

/// Rays from the corners of every part's box: the tree must not fail, and a hit must be in front of the ray's origin.
void Pick(const SceneGraph& graph) {
    for (const auto& node : graph.Nodes()) {
        for (const auto& part : node->parts) {
            for (const Utils::Vector3& direction : {Utils::Vector3(0, 0, 1), Utils::Vector3(0.6f, 0, 0.8f)}) {
                const auto hit = part->Tree().Intersect({part->FarthestVertex - direction, direction});
                Fuzz::Require(!hit || !(hit->distance < 0));
            }
        }
    }
}

/// All processing of an object's text: reader, converter, scene graph, detection and export.
void Process(const std::string& text, Reading reading) {
    std::istringstream stream(text);
    XPObjData object;
    ReadXPObj(stream, object, reading);
    Fuzz::Require(!object.textures.empty() && !object.animNodes.empty());
    ModelData model;
    try {
        XPObjPlacement placement;
        placement.reading = reading;
        XPObjConverter().Convert("Aircraft/A/B", object, model, placement);
        SceneGraph graph(model, Support::ModelCockpit(), nullptr);
        InteractionDetector().Detect(graph, reading);
        Fuzz::Require(Annotator::DetectedDataXml(graph).starts_with("<NodePartList"));
        Pick(graph);
    } catch (const std::out_of_range& error) {
        Fuzz::Require(std::string(error.what()) == "invalid vector<T> subscript");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (const Reading reading : {Reading::Plain, Reading::Full})
        Process(std::string(Fuzz::Text(data, size)), reading);
    return 0;
}
