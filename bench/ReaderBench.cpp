#include "CockpitModel/SceneGraph.h"
#include "CockpitModel/Touch/InteractionDetector.h"
#include "CockpitModel/XPlane/XPObjConverter.h"
#include "CockpitModel/XPlane/XPObjReader.h"
#include "Compare.h"
#include "Sim/XPAircraftListLoader.h"
#include "Support/ModelBuilder.h"
#include "Utils/Files.h"
#include "Utils/RangeCheck.h"
#include "Utils/Text.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <boost/filesystem.hpp>
#include <charconv>
#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <malloc.h>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace fs = boost::filesystem;

namespace {

/// Text like a cockpit's: animation blocks of vertices with six decimals, ten indices per line.
std::string SyntheticObj() {
    constexpr int kVertices = 40000;
    std::mt19937 random(20240229);
    std::uniform_real_distribution<float> place(-3, 3), unit(-1, 1);
    std::ostringstream text;
    text << std::fixed << std::setprecision(6) << "A\n800\nOBJ\n\nTEXTURE cockpit.png\n";
    for (int i = 0; i < kVertices; ++i) {
        text << "VT";
        for (int value = 0; value < 8; ++value)
            text << ' ' << (value < 3 ? place(random) : unit(random));
        text << '\n';
    }
    for (int i = 0; i < kVertices; ++i)
        text << (i % 10 == 0 ? "IDX10 " : " ") << random() % kVertices << (i % 10 == 9 ? "\n" : "");
    for (int i = 0; i < kVertices / 300; ++i)
        text << "ANIM_begin\nANIM_trans 0 0 0 0.1 0.2 0.3 0 1 sim/cockpit/lever\n"
             << "ATTR_manip_toggle hand 0 1 sim/cockpit/switch\nTRIS " << i * 300 << " 300\nANIM_end\n";
    return text.str();
}

const char* SkipBlanks(const char* at, const char* end) {
    while (at != end && (*at == ' ' || *at == '\t'))
        ++at;
    return at;
}

template <typename Number>
Number SumOfNumbers(std::string_view text) {
    Number sum = 0;
    const char* end = text.data() + text.size();
    for (const char* at = SkipBlanks(text.data(), end); at != end; at = SkipBlanks(at, end)) {
        Number value = 0;
        const auto [next, error] = std::from_chars(at, end, value);
        if (error != std::errc())
            break;
        sum += value;
        at = next;
    }
    return sum;
}

/// The baseline: the numbers of an object's lines, read by the standard library without storing them.
void FromCharsWalk(const std::string& text) {
    float floats = 0;
    int integers = 0;
    std::string_view rest = text, line;
    while (Utils::NextLine(rest, line)) {
        if (line.starts_with("VT"))
            floats += SumOfNumbers<float>(line.substr(2));
        else if (line.starts_with("IDX10"))
            integers += SumOfNumbers<int>(line.substr(5));
        else if (line.starts_with("TRIS") || line.starts_with("IDX "))
            integers += SumOfNumbers<int>(line.substr(4));
    }
    benchmark::DoNotOptimize(floats);
    benchmark::DoNotOptimize(integers);
}

std::size_t HeapInUse() {
    const auto heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

void Read(const std::string& text, CockpitModel::XPObjData& data) {
    std::istringstream stream(text);
    CockpitModel::ReadXPObj(stream, data);
}

/// `heap` is the memory of the data.
double ReadSeconds(const std::string& text, std::size_t& heap) {
    const std::size_t heapBefore = HeapInUse();
    CockpitModel::XPObjData data;
    const double seconds = Bench::Cost([&] { Read(text, data); });
    heap = HeapInUse() - heapBefore;
    return seconds;
}

/// Alternates both readings within each iteration, so that a slow machine affects both; the ratio is that of the best
/// times.
void BesideFromChars(benchmark::State& state, const std::string& text) {
    double walk = 1e9, reader = 1e9;
    std::size_t heap = 0;
    for (auto _ : state) {
        walk = std::min(walk, Bench::Cost([&] { FromCharsWalk(text); }));
        reader = std::min(reader, ReadSeconds(text, heap));
    }
    const auto bytes = static_cast<double>(text.size());
    state.counters["walk_MB/s"] = bytes / 1e6 / walk;
    state.counters["reader_MB/s"] = bytes / 1e6 / reader;
    state.counters["ratio"] = walk / reader;
    state.counters["heap_per_byte"] = static_cast<double>(heap) / bytes;
}

/// From the text to the types of all parts; `heap` is the memory in use at the end.
double PipelineSeconds(const std::string& text, std::size_t& heap) {
    const std::size_t heapBefore = HeapInUse();
    const double start = Bench::Seconds(CLOCK_PROCESS_CPUTIME_ID);
    CockpitModel::ModelData model;
    {
        CockpitModel::XPObjData data;
        Read(text, data);
        CockpitModel::XPObjConverter().Convert("Aircraft/Bench", data, model);
    }
    CockpitModel::SceneGraph graph(model, Support::ModelCockpit(), nullptr);
    CockpitModel::InteractionDetector().Detect(graph);
    const double seconds = Bench::Seconds(CLOCK_PROCESS_CPUTIME_ID) - start;
    heap = HeapInUse() - heapBefore;
    return seconds;
}

/// Reading, building and detecting an object, compared with only reading it.
void PipelineBesideReader(benchmark::State& state, const std::string& text) {
    double reader = 1e9, pipeline = 1e9;
    std::size_t heap = 0, pipelineHeap = 0;
    try {
        for (auto _ : state) {
            reader = std::min(reader, ReadSeconds(text, heap));
            pipeline = std::min(pipeline, PipelineSeconds(text, pipelineHeap));
        }
    } catch (const Utils::OutOfRange& failure) {
        state.SkipWithError(failure.Reason().c_str());
    }
    state.counters["reader_ms"] = reader * 1e3;
    state.counters["pipeline_ms"] = pipeline * 1e3;
    state.counters["ratio"] = pipeline / reader;
    state.counters["heap_per_byte"] = static_cast<double>(pipelineHeap) / static_cast<double>(text.size());
}

std::vector<std::string> FilesBelow(const fs::path& folder, const std::string& extension, std::uintmax_t leastSize) {
    std::vector<std::string> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder))
        if (entry.path().extension() == extension && fs::file_size(entry.path()) >= leastSize)
            files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    return files;
}

