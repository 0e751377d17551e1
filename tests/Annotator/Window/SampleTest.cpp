#include "Annotator/Window/CanvasPicture.h"
#include "Annotator/Window/WindowFixture.h"
#include "Sim/XPAircraftListLoader.h"

#include <filesystem>
#include <set>

namespace {

using namespace Support;

std::size_t CountColours(const wxImage& image) {
    std::set<std::array<unsigned char, 3>> colours;
    const unsigned char* const end = image.GetData() + 3 * image.GetWidth() * image.GetHeight();
    for (const unsigned char* pixel = image.GetData(); pixel != end; pixel += 3)
        colours.insert({pixel[0], pixel[1], pixel[2]});
    return colours.size();
}

/// The window on a copy of the sample, in a folder whose name has letters of several languages. The image is saved as
/// canvas.png in the build folder.
TEST(Sample, IsListedLoadedAndDrawn) {
    const TemporaryFolder folder;
    BindDataFolder();
    const boost::filesystem::path installation = folder.path / "X-Plane \xC3\x9C\xE6\x97\xA5";
    const auto recursive = std::filesystem::copy_options::recursive;
    std::filesystem::copy(VORELLE_SOURCE_DIR "/sample", installation.native(), recursive);
    std::filesystem::copy(VORELLE_SOURCE_DIR "/data/QVRA/Images", (installation / "QVRA/Images").native(), recursive);
    const WorkingDirectory inside(installation);
    DialogRecorder dialogs;
    Sim::XPAircraftListLoader loader;
    auto* window = new Annotator::AnnotatorWindow(&loader);
    window->Show();
    PumpFrames(3);

    auto& selector = *Find<wxChoice>(*window);
    const std::vector<std::string> lines = Lines(selector);
    EXPECT_EQ(lines.size(), 5u);
    const auto trainer = std::ranges::find_if(lines, [](auto& line) { return line.starts_with("Vorelle Trainer"); });
    ASSERT_NE(trainer, lines.end());
    auto& canvas = *Find<Annotator::DXCanvas>(*window);
    EXPECT_EQ(CountColours(CanvasPicture(canvas)), 1u);
    Choose(selector, static_cast<int>(trainer - lines.begin()));
    EXPECT_TRUE(PumpUntil([&] { return Find<wxTreeCtrl>(*window)->GetCount() > 10; }));
    const wxImage picture = CanvasPicture(canvas);
    EXPECT_GT(CountColours(picture), 100u);
    wxImage::AddHandler(new wxPNGHandler);
    picture.SaveFile(VORELLE_BINARY_DIR "/canvas.png", wxBITMAP_TYPE_PNG);

    ChooseMenuItem(*window->GetMenuBar()->GetMenu(2), 0);
    const auto rootText = [&] {
        return Find<wxTreeCtrl>(*window)->GetItemText(Find<wxTreeCtrl>(*window)->GetRootItem());
    };
    EXPECT_TRUE(PumpUntil([&] { return rootText().EndsWith("(full reading, expectations of the plain reading)"); }));
    const auto scout = std::ranges::find_if(lines, [](auto& line) { return line.starts_with("Vorelle Scout"); });
    Choose(selector, static_cast<int>(scout - lines.begin()));
    EXPECT_TRUE(PumpUntil([&] { return rootText() == "Vorelle Scout (full reading)"; }));
    EXPECT_EQ(testing::PrintToString(dialogs.texts), "{}");
    window->Destroy();
    PumpFrames(3);
}

} // namespace
