#pragma once

#include <string>

namespace Annotator {

/// Shows fatal errors in a modal box. Call once, on the thread that will run the toolkit. Afterwards any thread may
/// fail: another thread passes its text to the user interface thread and waits until the box is dismissed. If that
/// thread does not respond within seconds, for example because it waits for the failed one, the text is written to
/// stderr and the box opens later. The text is also written to stderr if the toolkit cannot run. On Windows every
/// thread shows its own box.
void InstallFatalErrorBox();

/// True while a box is open. No frame may run then, because it could wait for the failed thread.
bool FatalErrorBoxIsUp();

} // namespace Annotator
