#pragma once

namespace CockpitModel {

struct NodePart;

/// Measures a part relative to the animation of its own node: its extent, the tip of its axis, how balanced it is about
/// the motion's centre and how far it sweeps. Fills the motion fields of the part.
void AnalysePartMotion(NodePart& part);

} // namespace CockpitModel
