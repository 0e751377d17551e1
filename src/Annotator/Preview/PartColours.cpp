#include "Annotator/Preview/PartColours.h"

#include <array>
#include <stdexcept>

namespace Annotator {

namespace {

using CockpitModel::TouchInteractionType;
using Utils::Vector3;

// Of the palette by Okabe and Ito, without its blue, which is the selection's. What cannot be touched is dark.
const Vector3 kOrange(0.90f, 0.62f, 0.0f), kSkyBlue(0.34f, 0.71f, 0.91f), kGreen(0.0f, 0.62f, 0.45f),
    kYellow(0.94f, 0.89f, 0.26f), kVermilion(0.84f, 0.37f, 0.0f), kPurple(0.80f, 0.47f, 0.65f),
    kDark(0.25f, 0.25f, 0.25f);

// Shares of the colour in the light that a part gives; their sum is 1.
constexpr float kEmitted = 0.65f, kFacing = 0.2f, kTexture = 0.15f;

struct TypeColour {
    TouchInteractionType type;
    const Vector3& colour;
};

// The three frequent types have the colours that differ most.
const std::array kTypeColours{
    TypeColour{TouchInteractionType::Tap, kSkyBlue},     TypeColour{TouchInteractionType::Twist, kYellow},
    TypeColour{TouchInteractionType::Move, kVermilion},  TypeColour{TouchInteractionType::Radio, kGreen},
    TypeColour{TouchInteractionType::YokePart, kPurple}, TypeColour{TouchInteractionType::YokePrimary, kOrange},
    TypeColour{TouchInteractionType::None, kDark},
};

enum Result : std::size_t { Passed, Failed, NotRecorded, NotTouchable };

struct ResultColour {
    const char* text;
    const Vector3& colour;
};

/// In the order of Result.
const std::array kResultColours{ResultColour{"Passed", kGreen}, ResultColour{"Failed", kVermilion},
                                ResultColour{"Not recorded", kYellow}, ResultColour{"Not touchable", kDark}};

Result ResultOf(const CockpitModel::NodePart& part, const CockpitModel::PartEvaluation& evaluation) {
    if (evaluation.hasTest)
        return evaluation.testPassed.value_or(false) ? Passed : Failed;
    return part.Rect() ? NotRecorded : NotTouchable;
}

} // namespace

std::vector<LegendEntry> Legend(PartColours colours) {
    std::vector<LegendEntry> entries;
    if (colours == PartColours::ByType)
        for (const TypeColour& row : kTypeColours)
            entries.push_back({row.colour, TouchInteractionTypeToText(row.type)});
    if (colours == PartColours::ByResult)
        for (const ResultColour& row : kResultColours)
            entries.push_back({row.colour, row.text});
    return entries;
}

Vector3 ColourOf(PartColours colours, const CockpitModel::NodePart& part,
                 const CockpitModel::PartEvaluation& evaluation) {
    if (colours == PartColours::ByResult)
        return kResultColours[ResultOf(part, evaluation)].colour;
    if (colours == PartColours::ByType)
        for (const TypeColour& row : kTypeColours)
            if (row.type == evaluation.interactionType)
                return row.colour;
    throw std::invalid_argument("no colour is defined for this part");
}

void Paint(Rendering::GeometryDrawParams& params, const Vector3& colour) {
    params.firstColour = kTexture * colour;
    params.secondColour = Vector3::Zero();
    params.thirdColour = kEmitted * colour;
    params.fourthColour = kFacing * colour;
    params.shaderParam2 = 1.0f; // the highlight then fades like light on a dull surface
}

} // namespace Annotator
