#include "Batch/Reports/TestReport.h"

#include <array>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <set>
#include <tinyxml2.h>

namespace Batch {
namespace {

using CockpitModel::TouchInteractionType;
using testing::HasSubstr;
using testing::Not;

Annotator::PartResult Part(int node, int part, TouchInteractionType expected, TouchInteractionType detected,
                           const std::string& rectangle = "Rect") {
    Annotator::PartResult test;
    test.NodeId = node, test.PartId = part;
    test.rectangle = rectangle;
    test.expected = expected, test.detected = detected;
    test.passed = expected == detected;
    return test;
}

AircraftReport Aircraft(const std::string& name, std::vector<Annotator::PartResult> parts) {
    AircraftReport aircraft;
    aircraft.tests.displayName = name;
    aircraft.tests.acfPath = "Aircraft/" + name + ".acf";
    aircraft.tests.parts = std::move(parts);
    return aircraft;
}

/// Two aircraft: one with texts that every format must escape, one that could not be loaded.
TestReport AwkwardReport() {
    TestReport report{Aircraft("B\"a\" & <c>,\x01", {Part(3, 0, TouchInteractionType::Tap, TouchInteractionType::Tap),
                                                     Part(3, 1, TouchInteractionType::Tap, TouchInteractionType::Move,
                                                          "-a, \"b\" <i>&\x1F")}),
                      Aircraft("Piper", {})};
    report[0].tests.clickable = 10;
    report[0].tests.covered = 2;
    report[1].problems = {"no <material>"};
    return report;
}

TEST(TestReport, WritesWellFormedJUnit) {
    tinyxml2::XMLDocument document;
    ASSERT_EQ(document.Parse(JUnitReport(AwkwardReport()).c_str()), tinyxml2::XML_SUCCESS);
    const tinyxml2::XMLElement* suite = document.RootElement()->FirstChildElement("testsuite");
    EXPECT_STREQ(suite->Attribute("name"), "B\"a\" & <c>,\uFFFD");
    const tinyxml2::XMLElement* all = document.RootElement();
    EXPECT_EQ((std::array{all->IntAttribute("tests"), all->IntAttribute("failures"), all->IntAttribute("errors")}),
              (std::array{3, 1, 1}));
    const tinyxml2::XMLElement* passed = suite->FirstChildElement("testcase");
    EXPECT_EQ(passed->FirstChildElement(), nullptr);
    const tinyxml2::XMLElement* failed = passed->NextSiblingElement("testcase");
    EXPECT_STREQ(failed->FirstChildElement("failure")->Attribute("message"), "expected Tap, detected Move");
    const tinyxml2::XMLElement* broken = suite->NextSiblingElement("testsuite")->FirstChildElement("testcase");
    EXPECT_STREQ(broken->FirstChildElement("error")->Attribute("message"), "no <material>");
}

TEST(TestReport, QuotesCsvFields) {
    EXPECT_EQ(
        CsvReport(AwkwardReport()),
        "aircraft,acfPath,nodeId,partId,mouseRect,expected,detected,result,problem\n"
        "\"B\"\"a\"\" & <c>,\\x01\",\"Aircraft/B\"\"a\"\" & <c>,\\x01.acf\",3,0,Rect,Tap,Tap,passed,\n"
        "\"B\"\"a\"\" & <c>,\\x01\",\"Aircraft/B\"\"a\"\" & <c>,\\x01.acf\",3,1,\"'-a, \"\"b\"\" <i>&\\x1f\",Tap,Move,"
        "failed,\n"
        "Piper,Aircraft/Piper.acf,,,,,,error,no <material>\n");
}

TEST(TestReport, TellsWhichBlocksFailedAndWhichAircraftHaveNone) {
    TestReport report{Aircraft("Cub", {Part(3, 0, TouchInteractionType::Twist, TouchInteractionType::Tap)}),
                      Aircraft("Jet", {})};
    for (AircraftReport& aircraft : report) {
        aircraft.tests.source = Annotator::ExpectationSource::VrConfig;
        aircraft.tests.reading = CockpitModel::Reading::Full;
    }
    report[0].tests.parts[0].blockLine = 71;
    report[1].tests.hasVrConfig = false;
    report[1].tests.acfPath = "Aircraft/Jet/big.jet.acf";
    EXPECT_THAT(CsvReport(report), HasSubstr("Twist,Tap,failed,,,71\n"
                                             "Jet,Aircraft/Jet/big.jet.acf,,,,,,skipped,no big.jet_vrconfig.txt,,\n"));
    EXPECT_THAT(TableText(report), testing::ContainsRegex("Plain +Block in line\n.* 71\n"));
    EXPECT_THAT(TableText(report), Not(HasSubstr("Jet")));
    const std::string junit = JUnitReport(report), html = HtmlReport(report), json = JsonReport(report);
    EXPECT_THAT(junit, HasSubstr("tests=\"2\" failures=\"1\" errors=\"0\" skipped=\"1\""));
    EXPECT_THAT(junit, HasSubstr("detected Tap; block in line 71\""));
    EXPECT_THAT(junit, HasSubstr("<skipped message=\"no big.jet_vrconfig.txt\"/>"));
    EXPECT_THAT(html, HasSubstr("<b class=\"\">1</b>aircraft without one"));
    EXPECT_THAT(html, HasSubstr("not tested: no big.jet_vrconfig.txt"));
    EXPECT_THAT(html, HasSubstr("<td class=\"number\">71</td>"));
    EXPECT_EQ(JsonReport(ParseReport(json)), json);
    EXPECT_THAT(json, HasSubstr("\"withoutVrConfig\": 1"));
}

/// All texts between two delimiters.
std::vector<std::string> Between(const std::string& text, const std::string& before, const std::string& after) {
    std::vector<std::string> found;
    for (std::size_t at = text.find(before); at != text.npos; at = text.find(before, at)) {
        at += before.size();
        found.push_back(text.substr(at, text.find(after, at) - at));
    }
    return found;
}

TEST(TestReport, LinksTheMatrixToTheParts) {
    TestReport report = AwkwardReport();
    for (int i = 0; i < 3; ++i)
        report[1].tests.parts.push_back(Part(i, i, TouchInteractionType::YokePart, TouchInteractionType::None));
    const std::string html = HtmlReport(report);
    std::set<std::string> targets;
    for (const std::string& id : Between(html, "id=\"", "\""))
        EXPECT_TRUE(targets.insert(id).second) << id;
    const std::vector<std::string> links = Between(html, "href=\"#", "\"");
    EXPECT_EQ(std::set<std::string>(links.begin(), links.end()), targets);
    EXPECT_EQ(links.size(), 3u); // Tap as Tap, Tap as Move, YokePart as None
    EXPECT_THAT(Between(html, "href=\"#YokePart-as-None\">", "<"), testing::ElementsAre("3"));
    EXPECT_THAT(html, HasSubstr("B&quot;a&quot; &amp; &lt;c&gt;,\uFFFD"));
    EXPECT_THAT(html, HasSubstr("2 of 10"));
    EXPECT_THAT(html, HasSubstr("no &lt;material&gt;"));
    EXPECT_THAT(html, Not(HasSubstr("http"))) << "the page loads nothing";
    EXPECT_THAT(HtmlReport({}), HasSubstr("There are no tests."));
    EXPECT_THAT(html, Not(HasSubstr("Picture")));
}

TEST(TestReport, ShowsPicturesInHtmlOnly) {
    TestReport report = AwkwardReport();
    const std::string json = JsonReport(report);
    report[0].tests.parts[1].picture = "iVBO";
    EXPECT_EQ(JsonReport(report), json);
    EXPECT_EQ(HtmlReport({ParseAircraft(SerialiseAircraft(report[0]))}), HtmlReport({report[0]}));
    EXPECT_THAT(Between(HtmlReport(report), "<img ", ">"),
                testing::ElementsAre("width=\"320\" height=\"200\" alt=\"Node 3 part 1 of B&quot;a&quot; &amp; "
                                     "&lt;c&gt;,\uFFFD\" src=\"data:image/png;base64,iVBO\""));
}

} // namespace
} // namespace Batch
