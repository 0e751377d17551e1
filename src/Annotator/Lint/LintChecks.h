#pragma once

#include "Annotator/Lint/Lint.h"
#include "Annotator/Lint/LintOutline.h"

#include <span>

namespace Annotator {

/// Collects the findings of the checks on one file.
class LintFindings {
public:
    LintFindings(std::string file, std::vector<LintFinding>& target) : path(std::move(file)), findings(target) {}

    void Add(LintSeverity severity, const char* check, std::uint32_t line, std::string message, std::string fix) {
        findings.push_back({severity, check, path, line, std::move(message), std::move(fix)});
    }

private:
    std::string path;
    std::vector<LintFinding>& findings;
};

/// To add a check, write a function in LintChecks.cpp and add it to the table there.
using LintCheck = void (*)(const LintOutline& outline, LintFindings& findings);
std::span<const LintCheck> LintChecks();

} // namespace Annotator
