#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>
#include <wx/app.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/image.h>
#include <wx/menu.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>
#include <wx/window.h>

namespace Support {

/// Processes pending events and idle handlers until a condition is true; returns false after a generous timeout.
inline bool PumpUntil(const std::function<bool()>& done) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    do {
        wxYield();
        wxTheApp->ProcessIdle();
        if (done())
            return true;
    } while (std::chrono::steady_clock::now() < end);
    return false;
}

/// Runs this number of iterations of the event loop, each with a frame of every visible canvas.
inline void PumpFrames(int count) {
    for (int i = 0; i < count; ++i) {
        wxYield();
        wxTheApp->ProcessIdle();
    }
}

/// Dismisses every modal dialog before it is shown, and records the texts of message boxes.
class DialogRecorder : public wxModalDialogHook {
public:
    DialogRecorder() { Register(); }
    ~DialogRecorder() override { Unregister(); }

    std::vector<std::string> captions, texts;
    std::function<void()> whileUp; ///< runs when a dialog would be shown
    int answer = wxID_OK;

protected:
    int Enter(wxDialog* dialog) override {
        captions.push_back(dialog->GetTitle().ToStdString(wxConvUTF8));
        if (const auto* message = dynamic_cast<wxMessageDialog*>(dialog)) {
            captions.back() = message->GetTitle().ToStdString(wxConvUTF8);
            texts.push_back(message->GetMessage().ToStdString(wxConvUTF8));
        }
        if (whileUp)
            whileUp();
        return answer;
    }
};

/// The first window of a type below `root`, in creation order, for which a condition is true.
template <typename Type>
Type* Find(
    wxWindow& root, const std::function<bool(Type&)>& matches = [](Type&) { return true; }) {
    for (wxWindow* child : root.GetChildren()) {
        if (auto* found = dynamic_cast<Type*>(child); found && matches(*found))
            return found;
        if (auto* found = Find<Type>(*child, matches))
            return found;
    }
    return nullptr;
}

/// The labels of all windows of a type below `root`, in creation order.
template <typename Type>
std::vector<std::string> Labels(wxWindow& root) {
    std::vector<std::string> labels;
    for (wxWindow* child : root.GetChildren()) {
        if (const auto* found = dynamic_cast<Type*>(child))
            labels.push_back(found->GetLabelText().ToStdString(wxConvUTF8));
        for (std::string& label : Labels<Type>(*child))
            labels.push_back(std::move(label));
    }
    return labels;
}

template <typename Type>
Type* FindLabelled(wxWindow& root, const std::string& label) {
    return Find<Type>(root, [&](Type& window) { return window.GetLabelText() == wxString(label); });
}

/// The image of a window without a device.
inline wxImage WindowPicture(wxWindow& window) {
    const wxSize size = window.GetClientSize();
    wxClientDC source(&window);
    wxBitmap picture(size);
    wxMemoryDC target(picture);
    target.Blit(0, 0, size.x, size.y, &source, 0, 0);
    target.SelectObject(wxNullBitmap);
    return picture.ConvertToImage();
}

inline wxColour ColourAt(const wxImage& image, int x, int y) {
    return {image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y)};
}

/// The lines of a choice.
template <typename Choice>
std::vector<std::string> Lines(const Choice& choice) {
    std::vector<std::string> lines;
    for (unsigned i = 0; i < choice.GetCount(); ++i)
        lines.push_back(choice.GetString(i).ToStdString(wxConvUTF8));
    return lines;
}

/// Simulates the user's choice of a line.
template <typename Choice>
void Choose(Choice& choice, int line) {
    choice.SetSelection(line);
    wxCommandEvent event(wxEVT_CHOICE, choice.GetId());
    event.SetEventObject(&choice);
    event.SetInt(line);
    choice.ProcessWindowEvent(event);
}

/// Simulates the user's choice of a menu's item, which a check item changes.
inline void ChooseMenuItem(wxMenu& menu, std::size_t position) {
    wxMenuItem& item = *menu.FindItemByPosition(position);
    wxCommandEvent event(wxEVT_MENU, item.GetId());
    if (item.IsCheckable()) {
        item.Toggle();
        event.SetInt(item.IsChecked());
    }
    menu.ProcessEvent(event);
}

inline void Fire(wxWindow& control, wxEventTypeTag<wxCommandEvent> type) {
    wxCommandEvent event(type, control.GetId());
    event.SetEventObject(&control);
    control.ProcessWindowEvent(event);
}

} // namespace Support
