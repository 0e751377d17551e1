#pragma once

#include "Annotator/Preview/SurroundingsReader.h"
#include "Rendering/Context.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Annotator {

/// The cabin around the controls of one cockpit, on a device: it is drawn, and nothing else. Its files are read from
/// the first frame on; each frame takes over what a few milliseconds allow, or one texture. Meshes are grey until then.
/// User interface thread.
class Surroundings : public Utils::NonAssignable {
public:
    explicit Surroundings(CockpitModel::SurroundingObjects surroundings);

    void Draw(Rendering::Context& context, const Utils::Matrix4& view, const Utils::Matrix4& projection);
    /// Waits until everything is on the device, for a single picture.
    void Complete(Rendering::Context& context);
    /// Stops reading and releases meshes and textures; their device must be current. The next frame starts again.
    void ReleaseGpuResources();

private:
    struct Mesh {
        std::unique_ptr<Rendering::Geometry> geometry;
        std::string texture; ///< path; empty for none
        Utils::Extent extent;
    };
    struct Texture {
        std::unique_ptr<Rendering::GPUBitmap> bitmap;
        bool transparent = false;
    };

    void Start(Rendering::Context& context);
    void TakeSome(Rendering::Context& context);
    bool TakeMesh(Rendering::Context& context);
    void TakePicture(Rendering::Context& context);
    const Texture* TextureOf(const Mesh& mesh) const;

    const CockpitModel::SurroundingObjects found;
    bool started = false;
    std::optional<SurroundingsReader> reader; ///< while something is not on the device yet
    std::vector<Mesh> meshes;
    std::map<std::string, Texture> textures; ///< by path
};

} // namespace Annotator
