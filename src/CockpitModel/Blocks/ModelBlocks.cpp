#include "CockpitModel/Blocks/ModelBlocks.h"

#include <algorithm>

namespace CockpitModel {

namespace {

/// Significant digits of a float; a dump leaves this precision set on the stream.
constexpr int kPrecision = 4;

/// One line with the first children of a list and their number.
template <typename T, typename Write>
void PrintRow(const std::string& indent, std::ostream& stream, const char* label, const std::vector<T>& children,
              std::size_t limit, Write write) {
    stream << indent << kDumpIndent << label;
    for (std::size_t i = 0; i < std::min(limit, children.size()); ++i) {
        write(children[i]);
        stream << ' ';
    }
    stream << " ... (" << children.size() << ")\n";
}

template <typename T>
void PrintNumbers(const std::string& indent, std::ostream& stream, const char* label, const std::vector<T>& numbers) {
    PrintRow(indent, stream, label, numbers, 8, [&](T number) { stream << number; });
}

} // namespace

void RiffBlockMATE::Print(std::string indent, std::ostream& stream) const {
    RiffBlock::Print(indent, stream);
    PrintChildren(indent, stream, 100);
}

void RiffBlockMATE::PrintChild(const Material& child, std::string indent, std::ostream& stream) const {
    stream << indent << kDumpIndent << "Flags: " << child.Flags << ", TextureDiffuse: " << child.TextureDiffuse
           << ", Detail: " << child.Detail << ", Scale: " << child.Scale << '\n';
}

void RiffBlockTEXT::Print(std::string indent, std::ostream& stream) const {
    RiffBlock::Print(indent, stream);
    PrintChildren(indent + kDumpIndent, stream, 3);
}

void RiffBlockTEXT::PrintChild(const std::string& child, std::string indent, std::ostream& stream) const {
    stream << indent << child << '\n';
}

void RiffBlockVERT::Print(std::string indent, std::ostream& stream) const {
    RiffBlock::Print(indent, stream);
    stream.precision(kPrecision);
    stream << indent << kDumpIndent << "Vertices: (" << Children.size() << ")\n";
    PrintChildren(indent + kDumpIndent, stream, 3);
}

void RiffBlockVERT::PrintChild(const Vertex& child, std::string indent, std::ostream& stream) const {
    stream << indent << kDumpIndent << kDumpIndent << child.x << ", " << child.y << ", " << child.z << '\n';
}

void RiffBlockIND3::Print(std::string indent, std::ostream& stream) const {
    RiffBlock::Print(indent, stream);
    PrintNumbers(indent, stream, "Indices: ", Children);
}

void RiffBlockTRAN::Print(std::string indent, std::ostream& stream) const {
    RiffBlock::Print(indent, stream);
    stream.precision(kPrecision);
    stream << indent << kDumpIndent << "Matrices: (" << Children.size() << ")\n";
    PrintChildren(indent, stream, 3);
}

void RiffBlockTRAN::PrintChild(const Utils::Matrix4& child, std::string indent, std::ostream& stream) const {
    // Each line shows a column: the matrix is printed as one for column vectors.
    for (int column = 0; column < 4; ++column) {
        stream << indent << kDumpIndent;
        for (int row = 0; row < 4; ++row)
            stream << child(row, column) << ' ';
        stream << '\n';
    }
    stream << '\n';
}

void RiffBlockAMAP::Print(std::string indent, std::ostream& stream) const {
    RiffBlock::Print(indent, stream);
    PrintRow(indent, stream, "AMAPS: ", Children, 3,
             [&](const AnimationNode& child) { stream << child.Word << ',' << child.MatrixIndex; });
}

void RiffBlockSCEN::Print(std::string indent, std::ostream& stream) const {
    RiffBlock::Print(indent, stream);
    PrintRow(indent, stream, "SCEN: ", Children, 3, [&](const SceneGraphElement& child) {
        stream << child.Child << ',' << child.Peer << ',' << child.MapOffset;
    });
}

void RiffBlockSGAL::Print(std::string indent, std::ostream& stream) const {
    RiffBlock::Print(indent, stream);
    PrintNumbers(indent, stream, "SGAL: ", Children);
}

void RiffBlockSGVL::Print(std::string indent, std::ostream& stream) const {
    RiffBlock::Print(indent, stream);
    PrintNumbers(indent, stream, "Visibility Linkages: ", Children);
}

void RiffBlockPART::Print(std::string indent, std::ostream& stream) const {
    RiffBlock::Print(indent, stream);
    stream.precision(kPrecision);
    stream << indent << kDumpIndent << "Type: " << Type << '\n';
}

void RiffBlockXANK::Print(std::string indent, std::ostream& stream) const {
    RiffBlock::Print(indent, stream);
    stream << indent << kDumpIndent << Text << '\n';
}

void RiffBlockVisibilityInfo::Print(std::string, std::ostream&) const {}

} // namespace CockpitModel
