#include "Utils/EditDistance.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace Utils {
namespace {

/// By the definition, without any limit.
std::size_t Reference(std::string_view a, std::string_view b) {
    if (a.empty() || b.empty())
        return a.size() + b.size();
    return std::min({Reference(a.substr(1), b.substr(1)) + (a[0] == b[0] ? 0 : 1), Reference(a.substr(1), b) + 1,
                     Reference(a, b.substr(1)) + 1});
}

TEST(EditDistance, CountsTheFewestChangesUpToTheLimit) {
    std::mt19937 random(1);
    const auto word = [&] {
        std::string text(random() % 6, 'a');
        std::ranges::generate(text, [&] { return "abc"[random() % 3]; });
        return text;
    };
    for (int i = 0; i < 2000; ++i) {
        const std::string a = word(), b = word();
        const std::size_t expected = Reference(a, b), most = random() % 7;
        ASSERT_EQ(EditDistance(a, b), expected) << a << ' ' << b;
        ASSERT_EQ(EditDistance(a, b, most) <= most, expected <= most) << a << ' ' << b << ' ' << most;
        if (expected <= most) {
            ASSERT_EQ(EditDistance(a, b, most), expected) << a << ' ' << b << ' ' << most;
        }
    }
}

} // namespace
} // namespace Utils
