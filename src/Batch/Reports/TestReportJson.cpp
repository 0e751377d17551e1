#include "Batch/Reports/Json.h"
#include "Batch/Reports/TestReport.h"

namespace Batch {

namespace {

using Annotator::AircraftResult;
using Annotator::ExpectationSource;
using Annotator::PartResult;
using CockpitModel::AnnotationRecord;
using CockpitModel::Reading;
using CockpitModel::TouchInteractionTypeFromText;
using CockpitModel::TouchInteractionTypeToText;

constexpr const char* kFull = "full";
constexpr const char* kPicture = "picture"; // not in reports

Json ToJson(const PartResult& part) {
    Json json{{"nodeId", part.NodeId},
              {"partId", part.PartId},
              {"mouseRect", JsonText(part.rectangle)},
              {"expected", TouchInteractionTypeToText(part.expected)},
              {"detected", TouchInteractionTypeToText(part.detected)},
              {"passed", part.passed}};
    if (part.plain)
        json["plain"] = TouchInteractionTypeToText(*part.plain);
    if (part.blockLine > 0)
        json["blockLine"] = part.blockLine;
    return json;
}

CockpitModel::TouchInteractionType TypeFromJson(const Json& json) {
    const std::string text = json;
    try {
        return TouchInteractionTypeFromText(text);
    } catch (const std::exception&) {
        throw std::runtime_error("'" + text + "' is not an interaction type");
    }
}

PartResult PartFromJson(const Json& json) {
    PartResult part{.NodeId = json.at("nodeId"),
                    .PartId = json.at("partId"),
                    .rectangle = json.at("mouseRect"),
                    .expected = TypeFromJson(json.at("expected")),
                    .detected = TypeFromJson(json.at("detected")),
                    .passed = json.at("passed")};
    if (json.contains("plain"))
        part.plain = TypeFromJson(json.at("plain"));
    part.blockLine = json.value("blockLine", 0u);
    return part;
}

Json ToJson(const AnnotationRecord& unplaced) {
    return {{"nodeId", unplaced.NodeId},
            {"partId", unplaced.PartId},
            {"expected", TouchInteractionTypeToText(*unplaced.InteractionTypeTest)}};
}

AnnotationRecord UnplacedFromJson(const Json& json) {
    AnnotationRecord record;
    record.NodeId = json.at("nodeId");
    record.PartId = json.at("partId");
    record.InteractionTypeTest = TypeFromJson(json.at("expected"));
    return record;
}

template <typename List>
Json ListToJson(const List& list) {
    Json json = Json::array();
    for (const auto& item : list)
        json.push_back(ToJson(item));
    return json;
}

Json ToJson(const AircraftReport& aircraft) {
    const AircraftResult& tests = aircraft.tests;
    Json problems = Json::array();
    for (const std::string& problem : aircraft.problems)
        problems.push_back(JsonText(problem));
    Json json{{"displayName", JsonText(tests.displayName)},
              {"acfPath", JsonText(tests.acfPath)},
              {"hasCockpitObject", tests.hasCockpitObject},
              {"passed", tests.Passed()},
              {"failed", tests.Failed()},
              {"total", tests.Total()},
              {"clickable", tests.clickable},
              {"covered", tests.covered},
              {"problems", std::move(problems)},
              {"parts", ListToJson(tests.parts)},
              {"unplaced", ListToJson(tests.unplaced)}};
    if (tests.reading == Reading::Full) {
        json["reading"] = kFull;
        json["plainExpectations"] = tests.plainExpectations;
        json["failedAsPlain"] = tests.FailedAsPlain();
    }
    if (tests.source == ExpectationSource::VrConfig)
        json["hasVrConfig"] = tests.hasVrConfig;
    return json;
}

AircraftReport AircraftFromJson(const Json& json) {
    AircraftReport aircraft;
    AircraftResult& tests = aircraft.tests;
    tests.displayName = json.at("displayName");
    tests.acfPath = json.at("acfPath");
    tests.hasCockpitObject = json.at("hasCockpitObject");
    tests.reading = json.value("reading", "") == kFull ? Reading::Full : Reading::Plain;
    tests.plainExpectations = json.value("plainExpectations", false);
    if (json.contains("hasVrConfig")) {
        tests.source = ExpectationSource::VrConfig;
        tests.hasVrConfig = json.at("hasVrConfig");
    }
    tests.clickable = json.at("clickable");
    tests.covered = json.at("covered");
    for (const Json& part : json.at("parts"))
        tests.parts.push_back(PartFromJson(part));
    for (const Json& record : json.at("unplaced"))
        tests.unplaced.push_back(UnplacedFromJson(record));
    for (const Json& problem : json.at("problems"))
        aircraft.problems.push_back(problem);
    return aircraft;
}

} // namespace

std::string SerialiseAircraft(const AircraftReport& aircraft) {
    Json json = ToJson(aircraft);
    for (std::size_t i = 0; i < aircraft.tests.parts.size(); ++i)
        if (const std::string& picture = aircraft.tests.parts[i].picture; !picture.empty())
            json["parts"][i][kPicture] = picture;
    return json.dump();
}

AircraftReport ParseAircraft(std::string_view text) {
    const Json json = Json::parse(text);
    AircraftReport aircraft = AircraftFromJson(json);
    for (std::size_t i = 0; i < aircraft.tests.parts.size(); ++i)
        aircraft.tests.parts[i].picture = json["parts"][i].value(kPicture, "");
    return aircraft;
}

TestReport ParseReport(std::string_view json) {
    TestReport report;
    const Json whole = Json::parse(json);
    for (const Json& aircraft : whole.at("aircraft"))
        report.push_back(AircraftFromJson(aircraft));
    return report;
}

/// Contains no times or machine names: the same results give the same bytes.
std::string JsonReport(const TestReport& report) {
    const TestTotals totals = Totals(report);
    Json aircraft = Json::array();
    for (const AircraftReport& one : report)
        aircraft.push_back(ToJson(one));
    Json json{{"passed", totals.passed},        {"failed", totals.failed},   {"total", totals.Tests()},
              {"clickable", totals.clickable},  {"covered", totals.covered}, {"withProblems", totals.withProblems},
              {"aircraft", std::move(aircraft)}};
    if (totals.full > 0)
        json["failedAsPlain"] = totals.failedAsPlain;
    if (totals.vrConfig > 0)
        json["withoutVrConfig"] = totals.withoutVrConfig;
    return json.dump(1) + "\n";
}

} // namespace Batch
