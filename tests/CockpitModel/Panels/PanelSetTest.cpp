#include "CockpitModel/Panels/PanelSet.h"

#include "CockpitModel/Panels/ConfigFile.h"
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

/// The sections of a configuration as "section: key=value;" and so on, in order.
std::string SectionsOf(const std::string& config) {
    std::istringstream stream(config);
    const ConfigFile file(stream, false);
    std::string text;
    for (const auto& [name, table] : file.Sections()) {
        text += name + ":";
        for (const auto& [key, value] : table)
            text += " " + key + "=" + value + ";";
    }
    return text;
}

template <typename Callback>
const Callback& As(const auto& callback) {
    return dynamic_cast<const Callback&>(*callback);
}

} // namespace

TEST(ConfigFile, ReadsSectionsAndKeys) {
    const std::pair<const char*, const char*> rows[] = {
        {"[One]\nKey = Some Value \n", "one: key=Some Value;"},
        {" \t[One]\r\n\v key=v\f\r\n", "one: key=v;"},
        {"[One]\na=1=2\na b = c\ndd==\n", "one: a=1=2; a b=c; dd==;"},
        {"[One]\nbb=1\na =22\nB=3\nBB= 4\n", "one: bb=4; a=22;"},
        {"[Two]\nab=1\n[One]\ncd=2\n[TWO]\nef=3\n", "two: ab=1; ef=3;one: cd=2;"},
        {"before=1\n[One]\n#key=1\n=val\nnone\nk=1\n", "one:"},
        {"[One]\n[x]\nkey=1\n[broken\nkez=2\n[]\n", "one: key=1; kez=2;"},
        {"[One] tail\nkey=1\n", ""},
    };
    for (const auto& [text, sections] : rows)
        EXPECT_EQ(SectionsOf(text), sections) << text;
}

TEST(ParseGaugeLine, ReadsNamesPositionAndSize) {
    const auto sizeText = [](const std::optional<float>& size) {
        return size ? std::to_string(static_cast<int>(*size)) : "-";
    };
    const std::pair<const char*, const char*> rows[] = {
        {"Bendix!Radio, 10, 20", "bendix!radio at 10 20, - -"},
        {" A ! B c ,-1.5,+2e1,3,4", "a!b c at -1.5 20, 3 4"},
        {"a!b,,x,7px,\t8 9", "a!b at 0 0, 7 8"},
        {"a!b,1e99,nan,inf,0x10", "a!b at 0 0, 0 0"},
        {"a!b!c,1,2", "! at 1 2, - -"},
        {"a!b,1,2,3", "! at 0 0, - -"},
        {"", "! at 0 0, - -"},
    };
    for (const auto& [text, expected] : rows) {
        const GaugeLine line = ParseGaugeLine(text);
        std::ostringstream shown;
        shown << line.File << '!' << line.Name << " at " << line.X << ' ' << line.Y << ", " << sizeText(line.Width)
              << ' ' << sizeText(line.Height);
        EXPECT_EQ(shown.str(), expected) << text;
    }
}

TEST_F(PanelSetTest, FindsPanelsOfCockpitSections) {
    Read("[vcockpit]\ntexture=Plain.bmp\n[VCOCKPIT02]\ntexture=$Two\nfile=x\n[my_vcockpit]\ntexture=mine\n"
         "[VCockpit03]\npixel_size=1,1\n[Window]\ntexture=window\n");
    EXPECT_EQ(panels.Panels().size(), 3u);
    EXPECT_EQ(panels.Find("PLAIN.BMP")->Texture, "plain.bmp");
    Gauge().MouseAreas = {Support::CodeArea(0, 0, 1, 1, "go", 0)};
    Read("[vcockpit2]\ntexture=T\n[vcockpit1]\ntexture=t\ngauge0=file!gauge,0,0\n");
    EXPECT_EQ(panels.Panels().size(), 1u);
    EXPECT_EQ(panels.Find("t")->Entries.size(), 1u) << "the later one in the text counts, whatever its name";
}

TEST_F(PanelSetTest, PlacesAreasOnTheTexture) {
    MouseArea nested;
    nested.X = 10, nested.Y = 5;
    nested.Children = {Support::CodeArea(15, 5, 50, 20, "inner", 0)};
    // (25, 10) to (75, 30) of 100 x 50, scaled to 0.2 x 0.2 and offset by 0.1
    EXPECT_THAT(Places(EntriesOf(Support::CodeArea(25, 10, 50, 20, "a", 0))), ElementsAre("0.15 0.14 0.1 0.08"));
    EXPECT_THAT(Places(EntriesOf(nested)), ElementsAre("0.15 0.14 0.1 0.08"));
    EXPECT_THAT(Places(EntriesOf(Support::CodeArea(150, 0, 10, 10, "a", 0))), ElementsAre("0.4 0.1 -0.1 0.04"));
}

