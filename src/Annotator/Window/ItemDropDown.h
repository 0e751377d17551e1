#pragma once

#include "Annotator/Window/RepeatedChoice.h"
#include "Annotator/Window/WxText.h"
#include "Utils/RangeCheck.h"

#include <algorithm>
#include <boost/optional.hpp>
#include <boost/signals2/signal.hpp>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>
#include <wx/arrstr.h>
#include <wx/choice.h>

namespace Annotator {

/// A choice of values of type T, with a first line for no value. It has no lines before SetItems. It sends wxEVT_CHOICE
/// for every line picked from its list, including the current one.
template <typename T>
class ItemDropDown : public wxChoice {
public:
    ItemDropDown(wxWindow* parent, wxWindowID id, std::string noneText, std::function<std::string(const T&)> textOf)
        : wxChoice(parent, id), noneLabel(std::move(noneText)), labelOf(std::move(textOf)) {
        Bind(wxEVT_CHOICE, &ItemDropDown::OnChoice, this);
    }

    /// Shows the values and selects the first line, without a signal.
    void SetItems(const std::vector<T>& values) {
        items = values;
        wxArrayString lines;
        lines.Add(ToWide(noneLabel));
        for (const T& item : items)
            lines.Add(ToWide(labelOf(item)));
        Clear();
        Insert(lines, 0);
        SetSelection(0);
        InvalidateBestSize();
        SetSize(GetBestSize());
    }

    /// Empty on the first line.
    boost::optional<T> GetSelectedItem() const {
        const int line = GetSelection();
        if (line <= 0)
            return boost::none;
        return Utils::At(items, line - 1);
    }

    std::optional<T> GetChosen() const {
        const boost::optional<T> item = GetSelectedItem();
        return item ? std::optional<T>(*item) : std::nullopt;
    }

    /// Selects the line of a value, or the first line for none. A value without a line does not change the selection.
    void SelectItem(const std::optional<T>& value) {
        const auto found = value ? std::find(items.begin(), items.end(), *value) : items.end();
        if (found != items.end())
            SetSelection(static_cast<int>(found - items.begin()) + 1);
        else if (!value)
            SetSelection(0);
    }

    boost::signals2::signal<void(const boost::optional<T>&)> selectionSignal; ///< the user chose a line

private:
    void OnChoice(wxCommandEvent&) { selectionSignal(GetSelectedItem()); }

    std::string noneLabel; ///< text of line 0
    std::function<std::string(const T&)> labelOf;
    std::vector<T> items; ///< values of lines 1 and on
    RepeatedChoice repeated{*this, [this] { SendSelectionChangedEvent(wxEVT_CHOICE); }};
};

} // namespace Annotator
