#include "CockpitModel/XPlane/SurroundingShape.h"

#include "CockpitModel/ScenePartBuilder.h"
#include "CockpitModel/XPlane/StepAnimations.h"
#include "CockpitModel/XPlane/XPObjConverter.h"
#include "CockpitModel/XPlane/XPObjReader.h"
#include "Utils/Files.h"
#include "Utils/Paths.h"
#include "Utils/RangeCheck.h"
#include "Utils/Text.h"

#include <algorithm>
#include <boost/filesystem/path.hpp>
#include <map>
#include <optional>
#include <streambuf>

namespace fs = boost::filesystem;

namespace CockpitModel {

namespace {

using Utils::Matrix4;

/// Passes on what a file holds, until it is stopped: then the file ends.
class StoppableFile final : public std::streambuf {
public:
    StoppableFile(std::streambuf& source, const std::atomic<bool>& stop) : file(source), stopped(stop) {}

protected:
    std::streamsize xsgetn(char* bytes, std::streamsize count) override {
        return stopped ? 0 : file.sgetn(bytes, count);
    }
    pos_type seekoff(off_type offset, std::ios::seekdir from, std::ios::openmode mode) override {
        return file.pubseekoff(offset, from, mode);
    }
    pos_type seekpos(pos_type place, std::ios::openmode mode) override { return file.pubseekpos(place, mode); }

private:
    std::streambuf& file;
    const std::atomic<bool>& stopped;
};

/// The matrix of a node's own steps, in the order of the file.
Matrix4 PoseOf(const XPObjAnimNode& node) {
    Matrix4 pose = Matrix4::Identity();
    auto keyStep = node.keySteps.begin();
    for (std::size_t i = 0; i <= node.steps.size(); ++i) {
        for (; keyStep != node.keySteps.end() && keyStep->stepsBefore == i; ++keyStep)
            if (!keyStep->keys.empty())
                pose = PoseAtZero(*keyStep) * pose;
        if (i < node.steps.size())
            pose = PoseAtZero(node.steps[i]) * pose;
    }
    return pose;
}

/// From each node's space to the model's. A node comes after its parent.
std::vector<Matrix4> WorldMatrices(const std::vector<XPObjAnimNode>& nodes, const Utils::Vector3& place) {
    std::vector<Matrix4> matrices;
    matrices.reserve(nodes.size());
    for (const XPObjAnimNode& node : nodes)
        matrices.push_back(PoseOf(node) *
                           (node.parent == kXPObjNone ? Utils::Translation(place) : matrices[node.parent]));
    return matrices;
}

/// The file that an object means by a texture's name: X-Plane takes a DDS file for a PNG one and the reverse. Empty if
/// there is none.
std::string FindTexture(const fs::path& folder, const std::string& name) {
    fs::path wanted = folder / name;
    fs::path found = Utils::FindIgnoringCase(wanted);
    if (found.empty()) {
        wanted.replace_extension(Utils::ToLowerAscii(wanted.extension().string()) == ".dds" ? ".png" : ".dds");
        found = Utils::FindIgnoringCase(wanted);
    }
    return Utils::IsReadableFile(found) ? found.string() : std::string();
}

class ShapeBuilder {
public:
    ShapeBuilder(const SurroundingObject& source, const std::string& aircraftFolder, const XPObjData& read,
                 const std::atomic<bool>& stop)
        : object(source), panelFolder(aircraftFolder), data(read), stopped(stop),
          matrices(WorldMatrices(read.animNodes, source.place)) {}

    SurroundingShape Build() {
        std::uint64_t count = 0;
        for (const XPObjDrawCall& call : data.drawCalls)
            count += IsSeen(call) ? static_cast<std::uint64_t>(call.count) : 0;
        if (count > kMostDrawnVertices)
            shape.problem = "it draws more than " + std::to_string(kMostDrawnVertices) + " vertices";
        for (const XPObjDrawCall& call : data.drawCalls)
            if (shape.problem.empty() && IsSeen(call) && !stopped)
                Add(call);
        for (SurroundingMesh& mesh : shape.meshes)
            mesh.vertices.shrink_to_fit();
        return std::move(shape);
    }

private:
    static bool IsSeen(const XPObjDrawCall& call) { return call.shown && call.drawEnabled && call.count > 0; }

