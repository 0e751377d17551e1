#pragma once

#include "CockpitModel/Panels/GaugeRepository.h"

#include <map>
#include <memory>
#include <string>
#include <utility>

namespace Support {

/// A gauge file for tests; the system itself has none.
struct TestGaugeFile final : CockpitModel::GaugeFile {
    void Load() override { ++loads; }
    CockpitModel::Gauge* FindGauge(const std::string& name) override {
        const auto gauge = gauges.find(name);
        return gauge == gauges.end() ? nullptr : &gauge->second;
    }

    std::map<std::string, CockpitModel::Gauge> gauges; ///< by lower-case name
    int loads = 0;
};

/// A mouse area that runs code.
inline CockpitModel::MouseArea CodeArea(float x, float y, float width, float height, const std::string& code,
                                        std::uint32_t mouseFlags) {
    CockpitModel::MouseArea area;
    area.X = x, area.Y = y, area.Width = width, area.Height = height;
    area.Action.emplace();
    area.Action->Code = code;
    area.Action->MouseFlags = mouseFlags;
    return area;
}

/// An area whose two children are the directions of one control.
inline CockpitModel::MouseArea PairArea(float x, float y, float width, float height, const std::string& decrement,
                                        const std::string& increment) {
    CockpitModel::MouseArea area;
    area.X = x, area.Y = y, area.Width = width, area.Height = height;
    area.Children = {CodeArea(0, 0, 1, 1, decrement, 0x20000000), CodeArea(0, 0, 1, 1, increment, 0x00020000)};
    area.Children[0].Name = "Decrement";
    area.Children[1].Name = "Increment";
    return area;
}

} // namespace Support
