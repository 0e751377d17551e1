// annotator_soak SECONDS [SEED]: drives the real window with random input in the installation in the working directory
// and monitors memory, textures, handles and threads. It fails if they grow, if the window shows an unexpected message,
// or if an annotation file does not contain what was saved.
#include <epoxy/gl.h> // before the GL header that the toolkit includes

#include "Annotator/Window/AnnotatorApp.h"
#include "Annotator/Window/AnnotatorWindow.h"
#include "Annotator/Window/PartListWindow.h"
#include "Annotator/Window/Toolkit.h"
#include "CockpitModel/AircraftCockpit.h"
#include "CockpitModel/Annotations/AnnotationStore.h"
#include "CockpitModel/Annotations/AnnotationXml.h"
#include "Logging/Logger.h"
#include "Sim/XPAircraftListLoader.h"

#include <boost/filesystem/operations.hpp>
#include <charconv>
#include <fstream>
#include <iostream>
#include <malloc.h>
#include <map>
#include <random>
#include <unistd.h>
#include <wx/button.h>
#include <wx/evtloop.h>
#include <wx/notebook.h>
#include <wx/uiaction.h>

namespace {

using CockpitModel::AnnotationRecord;
using Clock = std::chrono::steady_clock;
using CockpitModel::PartAddress;
using namespace Annotator;

constexpr double kSampleSeconds = 15;
/// Caches of the driver and the toolkit grow until all aircraft have been loaded a few times.
constexpr double kWarmUpShare = 0.2;
/// Maximum growth of memory from the first third after the warm-up to the last third.
constexpr double kMostGrowth = 0.05;
/// Messages that the window may show: one aircraft of the sample has no texture, and its annotations have a record
/// without a part.
constexpr const char* kExpected[] = {"cannot be loaded",     "It was kept unchanged as", "are not saved. Load",
                                     "Records that change",  "Nothing to save",          "fails its test",
                                     "has an expected type", "No aircraft is loaded"};
constexpr long kMostHandles = 4, kMostThreads = 1;
/// Texture names are checked up to this number. Drivers reuse the names of deleted textures.
constexpr GLuint kMostTextures = 4096;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

long CountEntries(const char* folder) {
    return std::distance(boost::filesystem::directory_iterator(folder), boost::filesystem::directory_iterator());
}

/// Textures of the context that the last frame left current.
long CountTextures() {
    long count = 0;
    for (GLuint name = 1; name <= kMostTextures; ++name)
        count += glIsTexture(name);
    return count;
}

struct Sample {
    double seconds = 0;
    long kilobytes = 0, textures = 0, handles = 0, threads = 0;
};

Sample TakeSample(double seconds) {
    long pages = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return {seconds, resident * (sysconf(_SC_PAGESIZE) / 1024), CountTextures(), CountEntries("/proc/self/fd"),
            CountEntries("/proc/self/task")};
}

class Soak {
public:
    explicit Soak(unsigned seed) : random(seed) {
        for (const auto& info : loader.LoadAircraftList()) {
            if (info->CreateCockpit()->IsValid())
                plainAircraft.push_back(static_cast<int>(aircraft.size()));
            aircraft.push_back(info->Clone());
        }
        dialogs.answer = wxID_YES;
        Open();
    }

    void Run(double seconds) {
        const auto start = Clock::now();
        double nextSample = 0;
        for (double now = 0; now < seconds; now = SecondsSince(start)) {
            Step();
            if (now >= nextSample) {
                // Aircraft differ greatly in size, so only samples of the same one are comparable.
                if (IsFull())
                    ChangeReading();
                Load(plainAircraft.front());
                Support::PumpFrames(10); // the driver has processed the load
                malloc_trim(0);
                samples.push_back(TakeSample(now));
                const Sample& sample = samples.back();
                std::cout << static_cast<int>(now) << " s, " << steps << " steps, " << sample.kilobytes << " kB, "
                          << sample.textures << " textures, " << sample.handles << " handles, " << sample.threads
                          << " threads" << std::endl;
                nextSample = now + kSampleSeconds;
            }
        }
        Close();
    }

