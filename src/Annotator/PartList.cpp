#include "Annotator/PartList.h"

#include "Annotator/AnnotationSession.h"
#include "CockpitModel/XPlane/VrConfigParts.h"
#include "Utils/Files.h"
#include "Utils/Paths.h"
#include "Utils/RangeCheck.h"
#include "Utils/Text.h"

#include <algorithm>
#include <map>
#include <ranges>

namespace Annotator {

namespace {

using CockpitModel::Node;
using CockpitModel::NodePart;
using CockpitModel::SceneGraph;

/// Separates the texts of a row that is searched, because a filter cannot contain it.
constexpr char kBetweenTexts = '\n';

/// As the tree shows them: a node's parts before its children.
std::vector<NodePart*> PartsInTreeOrder(SceneGraph& scene) {
    std::vector<Node*> waiting;
    std::vector<std::vector<Node*>> children(scene.Nodes().size());
    const Utils::Matrix4 unused = Utils::Matrix4::Identity();
    scene.VisitNodes(unused, unused, [&](const auto&, const auto&, const auto&, const auto&, Node& node) {
        (node.parent ? Utils::At(children, node.parent->index) : waiting).push_back(&node);
    });
    std::ranges::reverse(waiting);
    std::vector<NodePart*> parts;
    while (!waiting.empty()) {
        const Node& node = *waiting.back();
        waiting.pop_back();
        for (const auto& part : node.parts)
            parts.push_back(part.get());
        const auto& below = Utils::At(children, node.index);
        waiting.insert(waiting.end(), below.rbegin(), below.rend());
    }
    return parts;
}

PartState StateOf(const AnnotationSession& session, NodePart& part) {
    return {.part = &part, .record = session.Annotations()->Get(part).value_or(CockpitModel::AnnotationRecord())};
}

/// The line of the first block for each manipulator, in the aircraft's VR configuration; none if it cannot be read.
std::map<std::string, std::uint32_t> VrBlockLines(const AnnotationSession& session) try {
    std::map<std::string, std::uint32_t> lines;
    if (session.Reading() == CockpitModel::Reading::Plain)
        return lines;
    const auto path = Utils::FindIgnoringCase(CockpitModel::VrConfigPath(session.AcfPath()));
    if (!path.empty())
        for (const auto& block : CockpitModel::ParseVrConfig(Utils::ReadFile(path)).blocks)
            lines.try_emplace(VrConfigKey(block), static_cast<std::uint32_t>(block.firstLine));
    return lines;
} catch (const std::exception&) {
    return {};
}

PartRow RowOf(PartState state) {
    PartRow row{.state = std::move(state), .texts = {}, .searched = {}};
    for (const PartColumn& column : PartColumns()) {
        row.texts.push_back(column.text(row.state));
        row.searched += Utils::ToLowerAscii(row.texts.back()) + kBetweenTexts;
    }
    return row;
}

struct SortKey {
    std::int64_t number = 0;
    std::string text;
    std::size_t row = 0;

