#include "Annotator/Window/RepeatedChoice.h"

#include <cstdlib>
#include <dlfcn.h>

namespace Annotator {

namespace {

using Callback = void (*)();

/// Functions of the GTK that the toolkit has loaded, looked up by name so that the build needs no GTK headers.
struct GtkFunctions {
    void* (*gtk_combo_box_get_popup_accessible)(void* combo) = nullptr;
    void* (*gtk_accessible_get_widget)(void* accessible) = nullptr;
    std::size_t (*g_type_from_name)(const char* name) = nullptr;
    int (*g_type_check_instance_is_a)(void* instance, std::size_t type) = nullptr;
    void (*g_object_get)(void* object, const char* property, ...) = nullptr;
    unsigned long (*g_signal_connect_data)(void* instance, const char* signal, Callback callback, void* data,
                                           Callback destroyData, int flags) = nullptr;
    unsigned (*g_signal_handlers_disconnect_matched)(void* instance, int mask, unsigned signal, unsigned detail,
                                                     void* closure, void* callback, void* data) = nullptr;
    bool complete = true;
};

template <typename Function>
void Find(GtkFunctions& gtk, Function& function, const char* name) {
    function = reinterpret_cast<Function>(dlsym(RTLD_DEFAULT, name));
    gtk.complete = gtk.complete && function;
}

const GtkFunctions& Gtk() {
    static const GtkFunctions functions = [] {
        GtkFunctions gtk;
        Find(gtk, gtk.gtk_combo_box_get_popup_accessible, "gtk_combo_box_get_popup_accessible");
        Find(gtk, gtk.gtk_accessible_get_widget, "gtk_accessible_get_widget");
        Find(gtk, gtk.g_type_from_name, "g_type_from_name");
        Find(gtk, gtk.g_type_check_instance_is_a, "g_type_check_instance_is_a");
        Find(gtk, gtk.g_object_get, "g_object_get");
        Find(gtk, gtk.g_signal_connect_data, "g_signal_connect_data");
        Find(gtk, gtk.g_signal_handlers_disconnect_matched, "g_signal_handlers_disconnect_matched");
        return gtk;
    }();
    return functions;
}

void DisconnectAll(void* instance, void* data) {
    constexpr int kMatchData = 1 << 4;
    Gtk().g_signal_handlers_disconnect_matched(instance, kMatchData, 0, 0, nullptr, nullptr, data);
}

/// The menu in which a combo box shows its lines; null if it has none or shows them in another way.
void* MenuOf(void* combo) {
    void* const accessible = Gtk().gtk_combo_box_get_popup_accessible(combo);
    void* const popup = accessible ? Gtk().gtk_accessible_get_widget(accessible) : nullptr;
    const bool isMenu = popup && Gtk().g_type_check_instance_is_a(popup, Gtk().g_type_from_name("GtkTreeMenu"));
    return isMenu ? popup : nullptr;
}

/// `path` is the line's number as text.
void OnMenuActivate(void*, const char* path, void* watcher) {
    static_cast<RepeatedChoice*>(watcher)->OnLinePicked(std::atoi(path));
}

void OnPopupShown(void* combo, void*, void* watcher) {
    int shown = 0;
    Gtk().g_object_get(combo, "popup-shown", &shown, nullptr);
    if (!shown)
        return;
    static_cast<RepeatedChoice*>(watcher)->OnListShown();
    // A theme change creates a new menu.
    if (void* const menu = MenuOf(combo)) {
        DisconnectAll(menu, watcher);
        Gtk().g_signal_connect_data(menu, "menu-activate", reinterpret_cast<Callback>(OnMenuActivate), watcher, nullptr,
                                    0);
    }
}

} // namespace

RepeatedChoice::RepeatedChoice(wxChoice& watched, std::function<void()> listener)
    : choice(watched), onRepeated(std::move(listener)) {
    if (Gtk().complete)
        Gtk().g_signal_connect_data(choice.GetHandle(), "notify::popup-shown", reinterpret_cast<Callback>(OnPopupShown),
                                    this, nullptr, 0);
}

RepeatedChoice::~RepeatedChoice() {
    if (!Gtk().complete)
        return;
    if (void* const menu = MenuOf(choice.GetHandle()))
        DisconnectAll(menu, this);
    DisconnectAll(choice.GetHandle(), this);
}

void RepeatedChoice::OnLinePicked(int line) {
    if (line == shownLine)
        onRepeated();
}

} // namespace Annotator
