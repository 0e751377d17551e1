#pragma once

#include "Batch/Command.h"

namespace Batch {

Action PrepareList(CLI::App& app);
Action PrepareDetect(CLI::App& app);
Action PrepareInspect(CLI::App& app);
Action PrepareRender(CLI::App& app);
Action PrepareExplain(CLI::App& app);
Action PrepareLint(CLI::App& app);
Action PrepareManips(CLI::App& app);
Action PrepareTest(CLI::App& app);
Action PrepareMerge(CLI::App& app);
Action PrepareAccept(CLI::App& app);
Action PrepareCompare(CLI::App& app);
Action PrepareVrConfigCheck(CLI::App& app);
Action PrepareVrConfigWrite(CLI::App& app);

} // namespace Batch
