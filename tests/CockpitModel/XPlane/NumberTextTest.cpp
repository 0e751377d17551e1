#include "CockpitModel/XPlane/NumberText.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iomanip>
#include <random>
#include <sstream>
#include <string>

namespace CockpitModel {
namespace {

/// "<value>|<rest>" of a number at the start of a text; "none" if there is no number.
template <typename Number>
std::string Read(NumberRead<Number> (*read)(const char*, const char*), const std::string& text) {
    const std::string line = text + '\n' + std::string(kNumberPadding, '7');
    const char* const end = line.data() + text.size() + 1;
    const NumberRead<Number> number = read(line.data(), end);
    if (!number.next)
        return "none";
    std::ostringstream shown;
    shown << std::setprecision(9) << number.value << '|' << std::string(number.next, end - 1);
    return std::move(shown).str();
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
    const std::string line = text + '\n' + std::string(kNumberPadding, '7');
    const auto got = ReadFloat(line.data(), line.data() + text.size() + 1);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(got.value), std::bit_cast<std::uint32_t>(expected)) << text;
    EXPECT_EQ(got.next - line.data(), next - text.data()) << text;
}

TEST(NumberText, ReadsTheLongestNumberAndLeavesTheRest) {
    const std::pair<std::string, const char*> rows[] = {
        {"0.5 1", "0.5| 1"},
        {"5.", "5|"},
        {".5x", "0.5|x"},
        {"-.5", "-0.5|"},
        {"-0.0", "-0|"},
        {"1.5.25", "1.5|.25"},
        {"1e2", "100|"},
        {"25E-2", "0.25|"},
        {"+1e+1", "10|"},
        {"1e+", "1|e+"},
        {"0x10", "0|x10"},
        {"0.1250000000000000000000000000001", "0.125|"},
        {"00000000000000000000000000000000.5", "0.5|"},
        {"0.00000000000000000000000025e25", "2.5|"},
        {"340282356779733661637539395458142568447.9", "3.40282347e+38|"},
        {"-1e60", "0|"},
        {"1e99999999999999999999", "0|"},
        {std::string(100000, '9'), "0|"},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(Read(ReadFloat, text), expected) << text;
}

TEST(NumberText, ClampsIntegers) {
    const std::pair<const char*, const char*> rows[] = {
        {"7 8", "7| 8"},
        {"-7", "-7|"},
        {"+7", "7|"},
        {"1.5", "1|.5"},
        {"1e3", "1|e3"},
        {"999999999", "999999999|"},
        {"2147483647", "2147483647|"},
        {"2147483648 1", "2147483647| 1"},
        {"-2147483648", "-2147483648|"},
        {"-99999999999999999999", "-2147483648|"},
        {"0000000000000000000012", "12|"},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(Read(ReadInteger, text), expected) << text;
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
        // So large that the middle has at most 18 digits, which the fast reader still handles.
        const double middle = MiddleAbove(std::ldexp(mantissa, 16 + i % 40));
        for (const double value : {middle, std::nextafter(middle, 0.0), std::nextafter(middle, INFINITY)})
            ExpectLikeFromChars(Decimal(value, i % 10));
        // The numbers of 18 digits around a middle with more digits; some quotients are on its other side.
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