    bool IsWell() const {
        const bool steady = IsSteady(), found = AllIsFound();
        bool quiet = true;
        for (const std::string& text : dialogs.texts) {
            if (std::ranges::any_of(kExpected, [&](const char* part) { return text.find(part) != text.npos; }))
                continue;
            std::cout << "FAILED: the window showed: " << text << '\n';
            quiet = false;
        }
        std::cout << steps << " steps, " << loads << " loads, " << saves << " saves, " << changes << " changes, "
                  << wrongRecords << " wrong records, " << windows << " windows" << std::endl;
        return steady && found && quiet && wrongRecords == 0;
    }

private:
    /// 0 for a count of 0, for example of the lines of a choice without a part.
    int Below(int count) { return std::uniform_int_distribution<int>(0, std::max(count - 1, 0))(random); }
    template <typename Type>
    Type& Child() {
        return *Support::Find<Type>(*window);
    }
    wxPoint PointInView() {
        const wxSize size = canvas->GetClientSize();
        return canvas->ClientToScreen(wxPoint(Below(size.x), Below(size.y)));
    }

    void Open() {
        window = new AnnotatorWindow(&loader);
        window->Show();
        canvas = Support::Find<DXCanvas>(*window);
        loaded = -1;
        ++windows;
        Support::PumpFrames(3);
    }
    void Close() {
        window->Destroy();
        Support::PumpFrames(3);
    }

    void Step() {
        static constexpr struct {
            int weight; ///< of 1000
            void (Soak::*act)();
        } kActions[] = {
            {20, &Soak::LoadAny}, {250, &Soak::Click},       {100, &Soak::Drag},    {150, &Soak::SelectInTree},
            {200, &Soak::Slide},  {150, &Soak::EditSave},    {40, &Soak::TurnPage}, {20, &Soak::ShowTransparent},
            {12, &Soak::Walk},    {4, &Soak::Resize},        {1, &Soak::Reopen},    {3, &Soak::ChangeReading},
            {8, &Soak::UseList},  {6, &Soak::ChangeRecords}, {6, &Soak::GoToPart},  {30, &Soak::ChangeView}};
        ++steps;
        int at = Below(1000);
        for (const auto& action : kActions) {
            if (at < action.weight) {
                (this->*action.act)();
                break;
            }
            at -= action.weight;
        }
        Support::PumpFrames(1);
    }

