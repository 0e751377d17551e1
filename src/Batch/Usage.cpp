#include "Batch/Usage.h"

#include "Utils/EditDistance.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace Batch {

namespace {

/// Typing errors up to which a name is suggested.
constexpr std::size_t kMostErrors = 2;

/// The beginning of a name also suggests it.
std::string DidYouMean(const std::string& argument, const std::vector<std::string>& names) {
    const auto errors = [&](const std::string& candidate) {
        return argument.size() > 2 && candidate.starts_with(argument) ? 0 : Utils::EditDistance(argument, candidate);
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

std::string UnexpectedText(const CLI::App& command, const std::string& argument) {
    if (argument.starts_with('-'))
        return "unknown option " + argument + DidYouMean(argument.substr(0, argument.find('=')), OptionNames(command));
    if (const std::vector<std::string> names = CommandNames(command); !names.empty())
        return "unknown command '" + argument + "'" + DidYouMean(argument, names);
    return "unexpected argument '" + argument + "'; put quotes around a name that contains spaces";
}

/// The program, then the commands that were parsed, each below the one before it.
std::vector<const CLI::App*> ParsedCommands(const CLI::App& app) {
    std::vector<const CLI::App*> chain{&app};
    for (auto parsed = app.get_subcommands(); !parsed.empty(); parsed = chain.back()->get_subcommands())
        chain.push_back(parsed.back());
    return chain;
}

std::string Joined(const std::vector<const CLI::App*>& commands) {
    std::string text;
    for (const CLI::App* command : commands)
        text += (text.empty() ? "" : " ") + command->get_name();
    return text;
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

/// A line for the command, its options, and the commands below it.
std::string CommandLines(const CLI::App& command, const std::string& name) {
    std::string lines = name + "\t\t\n" + OptionLines(command, name);
    for (const CLI::App* below : Commands(command))
        lines += CommandLines(*below, name + " " + below->get_name());
    return lines;
}

} // namespace

std::string CompletionText(const CLI::App& app) {
    std::string lines = OptionLines(app, "");
    for (const CLI::App* command : Commands(app))
        lines += CommandLines(*command, command->get_name());
    return lines;
}

std::string CommandPath(const CLI::App& app) {
    return Joined(ParsedCommands(app));
}

std::string UsageText(const CLI::App& app, const CLI::Error& error) {
    std::vector<const CLI::App*> commands = ParsedCommands(app);
    const CLI::App& command = *commands.back();
    const std::vector<std::string> unexpected = app.remaining(true);
    commands.erase(commands.begin());
    std::string text = Joined(commands) + (commands.empty() ? "" : ": ");
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError) && !unexpected.empty())
        text += UnexpectedText(command, unexpected.front());
    else
        text += error.what();
    return text + "\nRun '" + CommandPath(app) + " --help' for usage";
}

} // namespace Batch
