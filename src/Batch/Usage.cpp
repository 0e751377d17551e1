#include "Batch/Usage.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <numeric>

namespace Batch {

namespace {

/// Typing errors up to which a name is suggested.
constexpr std::size_t kMostErrors = 2;

/// The edit distance: insertions, deletions and substitutions of one letter.
std::size_t Difference(const std::string& a, const std::string& b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t corner = row[0]++;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t changed = corner + (a[i - 1] == b[j - 1] ? 0 : 1);
            corner = row[j];
            row[j] = std::min({changed, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}

/// The beginning of a name also suggests it.
std::string DidYouMean(const std::string& argument, const std::vector<std::string>& names) {
    const auto errors = [&](const std::string& candidate) {
        return argument.size() > 2 && candidate.starts_with(argument) ? 0 : Difference(argument, candidate);
    };
    const auto nearest = std::ranges::min_element(names, {}, errors);
    if (nearest == names.end() || errors(*nearest) > std::min(kMostErrors, argument.size() / 2))
        return {};
    return "; did you mean '" + *nearest + "'?";
}

std::vector<const CLI::App*> Commands(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App*) { return true; });
}

std::vector<std::string> CommandNames(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* command : Commands(app))
        names.push_back(command->get_name());
    return names;
}

std::vector<std::string> OptionNames(const CLI::App& command) {
    std::vector<std::string> names;
    for (const CLI::Option* option : command.get_options())
        for (const std::string& name : option->get_lnames())
            names.push_back("--" + name);
    return names;
}

std::string UnexpectedText(const CLI::App& app, const CLI::App* command, const std::string& argument) {
    if (argument.starts_with('-'))
        return "unknown option " + argument +
               DidYouMean(argument.substr(0, argument.find('=')), OptionNames(command ? *command : app));
    if (command)
        return "unexpected argument '" + argument + "'; put quotes around a name that contains spaces";
    return "unknown command '" + argument + "'" + DidYouMean(argument, CommandNames(app));
}

/// One line per name of each option shown by help, and per positional argument.
std::string OptionLines(const CLI::App& command, const std::string& commandName) {
    std::string lines;
    for (const CLI::Option* option : command.get_options()) {
        if (option->get_group().empty())
            continue;
        std::vector<std::string> names;
        for (const std::string& name : option->get_snames())
            names.push_back("-" + name);
        for (const std::string& name : option->get_lnames())
            names.push_back("--" + name);
        if (names.empty())
            names.push_back(option->get_name());
        const std::string kind = option->get_items_expected_max() == 0 ? std::string() : option->get_type_name();
        for (const std::string& name : names)
            lines += commandName + "\t" + name + "\t" + kind + "\n";
    }
    return lines;
}

} // namespace

std::string CompletionText(const CLI::App& app) {
    std::string lines = OptionLines(app, "");
    for (const CLI::App* command : Commands(app))
        lines += command->get_name() + "\t\t\n" + OptionLines(*command, command->get_name());
    return lines;
}

std::string UsageText(const CLI::App& app, const CLI::Error& error) {
    const auto parsed = app.get_subcommands();
    const CLI::App* const command = parsed.empty() ? nullptr : parsed.back();
    const std::vector<std::string> unexpected = app.remaining(true);
    std::string text = command ? command->get_name() + ": " : std::string();
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError) && !unexpected.empty())
        text += UnexpectedText(app, command, unexpected.front());
    else
        text += error.what();
    return text + "\nRun '" + app.get_name() + (command ? " " + command->get_name() : "") + " --help' for usage";
}

} // namespace Batch
