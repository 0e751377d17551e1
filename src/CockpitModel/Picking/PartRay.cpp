#include "CockpitModel/Picking/PartRay.h"

namespace CockpitModel {

PartRay TransformRay(const PartRay& ray, const Utils::Matrix4& matrix) {
    const Utils::Vector3 origin = Utils::TransformPoint(ray.origin, matrix);
    const Utils::Vector3 end = Utils::TransformPoint(ray.origin + ray.direction, matrix);
    return {origin, Utils::Normalised(end - origin)};
}

} // namespace CockpitModel
