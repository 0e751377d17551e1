#include "CockpitModel/Blocks/RiffBlock.h"

namespace CockpitModel {

void RiffBlock::Print(std::string indent, std::ostream& stream) const {
    stream << indent << "Name: " << Name << ", Length: " << Data.size() << '\n';
}

} // namespace CockpitModel
