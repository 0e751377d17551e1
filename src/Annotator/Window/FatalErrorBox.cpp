#include "Annotator/Window/FatalErrorBox.h"

#include "Annotator/Window/WxText.h"
#include "Utils/FatalError.h"

#include <chrono>
#include <condition_variable>
#include <iostream>
#include <memory>
#include <mutex>
#include <thread>
#include <wx/app.h>
#include <wx/init.h>
#include <wx/module.h>
#include <wx/msgdlg.h>

namespace Annotator {

namespace {

constexpr std::chrono::seconds kPatience{3};

std::thread::id uiThread;
int boxesUp = 0; // user interface thread only

void ShowBox(const std::string& caption, const std::string& text) {
    // A grab of the pointer, as in the middle of a drag, would keep every click from the box.
    if (wxWindow* grabbing = wxWindow::GetCapture())
        grabbing->ReleaseMouse();
    ++boxesUp;
    wxMessageBox(ToWide(text), ToWide(caption), wxOK | wxICON_ERROR);
    --boxesUp;
}

void PrintText(const std::string& caption, const std::string& text) {
    std::cerr << caption << ": " << text << std::endl;
}

/// A box that another thread asks for.
class BoxRequest {
public:
    BoxRequest(std::string caption, std::string text) : caption(std::move(caption)), text(std::move(text)) {}

    /// User interface thread.
    void Show() {
        if (!Advance(State::Asked, State::Showing))
            return;
        ShowBox(caption, text);
        Advance(State::Showing, State::Dismissed);
    }

    /// False when nobody took it up in time; then nobody will.
    bool WaitUntilDismissed() {
        std::unique_lock lock(mutex);
        if (!changed.wait_for(lock, kPatience, [this] { return state != State::Asked; })) {
            state = State::GivenUp;
            return false;
        }
        changed.wait(lock, [this] { return state == State::Dismissed; });
        return true;
    }

private:
    enum class State { Asked, Showing, Dismissed, GivenUp };

    bool Advance(State from, State to) {
        const std::lock_guard lock(mutex);
        if (state != from)
            return false;
        state = to;
        changed.notify_all();
        return true;
    }

    const std::string caption, text;
    std::mutex mutex; // guards state
    std::condition_variable changed;
    State state = State::Asked;
};

void ShowFromOtherThread(const std::string& caption, const std::string& text) {
    const auto request = std::make_shared<BoxRequest>(caption, text);
    if (wxModule::AreInitialized() && wxTheApp)
        wxTheApp->CallAfter([request] { request->Show(); });
    else
        return PrintText(caption, text);
    if (!request->WaitUntilDismissed())
        PrintText(caption, text);
}

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
