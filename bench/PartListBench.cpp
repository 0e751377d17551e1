#include "Annotator/AnnotationSession.h"
#include "Annotator/PartList.h"
#include "CockpitModel/Touch/MouseRectCallbacks.h"
#include "Compare.h"
#include "Support/MadeAircraft.h"

#include <benchmark/benchmark.h>
#include <string>

namespace {

using Bench::Compare;

/// Two parts on each node, one of which can be touched.
CockpitModel::ModelData ManyParts(int count) {
    Support::ModelBuilder builder;
    builder.model.objects.push_back({"objects/cockpit_panel.obj", ""});
    for (int i = 0; i < count / 2; ++i) {
        const std::string name = "sim/cockpit2/switches/panel_switch_" + std::to_string(i);
        const int node = builder.Node(0, name, Support::Slide(1, 0, 0));
        builder.Part(node, Support::TriangleAt(1)).SourceLine = static_cast<std::uint32_t>(2 * i + 1);
        CockpitModel::RiffBlockPART& part = builder.Part(node, Support::TriangleAt(2));
        part.SourceLine = part.ManipulatorLine = static_cast<std::uint32_t>(2 * i + 2);
        builder.Rect(CockpitModel::kFiresEvent).EventCallback =
            std::make_shared<CockpitModel::CallbackXPToggle>(name, 0.0f, 1.0f);
    }
    return std::move(builder.model);
}

void ReadList(benchmark::State& state) {
    Annotator::AnnotationSession session;
    session.Load(
        Support::MadeAircraft("Cub", "Made/Cub", Support::MakerOf(ManyParts(static_cast<int>(state.range(0))))));
    Annotator::PartList list;
    for (auto _ : state)
        list.Read(session);
}
BENCHMARK(ReadList)->Arg(10000)->Unit(benchmark::kMillisecond);

/// What one letter in the filter costs, compared with a bare search of the same texts.
void FilterList(benchmark::State& state) {
    Annotator::AnnotationSession session;
    session.Load(
        Support::MadeAircraft("Cub", "Made/Cub", Support::MakerOf(ManyParts(static_cast<int>(state.range(0))))));
    Annotator::PartList list;
    list.Read(session);
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < list.ShownCount(); ++i)
        texts.push_back(list.Shown(i).searched);
    Compare(
        state,
        [&] {
            list.SetFilter("toggle switch_9");
            benchmark::DoNotOptimize(list.ShownCount());
            list.SetFilter("");
        },
        [&] {
            for (const char* const word : {"toggle", "switch_9"})
                for (const std::string& text : texts)
                    benchmark::DoNotOptimize(text.find(word));
        },
        2);
}
BENCHMARK(FilterList)->Arg(10000);

void SortList(benchmark::State& state) {
    Annotator::AnnotationSession session;
    session.Load(
        Support::MadeAircraft("Cub", "Made/Cub", Support::MakerOf(ManyParts(static_cast<int>(state.range(0))))));
    Annotator::PartList list;
    list.Read(session);
    for (auto _ : state)
        for (std::size_t column = 0; column < Annotator::PartColumns().size(); ++column)
            list.SetOrder(Annotator::PartOrder{column, column % 2 == 1});
    state.counters["columns"] = static_cast<double>(Annotator::PartColumns().size());
}
BENCHMARK(SortList)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
