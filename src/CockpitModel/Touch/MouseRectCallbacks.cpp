#include "CockpitModel/Touch/MouseRectCallbacks.h"

namespace CockpitModel {

namespace {

constexpr const char* kIndent = "    ";

} // namespace

void CallbackCode::Dump(std::ostream& stream, const std::string& prefix) const {
    stream << prefix << "CallbackCode:\n" << prefix << kIndent << "Code: " << Code << '\n';
}

void CallbackEventID::Dump(std::ostream& stream, const std::string& prefix) const {
    stream << prefix << "CallbackEventID: " << EventID << '\n';
}

void CallbackFSFunc::Dump(std::ostream& stream, const std::string& prefix) const {
    // The heading is a fixed text and spelt so.
    stream << prefix << "CallbackFSunc:\n"
           << prefix << kIndent << "Func: " << reinterpret_cast<const void*>(Func) << '\n';
}

void CallbackXPToggle::Dump(std::ostream& stream, const std::string& prefix) const {
    stream << prefix << "CallbackXPToggle:\n"
           << prefix << kIndent << "Var: " << Var << '\n'
           << prefix << kIndent << "ValA: " << ValA << '\n'
           << prefix << kIndent << "ValB: " << ValB << '\n';
}

void CallbackDraggingCode::Dump(std::ostream&, const std::string&) const {}

void CallbackJumpDragging::Dump(std::ostream& stream, const std::string& prefix) const {
    stream << prefix << "CallbackJumpDragging:\n"
           << prefix << kIndent << "XDelta: " << XDelta << '\n'
           << prefix << kIndent << "YDelta: " << YDelta << '\n';
    if (PositiveCallback)
        PositiveCallback->Dump(stream, prefix + kIndent);
}

void CallbackXPVariable::Dump(std::ostream& stream, const std::string& prefix) const {
    stream << prefix << "CallbackXPVariable:\n"
           << prefix << kIndent << "Var: " << Var << '\n'
           << prefix << kIndent << "Min: " << Min << '\n'
           << prefix << kIndent << "Max: " << Max << '\n';
}

} // namespace CockpitModel
