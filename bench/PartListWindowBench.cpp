// Needs a display. Measures what the user waits for after each letter in the filter of the list of parts.
#include "Annotator/Window/PartListWindow.h"
#include "Compare.h"
#include "Support/MadeAircraft.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <string>
#include <wx/app.h>
#include <wx/evtloop.h>

namespace {

constexpr int kParts = 10000;

CockpitModel::ModelData ManyParts() {
    Support::ModelBuilder builder;
    for (int i = 0; i < kParts / 2; ++i) {
        const int node = builder.Node(0);
        builder.Part(node, Support::TriangleAt(1));
        builder.Part(node, Support::TriangleAt(2));
        builder.Rect(0);
    }
    return std::move(builder.model);
}

/// The longest times of a change of the shown rows and of a complete repaint, in wall-clock time.
void TypeInFilter(benchmark::State& state) {
    Annotator::AnnotationSession session;
    session.Load(Support::MadeAircraft("Cub", "Made/Cub", Support::MakerOf(ManyParts())));
    auto* window = new Annotator::PartListWindow(nullptr, session, new wxMenu);
    window->Show();
    window->Read();
    wxListCtrl* rows = nullptr;
    wxTextCtrl* filter = nullptr;
    for (wxWindow* child : window->GetChildren().GetFirst()->GetData()->GetChildren()) {
        rows = rows ? rows : dynamic_cast<wxListCtrl*>(child);
        filter = filter ? filter : dynamic_cast<wxTextCtrl*>(child);
    }
    double filtered = 0, repainted = 0;
    for (auto _ : state) {
        for (const char* const text : {"1", "12", "12,", "12,1", ""}) {
            filtered = std::max(filtered, Bench::Cost([&] { filter->SetValue(text); }, CLOCK_MONOTONIC));
            wxYield();
            repainted = std::max(repainted, Bench::Cost(
                                                [&] {
                                                    rows->Refresh();
                                                    rows->Update();
                                                    wxYield();
                                                },
                                                CLOCK_MONOTONIC));
        }
    }
    state.counters["filter_ms"] = filtered * 1e3;
    state.counters["repaint_ms"] = repainted * 1e3;
    delete window;
}
BENCHMARK(TypeInFilter)->Iterations(10)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    wxApp::SetInstance(new wxApp);
    int argumentCount = 0;
    if (!wxEntryStart(argumentCount, static_cast<char**>(nullptr)))
        return EXIT_FAILURE;
    {
        wxEventLoop loop;
        const wxEventLoopActivator active(&loop);
        benchmark::RunSpecifiedBenchmarks();
    }
    wxEntryCleanup();
    benchmark::Shutdown();
}
