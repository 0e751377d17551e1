#include "Annotator/PlainManipulator.h"

#include "CockpitModel/Touch/MouseRectCallbacks.h"

namespace Annotator {

PlainManipulator PlainManipulatorOf(const CockpitModel::MouseRect& rect) {
    if (const auto* toggle = dynamic_cast<const CockpitModel::CallbackXPToggle*>(rect.EventCallback.get()))
        return {"toggle", std::pair(toggle->ValA, toggle->ValB), toggle->Var};
    if (const auto* drag = dynamic_cast<const CockpitModel::CallbackXPVariable*>(rect.VariableCallback.get()))
        return {"drag", std::pair(drag->Min, drag->Max), drag->Var};
    return {};
}

} // namespace Annotator