    void Add(const XPObjDrawCall& call) {
        CheckDrawCall(call, data, object.path);
        const std::optional<std::string> texture = TextureOf(call.texture);
        if (!texture)
            return;
        const Matrix4& world = matrices[call.animNode];
        for (std::int32_t i = 0; i + 3 <= call.count && !stopped; i += 3) {
            SurroundingMesh& mesh = MeshFor(call.texture, *texture, static_cast<std::size_t>(call.count - i));
            for (std::int32_t corner = i; corner < i + 3; ++corner)
                AddCorner(data.vertices[static_cast<std::size_t>(Index(call.offset + corner))], world, mesh);
        }
    }

    std::int32_t Index(std::int32_t at) const { return data.indices[static_cast<std::size_t>(at)]; }

    /// Empty, with a problem, if the file is missing.
    std::optional<std::string> TextureOf(std::uint32_t texture) {
        if (texture == kXPObjNone)
            return std::string();
        const auto [known, isNew] = textures.try_emplace(texture);
        if (!isNew)
            return known->second;
        const bool isPanel = texture == 0;
        known->second =
            FindTexture(isPanel ? fs::path(panelFolder) : fs::path(object.path).parent_path(), data.textures[texture]);
        if (!isPanel && known->second.empty()) {
            shape.problem = "it needs the texture " + data.textures[texture] + ", which is not there";
            return std::nullopt;
        }
        return known->second;
    }

    /// The last mesh under a texture, or a new one if that is full. `more` is the number of vertices that will follow.
    SurroundingMesh& MeshFor(std::uint32_t texture, const std::string& path, std::size_t more) {
        const auto [last, isNew] = lastMeshes.try_emplace(texture);
        if (isNew || shape.meshes[last->second].vertices.size() + 3 > kMostMeshVertices) {
            last->second = shape.meshes.size();
            SurroundingMesh& mesh = shape.meshes.emplace_back();
            mesh.texture = path;
            mesh.vertices.reserve(std::min(more, kMostMeshVertices));
        }
        return shape.meshes[last->second];
    }

    /// X-Plane's axes are right-handed and the model's are left-handed: z changes sign.
    void AddCorner(const XPObjVertex& v, const Matrix4& world, SurroundingMesh& mesh) {
        Rendering::GeometryVertex& corner = mesh.vertices.emplace_back();
        corner.position = Utils::TransformPoint({v.x, v.y, -v.z}, world);
        corner.normal = Utils::Vector3(v.nx, v.ny, -v.nz) * world.topLeftCorner<3, 3>();
        corner.texture = corner.secondTexture = {v.u, v.v};
        mesh.extent.Add(corner.position);
        shape.extent.Add(corner.position);
        ++shape.vertexCount;
    }

    const SurroundingObject& object;
    const std::string& panelFolder;
    const XPObjData& data;
    const std::atomic<bool>& stopped;
    const std::vector<Matrix4> matrices;
    std::map<std::uint32_t, std::string> textures;   ///< paths by index in the data
    std::map<std::uint32_t, std::size_t> lastMeshes; ///< by index of their texture
    SurroundingShape shape;
};

} // namespace

SurroundingShape ReadSurroundingShape(const SurroundingObject& object, const std::string& aircraftFolder,
                                      const std::atomic<bool>& stop) {
    SurroundingShape shape;
    try {
        std::ifstream file = Utils::OpenFile(object.path);
        StoppableFile bytes(*file.rdbuf(), stop);
        std::istream stream(&bytes);
        XPObjData data;
        ReadXPObj(stream, data, Reading::Full);
        shape = ShapeBuilder(object, aircraftFolder, data, stop).Build();
    } catch (const std::exception& error) {
        shape.problem = Utils::Describe(error);
    }
    if (!shape.problem.empty())
        shape.meshes.clear();
    return shape;
}

} // namespace CockpitModel
