#include "CockpitModel/XPlane/ObjValues.h"

#include "CockpitModel/XPlane/ObjKeywords.h"

namespace CockpitModel {

namespace {

bool IsOfKind(ObjLine& line, char kind, const char* wordEnd) {
    if (kind == kNumber)
        line.Float();
    else if (kind == kInteger)
        line.Integer();
    else
        line.Word();
    return line.Place() == wordEnd;
}

void ReadRange(ObjLine& line, XPObjAnimStep& step) {
    step.value1 = line.Float();
    step.value2 = line.Float();
    step.dataref = line.Word();
}

} // namespace

XPObjAnimStep ReadTranslation(ObjLine& line) {
    static_assert(NumberCount("ANIM_trans") == 6);
    XPObjAnimStep step;
    step.translation = line.Floats<6>();
    ReadRange(line, step);
    return step;
}

XPObjAnimStep ReadRotation(ObjLine& line) {
    static_assert(NumberCount("ANIM_rotate") == 5);
    XPObjAnimStep step;
    step.rotation = line.Floats<5>();
    ReadRange(line, step);
    return step;
}

XPObjManip ReadPlainManipulator(ObjLine& line, const ManipulatorKeyword& keyword) {
    line.Word(); // the cursor
    for (int i = 0; i < keyword.rangeAt; ++i)
        line.Float();
    XPObjManip manip;
    manip.value1 = line.Float();
    manip.value2 = line.Float();
    manip.dataref = line.Word();
    return manip;
}

std::string ValueKinds(const ManipulatorKeyword& keyword) {
    const char name = keyword.name.starts_with("command") ? kCommand : kDataref;
    return std::string(keyword.names > 0 ? 1 : 0, kCursor) + std::string(keyword.numbers, kNumber) +
           std::string(keyword.names, name);
}

std::optional<ObjFault> FindFault(ObjLine line, std::string_view kinds) {
    bool optional = false;
    for (const char kind : kinds) {
        optional |= kind == kOptional;
        if (kind == kOptional)
            continue;
        const std::string_view word = line.Peek();
        if (word.empty())
            return optional ? std::nullopt : std::optional<ObjFault>({word.data(), word, kind});
        if (!IsOfKind(line, kind, word.data() + word.size()))
            return ObjFault{word.data(), word, kind};
    }
    return std::nullopt;
}

} // namespace CockpitModel
