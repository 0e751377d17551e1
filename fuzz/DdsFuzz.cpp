#include "FuzzInput.h"

#include "Rendering/DdsFile.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        const auto levels = Rendering::DecodeDds(Fuzz::Text(data, size), "fuzz.dds");
        Fuzz::Require(!levels.empty());
        std::size_t bytes = 0;
        for (std::size_t i = 0; i < levels.size(); ++i) {
            bytes += levels[i].Pixels().size_bytes();
            Fuzz::Require(i == 0 || levels[i].Width() == std::max<std::uint64_t>(levels[i - 1].Width() / 2, 1));
        }
        Fuzz::Require(bytes <= 8 * size);
    } catch (const Rendering::DdsFault& fault) {
        Fuzz::Require(std::string_view(fault.what()).starts_with("fuzz.dds"));
    }
    return 0;
}
