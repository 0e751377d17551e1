#include "Batch/Reports/SheetHtml.h"

#include "Batch/Reports/Html.h"

#include <gmock/gmock.h>

namespace Batch {
namespace {

using CockpitModel::TouchInteractionType;
using testing::HasSubstr;

TEST(Html, EncodesBase64) {
    const std::pair<const char*, const char*> rows[] = {
        {"", ""}, {"f", "Zg=="}, {"fo", "Zm8="}, {"foo", "Zm9v"}, {"foob", "Zm9vYg=="}, {"\xFF\xEF\xBE", "/+++"}};
    for (const auto& [bytes, text] : rows)
        EXPECT_EQ(Base64(bytes), text);
}

TEST(SheetHtml, ListsThePartsBesideTheirPictures) {
    CockpitSheet sheet{"A <b>", "Aircraft/a&b.acf", {"more than 1"}, {640, 400}, {}};
    sheet.pictures = {
        {"iVBO",
         {{1, {3, 0}, TouchInteractionType::Tap, TouchInteractionType::Move, "push", "sim/<x>", "objects/p.obj", 12},
          {2, {4, 1}, TouchInteractionType::YokePrimary, TouchInteractionType::YokePrimary, "", "", "", 0}}}};
    const std::string html = SheetHtml(sheet);
    EXPECT_THAT(html, HasSubstr("<title>A &lt;b&gt;</title>"));
    EXPECT_THAT(html, HasSubstr("Aircraft/a&amp;b.acf"));
    EXPECT_THAT(html, HasSubstr(">2 touchable parts<"));
    EXPECT_THAT(html, HasSubstr(">more than 1<"));
    EXPECT_THAT(html, HasSubstr("<img width=\"640\" height=\"400\" alt=\"Picture 1: parts 1 to 2 of A &lt;b&gt;\" "
                                "src=\"data:image/png;base64,iVBO\">"));
    // Tap is orange: 0.9, 0.62, 0.
    EXPECT_THAT(html, HasSubstr("<td class=\"number\">1</td><td class=\"number\">3,0</td><td><span class=\"swatch\" "
                                "style=\"background:#57b5e8\"></span>Tap (detected Move)</td>"));
    EXPECT_THAT(html, HasSubstr(">push</td><td class=\"rectangle\">sim/&lt;x&gt;</td>"));
    EXPECT_THAT(html, HasSubstr(">objects/p.obj</td><td class=\"number\">12</td></tr>"));
    EXPECT_THAT(html, testing::Not(HasSubstr("http")));
}

} // namespace
} // namespace Batch