    /// Without a cockpit object, an aircraft is a fatal error in the plain reading.
    void LoadAny() {
        const int count = static_cast<int>(IsFull() ? aircraft.size() : plainAircraft.size());
        Load(IsFull() ? Below(count) : plainAircraft[static_cast<std::size_t>(Below(count))]);
    }
    void Load(int index) {
        loaded = index;
        Support::Choose(Child<wxChoice>(), loaded + 1);
        Support::PumpFrames(2);
        ++loads;
    }
    void Click() {
        mouse.MouseMove(PointInView());
        mouse.MouseClick();
        Support::PumpFrames(1);
    }
    void Drag() {
        mouse.MouseMove(PointInView());
        mouse.MouseDown();
        for (int i = Below(4); i >= 0; --i) {
            mouse.MouseMove(PointInView());
            Support::PumpFrames(1);
        }
        mouse.MouseUp();
        // Resets the view, because otherwise most clicks would go through the cabin roof.
        if (Below(4) == 0)
            canvas->control.camera.SetRotation({0, 0, 0});
    }
    void SelectInTree() {
        auto& tree = Child<wxTreeCtrl>();
        std::vector<wxTreeItemId> items;
        const std::function<void(const wxTreeItemId&)> gather = [&](const wxTreeItemId& item) {
            items.push_back(item);
            wxTreeItemIdValue cookie;
            for (auto child = tree.GetFirstChild(item, cookie); child.IsOk(); child = tree.GetNextChild(item, cookie))
                gather(child);
        };
        if (tree.GetRootItem().IsOk())
            gather(tree.GetRootItem());
        if (!items.empty())
            tree.SelectItem(items[static_cast<std::size_t>(Below(static_cast<int>(items.size())))]);
    }
    void Slide() {
        auto& pane = Child<AnimationsPane>();
        auto& animations = *Support::Find<wxChoice>(pane);
        auto& slider = *Support::Find<wxSlider>(pane);
        Support::Choose(animations, Below(static_cast<int>(animations.GetCount())));
        for (int i = Below(3); i >= 0; --i) {
            slider.SetValue(Below(101));
            Support::Fire(slider, wxEVT_SLIDER);
            Support::PumpFrames(1);
        }
    }
    void TurnPage() {
        auto& notebook = Child<wxNotebook>();
        notebook.SetSelection(static_cast<std::size_t>(Below(static_cast<int>(notebook.GetPageCount()))));
    }
    void ShowTransparent() {
        auto& box = *Support::FindLabelled<wxCheckBox>(*window, "Show Transparent Objects");
        box.SetValue(!box.GetValue());
        Support::Fire(box, wxEVT_CHECKBOX);
    }
    wxMenuItem& ReadingItem() { return *window->GetMenuBar()->GetMenu(2)->FindItemByPosition(0); }
    bool IsFull() { return ReadingItem().IsChecked(); }
    void ChangeReading() {
        if (std::ranges::find(plainAircraft, loaded) == plainAircraft.end())
            Load(plainAircraft.front());
        Support::ChooseMenuItem(*window->GetMenuBar()->GetMenu(2), 0);
        Support::PumpFrames(2);
        ++loads;
    }
    void ChangeView() {
        wxMenu& view = *window->GetMenuBar()->GetMenu(3);
        const auto choice = static_cast<std::size_t>(Below(6));
        if (choice >= 3)
            Support::ChooseMenuItem(*view.FindItemByPosition(3)->GetSubMenu(), choice - 3);
        else if (view.FindItemByPosition(choice)->IsEnabled())
            Support::ChooseMenuItem(view, choice);
    }
    void Walk() {
        const int keys[] = {'W', 'A', 'S', 'D', WXK_LEFT, WXK_RIGHT, WXK_UP, WXK_DOWN};
        const int key = keys[Below(8)];
        for (const auto& type : {wxEVT_KEY_DOWN, wxEVT_KEY_UP}) {
            wxKeyEvent event(type);
            event.m_keyCode = key;
            canvas->ProcessWindowEvent(event);
            Support::PumpFrames(1);
        }
    }
    void Resize() { window->SetSize(700 + Below(800), 500 + Below(400)); }
    void Reopen() {
        Close();
        Open();
    }

    std::optional<PartAddress> Selected() {
        const std::string label = Support::Labels<wxStaticText>(Child<PartInfoPane>()).at(0);
        PartAddress address;
        return std::sscanf(label.c_str(), "ID: (%d,%d)", &address.node, &address.part) == 2 ? std::optional(address)
                                                                                            : std::nullopt;
    }

    /// The value of the text of a choice's line; none for its first line.
    template <typename FromText>
    auto Chosen(wxChoice& choice, FromText fromText) {
        choice.SetSelection(Below(static_cast<int>(choice.GetCount())));
        return choice.GetSelection() == 0
                   ? std::nullopt
                   : std::optional(fromText(choice.GetStringSelection().ToStdString(wxConvUTF8)));
    }

    void EditSave() {
        const auto address = Selected();
        if (!address || loaded < 0)
            return;
        auto& pane = Child<InteractionPane>();
        std::vector<wxChoice*> choices;
        for (wxWindow* child : pane.GetChildren())
            if (auto* choice = dynamic_cast<wxChoice*>(child))
                choices.push_back(choice);
        static const std::vector<std::string> kTooltips = {"", "Throttle", "a < b & \"c\"", "Gr\xC3\xBC\xC3\x9F",
                                                           std::string(3000, 'x')};
        AnnotationRecord record{.NodeId = address->node, .PartId = address->part};
        record.InteractionType = Chosen(*choices.at(0), CockpitModel::TouchInteractionTypeFromText);
        record.EventType = Chosen(*choices.at(1), CockpitModel::TouchEventTypeFromText);
        record.InteractionTypeTest =
            Chosen(*Support::Find<wxChoice>(Child<TestPane>()), CockpitModel::TouchInteractionTypeFromText);
        record.Reverse = Below(2) == 1;
        const std::string& tooltip = kTooltips[static_cast<std::size_t>(Below(static_cast<int>(kTooltips.size())))];
        if (!tooltip.empty())
            record.Tooltip = tooltip;
        Support::Find<wxCheckBox>(pane)->SetValue(record.Reverse);
        Support::Find<wxTextCtrl>(pane)->SetValue(wxString::FromUTF8(tooltip));
        Support::Fire(*Support::FindLabelled<wxButton>(*window, "Save"), wxEVT_BUTTON);
        const auto reading = IsFull() ? CockpitModel::Reading::Full : CockpitModel::Reading::Plain;
        saved[CockpitModel::AnnotationFile(*aircraft[static_cast<std::size_t>(loaded)], reading)][*address] = record;
        ++saves;
    }

