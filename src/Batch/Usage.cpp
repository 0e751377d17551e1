#include "Batch/Usage.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <numeric>

namespace Batch {

namespace {

/// Letters that may be wrong in a word that is still taken for another.
constexpr std::size_t kMostWrong = 2;

/// How many letters have to be put in, left out or changed to make one word of the other.
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

/// A beginning of a word means it, too.
std::string DidYouMean(const std::string& word, const std::vector<std::string>& words) {
    const auto wrong = [&](const std::string& candidate) {
        return word.size() > 2 && candidate.starts_with(word) ? 0 : Difference(word, candidate);
    };
    const auto nearest = std::ranges::min_element(words, {}, wrong);
    if (nearest == words.end() || wrong(*nearest) > std::min(kMostWrong, word.size() / 2))
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

std::string UnexpectedText(const CLI::App& app, const CLI::App* command, const std::string& word) {
    if (word.starts_with('-'))
        return "there is no option " + word +
               DidYouMean(word.substr(0, word.find('=')), OptionNames(command ? *command : app));
    if (command)
        return "'" + word + "' is one word too many; a name with blanks needs quotes";
    return "there is no command '" + word + "'" + DidYouMean(word, CommandNames(app));
}

/// A line for each name of each option that help shows, and for each command-line argument under its own name.
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
    return text + "\n'" + app.get_name() + (command ? " " + command->get_name() : "") + " --help' tells its usage";
}

} // namespace Batch
