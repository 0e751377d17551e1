#include "Rendering/GeometryLoader.h"

#include "Logging/Logger.h"
#include "Utils/FatalError.h"
#include "Utils/Files.h"
#include "Utils/RangeCheck.h"

#include <boost/filesystem/operations.hpp>
#include <charconv>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace Rendering {

namespace {

boost::filesystem::path spareFolder;

/// Reads the values of a line from left to right; a missing or malformed one reads as 0.
class LineReader {
public:
    explicit LineReader(std::string_view line) : rest(line) {}

    std::string_view Word() {
        SkipBlanks();
        const std::string_view word = rest.substr(0, rest.find_first_of(kBlanks));
        rest.remove_prefix(word.size());
        return word;
    }

    template <typename Value>
    Value Number() {
        SkipBlanks();
        if (rest.size() > 1 && rest[0] == '+' && rest[1] != '-')
            rest.remove_prefix(1);
        Value value = 0;
        const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value);
        rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
        return error == std::errc() ? value : 0;
    }

    void Separator() {
        SkipBlanks();
        rest.remove_prefix(rest.empty() ? 0 : 1);
    }

private:
    static constexpr std::string_view kBlanks = " \t\r\v\f";

    void SkipBlanks() { rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size())); }

    std::string_view rest;
};

struct Mesh {
    std::vector<Utils::Vector3> positions;
    std::vector<Utils::Vector2> textureCoordinates;
    std::vector<Utils::Vector3> normals;
    std::vector<GeometryVertex> vertices;
    std::string path;
    int line = 0;
};

Utils::Vector2 ReadPair(LineReader& reader) {
    const float x = reader.Number<float>();
    return {x, reader.Number<float>()};
}

Utils::Vector3 ReadTriple(LineReader& reader) {
    const float x = reader.Number<float>();
    const float y = reader.Number<float>();
    return {x, y, reader.Number<float>()};
}

/// The element at a face's index, which counts from 1. Negative indices, which count from the end, are not supported.
template <typename Value>
const Value& Entry(const Mesh& mesh, const std::vector<Value>& list, int index, const char* kind) {
    if (index < 1 || std::cmp_greater(index, list.size()))
        throw Utils::OutOfRange(mesh.path + "(" + std::to_string(mesh.line) + "): f names " + kind + " " +
                                std::to_string(index) + ", but the lines above it define " +
                                std::to_string(list.size()));
    return list[static_cast<std::size_t>(index) - 1];
}

void ReadCorner(Mesh& mesh, LineReader& reader) {
    const int position = reader.Number<int>();
    reader.Separator();
    const int texture = reader.Number<int>();
    reader.Separator();
    const int normal = reader.Number<int>();
    GeometryVertex vertex;
    vertex.position = Entry(mesh, mesh.positions, position, "position");
    vertex.normal = Entry(mesh, mesh.normals, normal, "normal");
    vertex.texture = Entry(mesh, mesh.textureCoordinates, texture, "texture coordinates");
    vertex.secondTexture = vertex.texture;
    mesh.vertices.push_back(vertex);
}

void ReadLine(Mesh& mesh, std::string_view line) {
    LineReader reader(line);
    const std::string_view keyword = reader.Word();
    if (keyword == "v")
        mesh.positions.push_back(ReadTriple(reader));
    else if (keyword == "vt")
        mesh.textureCoordinates.push_back(ReadPair(reader));
    else if (keyword == "vn")
        mesh.normals.push_back(ReadTriple(reader));
    else if (keyword == "f")
        for (int corner = 0; corner < 3; ++corner)
            ReadCorner(mesh, reader);
}

void ReportMissing(const std::string& path, bool required) {
    const std::string fault = "Could not open " + path;
    if (!required)
        throw std::runtime_error(fault);
    Logging::Logger::Get().Log(HERE, fault);
    Utils::FatalError(HERE);
}

} // namespace

void SetFallbackDataFolder(const boost::filesystem::path& folder) {
    spareFolder = folder;
}

std::string FindDataFile(const std::string& path) {
    boost::system::error_code error;
    const boost::filesystem::path spare = spareFolder / path;
    const bool isSpare = !boost::filesystem::exists(path, error) && boost::filesystem::exists(spare, error);
    return isSpare && !spareFolder.empty() ? spare.string() : path;
}

std::string ResolveDataPath(const std::string& path) {
    static const boost::filesystem::path base = boost::filesystem::current_path();
    const boost::filesystem::path given(FindDataFile(path));
    return given.is_absolute() ? given.string() : (base / given).string();
}

std::unique_ptr<Geometry> LoadGeometryFile(Context& context, const std::string& path, bool required) {
    std::ifstream file = Utils::OpenFile(ResolveDataPath(path));
    if (!file.is_open())
        ReportMissing(path, required);
    Mesh mesh;
    mesh.path = path;
    for (std::string line; std::getline(file, line);) {
        ++mesh.line;
        ReadLine(mesh, line);
    }
    return context.CreateGeometry(mesh.vertices);
}

} // namespace Rendering
