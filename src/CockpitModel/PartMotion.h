#pragma once

namespace CockpitModel {

struct NodePart;

/// Measures a part against the animation of its own node: how far it reaches, where its axis tip lies, how balanced it
/// sits about the motion's centre and how far it sweeps. Fills the motion fields of the part.
void AnalysePartMotion(NodePart& part);

} // namespace CockpitModel
