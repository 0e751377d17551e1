#include "CockpitModel/Panels/PanelSet.h"

#include "Support/TestGaugeFile.h"

#include <gmock/gmock.h>
#include <iomanip>
#include <sstream>

namespace CockpitModel {

namespace {

using testing::ElementsAre;

constexpr std::uint32_t kClicks = 0xA0000000;

/// One gauge of 100 x 50 pixels, "file!gauge", placed on panels of 200 x 100 at (20, 10) with a size of 40 x 20: on the
/// texture from (0.1, 0.1) to (0.3, 0.3).
class PanelSetTest : public testing::Test {
protected:
    PanelSetTest() {
        auto owned = std::make_unique<Support::TestGaugeFile>();
        file = owned.get();
        repository.Add("FILE", std::move(owned));
        Gauge().NativeSize = {100, 50};
    }

    CockpitModel::Gauge& Gauge() { return file->gauges["gauge"]; }

    void Read(const std::string& text) {
        std::istringstream stream(text);
        panels.Read(stream, repository);
    }
    const std::vector<PanelEntry>& EntriesOf(const MouseArea& area) {
        Gauge().MouseAreas = {area};
        Read("[VCockpit01]\ntexture=T\nsize_mm=200,100\ngauge00=File!Gauge,20,10,40,20\n");
        return panels.Find("t")->Entries;
    }

