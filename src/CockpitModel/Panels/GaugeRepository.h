#pragma once

#include "CockpitModel/Panels/Gauge.h"

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

namespace CockpitModel {

/// A file that contains gauges.
class GaugeFile {
public:
    virtual ~GaugeFile() = default;
    /// Called before every find; reads the file once.
    virtual void Load() = 0;
    /// The name is in lower case. The file keeps ownership of the gauge; null if there is none.
    virtual Gauge* FindGauge(const std::string& name) = 0;
};

/// Finds gauges by file and name. X-Plane has no gauge files, so the table is empty unless the caller adds one.
class GaugeRepository {
public:
    explicit GaugeRepository(std::string rootFolder);

    void Add(const std::string& fileName, std::unique_ptr<GaugeFile> file);
    std::optional<Gauge*> FindGauge(const std::string& fileName, const std::string& gaugeName);

private:
    std::string rootFolder;                                            ///< of the simulator
    std::unordered_map<std::string, std::unique_ptr<GaugeFile>> files; ///< by lower-case file name
};

} // namespace CockpitModel
