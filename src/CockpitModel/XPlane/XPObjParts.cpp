#include "CockpitModel/XPlane/XPObjParts.h"

#include "CockpitModel/Touch/MouseFlags.h"

namespace CockpitModel {

namespace {

std::string RectText(const char* kind, const XPObjManip& manip) {
    Manipulator shown;
    shown.keyword = kind;
    shown.numbers = {manip.value1, manip.value2};
    shown.names = {manip.dataref};
    return RectText(shown);
}

MouseRect& AddRect(ModelData& model, RiffBlockPART& part) {
    part.MouseRectIndex = static_cast<std::int32_t>(model.mouseRects.size());
    part.mouseRect = model.mouseRects.emplace_back(std::make_shared<MouseRect>()).get();
    part.mouseRect->MouseFlags = MouseFlag::LeftSingle | MouseFlag::RightSingle;
    return *part.mouseRect;
}

void AddToggleRect(const XPObjManip& toggle, ModelData& model, RiffBlockPART& part) {
    MouseRect& rect = AddRect(model, part);
    rect.Text = RectText("ToggleVariable", toggle);
    rect.CallbackType = kFiresEvent;
    rect.EventCallback = std::make_shared<CallbackXPToggle>(toggle.dataref, toggle.value1, toggle.value2);
}

void AddDragRect(const XPObjManip& drag, ModelData& model, RiffBlockPART& part) {
    MouseRect& rect = AddRect(model, part);
    rect.Text = RectText("DragVariable", drag);
    rect.CallbackType = kTakesValue;
    rect.VariableCallback = std::make_shared<CallbackXPVariable>(drag.dataref, drag.value1, drag.value2);
}

/// A push holds its dataref at one of two values, which the toggle's callback does too. The other keywords that click
/// have no callback here.
void AddCallback(const Manipulator& manipulator, MouseRect& rect) {
    if (manipulator.names.size() != 1 || !manipulator.Range())
        return;
    const auto [from, to] = *manipulator.Range();
    const std::string& name = manipulator.names.front();
    if (manipulator.keyword == "push")
        rect.EventCallback = std::make_shared<CallbackXPToggle>(name, from, to);
    else if (rect.CallbackType == kTakesValue)
        rect.VariableCallback = std::make_shared<CallbackXPVariable>(name, from, to);
}

/// The rectangle of a manipulator that neither the toggle's nor the drag's describes.
void AddManipulatorRect(const Manipulator& manipulator, ModelData& model, RiffBlockPART& part) {
    MouseRect& rect = AddRect(model, part);
    rect.Text = RectText(manipulator);
    rect.CallbackType = DecideManipulator(manipulator).callback;
    AddCallback(manipulator, rect);
}

RiffBlockPART& AddPart(const XPObjDrawCall& call, ModelData& model) {
    RiffBlockPART& part = model.parts.emplace_back();
    part.Type = kTriangleList;
    part.Node = call.animNode;
    part.MaterialIndex = call.texture;
    part.IndexOffset = static_cast<std::uint32_t>(call.offset);
    part.IndexCount = static_cast<std::uint32_t>(call.count);
    part.SourceLine = call.line;
    part.NotDrawn = !call.drawEnabled;
    return part;
}

void AddPlainPart(const XPObjDrawCall& call, ModelData& model) {
    RiffBlockPART& part = AddPart(call, model);
    part.ManipulatorLine = call.manipLine;
    if (call.toggle)
        AddToggleRect(*call.toggle, model, part);
    else if (call.drag)
        AddDragRect(*call.drag, model, part);
}

/// The toggle and the drag in force are those of the plain reading, so they are this manipulator's only if it is one.
void AddFullPart(const XPObjDrawCall& call, const Manipulator* manipulator, ModelData& model) {
    RiffBlockPART& part = AddPart(call, model);
    if (!manipulator)
        return;
    part.ManipulatorIndex = static_cast<std::int32_t>(call.manipulator);
    part.ManipulatorLine = manipulator->line;
    if (manipulator->plain == PlainEffect::SetsToggle && call.toggle)
        AddToggleRect(*call.toggle, model, part);
    else if (manipulator->plain == PlainEffect::SetsDrag && call.drag)
        AddDragRect(*call.drag, model, part);
    else if (manipulator->family != ManipulatorFamily::Untouched)
        AddManipulatorRect(*manipulator, model, part);
}

/// The parts of the plain reading come first, so that they have the same numbers in both readings.
void AddFullParts(const XPObjData& data, const std::vector<XPObjDrawCall>& calls, ModelData& model) {
    const auto add = [&](const XPObjDrawCall& call) {
        AddFullPart(call, call.manipulator == kXPObjNone ? nullptr : &data.manipulators[call.manipulator], model);
    };
    for (const XPObjDrawCall& call : calls)
        if (IsPlainPart(call))
            add(call);
    for (const XPObjDrawCall& call : calls)
        if (!IsPlainPart(call) && IsFullPart(call, data))
            add(call);
}

} // namespace

bool IsPlainPart(const XPObjDrawCall& call) {
    return call.drawEnabled || call.toggle || call.drag;
}

bool IsFullPart(const XPObjDrawCall& call, const XPObjData& data) {
    return IsPlainPart(call) || (call.manipulator != kXPObjNone &&
                                 data.manipulators[call.manipulator].family != ManipulatorFamily::Untouched);
}

void AddParts(const XPObjData& data, const std::vector<XPObjDrawCall>& calls, ModelData& model, Reading reading) {
    model.parts.reserve(model.parts.size() + calls.size());
    if (reading == Reading::Full) {
        AddFullParts(data, calls, model);
        return;
    }
    for (const XPObjDrawCall& call : calls)
        if (IsPlainPart(call))
            AddPlainPart(call, model);
}

} // namespace CockpitModel
