#include "Annotator/Window/AccessibleName.h"

#ifdef __WXGTK__
#include <dlfcn.h>
#endif

namespace Annotator {

namespace {

#ifdef __WXGTK__
// The toolkit cannot set accessible names on GTK, but the libraries that can are already loaded. Their functions are
// looked up by symbol so that the build needs no GTK headers.
template <typename Function>
Function* Loaded(const char* symbol) {
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, symbol));
}

void NameForReaders(wxWindow& control, const char* name) {
    static auto* const accessibleOf = Loaded<void*(void*)>("gtk_widget_get_accessible");
    static auto* const setName = Loaded<void(void*, const char*)>("atk_object_set_name");
    if (accessibleOf && setName && control.GetHandle())
        setName(accessibleOf(control.GetHandle()), name);
}
#else
void NameForReaders(wxWindow&, const char*) {}
#endif

} // namespace

void SetAccessibleName(wxWindow& control, const char* name) {
    control.SetName(wxString::FromUTF8(name));
    NameForReaders(control, name);
}

} // namespace Annotator
