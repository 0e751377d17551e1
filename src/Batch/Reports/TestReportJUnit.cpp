#include "Batch/Reports/TestReport.h"

#include <tinyxml2.h>

namespace Batch {

namespace {

using Annotator::AircraftResult;
using Annotator::PartResult;
using CockpitModel::TouchInteractionTypeToText;

class JUnitWriter {
public:
    explicit JUnitWriter(const TestReport& report) {
        const TestTotals totals = Totals(report);
        std::size_t errors = 0;
        for (const AircraftReport& aircraft : report)
            errors += aircraft.problems.size();
        const std::size_t skipped = totals.withoutVrConfig;
        printer.PushHeader(false, true);
        printer.OpenElement("testsuites");
        Attribute("name", "vorelle-batch");
        Counts(totals.Tests() + errors + skipped, totals.failed, errors, skipped);
        for (const AircraftReport& aircraft : report)
            if (aircraft.tests.Total() + aircraft.problems.size() > 0 || LacksVrConfig(aircraft.tests))
                Suite(aircraft);
        printer.CloseElement();
    }

    std::string Text() const { return printer.CStr(); }

private:
    void Attribute(const char* name, const std::string& value) {
        printer.PushAttribute(name, WithoutControls(value).c_str());
    }

    void Counts(std::size_t tests, std::size_t failures, std::size_t errors, std::size_t skipped) {
        Attribute("tests", std::to_string(tests));
        Attribute("failures", std::to_string(failures));
        Attribute("errors", std::to_string(errors));
        if (skipped > 0)
            Attribute("skipped", std::to_string(skipped));
    }

    void Suite(const AircraftReport& aircraft) {
        const AircraftResult& tests = aircraft.tests;
        printer.OpenElement("testsuite");
        Attribute("name", tests.displayName);
        const std::size_t errors = aircraft.problems.size(), skipped = LacksVrConfig(tests) ? 1 : 0;
        Counts(tests.Total() + errors + skipped, tests.Failed(), errors, skipped);
        printer.OpenElement("properties");
        printer.OpenElement("property");
        Attribute("name", "acfPath");
        Attribute("value", tests.acfPath);
        printer.CloseElement();
        printer.CloseElement();
        for (const PartResult& part : tests.parts)
            Case(tests, part);
        for (const std::string& problem : aircraft.problems)
            Error(tests, problem);
        if (LacksVrConfig(tests))
            Skipped(tests);
        printer.CloseElement();
    }

    void Case(const AircraftResult& tests, const PartResult& part) {
        const std::string rectangle = part.rectangle.empty() ? "" : ": " + part.rectangle;
        OpenCase(tests, "node " + std::to_string(part.NodeId) + " part " + std::to_string(part.PartId) + rectangle);
        if (!part.passed) {
            printer.OpenElement("failure");
            Attribute("type", "InteractionType");
            Attribute("message", "expected " + TouchInteractionTypeToText(part.expected) + ", detected " +
                                     TouchInteractionTypeToText(part.detected) +
                                     (part.FailedAsPlain() ? "; the plain reading detects what is expected" : "") +
                                     (part.blockLine > 0 ? "; block in line " + std::to_string(part.blockLine) : ""));
            printer.CloseElement();
        }
        printer.CloseElement();
    }

    /// A suite cannot have an error of its own, so the error is written as a case.
    void Error(const AircraftResult& tests, const std::string& problem) {
        OpenCase(tests, "aircraft");
        printer.OpenElement("error");
        Attribute("type", "Aircraft");
        Attribute("message", problem);
        printer.CloseElement();
        printer.CloseElement();
    }

    void Skipped(const AircraftResult& tests) {
        OpenCase(tests, "aircraft");
        printer.OpenElement("skipped");
        Attribute("message", NoVrConfigText(tests));
        printer.CloseElement();
        printer.CloseElement();
    }

    void OpenCase(const AircraftResult& tests, const std::string& name) {
        printer.OpenElement("testcase");
        Attribute("classname", tests.displayName);
        Attribute("name", name);
    }

    tinyxml2::XMLPrinter printer;
};

} // namespace

std::string JUnitReport(const TestReport& report) {
    return JUnitWriter(report).Text();
}

} // namespace Batch