/// The minimum work of a listing: reads the files and finds the ends of lines.
std::size_t CountLines(const std::vector<std::string>& paths) {
    std::size_t lines = 0;
    std::string buffer(64 << 10, '\0');
    for (const std::string& path : paths)
        for (std::ifstream file(path, std::ios::binary); file;) {
            file.read(buffer.data(), static_cast<std::streamsize>(buffer.size()));
            std::string_view rest(buffer.data(), static_cast<std::size_t>(file.gcount()));
            for (std::size_t end; (end = rest.find('\n')) != std::string_view::npos; ++lines)
                rest.remove_prefix(end + 1);
        }
    return lines;
}

/// The aircraft of the working directory, listed.
void ListAircraft(benchmark::State& state) {
    const std::vector<std::string> paths = FilesBelow("Aircraft", ".acf", 0);
    double bytes = 0;
    for (const std::string& path : paths)
        bytes += static_cast<double>(fs::file_size(path));
    Bench::Compare(
        state, [] { benchmark::DoNotOptimize(Sim::XPAircraftListLoader().LoadAircraftList()); },
        [&] { benchmark::DoNotOptimize(CountLines(paths)); });
    state.counters["GB/s"] = bytes / state.counters["us"] / 1e3;
}

void RegisterObject(const std::string& name, const std::string& text) {
    benchmark::RegisterBenchmark(("BesideFromChars/" + name).c_str(), BesideFromChars, text);
    benchmark::RegisterBenchmark(("PipelineBesideReader/" + name).c_str(), PipelineBesideReader, text);
}

void RegisterInstallation(const fs::path& folder) {
    constexpr std::uintmax_t kLeastObj = 1000000;
    for (const std::string& path : FilesBelow(folder, ".obj", kLeastObj))
        RegisterObject(fs::path(path).filename().string(), Utils::ReadFile(path));
    fs::current_path(folder);
    benchmark::RegisterBenchmark("ListAircraft", ListAircraft);
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    RegisterObject("synthetic", SyntheticObj());
    if (const char* installation = std::getenv("VORELLE_INSTALLATION"))
        RegisterInstallation(installation);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
