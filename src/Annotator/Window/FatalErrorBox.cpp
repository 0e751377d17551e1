#include "Annotator/Window/FatalErrorBox.h"

#include "Annotator/Window/WxText.h"
#include "Utils/FatalError.h"
#include "Utils/Platform.h"

#include <chrono>
#include <future>
#include <iostream>
#include <memory>
#include <thread>
#include <wx/app.h>
#include <wx/init.h>
#include <wx/module.h>
#include <wx/msgdlg.h>

namespace Annotator {

namespace {

std::thread::id uiThread;
int boxesUp = 0; // user interface thread only

void ShowBox(const std::string& caption, const std::string& text) {
    // While the pointer is grabbed, for example during a drag, the box would get no clicks.
    if (wxWindow* grabbing = wxWindow::GetCapture())
        grabbing->ReleaseMouse();
    ++boxesUp;
    wxMessageBox(ToWide(text), ToWide(caption), wxOK | wxICON_ERROR);
    --boxesUp;
}

void PrintText(const std::string& caption, const std::string& text) {
    std::cerr << caption << ": " << text << std::endl;
}

#ifdef __WXMSW__
void ShowFromOtherThread(const std::string& caption, const std::string& text) {
    Utils::Platform::ShowErrorBox(caption, text);
}
#else
constexpr std::chrono::seconds kPatience{3};

/// A box requested by another thread.
struct BoxRequest {
    std::promise<void> shown, dismissed;
};

void ShowFromOtherThread(const std::string& caption, const std::string& text) {
    if (!wxModule::AreInitialized() || !wxTheApp)
        return PrintText(caption, text);
    const auto request = std::make_shared<BoxRequest>();
    wxTheApp->CallAfter([=] {
        request->shown.set_value();
        ShowBox(caption, text);
        request->dismissed.set_value();
    });
    if (request->shown.get_future().wait_for(kPatience) == std::future_status::ready)
        request->dismissed.get_future().wait();
    else
        PrintText(caption, text);
}
#endif

void ShowBeforeToolkit(const std::string& caption, const std::string& text) {
    PrintText(caption, text);
    if (!wxApp::GetInstance())
        wxApp::SetInstance(new wxApp);
    const wxInitializer toolkit;
    if (toolkit.IsOk())
        ShowBox(caption, text);
}

void Show(const std::string& caption, const std::string& text) {
    if (std::this_thread::get_id() != uiThread)
        ShowFromOtherThread(caption, text);
    else if (wxModule::AreInitialized())
        ShowBox(caption, text);
    else
        ShowBeforeToolkit(caption, text);
}

} // namespace

void InstallFatalErrorBox() {
    uiThread = std::this_thread::get_id();
    Utils::SetFatalErrorDialog(Show);
}

bool FatalErrorBoxIsUp() {
    return boxesUp > 0;
}

} // namespace Annotator
