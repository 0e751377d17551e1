#include "Annotator/Preview/PartColours.h"

#include <cmath>
#include <gtest/gtest.h>
#include <set>

namespace Annotator {
namespace {

using CockpitModel::NodePart;
using CockpitModel::PartEvaluation;
using CockpitModel::TouchInteractionType;
using Utils::Vector3;

/// CIELAB coordinates of linear red, green and blue, in which distances are those that eyes see.
Vector3 Lab(const Vector3& rgb) {
    const auto root = [](float share) { return share > 0.008856f ? std::cbrt(share) : 7.787f * share + 16.0f / 116; };
    const float x = root(rgb.dot(Vector3(0.4124f, 0.3576f, 0.1805f)) / 0.9505f);
    const float y = root(rgb.dot(Vector3(0.2126f, 0.7152f, 0.0722f)));
    const float z = root(rgb.dot(Vector3(0.0193f, 0.1192f, 0.9505f)) / 1.089f);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

float Linear(float share) {
    return share <= 0.04045f ? share / 12.92f : std::pow((share + 0.055f) / 1.055f, 2.4f);
}

/// What eyes see of a colour; each row of the matrix gives one component of linear light.
Vector3 Seen(const Vector3& colour, const Eigen::Matrix3f& eyes) {
    const Vector3 light = colour.unaryExpr(&Linear) * eyes.transpose();
    return Lab(light.cwiseMax(0.0f).cwiseMin(1.0f));
}

/// The simulation of full colour blindness by Machado, Oliveira and Fernandes (2009).
std::vector<std::pair<const char*, Eigen::Matrix3f>> AllEyes() {
    Eigen::Matrix3f noRed, noGreen, noBlue;
    noRed << 0.152286f, 1.052583f, -0.204868f, 0.114503f, 0.786281f, 0.099216f, -0.003882f, -0.048116f, 1.051998f;
    noGreen << 0.367322f, 0.860646f, -0.227968f, 0.280085f, 0.672501f, 0.047413f, -0.011820f, 0.042940f, 0.968881f;
    noBlue << 1.255528f, -0.076749f, -0.178779f, -0.078411f, 0.930809f, 0.147602f, 0.004733f, 0.691367f, 0.303900f;
    return {{"all", Eigen::Matrix3f::Identity()}, {"no red", noRed}, {"no green", noGreen}, {"no blue", noBlue}};
}

TEST(PartColours, ColourBlindEyesTellThemApart) {
    for (const PartColours colours : {PartColours::ByType, PartColours::ByResult}) {
        const auto legend = Legend(colours);
        for (const auto& [name, eyes] : AllEyes())
            for (const LegendEntry& a : legend)
                for (const LegendEntry& b : legend)
                    if (&a < &b) {
                        EXPECT_GT((Seen(a.colour, eyes) - Seen(b.colour, eyes)).norm(), 15.0f)
                            << name << ": " << a.text << ", " << b.text;
                    }
    }
    EXPECT_TRUE(Legend(PartColours::Standard).empty());
}

/// The text of the legend for a part's colour.
std::string MeaningOf(PartColours colours, const NodePart& part, const PartEvaluation& evaluation) {
    const Vector3 colour = ColourOf(colours, part, evaluation);
    for (const LegendEntry& entry : Legend(colours))
        if (entry.colour == colour)
            return entry.text;
    return "";
}

TEST(PartColours, EachTypeHasItsEntry) {
    const auto legend = Legend(PartColours::ByType);
    std::set<std::string> texts;
    for (int type = 0; type <= static_cast<int>(TouchInteractionType::YokePrimary); ++type) {
        PartEvaluation evaluation;
        evaluation.interactionType = static_cast<TouchInteractionType>(type);
        EXPECT_EQ(MeaningOf(PartColours::ByType, {}, evaluation),
                  TouchInteractionTypeToText(evaluation.interactionType));
        texts.insert(TouchInteractionTypeToText(evaluation.interactionType));
    }
    EXPECT_EQ(legend.size(), texts.size());
}

TEST(PartColours, AResultNeedsATest) {
    NodePart plain, touchable;
    touchable.block.mouseRect = &touchable.panelRect;
    const struct {
        const NodePart& part;
        bool hasTest, passed;
        const char* text;
    } rows[] = {{touchable, true, true, "Passed"},
                {touchable, true, false, "Failed"},
                {touchable, false, false, "Not recorded"},
                {plain, true, false, "Failed"},
                {plain, false, false, "Not touchable"}};
    for (const auto& row : rows) {
        PartEvaluation evaluation;
        evaluation.hasTest = row.hasTest;
        evaluation.testPassed = row.passed;
        EXPECT_EQ(MeaningOf(PartColours::ByResult, row.part, evaluation), row.text);
    }
}

} // namespace
} // namespace Annotator