    Support::TestGaugeFile* file = nullptr;
    GaugeRepository repository{"/"};
    PanelSet panels;
};

/// "u v width height" of each entry, to four digits.
std::vector<std::string> Places(const std::vector<PanelEntry>& entries) {
    std::vector<std::string> places;
    for (const PanelEntry& entry : entries) {
        std::ostringstream text;
        text << std::setprecision(4) << entry.U << ' ' << entry.V << ' ' << entry.Width << ' ' << entry.Height;
        places.push_back(text.str());
    }
    return places;
}

template <typename Callback>
const Callback& As(const auto& callback) {
    return dynamic_cast<const Callback&>(*callback);
}

} // namespace

TEST_F(PanelSetTest, FindsPanelsOfCockpitSections) {
    Read("[vcockpit]\ntexture=Plain.bmp\n[VCOCKPIT02]\ntexture=$Two\nfile=x\n[my_vcockpit]\ntexture=mine\n"
         "[VCockpit03]\npixel_size=1,1\n[Window]\ntexture=window\n");
    EXPECT_EQ(panels.Panels().size(), 3u);
    EXPECT_EQ(panels.Find("PLAIN.BMP")->Texture, "plain.bmp");
    EXPECT_NE(panels.Find("$two"), nullptr);
    EXPECT_EQ(panels.Find("")->Texture, "");
    Gauge().MouseAreas = {Support::CodeArea(0, 0, 1, 1, "go", 0)};
    Read("[vcockpit2]\ntexture=T\n[vcockpit1]\ntexture=t\ngauge0=file!gauge,0,0\n");
    EXPECT_EQ(panels.Panels().size(), 1u);
    EXPECT_EQ(panels.Find("t")->Entries.size(), 1u) << "the later one in the text counts, whatever its name";
    std::istringstream failed("[vcockpit]\ntexture=a\n");
    failed.setstate(std::ios::failbit);
    panels.Read(failed, repository);
    EXPECT_TRUE(panels.Panels().empty());
}

TEST_F(PanelSetTest, PlacesAreasOnTheTexture) {
    MouseArea nested;
    nested.X = 10, nested.Y = 5;
    nested.Children = {Support::CodeArea(15, 5, 50, 20, "inner", 0)};
    // (25, 10) to (75, 30) of 100 x 50, scaled to 0.2 x 0.2 and offset by 0.1
    EXPECT_THAT(Places(EntriesOf(Support::CodeArea(25, 10, 50, 20, "a", 0))), ElementsAre("0.15 0.14 0.1 0.08"));
    EXPECT_THAT(Places(EntriesOf(nested)), ElementsAre("0.15 0.14 0.1 0.08"));
    EXPECT_THAT(Places(EntriesOf(Support::CodeArea(-10, -20, 500, 500, "a", 0))), ElementsAre("0.08 0.02 0.22 0.28"));
    EXPECT_THAT(Places(EntriesOf(Support::CodeArea(150, 0, 10, 10, "a", 0))), ElementsAre("0.4 0.1 -0.1 0.04"));
}

TEST_F(PanelSetTest, ChoosesTheSizesOfPanelAndGauge) {
    Gauge().MouseAreas = {Support::CodeArea(0, 0, 100, 50, "a", 0)};
    const std::pair<const char*, const char*> rows[] = {
        {"size_mm=200,100\npixel_size=50,50", "0.1 0 0.2 0.1"}, // the whole gauge is from 20 to 60
        {"pixel_size=400,100", "0.05 0 0.1 0.1"},
        {"", "0.2 0 0.4 0.1"},
        {"size_mm= 80 wide, 100", "0.25 0 0.5 0.1"},
    };
    for (const auto& [size, place] : rows) {
        Read("[vcockpit]\n" + std::string(size) + "\nGauge99=file!gauge,20,0,40,10\nmygauge=file!gauge,0,0\n");
        EXPECT_THAT(Places(panels.Find("")->Entries), ElementsAre(place)) << size;
    }
    EXPECT_TRUE(repository.FindGauge("file", "GAUGE"));
    Gauge().Size = {50, 50};
    Read("[vcockpit]\ngauge2=file!gauge,10,20\ngauge10=File!Gauge,30,40\n");
    EXPECT_THAT(Places(panels.Find("")->Entries), ElementsAre("0.1 0.2 0.5 0.5", "0.3 0.4 0.5 0.5"));
    EXPECT_EQ(Gauge().Position, Utils::Vector2(30, 40));
    Read("[vcockpit]\nsize_mm=none\ngauge1=file!gauge,10,20\n");
    EXPECT_EQ(panels.Find("")->Entries.size(), 1u);
    file->loads = 0;
    Read("[vcockpit]\ngauge1=file!other,0,0\ngauge2=elsewhere!gauge,0,0\ngauge3=gauge,0,0\ngauge4=file!gauge,1,2,3\n");
    EXPECT_TRUE(panels.Find("")->Entries.empty());
    EXPECT_EQ(file->loads, 1) << "only a known file is loaded";
}

TEST_F(PanelSetTest, AnActionMakesARectangleWithItsCallback) {
    MouseArea area = Support::CodeArea(0, 0, 10, 10, "go", kClicks);
    area.Tooltip = "Tip";
    area.TooltipID = 5;
    area.Text = "text";
    area.Action->EventID = 7;
    area.Action->Func = [](void*, std::uint32_t) {};
    area.Action->ArgumentA = 1;
    area.Action->ArgumentB = 2;
    const MouseRect code = EntriesOf(area).at(0).Rect;
    EXPECT_EQ(As<CallbackCode>(code.EventCallback).Code, "go");
    EXPECT_EQ(code.CallbackType, 1u);
    EXPECT_EQ(code.MouseFlags, kClicks);
    EXPECT_EQ(code.Tooltip, "Tip");
    EXPECT_EQ(code.TooltipID, 5);
    EXPECT_EQ(code.Text, "text");
    area.Action->Code.clear();
    EXPECT_EQ(As<CallbackEventID>(EntriesOf(area).at(0).Rect.EventCallback).EventID, 7u);
    area.Action->EventID.reset();
    const MouseRect function = EntriesOf(area).at(0).Rect;
    EXPECT_EQ(As<CallbackFSFunc>(function.EventCallback).Func, *area.Action->Func);
    EXPECT_EQ(As<CallbackFSFunc>(function.EventCallback).ArgumentA, 1u);
    EXPECT_EQ(As<CallbackFSFunc>(function.EventCallback).ArgumentB, 2u);
    area.Action->Func.reset();
    area.Children = {Support::CodeArea(0, 0, 1, 1, "child", 0)};
    const auto& onlyChild = EntriesOf(area);
    ASSERT_EQ(onlyChild.size(), 1u);
    EXPECT_EQ(As<CallbackCode>(onlyChild[0].Rect.EventCallback).Code, "child");
    area.Action->EventID = 1;
    EXPECT_EQ(EntriesOf(area).size(), 2u);
    EXPECT_EQ(EntriesOf(Support::CodeArea(0, 0, 1, 1, "WheelUp", 0x6000)).at(0).Rect.CallbackType, 3u);
}

TEST_F(PanelSetTest, APairMakesOneSteppingRectangle) {
    MouseArea pair = Support::PairArea(25, 10, 50, 20, "less", "more");
    pair.Tooltip = "Heading";
    const auto& entries = EntriesOf(pair);
    ASSERT_THAT(Places(entries), ElementsAre("0.15 0.14 0.1 0.08"));
    const MouseRect& rect = entries[0].Rect;
    EXPECT_EQ(rect.CallbackType, 3u);
    EXPECT_EQ(rect.MouseFlags, 0x20020000u);
    EXPECT_EQ(rect.DragVector, Utils::Vector3(0.07f, 0.0f, 0.0f));
    EXPECT_EQ(rect.Tooltip, "Heading");
    EXPECT_EQ(rect.EventCallback, nullptr);
    const auto& jump = As<CallbackJumpDragging>(rect.VariableCallback);
    EXPECT_TRUE(jump.TwoCallbacks);
    EXPECT_EQ(jump.XDelta, 0);
    EXPECT_EQ(As<CallbackCode>(jump.NegativeCallback).Code, "less");
    EXPECT_EQ(As<CallbackCode>(jump.PositiveCallback).Code, "more");

    for (MouseArea& child : pair.Children)
        child.Action.reset();
    const MouseRect empty = EntriesOf(pair).at(0).Rect;
    EXPECT_EQ(empty.MouseFlags, 0u);
    EXPECT_EQ(As<CallbackCode>(As<CallbackJumpDragging>(empty.VariableCallback).PositiveCallback).Code, "");
}

TEST_F(PanelSetTest, OtherChildrenAreMappedOneByOne) {
    const MouseArea pair = Support::PairArea(0, 0, 50, 20, "less", "more");
    MouseArea swapped = pair, three = pair, misspelt = pair, withAction = pair;
    std::swap(swapped.Children[0], swapped.Children[1]);
    three.Children.push_back(Support::CodeArea(0, 0, 1, 1, "third", 0));
    misspelt.Children[0].Name = "decrement";
    withAction.Action = three.Children[2].Action;
    const std::pair<MouseArea, std::size_t> rows[] = {{swapped, 2}, {three, 3}, {misspelt, 2}, {withAction, 3}};
    for (const auto& [area, count] : rows) {
        const auto& entries = EntriesOf(area);
        EXPECT_EQ(entries.size(), count);
        for (const PanelEntry& entry : entries)
            EXPECT_EQ(entry.Rect.CallbackType, 1u);
    }
}

} // namespace CockpitModel