    bool operator<(const SortKey& other) const {
        return number != other.number ? number < other.number : text < other.text;
    }
};

SortKey KeyOf(const PartColumn& column, const PartRow& row, const std::string& text, std::size_t index) {
    if (column.number)
        return {column.number(row.state), {}, index};
    return {0, Utils::ToLowerAscii(text), index};
}

constexpr const char* kNoneFails = "No part of this aircraft fails its test.";
constexpr const char* kNoneUnrecorded = "Every part of this aircraft that can be touched has an expected type.";

constexpr PartStep kSteps[] = {
    {"Next Failing Part", "F3", &PartState::IsFailing, false, kNoneFails},
    {"Previous Failing Part", "Shift+F3", &PartState::IsFailing, true, kNoneFails},
    {"Next Unrecorded Part", "F4", &PartState::IsUnrecorded, false, kNoneUnrecorded},
    {"Previous Unrecorded Part", "Shift+F4", &PartState::IsUnrecorded, true, kNoneUnrecorded}};

} // namespace

void PartList::Read(const AnnotationSession& session) {
    rows.clear();
    if (session.Scene()) {
        const auto blocks = VrBlockLines(session);
        for (NodePart* const part : PartsInTreeOrder(*session.Scene())) {
            PartState state = StateOf(session, *part);
            if (const auto block = part->manipulator ? blocks.find(VrConfigKey(*part->manipulator)) : blocks.end();
                block != blocks.end())
                state.vrBlockLine = block->second;
            rows.push_back(RowOf(std::move(state)));
        }
    }
    Arrange();
}

void PartList::Clear() {
    rows.clear();
    Arrange();
}

void PartList::SetFilter(std::string_view text) {
    words.clear();
    for (const std::string_view word : Utils::SplitBlanks(text))
        words.push_back(Utils::ToLowerAscii(word));
    Arrange();
}

void PartList::SetChoice(std::size_t index) {
    choice = index;
    Arrange();
}

void PartList::SetOrder(std::optional<PartOrder> newOrder) {
    order = newOrder;
    Arrange();
}

void PartList::ClickColumn(std::size_t column) {
    if (!order || order->column != column)
        SetOrder(PartOrder{column, false});
    else if (!order->descending)
        SetOrder(PartOrder{column, true});
    else
        SetOrder(std::nullopt);
}

const PartRow& PartList::Shown(std::size_t position) const {
    return Utils::At(rows, Utils::At(shown, position));
}

std::optional<std::size_t> PartList::PositionOf(const NodePart* part) const {
    const auto found = std::ranges::find(shown, part, [&](std::size_t row) { return rows[row].state.part; });
    return found == shown.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - shown.begin()));
}

bool PartList::Admits(const PartRow& row) const {
    return (row.state.*PartChoices()[choice].test)() && std::ranges::all_of(words, [&](const std::string& word) {
               return row.searched.find(word) != std::string::npos;
           });
}

void PartList::Arrange() {
    shown.clear();
    for (std::size_t row = 0; row < rows.size(); ++row)
        if (Admits(rows[row]))
            shown.push_back(row);
    if (order)
        SortShown();
}

void PartList::SortShown() {
    const PartColumn& column = PartColumns()[order->column];
    std::vector<SortKey> keys;
    std::vector<std::size_t> withoutText;
    for (const std::size_t row : shown) {
        const std::string& text = rows[row].texts[order->column];
        if (text.empty())
            withoutText.push_back(row);
        else
            keys.push_back(KeyOf(column, rows[row], text, row));
    }
    std::ranges::stable_sort(keys,
                             [&](const SortKey& a, const SortKey& b) { return order->descending ? b < a : a < b; });
    std::ranges::transform(keys, shown.begin(), &SortKey::row);
    std::ranges::copy(withoutText, shown.begin() + static_cast<std::ptrdiff_t>(keys.size()));
}

std::string CountText(const PartList& list, std::size_t chosen) {
    std::string text = Utils::Counted(list.RowCount(), "part");
    if (list.ShownCount() != list.RowCount())
        text = std::to_string(list.ShownCount()) + " of " + text;
    return chosen > 0 ? text + ", " + std::to_string(chosen) + " chosen" : text;
}

std::span<const PartStep> PartSteps() {
    return kSteps;
}

NodePart* FindPart(const AnnotationSession& session, PartTest test, bool backward) {
    if (!session.Scene())
        return nullptr;
    std::vector<NodePart*> parts = PartsInTreeOrder(*session.Scene());
    if (backward)
        std::ranges::reverse(parts);
    const auto selected = std::ranges::find(parts, session.SelectedPart());
    if (selected != parts.end())
        std::ranges::rotate(parts, selected + 1);
    const auto found = std::ranges::find_if(parts, [&](NodePart* part) { return (StateOf(session, *part).*test)(); });
    return found == parts.end() ? nullptr : *found;
}

} // namespace Annotator
