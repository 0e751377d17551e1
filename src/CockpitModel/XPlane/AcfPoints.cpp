#include "CockpitModel/XPlane/AcfPoints.h"

#include "CockpitModel/XPlane/ValueText.h"
#include "Sim/AcfFile.h"

namespace CockpitModel {

namespace {

constexpr float kMetresPerFoot = 0.3048f;

float Metres(std::string_view acf, std::string_view key) {
    return ValueText(Sim::LastAcfProperty(acf, key)).Number() * kMetresPerFoot;
}

} // namespace

AcfPoints ReadAcfPoints(std::string_view acf) {
    AcfPoints points;
    points.centreOfGravity = {0, Metres(acf, "acf/_cgY"), Metres(acf, "acf/_cgZ")};
    if (!Sim::LastAcfProperty(acf, "acf/_pe_xyz/2").empty())
        points.eye =
            Utils::Vector3(Metres(acf, "acf/_pe_xyz/0"), Metres(acf, "acf/_pe_xyz/1"), Metres(acf, "acf/_pe_xyz/2"));
    return points;
}

} // namespace CockpitModel
