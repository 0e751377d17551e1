#pragma once

#include "Annotator/PartColumns.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Annotator {

class AnnotationSession;

struct PartRow {
    PartState state;
    std::vector<std::string> texts; ///< by column
    std::string searched;           ///< all texts, in lower case
};

struct PartOrder {
    std::size_t column = 0; ///< of PartColumns
    bool descending = false;

    bool operator==(const PartOrder&) const = default;
};

/// The parts of the loaded aircraft as rows, of which those that a filter and a choice admit are shown. It has pointers
/// into the scene: Read must be called again after a load, and Clear before one. User interface thread.
class PartList {
public:
    /// Reads the parts and their stored annotations, in the order of the tree, and in the full reading the aircraft's
    /// VR configuration; no rows without an aircraft. Keeps the filter, the choice and the order.
    void Read(const AnnotationSession& session);
    void Clear();

    /// Shows only rows in which each word of the text occurs, in any column and in lower or upper case.
    void SetFilter(std::string_view text);
    /// An index of PartChoices; at first, all rows are chosen.
    void SetChoice(std::size_t index);
    /// Sorts by a column; without one, in the order of the tree, which also decides between equal rows. Rows without a
    /// text in the column come last.
    void SetOrder(std::optional<PartOrder> newOrder);
    /// The order after a click on a column's title: ascending, then descending, then that of the tree.
    void ClickColumn(std::size_t column);

    const std::optional<PartOrder>& Order() const { return order; }
    std::size_t RowCount() const { return rows.size(); }
    std::size_t ShownCount() const { return shown.size(); }
    /// A position outside the shown rows throws Utils::OutOfRange.
    const PartRow& Shown(std::size_t position) const;
    /// The position of a part's row; empty if it is not shown.
    std::optional<std::size_t> PositionOf(const CockpitModel::NodePart* part) const;

private:
    bool Admits(const PartRow& row) const;
    void Arrange();
    void SortShown();

    std::vector<PartRow> rows;      ///< in the order of the tree
    std::vector<std::size_t> shown; ///< indices of `rows`
    std::vector<std::string> words; ///< of the filter
    std::size_t choice = 0;
    std::optional<PartOrder> order;
};

/// The rows shown of all, and those of them that the user has chosen: "12 of 240 parts, 3 chosen".
std::string CountText(const PartList& list, std::size_t chosen);

/// A command that selects the next or previous part of a kind.
struct PartStep {
    const char* title;
    const char* key;
    PartTest test;
    bool backward;
    const char* noneText; ///< shown if the aircraft has no such part
};

std::span<const PartStep> PartSteps();

/// The first part after the selected one, or before it, that passes a test, in the order of the tree and from its end
/// to its start; the selected part itself comes last. Without a selected part, the search starts at the end of the
/// tree. Null if no part passes or no aircraft is loaded.
CockpitModel::NodePart* FindPart(const AnnotationSession& session, PartTest test, bool backward);

} // namespace Annotator