    wxMenu& PartsMenu() { return *window->GetMenuBar()->GetMenu(4); }
    void GoToPart() { Support::ChooseMenuItem(PartsMenu(), static_cast<std::size_t>(2 + Below(4))); }

    /// The list of parts, opened if it is not.
    PartListWindow& OpenList() {
        auto* list = Support::Find<PartListWindow>(*window);
        if (!list || !list->IsShown())
            Support::ChooseMenuItem(PartsMenu(), 0);
        Support::PumpFrames(1);
        return Child<PartListWindow>();
    }
    void UseList() {
        PartListWindow& list = OpenList();
        static const char* const kFilters[] = {"", "", "1", "move", "sim/ drag", "nothing has this"};
        Support::Find<wxTextCtrl>(list)->SetValue(kFilters[Below(6)]);
        auto& choice = *Support::Find<wxChoice>(list);
        Support::Choose(choice, Below(static_cast<int>(choice.GetCount())));
        wxMenu& sort = *list.GetMenuBar()->GetMenu(2);
        const int line = Below(static_cast<int>(sort.GetMenuItemCount()));
        wxCommandEvent chosen(wxEVT_MENU, sort.FindItemByPosition(static_cast<std::size_t>(line))->GetId());
        sort.ProcessEvent(chosen);
        auto& rows = *Support::Find<wxListCtrl>(list);
        if (rows.GetItemCount() > 0)
            rows.SetItemState(Below(rows.GetItemCount()), wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
        if (Below(4) == 0)
            list.Close();
    }

    std::map<PartAddress, AnnotationRecord> RecordsOf(const std::string& path) const {
        std::map<PartAddress, AnnotationRecord> records;
        for (const AnnotationRecord& record : CockpitModel::ReadAnnotations(path))
            records[record.Address()] = record;
        return records;
    }

    /// Expects what is detected for all rows that the list shows; takes it back half of the time.
    void ChangeRecords() {
        if (loaded < 0)
            return;
        const auto reading = IsFull() ? CockpitModel::Reading::Full : CockpitModel::Reading::Plain;
        const Sim::AircraftInfo& info = *aircraft[static_cast<std::size_t>(loaded)];
        const auto before = RecordsOf(CockpitModel::FindAnnotations(info, reading).path);
        const std::string path = CockpitModel::AnnotationFile(info, reading);
        PartListWindow& list = OpenList();
        auto& rows = *Support::Find<wxListCtrl>(list);
        wxMenu& change = *list.GetMenuBar()->GetMenu(1);
        rows.SetItemState(-1, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
        std::map<PartAddress, AnnotationRecord> expected = before;
        std::vector<PartAddress> addresses;
        for (long row = 0; row < rows.GetItemCount(); ++row) {
            const auto text = [&](int column) { return rows.GetItemText(row, column).ToStdString(); };
            const PartAddress address = *CockpitModel::ParsePartAddress(text(0));
            AnnotationRecord& record = expected[address];
            record.NodeId = address.node, record.PartId = address.part;
            record.InteractionTypeTest = CockpitModel::TouchInteractionTypeFromText(text(1));
            addresses.push_back(address);
        }
        const std::size_t shown = dialogs.texts.size();
        Support::ChooseMenuItem(change, 1);
        if (addresses.empty() || dialogs.texts.size() == shown ||
            dialogs.texts.back().find("Nothing") != std::string::npos)
            return;
        Compare(path, addresses, expected);
        if (Below(2) == 0) {
            Support::ChooseMenuItem(change, 4);
            Compare(path, addresses, before);
        } else {
            for (const PartAddress& address : addresses)
                saved[path][address] = expected[address];
        }
        ++changes;
    }
    void Compare(const std::string& path, const std::vector<PartAddress>& addresses,
                 const std::map<PartAddress, AnnotationRecord>& expected) {
        const auto found = RecordsOf(path);
        for (const PartAddress& address : addresses) {
            const auto there = found.find(address), wanted = expected.find(address);
            const bool same = (there == found.end()) == (wanted == expected.end()) &&
                              (there == found.end() || there->second == wanted->second);
            wrongRecords += !same;
        }
    }

    bool AllIsFound() const {
        bool all = true;
        for (const auto& [path, records] : saved) {
            std::map<PartAddress, AnnotationRecord> found;
            for (const AnnotationRecord& record : CockpitModel::ReadAnnotations(path))
                found[{record.NodeId, record.PartId}] = record;
            std::size_t lost = 0;
            for (const auto& [address, record] : records)
                lost += !found.contains(address) || found[address] != record;
            std::cout << path << ": " << records.size() << " records saved, " << lost << " lost\n";
            all &= lost == 0;
        }
        return all;
    }

    bool IsSteady() const {
        const auto first = static_cast<std::size_t>(kWarmUpShare * static_cast<double>(samples.size()));
        const std::size_t third = (samples.size() - first) / 3;
        if (third < 2)
            return true; // too short to judge
        const auto most = [&](std::size_t from, long Sample::*field) {
            const auto begin = samples.begin() + static_cast<std::ptrdiff_t>(from);
            return std::ranges::max(std::ranges::subrange(begin, begin + static_cast<std::ptrdiff_t>(third)), {},
                                    field).*
                   field;
        };
        const std::size_t last = samples.size() - third;
        const auto grew = [&](const char* what, long Sample::*field, long allowed) {
            const long before = most(first, field), after = most(last, field);
            std::cout << what << ": " << before << " after the warm-up, " << after << " at the end, " << allowed
                      << " more are allowed\n";
            return after - before > allowed;
        };
        const auto allowance = static_cast<long>(kMostGrowth * static_cast<double>(most(first, &Sample::kilobytes)));
        const bool memory = grew("memory in kB", &Sample::kilobytes, allowance);
        const bool textures = grew("textures", &Sample::textures, 0);
        const bool handles = grew("handles", &Sample::handles, kMostHandles);
        const bool threads = grew("threads", &Sample::threads, kMostThreads);
        return !memory && !textures && !handles && !threads;
    }

    std::mt19937 random;
    Sim::XPAircraftListLoader loader;
    Sim::AircraftList aircraft;     ///< in the order of the selector
    std::vector<int> plainAircraft; ///< indices of those with a cockpit object
    Support::DialogRecorder dialogs;
    AnnotatorWindow* window = nullptr;
    DXCanvas* canvas = nullptr;
    wxUIActionSimulator mouse;
    int loaded = -1;
    long steps = 0, loads = 0, saves = 0, windows = 0, changes = 0, wrongRecords = 0;
    std::vector<Sample> samples;
    std::map<std::string, std::map<PartAddress, AnnotationRecord>> saved;
};

class SoakApp : public wxApp {
public:
    bool OnInit() override { return true; }
    bool OnExceptionInMainLoop() override { throw; }
};

int Run(double seconds, unsigned seed) {
    wxEventLoop loop;
    const wxEventLoopActivator active(&loop);
    Soak soak(seed);
    soak.Run(seconds);
    return soak.IsWell() ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv, argv + argc);
    if (arguments.size() < 2 || arguments.size() > 3) {
        std::cerr << "usage: annotator_soak SECONDS [SEED], run in an installation with aircraft\n";
        return EXIT_FAILURE;
    }
    Logging::Logger::Create();
    Logging::Logger::Get().Start();
    if (!PrepareToolkit())
        return EXIT_FAILURE;
    wxApp::SetInstance(new SoakApp);
    int argumentCount = 0;
    if (!wxEntryStart(argumentCount, static_cast<char**>(nullptr)) || !wxTheApp->CallOnInit())
        return EXIT_FAILURE;
    wxTheApp->SetExitOnFrameDelete(false);
    const int result =
        Run(std::stod(arguments[1]), arguments.size() > 2 ? static_cast<unsigned>(std::stoul(arguments[2])) : 1);
    wxEntryCleanup();
    return result;
}
