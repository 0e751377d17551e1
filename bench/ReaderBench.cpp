#include "CockpitModel/XPlane/XPObjReader.h"
#include "Sim/AcfFile.h"
#include "Utils/Paths.h"
#include "Utils/Text.h"

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <boost/filesystem.hpp>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <iomanip>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace fs = boost::filesystem;

namespace {

using Reading = std::size_t (*)(const std::string& text);

/// Cockpit-like text: animation blocks of vertices with six decimals, ten indices a line.
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

/// The measure: the numbers of the lines that make up an object, read by the standard library and kept nowhere.
std::size_t FromCharsWalk(const std::string& text) {
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
    return text.size();
}

std::size_t ReadObj(const std::string& text) {
    std::istringstream stream(text);
    CockpitModel::XPObjData data;
    CockpitModel::ReadXPObj(stream, data);
    return data.vertices.size();
}

double Seconds(Reading read, const std::string& text) {
    const auto start = std::chrono::steady_clock::now();
    benchmark::DoNotOptimize(read(text));
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Both readings in turn within each iteration, so that what slows the machine down slows down both; the ratio is that
/// of their best times.
void BesideFromChars(benchmark::State& state, const std::string& text) {
    double walk = 1e9, reader = 1e9;
    for (auto _ : state) {
        walk = std::min(walk, Seconds(FromCharsWalk, text));
        reader = std::min(reader, Seconds(ReadObj, text));
    }
    const double megabytes = static_cast<double>(text.size()) / 1e6;
    state.counters["walk_MB/s"] = megabytes / walk;
    state.counters["reader_MB/s"] = megabytes / reader;
    state.counters["ratio"] = walk / reader;
}

void ScanAcf(benchmark::State& state, const std::vector<std::string>& paths) {
    std::size_t bytes = 0;
    for (auto _ : state) {
        for (const std::string& path : paths) {
            const std::string text = Utils::ReadFile(path);
            benchmark::DoNotOptimize(Sim::LastAcfProperty(text, "acf/_descrip"));
            bytes += text.size();
        }
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}

std::vector<std::string> FilesBelow(const fs::path& folder, const std::string& extension, std::uintmax_t leastSize) {
    std::vector<std::string> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder))
        if (entry.path().extension() == extension && fs::file_size(entry.path()) >= leastSize)
            files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    return files;
}

void RegisterInstallation(const fs::path& folder) {
    constexpr std::uintmax_t kLeastObj = 1000000;
    for (const std::string& path : FilesBelow(folder, ".obj", kLeastObj))
        benchmark::RegisterBenchmark(("BesideFromChars/" + fs::path(path).filename().string()).c_str(), BesideFromChars,
                                     Utils::ReadFile(path));
    benchmark::RegisterBenchmark("ScanAcf", ScanAcf, FilesBelow(folder, ".acf", 0))->UseRealTime();
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RegisterBenchmark("BesideFromChars/synthetic", BesideFromChars, SyntheticObj());
    if (const char* installation = std::getenv("VORELLE_INSTALLATION"))
        RegisterInstallation(installation);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
