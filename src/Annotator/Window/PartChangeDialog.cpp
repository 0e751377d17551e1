#include "Annotator/Window/PartChangeDialog.h"

#include "Annotator/Window/AccessibleName.h"
#include "Annotator/Window/WxText.h"

#include <wx/arrstr.h>
#include <wx/button.h>
#include <wx/sizer.h>

namespace Annotator {

namespace {

constexpr int kGap = 8;

} // namespace

PartChangeDialog::PartChangeDialog(wxWindow* parent, const AnnotationSession& shownSession,
                                   std::vector<CockpitModel::NodePart*> chosenParts)
    : wxDialog(parent, wxID_ANY, "Set Values"), session(shownSession), parts(std::move(chosenParts)) {
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    auto* grid = new wxFlexGridSizer(2, FromDIP(kGap), FromDIP(kGap));
    MakeChoices(*grid);
    countText = new wxStaticText(this, wxID_ANY, "");
    sizer->Add(grid, 0, wxALL, FromDIP(kGap));
    sizer->Add(countText, 0, wxEXPAND | wxALL, FromDIP(kGap));
    sizer->Add(CreateButtonSizer(wxOK | wxCANCEL), 0, wxEXPAND | wxALL, FromDIP(kGap));
    FindWindow(wxID_OK)->SetLabel("Save");
    OnChoice();
    SetSizerAndFit(sizer);
}

void PartChangeDialog::MakeChoices(wxSizer& sizer) {
    for (const ChangeField& field : fields) {
        wxArrayString lines;
        for (const std::string& line : field.lines)
            lines.Add(ToWide(line));
        sizer.Add(new wxStaticText(this, wxID_ANY, field.title), 0, wxALIGN_CENTRE_VERTICAL);
        choices.push_back(new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, lines));
        choices.back()->SetSelection(0);
        choices.back()->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { OnChoice(); });
        SetAccessibleName(*choices.back(), field.title);
        sizer.Add(choices.back(), 0, wxEXPAND);
    }
}

void PartChangeDialog::OnChoice() {
    RecordChange change;
    for (std::size_t i = 0; i < fields.size(); ++i)
        fields[i].choose(change, static_cast<std::size_t>(choices[i]->GetSelection()));
    updates = UpdatesOf(session, parts, change);
    countText->SetLabelText(ToWide(ChangeCountText(updates.size(), parts.size())));
    FindWindow(wxID_OK)->Enable(!updates.empty());
}

} // namespace Annotator
