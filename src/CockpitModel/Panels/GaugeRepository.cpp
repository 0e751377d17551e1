#include "CockpitModel/Panels/GaugeRepository.h"

#include "Utils/Text.h"

#include <utility>

namespace CockpitModel {

GaugeRepository::GaugeRepository(std::string rootFolder) : rootFolder(std::move(rootFolder)) {}

void GaugeRepository::Add(const std::string& fileName, std::unique_ptr<GaugeFile> file) {
    files[Utils::ToLowerAscii(fileName)] = std::move(file);
}

std::optional<Gauge*> GaugeRepository::FindGauge(const std::string& fileName, const std::string& gaugeName) {
    const auto file = files.find(fileName);
    if (file == files.end())
        return std::nullopt;
    file->second->Load();
    Gauge* gauge = file->second->FindGauge(Utils::ToLowerAscii(gaugeName));
    return gauge ? std::optional(gauge) : std::nullopt;
}

} // namespace CockpitModel
