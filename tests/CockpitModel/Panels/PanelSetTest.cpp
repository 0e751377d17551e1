#include "CockpitModel/Panels/PanelSet.h"

#include "Support/TestGaugeFile.h"

#include <gtest/gtest.h>
#include <sstream>

namespace CockpitModel {

namespace {

constexpr std::uint32_t kClicks = 0xA0000000;

/// One gauge of 100 x 50 pixels, "file!gauge", which panels of 200 x 100 hold at (20, 10) with a size of 40 x 20: on
/// the texture from (0.1, 0.1) to (0.3, 0.3).
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

void ExpectPlace(const PanelEntry& entry, float u, float v, float width, float height) {
    EXPECT_NEAR(entry.U, u, 1e-7f);
    EXPECT_NEAR(entry.V, v, 1e-7f);
    EXPECT_NEAR(entry.Width, width, 1e-7f);
    EXPECT_NEAR(entry.Height, height, 1e-7f);
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
    EXPECT_EQ(panels.Find("mine"), nullptr);
    EXPECT_EQ(panels.Find("window"), nullptr);
    std::istringstream failed("[vcockpit]\ntexture=a\n");
    failed.setstate(std::ios::failbit);
    panels.Read(failed, repository);
    EXPECT_TRUE(panels.Panels().empty());
}

TEST_F(PanelSetTest, ALaterSectionReplacesThePanelOfATexture) {
    Gauge().MouseAreas = {Support::CodeArea(0, 0, 1, 1, "go", 0)};
    Read("[vcockpit2]\ntexture=T\n[vcockpit1]\ntexture=t\ngauge0=file!gauge,0,0\n");
    EXPECT_EQ(panels.Panels().size(), 1u);
    EXPECT_TRUE(panels.Find("t")->Entries.empty()) << "sections go by name";
}

TEST_F(PanelSetTest, PlacesAreasOnTheTexture) {
    MouseArea nested;
    nested.X = 10, nested.Y = 5;
    nested.Children = {Support::CodeArea(15, 5, 50, 20, "inner", 0)};
    const struct {
        MouseArea area;
        float u, v, width, height;
    } rows[] = {
        // (25, 10) to (75, 30) of 100 x 50, on 0.2 x 0.2 behind 0.1
        {Support::CodeArea(25, 10, 50, 20, "a", 0), 0.15f, 0.14f, 0.1f, 0.08f},
        {nested, 0.15f, 0.14f, 0.1f, 0.08f},
        {Support::CodeArea(-10, -25, 500, 500, "a", 0), 0.08f, 0.0f, 0.22f, 0.3f},
        {Support::CodeArea(150, 0, 10, 10, "a", 0), 0.4f, 0.1f, -0.1f, 0.04f},
    };
    for (const auto& row : rows) {
        const auto& entries = EntriesOf(row.area);
        ASSERT_EQ(entries.size(), 1u);
        ExpectPlace(entries[0], row.u, row.v, row.width, row.height);
    }
}

TEST_F(PanelSetTest, ChoosesTheSizeOfThePanel) {
    const struct {
        const char* size;
        float u, width; // of an area of the whole gauge, which lies from 20 to 60
    } rows[] = {
        {"size_mm=200,100\npixel_size=50,50", 0.1f, 0.2f},
        {"pixel_size=400,100", 0.05f, 0.1f},
        {"", 0.2f, 0.4f},
        {"size_mm= 80 wide, 100", 0.25f, 0.5f},
    };
    for (const auto& row : rows) {
        Gauge().MouseAreas = {Support::CodeArea(0, 0, 100, 50, "a", 0)};
        Read("[vcockpit]\n" + std::string(row.size) + "\nGauge99=file!gauge,20,0,40,10\nmygauge=file!gauge,0,0\n");
        ASSERT_EQ(panels.Find("")->Entries.size(), 1u) << row.size;
        ExpectPlace(panels.Find("")->Entries[0], row.u, 0, row.width, 0.1f);
    }
}

TEST_F(PanelSetTest, LeavesOutWhatTheRepositoryDoesNotKnow) {
    Gauge().MouseAreas = {Support::CodeArea(0, 0, 100, 50, "a", 0)};
    Gauge().Size = {50, 50};
    Read("[vcockpit]\ngauge1=file!other,0,0\ngauge2=elsewhere!gauge,0,0\ngauge3=gauge,0,0\ngauge4=file!gauge,1,2,3\n");
    EXPECT_TRUE(panels.Find("")->Entries.empty());
    EXPECT_EQ(file->loads, 1);
    Read("[vcockpit]\ngauge1=file!gauge,10,20\ngauge2=file!gauge,30,40\n");
    ASSERT_EQ(panels.Find("")->Entries.size(), 2u);
    ExpectPlace(panels.Find("")->Entries[0], 0.1f, 0.2f, 0.5f, 0.5f);
    ExpectPlace(panels.Find("")->Entries[1], 0.3f, 0.4f, 0.5f, 0.5f);
    EXPECT_EQ(Gauge().Position, Utils::Vector2(30, 40));
    EXPECT_EQ(file->loads, 3);
    Read("[vcockpit]\nsize_mm=none\ngauge1=file!gauge,10,20\n");
    EXPECT_EQ(panels.Find("")->Entries.size(), 1u);
}

TEST_F(PanelSetTest, AnActionMakesARectangleOfItsCallback) {
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
    ASSERT_EQ(entries.size(), 1u);
    ExpectPlace(entries[0], 0.15f, 0.14f, 0.1f, 0.08f);
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

    MouseArea withoutActions = pair;
    withoutActions.Children[0].Action.reset();
    withoutActions.Children[1].Action.reset();
    const auto& empty = EntriesOf(withoutActions);
    ASSERT_EQ(empty.size(), 1u);
    EXPECT_EQ(empty[0].Rect.MouseFlags, 0u);
    EXPECT_EQ(As<CallbackCode>(As<CallbackJumpDragging>(empty[0].Rect.VariableCallback).PositiveCallback).Code, "");
}

TEST_F(PanelSetTest, OtherChildrenAreMappedOneByOne) {
    MouseArea swapped = Support::PairArea(0, 0, 50, 20, "less", "more");
    std::swap(swapped.Children[0], swapped.Children[1]);
    MouseArea three = Support::PairArea(0, 0, 50, 20, "less", "more");
    three.Children.push_back(Support::CodeArea(0, 0, 1, 1, "third", 0));
    MouseArea misspelt = Support::PairArea(0, 0, 50, 20, "less", "more");
    misspelt.Children[0].Name = "decrement";
    MouseArea withAction = Support::PairArea(0, 0, 50, 20, "less", "more");
    withAction.Action = three.Children[2].Action;
    const struct {
        const MouseArea& area;
        std::size_t entries;
    } rows[] = {{swapped, 2}, {three, 3}, {misspelt, 2}, {withAction, 3}};
    for (const auto& row : rows) {
        const auto& entries = EntriesOf(row.area);
        EXPECT_EQ(entries.size(), row.entries);
        for (const PanelEntry& entry : entries)
            EXPECT_EQ(entry.Rect.CallbackType, 1u);
    }
}

} // namespace CockpitModel
