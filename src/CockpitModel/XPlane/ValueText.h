#pragma once

#include "Utils/Numbers.h"
#include "Utils/Text.h"

#include <algorithm>
#include <string_view>

namespace CockpitModel {

/// The values of one line, from left to right. Past the last, words are empty and numbers 0.
class ValueText {
public:
    explicit ValueText(std::string_view line) : rest(line) {}

    std::string_view Word() {
        rest.remove_prefix(std::min(rest.find_first_not_of(kSpace), rest.size()));
        const std::string_view word = rest.substr(0, rest.find_first_of(kSpace));
        rest.remove_prefix(word.size());
        return word;
    }
    /// A word that is not a number counts as 0.
    float Number() {
        std::string_view word = Word();
        if (word.starts_with('+'))
            word.remove_prefix(1);
        const bool isNumber = !word.empty() && word.find_first_not_of("+-.0123456789eE") == word.npos;
        return isNumber ? Utils::ParseWhole<float>(word).value_or(0.0f) : 0.0f;
    }
    std::string_view Rest() {
        rest.remove_prefix(std::min(rest.find_first_not_of(kSpace), rest.size()));
        return rest.substr(0, rest.find_last_not_of(kSpace) + 1);
    }

private:
    static constexpr std::string_view kSpace = " \t\r\v\f\n";

    std::string_view rest;
};

} // namespace CockpitModel
