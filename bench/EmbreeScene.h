#pragma once

#include "CockpitModel/Picking/PartTree.h"
#include "Utils/NonAssignable.h"

#if __has_include(<embree4/rtcore.h>)
#include <embree4/rtcore.h>
#else
#include <embree3/rtcore.h>
#endif
#include <limits>
#include <vector>

namespace Bench {

using Soup = std::vector<CockpitModel::PartTriangle>;

/// The triangles in Embree, on one thread so that its processor time can be compared with ours.
class EmbreeScene : Utils::NonAssignable {
public:
    explicit EmbreeScene(const Soup& soup) : scene(rtcNewScene(Device())) {
        rtcSetSceneBuildQuality(scene, RTC_BUILD_QUALITY_MEDIUM);
        RTCGeometry geometry = rtcNewGeometry(Device(), RTC_GEOMETRY_TYPE_TRIANGLE);
        auto* positions = static_cast<CockpitModel::PartTriangle*>(
            rtcSetNewGeometryBuffer(geometry, RTC_BUFFER_TYPE_VERTEX, 0, RTC_FORMAT_FLOAT3, 12, 3 * soup.size()));
        auto* indices = static_cast<unsigned*>(
            rtcSetNewGeometryBuffer(geometry, RTC_BUFFER_TYPE_INDEX, 0, RTC_FORMAT_UINT3, 12, soup.size()));
        std::copy(soup.begin(), soup.end(), positions);
        for (unsigned i = 0; i < 3 * soup.size(); ++i)
            indices[i] = i;
        rtcCommitGeometry(geometry);
        rtcAttachGeometry(scene, geometry);
        rtcReleaseGeometry(geometry);
    }
    ~EmbreeScene() { rtcReleaseScene(scene); }

    /// Builds the acceleration structure.
    void Commit() { rtcCommitScene(scene); }

    float Distance(const CockpitModel::PartRay& ray) const {
        RTCRayHit hit{};
        hit.ray.org_x = ray.origin.x(), hit.ray.org_y = ray.origin.y(), hit.ray.org_z = ray.origin.z();
        hit.ray.dir_x = ray.direction.x(), hit.ray.dir_y = ray.direction.y(), hit.ray.dir_z = ray.direction.z();
        hit.ray.tfar = std::numeric_limits<float>::infinity();
        hit.ray.mask = ~0u;
        hit.hit.geomID = RTC_INVALID_GEOMETRY_ID;
#if RTC_VERSION_MAJOR >= 4
        rtcIntersect1(scene, &hit);
#else
        RTCIntersectContext context;
        rtcInitIntersectContext(&context);
        rtcIntersect1(scene, &context, &hit);
#endif
        return hit.ray.tfar;
    }

private:
    static RTCDevice Device() {
        static RTCDevice device = rtcNewDevice("threads=1");
        return device;
    }

    RTCScene scene;
};

} // namespace Bench
