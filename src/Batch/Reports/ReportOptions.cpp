#include "Batch/Reports/ReportOptions.h"

#include <CLI/CLI.hpp>

namespace Batch {

void AddReportOptions(CLI::App& app, ReportOptions& options) {
    for (std::size_t i = 0; i < options.files.size(); ++i)
        app.add_option(kReportForms[i].option, options.files[i], kReportForms[i].description)->type_name("FILE");
    app.add_flag("--require-tests", options.requireTests, "Fail if there are no tests");
}

} // namespace Batch
