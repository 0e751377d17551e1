#pragma once

#include "Annotator/AircraftLoading.h"
#include "Batch/Reports/SheetHtml.h"
#include "CockpitModel/Annotations/AnnotationStore.h"

namespace Batch {

/// The touchable parts of an aircraft in groups of neighbours, each with its picture of this size. If pictures cannot
/// be drawn, they are left out and a remark says why.
CockpitSheet MakeCockpitSheet(const Sim::AircraftInfo& info, const Annotator::LoadedAircraft& aircraft,
                              const CockpitModel::AnnotationStore& annotations, Rendering::Size size);

} // namespace Batch
