#include <boost/filesystem.hpp>
#include <boost/filesystem/fstream.hpp>
#include <cstdint>
#include <iostream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = boost::filesystem;

void Replay(const fs::path& file) {
    fs::ifstream stream(file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    std::cout << file.filename().string() << std::endl; // before the run, so that a crash shows its input
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

} // namespace

/// Runs a target once on each file of the folders given as arguments. An empty corpus is an error.
int main(int argumentCount, char** arguments) {
    int replayed = 0;
    for (int i = 1; i < argumentCount; ++i) {
        for (const auto& entry : fs::directory_iterator(arguments[i])) {
            Replay(entry.path());
            ++replayed;
        }
    }
    std::cout << replayed << " inputs replayed\n";
    return replayed > 0 ? 0 : 1;
}