TEST_F(PanelSetTest, ChoosesTheSizesOfPanelAndGauge) {
    Gauge().MouseAreas = {Support::CodeArea(0, 0, 100, 50, "a", 0)};
    const std::pair<const char*, const char*> rows[] = {
        {"size_mm=200,100\npixel_size=50,50", "0.1 0 0.2 0.1"}, // the whole gauge is from 20 to 60
        {"pixel_size=400,100", "0.05 0 0.1 0.1"},
        {"", "0.2 0 0.4 0.1"},
    };
    for (const auto& [size, place] : rows) {
        Read("[vcockpit]\n" + std::string(size) + "\nGauge99=file!gauge,20,0,40,10\nmygauge=file!gauge,0,0\n");
        EXPECT_THAT(Places(panels.Find("")->Entries), ElementsAre(place)) << size;
    }
    Gauge().Size = {50, 50};
    Read("[vcockpit]\ngauge2=file!gauge,10,20\ngauge10=File!Gauge,30,40\n");
    EXPECT_THAT(Places(panels.Find("")->Entries), ElementsAre("0.1 0.2 0.5 0.5", "0.3 0.4 0.5 0.5"));
    EXPECT_EQ(Gauge().Position, Utils::Vector2(30, 40));
    file->loads = 0;
    Read("[vcockpit]\ngauge1=file!other,0,0\ngauge2=elsewhere!gauge,0,0\ngauge3=gauge,0,0\ngauge4=file!gauge,1,2,3\n");
    EXPECT_TRUE(panels.Find("")->Entries.empty());
    EXPECT_EQ(file->loads, 1) << "only a known file is loaded";
}

TEST_F(PanelSetTest, AnActionMakesARectangleWithItsCallback) {
    MouseArea area = Support::CodeArea(0, 0, 10, 10, "go", kClicks);
    area.Tooltip = "Tip";
    area.Action->EventID = 7;
    area.Action->Func = [](void*, std::uint32_t) {};
    const MouseRect code = EntriesOf(area).at(0).Rect;
    EXPECT_EQ(As<CallbackCode>(code.EventCallback).Code, "go");
    EXPECT_EQ(std::tuple(code.CallbackType, code.MouseFlags, code.Tooltip), std::tuple(1u, kClicks, "Tip"));
    area.Action->Code.clear();
    EXPECT_EQ(As<CallbackEventID>(EntriesOf(area).at(0).Rect.EventCallback).EventID, 7u);
    area.Action->EventID.reset();
    EXPECT_EQ(As<CallbackFSFunc>(EntriesOf(area).at(0).Rect.EventCallback).Func, *area.Action->Func);
    area.Action->Func.reset();
    area.Children = {Support::CodeArea(0, 0, 1, 1, "child", 0)};
    EXPECT_EQ(EntriesOf(area).size(), 1u) << "the child's";
    EXPECT_EQ(EntriesOf(Support::CodeArea(0, 0, 1, 1, "WheelUp", 0x6000)).at(0).Rect.CallbackType, 3u);
}

TEST_F(PanelSetTest, APairMakesOneSteppingRectangle) {
    MouseArea pair = Support::PairArea(25, 10, 50, 20, "less", "more");
    pair.Tooltip = "Heading";
    const auto& entries = EntriesOf(pair);
    ASSERT_THAT(Places(entries), ElementsAre("0.15 0.14 0.1 0.08"));
    const MouseRect& rect = entries[0].Rect;
    EXPECT_EQ(std::tuple(rect.CallbackType, rect.MouseFlags, rect.Tooltip), std::tuple(3u, 0x20020000u, "Heading"));
    EXPECT_EQ(rect.DragVector, Utils::Vector3(0.07f, 0.0f, 0.0f));
    const auto& jump = As<CallbackJumpDragging>(rect.VariableCallback);
    EXPECT_TRUE(jump.TwoCallbacks);
    EXPECT_EQ(As<CallbackCode>(jump.NegativeCallback).Code, "less");
    EXPECT_EQ(As<CallbackCode>(jump.PositiveCallback).Code, "more");
    std::swap(pair.Children[0], pair.Children[1]);
    EXPECT_EQ(EntriesOf(pair).size(), 2u) << "in another order they are two areas";
}

} // namespace CockpitModel
