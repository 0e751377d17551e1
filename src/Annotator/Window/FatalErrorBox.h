#pragma once

#include <string>

namespace Annotator {

/// Makes fatal errors show in a modal box. Called once, on the thread that will run the toolkit. From then on any
/// thread may fail: another thread hands its text to the user interface thread and waits until the box is dismissed.
/// When that thread does not take it up within seconds, as when it waits for the one that failed, the text goes to the
/// standard error stream and the box opens once it can; so does the text when no toolkit can run. On Windows any thread
/// shows its own box.
void InstallFatalErrorBox();

/// True while a box is up. No frame runs meanwhile: it could wait for the thread whose error the box shows.
bool FatalErrorBoxIsUp();

} // namespace Annotator
