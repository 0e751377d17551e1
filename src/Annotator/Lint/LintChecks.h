#pragma once

#include "Annotator/Lint/Lint.h"
#include "Annotator/Lint/LintOutline.h"

#include <span>

namespace Annotator {

/// Where a check puts what it finds.
class LintFindings {
public:
    LintFindings(std::string file, std::vector<LintFinding>& target) : path(std::move(file)), findings(target) {}

    void Add(LintSeverity severity, const char* check, std::uint32_t line, std::string wrong, std::string mend) {
        findings.push_back({severity, check, path, line, std::move(wrong), std::move(mend)});
    }

private:
    std::string path;
    std::vector<LintFinding>& findings;
};

/// To add a check: a function in LintChecks.cpp and its row in the table there.
using LintCheck = void (*)(const LintOutline& outline, LintFindings& findings);
std::span<const LintCheck> LintChecks();

} // namespace Annotator
