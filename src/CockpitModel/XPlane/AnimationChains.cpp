#include "CockpitModel/XPlane/AnimationChains.h"

#include "Utils/FatalError.h"

#include <algorithm>
#include <utility>

namespace CockpitModel {

namespace {

using Nodes = std::vector<XPObjAnimNode>;

void CheckChildren(const Nodes& nodes, const XPObjAnimNode& node) {
    for (const std::uint32_t child : node.children)
        if (nodes[child].parent != node.index)
            Utils::FatalError(HERE);
}

std::uint32_t AddNode(Nodes& nodes, std::uint32_t parent) {
    const auto index = static_cast<std::uint32_t>(nodes.size());
    XPObjAnimNode& node = nodes.emplace_back();
    node.index = index;
    node.parent = parent;
    return index;
}

/// Adds a new node with one step below another and returns its index.
std::uint32_t AppendToChain(Nodes& nodes, std::uint32_t last, XPObjAnimStep step) {
    const std::uint32_t index = AddNode(nodes, last);
    nodes[index].steps.push_back(std::move(step));
    nodes[last].children.push_back(index);
    if (nodes[last].index != last)
        Utils::FatalError(HERE);
    CheckChildren(nodes, nodes[last]);
    return index;
}

/// One step of a chain: exactly one of the two.
struct ChainStep {
    std::vector<XPObjAnimStep> simple;
    std::vector<XPObjKeyStep> keyed;
};

/// Takes all steps off a chain, in the order of the file.
std::vector<ChainStep> TakeSteps(Nodes& nodes, const std::vector<std::uint32_t>& chain) {
    std::vector<XPObjKeyStep> keyed = std::exchange(nodes[chain.front()].keySteps, {});
    std::erase_if(keyed, [](const XPObjKeyStep& step) { return step.keys.empty(); });
    std::vector<ChainStep> steps;
    auto next = keyed.begin();
    std::size_t simpleSteps = 0;
    const auto addKeyedUpTo = [&](std::size_t stepsBefore) {
        for (; next != keyed.end() && next->stepsBefore <= stepsBefore; ++next)
            steps.push_back({{}, {std::move(*next)}});
    };
    for (const std::uint32_t index : chain) {
        for (XPObjAnimStep& step : std::exchange(nodes[index].steps, {})) {
            addKeyedUpTo(simpleSteps++);
            steps.push_back({{std::move(step)}, {}});
        }
    }
    addKeyedUpTo(simpleSteps);
    return steps;
}

/// Adds nodes above one and returns them, the outermost first.
std::vector<std::uint32_t> AddAbove(Nodes& nodes, std::uint32_t index, std::size_t count) {
    std::vector<std::uint32_t> added;
    const std::uint32_t top = nodes[index].parent;
    std::uint32_t last = top;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t next = AddNode(nodes, last);
        if (last == top)
            std::ranges::replace(nodes[top].children, index, next);
        else
            nodes[last].children.push_back(next);
        added.push_back(next);
        last = next;
    }
    if (last != top) {
        nodes[last].children.push_back(index);
        nodes[index].parent = last;
    }
    return added;
}

} // namespace

std::uint32_t SplitIntoChain(Nodes& nodes, std::uint32_t index) {
    if (nodes[index].steps.size() < 2)
        Utils::FatalError(HERE);
    std::vector<XPObjAnimStep> steps = std::exchange(nodes[index].steps, {});
    std::vector<std::uint32_t> children = std::exchange(nodes[index].children, {});
    std::uint32_t last = index;
    for (std::size_t i = 1; i < steps.size(); ++i)
        last = AppendToChain(nodes, last, std::move(steps[i]));
    nodes[index].steps.push_back(std::move(steps.front()));
    for (const std::uint32_t child : children)
        nodes[child].parent = last;
    nodes[last].children = std::move(children);
    CheckChildren(nodes, nodes[last]);
    return last;
}

void CheckAllChildren(const Nodes& nodes) {
    for (const XPObjAnimNode& node : nodes)
        CheckChildren(nodes, node);
}

void InsertKeyFrames(Nodes& nodes, const std::vector<std::uint32_t>& chain) {
    std::vector<ChainStep> steps = TakeSteps(nodes, chain);
    const std::size_t added = steps.size() > chain.size() ? steps.size() - chain.size() : 0;
    std::vector<std::uint32_t> all = AddAbove(nodes, chain.front(), added);
    all.insert(all.end(), chain.begin(), chain.end());
    for (std::size_t i = 0; i < steps.size(); ++i) {
        nodes[all[i]].steps = std::move(steps[i].simple);
        nodes[all[i]].keySteps = std::move(steps[i].keyed);
    }
}

} // namespace CockpitModel
