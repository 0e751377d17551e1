#pragma once

#include "CockpitModel/XPlane/SurroundingShape.h"
#include "Rendering/MemBitmap.h"
#include "Utils/NonAssignable.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace Annotator {

/// A texture of the surroundings in main memory.
struct SurroundingPicture {
    std::string path;
    Rendering::MemBitmap pixels; ///< blue, green, red, alpha
    bool transparent = false;    ///< in some pixel
};

/// Reads the files of a cockpit's surroundings on worker threads: first all objects, whose meshes come out in the order
/// of the objects, then each texture once. Logs which objects are left out. At most one texture waits to be taken, so
/// that few are in memory. Its operations belong to one thread.
class SurroundingsReader : public Utils::NonAssignable {
public:
    explicit SurroundingsReader(CockpitModel::SurroundingObjects found);
    /// Stops the workers within milliseconds.
    ~SurroundingsReader();

    /// The next mesh; empty if none is ready.
    std::optional<CockpitModel::SurroundingMesh> TakeMesh();
    /// The next texture; empty if none is ready.
    std::optional<SurroundingPicture> TakePicture();
    /// True once everything was taken.
    bool IsEmpty();
    /// Waits until something is ready or nothing will be.
    void Wait();

private:
    void StartWorkers();
    void Work();
    void ReadObjects();
    void ReadPictures();
    void TakeOver(std::size_t index, CockpitModel::SurroundingShape shape);
    void AddInOrder(std::size_t index);
    std::string ReasonToLeaveOut(std::size_t index) const;
    bool IsReady() const { return !meshes.empty() || picture || workers == 0; }

    const CockpitModel::SurroundingObjects surroundings;
    std::atomic<bool> stop{false};
    std::atomic<std::size_t> nextObject{0};
    std::mutex mutex; ///< guards the fields below
    std::condition_variable changed;
    std::vector<std::optional<CockpitModel::SurroundingShape>> shapes; ///< by object, read but not yet added
    std::size_t added = 0;                                             ///< number of objects added or left out
    std::vector<std::size_t> drawn;                                    ///< objects whose meshes were added
    std::vector<Utils::Extent> extents;                                ///< by object
    std::size_t vertexCount = 0;                                       ///< of all that is drawn
    std::deque<CockpitModel::SurroundingMesh> meshes;
    std::vector<std::string> textures;   ///< paths, each once
    std::set<std::string> knownTextures; ///< the same
    std::optional<SurroundingPicture> picture;
    std::size_t workers = 0; ///< that still run
    std::vector<std::thread> threads;
};

} // namespace Annotator
