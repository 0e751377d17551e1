#include "CockpitModel/XPlane/AttachedModels.h"

#include "CockpitModel/ScenePartBuilder.h"
#include "CockpitModel/XPlane/XPObjConverter.h"
#include "CockpitModel/XPlane/XPObjReader.h"
#include "Utils/Files.h"
#include "Utils/RangeCheck.h"

#include <boost/filesystem/path.hpp>
#include <fstream>
#include <map>
#include <optional>

namespace CockpitModel {

namespace {

class AttachedLoader {
public:
    AttachedLoader(const std::string& folder, ModelData& target) : aircraftFolder(folder), model(target) {
        for (const RiffBlockPART& part : model.parts)
            drawn += part.IndexCount;
    }

    /// False if its nodes do not fit.
    bool Add(const AttachedObject& object) {
        Loaded* const loaded = Load(object);
        if (!loaded) {
            Remark(object, "cannot be read");
            return true;
        }
        XPObjPlacement placement = PlacementOf(object);
        placement.block = loaded->block;
        if (model.sceneElements.Children.size() + NodeCount(loaded->data, placement) > kMostFullNodes) {
            Remark(object, "would give the cockpit more than " + std::to_string(kMostFullNodes) +
                               " nodes; it and the attached objects after it are not read");
            return false;
        }
        const std::uint64_t more = DrawnVertices(loaded->data, Reading::Full);
        if (drawn + more > kMostDrawnVertices)
            Remark(object, "would make the cockpit draw more than " + std::to_string(kMostDrawnVertices) +
                               " vertices; it is not read");
        else if (Convert(object, placement, *loaded))
            drawn += more;
        return true;
    }

private:
    struct Loaded {
        XPObjData data; ///< without vertices and indices once the model has them
        std::optional<std::uint32_t> block;
    };

    XPObjPlacement PlacementOf(const AttachedObject& object) const {
        XPObjPlacement placement;
        placement.reading = Reading::Full;
        placement.object = static_cast<std::uint32_t>(model.objects.size());
        placement.place = object.place;
        placement.textureFolder = boost::filesystem::path(object.path).parent_path().string();
        return placement;
    }

    /// Null if the file cannot be opened.
    Loaded* Load(const AttachedObject& object) {
        const auto [place, isNew] = files.try_emplace(object.path);
        if (!isNew)
            return &place->second;
        std::ifstream stream = Utils::OpenFile(object.path);
        if (!stream.is_open()) {
            files.erase(place);
            return nullptr;
        }
        ReadXPObj(stream, place->second.data, Reading::Full);
        return &place->second;
    }

    bool Convert(const AttachedObject& object, const XPObjPlacement& placement, Loaded& loaded) {
        model.objects.push_back({object.name, object.path});
        try {
            XPObjConverter().Convert(aircraftFolder, loaded.data, model, placement);
        } catch (const Utils::OutOfRange& error) {
            model.objects.pop_back();
            Remark(object, "is not read: " + error.Reason());
            return false;
        }
        if (!loaded.block) {
            loaded.block = static_cast<std::uint32_t>(model.vertexBlocks.size() - 1);
            std::vector<XPObjVertex>().swap(loaded.data.vertices);
            std::vector<std::int32_t>().swap(loaded.data.indices);
        }
        return true;
    }

    void Remark(const AttachedObject& object, const std::string& text) {
        model.remarks.push_back(AttachedName(object.number, object.name) + " " + text);
    }

    const std::string& aircraftFolder;
    ModelData& model;
    std::uint64_t drawn = 0;
    std::map<std::string, Loaded> files; ///< by path: a file may stand at several places
};

} // namespace

void AddAttachedObjects(const std::string& aircraftFolder, const std::vector<AttachedObject>& objects,
                        ModelData& model) {
    AttachedLoader loader(aircraftFolder, model);
    for (const AttachedObject& object : objects)
        if (!loader.Add(object))
            return;
}

} // namespace CockpitModel
