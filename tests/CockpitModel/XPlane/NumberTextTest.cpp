#include "CockpitModel/XPlane/NumberText.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace CockpitModel {
namespace {

/// A number at the front of a text: its value, and what is left behind it, "none" where no number begins.
template <typename Number>
struct Outcome {
    Number value = 0;
    std::string rest;
    bool operator==(const Outcome&) const = default;
};

template <typename Number>
std::ostream& operator<<(std::ostream& stream, const Outcome<Number>& outcome) {
    return stream << outcome.value << " before \"" << outcome.rest << "\"";
}

template <typename Number, typename Reader>
Outcome<Number> Read(Reader read, const std::string& text) {
    const std::string line = text + '\n' + std::string(kNumberPadding, '7');
    const char* const end = line.data() + text.size() + 1;
    const NumberRead<Number> number = read(line.data(), end);
    return {number.value, number.next ? std::string(number.next, end - 1) : "none"};
}

Outcome<float> Float(const std::string& text) {
    return Read<float>(ReadFloat, text);
}
Outcome<std::int32_t> Integer(const std::string& text) {
    return Read<std::int32_t>(ReadInteger, text);
}

std::string Decimal(double value, int decimals) {
    char text[400];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

void ExpectLikeFromChars(const std::string& text) {
    float expected = 0;
    const auto [next, error] = std::from_chars(text.data(), text.data() + text.size(), expected);
    ASSERT_EQ(error, std::errc()) << text;
    const Outcome<float> got = Float(text);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(got.value), std::bit_cast<std::uint32_t>(expected)) << text;
    EXPECT_EQ(got.rest, std::string(next, text.data() + text.size())) << text;
}

TEST(NumberText, ReadsTheLongestNumberAndLeavesTheRest) {
    const struct {
        const char* text;
        Outcome<float> expected;
    } rows[] = {
        {"0.5 1", {0.5f, " 1"}},
        {"-2.25", {-2.25f, ""}},
        {"+1.5", {1.5f, ""}},
        {"5.", {5, ""}},
        {".5x", {0.5f, "x"}},
        {"-.5", {-0.5f, ""}},
        {"1-2", {1, "-2"}},
        {"1.5.25", {1.5f, ".25"}},
        {"3sim/lever", {3, "sim/lever"}},
        {"1e2", {100, ""}},
        {"25E-2", {0.25f, ""}},
        {"+1e+1", {10, ""}},
        {"1e", {1, "e"}},
        {"1e+", {1, "e+"}},
        {"1elbow", {1, "elbow"}},
        {"0x10", {0, "x10"}},
        {"0.1250000000000000000000000000001", {0.125f, ""}},
        {"00000000000000000000000000000000.5", {0.5f, ""}},
        {"12345678", {12345678, ""}},
        {"0.00000000000000000000000025e25", {2.5f, ""}},
        {"1e39 7", {0, " 7"}},
        {"-1e60", {0, ""}},
        {"1e-60 7", {0, " 7"}},
        {"1e99999999999999999999", {0, ""}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Float(row.text), row.expected) << row.text;
    EXPECT_TRUE(std::signbit(Float("-0.0").value));
    EXPECT_EQ(Float("340282356779733661637539395458142568447.9"),
              (Outcome<float>{std::numeric_limits<float>::max(), ""}));
    EXPECT_EQ(Float(std::string(100000, '9')), (Outcome<float>{0, ""}));
}

TEST(NumberText, TakesNoWordsLoneSignsOrSecondSignsForNumbers) {
    for (const char* text : {"", "+", "-", ".", "-.", "+-1", "-+1", "++1", "--1", "e5", ".e5", "inf", "-inf", "+inf",
                             "nan", "infinity", "NAN", "x1", "\xFF"}) {
        EXPECT_EQ(Float(text).rest, "none") << text;
        EXPECT_EQ(Integer(text).rest, "none") << text;
    }
}

TEST(NumberText, ClampsIntegers) {
    const struct {
        const char* text;
        Outcome<std::int32_t> expected;
    } rows[] = {
        {"7 8", {7, " 8"}},
        {"-7", {-7, ""}},
        {"+7", {7, ""}},
        {"1.5", {1, ".5"}},
        {"1e3", {1, "e3"}},
        {"999999999", {999999999, ""}},
        {"2147483647", {2147483647, ""}},
        {"2147483648 1", {2147483647, " 1"}},
        {"-2147483648", {std::numeric_limits<std::int32_t>::min(), ""}},
        {"-99999999999999999999", {std::numeric_limits<std::int32_t>::min(), ""}},
        {"0000000000000000000012", {12, ""}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Integer(row.text), row.expected) << row.text;
}

std::uint32_t Bits(std::mt19937_64& random, int count) {
    return static_cast<std::uint32_t>(random() >> (64 - count));
}

/// The float above `low` and the middle between them.
double MiddleAbove(float low) {
    return (static_cast<double>(low) + std::nextafter(low, INFINITY)) / 2;
}

TEST(NumberText, AgreesWithFromCharsOnFixedNotationAndEveryKindOfFloat) {
    std::mt19937_64 random(4711);
    const auto digits = [&](std::uint64_t count) {
        std::string text;
        for (; count > 0; --count)
            text += static_cast<char>('0' + random() % 10);
        return text;
    };
    for (int i = 0; i < 200000; ++i)
        ExpectLikeFromChars((random() % 2 ? "-" : "") + digits(random() % 10 + 1) + '.' + digits(random() % 12));
    for (int i = 0; i < 100000; ++i) {
        const auto value = std::bit_cast<float>(Bits(random, 32));
        if (!std::isfinite(value))
            continue;
        char text[64];
        std::snprintf(text, sizeof text, i % 2 ? "%.9g" : "%.17g", static_cast<double>(value));
        ExpectLikeFromChars(text);
    }
}

TEST(NumberText, AgreesWithFromCharsAroundTheMiddleOfTwoFloats) {
    std::mt19937_64 random(815);
    int crossings = 0;
    for (int i = 0; i < 100000; ++i) {
        const float mantissa = 1.0f + static_cast<float>(Bits(random, 23)) / (1 << 23);
        // So large that the middle has at most 18 digits, which the quick reader still takes.
        const double middle = MiddleAbove(std::ldexp(mantissa, 16 + i % 40));
        for (const double value : {middle, std::nextafter(middle, 0.0), std::nextafter(middle, INFINITY)})
            ExpectLikeFromChars(Decimal(value, i % 10));
        // The numbers of 18 digits around a middle that has more; the quotient of some is on its other side.
        std::string text = Decimal(MiddleAbove(std::ldexp(mantissa, i % 3)), 17);
        const std::int64_t digits = std::stoll(text.erase(1, 1));
        for (const std::int64_t beside : {digits - 1, digits, digits + 1}) {
            const auto quotient = static_cast<float>(static_cast<double>(beside) / 1e17);
            text = std::to_string(beside).insert(1, ".");
            ExpectLikeFromChars(text);
            crossings += quotient != std::strtof(text.c_str(), nullptr);
        }
    }
    EXPECT_GT(crossings, 0);
}

} // namespace
} // namespace CockpitModel
