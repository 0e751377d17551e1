#pragma once

#include <string>

namespace Support {

/// Writes the text of an X-Plane object over one triangle, (0,0,0) (1,0,0) (0,1,0), which every Tris draws.
class ObjText {
public:
    ObjText() {
        Line("VT 0 0 0 0 0 1 0 0").Line("VT 1 0 0 0 0 1 1 0").Line("VT 0 1 0 0 0 1 0 1");
        Line("IDX 0").Line("IDX 1").Line("IDX 2");
    }

    ObjText& Line(const std::string& line) {
        text += line + '\n';
        return *this;
    }
    ObjText& Texture(const std::string& path = "panel.png") { return Line("TEXTURE " + path); }
    ObjText& Tris() { return Line("TRIS 0 3"); }
    ObjText& Begin() { return Line("ANIM_begin"); }
    ObjText& End() { return Line("ANIM_end"); }
    ObjText& Toggle(const std::string& dataref) { return Line("ATTR_manip_toggle hand 0 1 " + dataref); }
    ObjText& Drag(const std::string& dataref) { return Line("ATTR_manip_drag_axis hand 1 0 0 0 1 " + dataref); }
    ObjText& NoManip() { return Line("ATTR_manip_none"); }

    std::string Text() const { return text; }

private:
    std::string text = "A\n800\nOBJ\n\n";
};

} // namespace Support
