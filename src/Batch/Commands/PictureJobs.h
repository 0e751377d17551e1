#pragma once

#include "Annotator/AircraftLoading.h"
#include "Annotator/ExpectationCheck.h"
#include "CockpitModel/Annotations/AnnotationStore.h"

#include <string>
#include <vector>

namespace Batch {

/// Data files of a picture that the installation lacks are read from the program's own folder. Without them the command
/// ends with an error. For the calling process and for the worker that draws.
void RequirePictureData();

/// Adds a picture to each failed test: the part as selected, in a frame, a third of the picture. Returns remarks: why
/// there are no pictures.
std::vector<std::string> DrawFailedParts(const Annotator::LoadedAircraft& aircraft,
                                         const CockpitModel::AnnotationStore& annotations,
                                         Annotator::AircraftResult& tests);

} // namespace Batch
