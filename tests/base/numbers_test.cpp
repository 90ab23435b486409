#include "base/numbers.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <locale>
#include <random>
#include <utility>
#include <vector>

#include "base/print_line.h"

namespace tul {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr float SmallestFloat = std::numeric_limits<float>::denorm_min();

TEST(Numbers, GeneralFormOfFloats) {
    // Among them both borders of the exponent form, the lower one crossed by rounding, and exact ties, which
    // go away from zero, whatever the digit before.
    const std::vector<std::pair<float, std::string>> cases = {
        {0.0F, "0"},
        {-0.0F, "0"},
        {0.75F, "0.75"},
        {-3.0F, "-3"},
        {0.1F, "0.1"},
        {-120.0F, "-120"},
        {1.0F / 3.0F, "0.3333333"},
        {123456.789F, "123456.8"},
        {9999999.0F, "9999999"},
        {1E7F, "1E+07"},
        {12345678.0F, "1.234568E+07"},
        {1E-4F, "0.0001"},
        {0.000099999997F, "0.0001"},
        {0.0000999999F, "9.99999E-05"},
        {1.5E-5F, "1.5E-05"},
        {1048576.5F, "1048577"},
        {1048577.5F, "1048578"},
        {-1048576.5F, "-1048577"},
        {8192.0625F, "8192.063"},
        {10000005.0F, "1.000001E+07"},
        {9.9999997E10F, "1E+11"},
        {SmallestFloat, "1.401298E-45"},
        {std::numeric_limits<float>::max(), "3.402823E+38"},
        {static_cast<float>(NotANumber), "NAN"},
        {-static_cast<float>(NotANumber), "NAN"},
        {static_cast<float>(Infinity), "INF"},
        {-static_cast<float>(Infinity), "-INF"}};
    for (const auto& [value, text] : cases) EXPECT_EQ(plain(value), text);
}

TEST(Numbers, GeneralFormIsShortAndWithinSevenDigitsForEveryBitPattern) {
    std::mt19937 random(20240229);
    for (int i = 0; i < 200000; ++i) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        const std::string text = plain(value);
        ASSERT_LE(text.size(), 13U) << text;
        if (!std::isfinite(value) || value == 0.0F) continue;

        const double exact = value;
        const double unit = std::pow(10.0, std::floor(std::log10(std::fabs(exact))) - 6.0);
        ASSERT_NEAR(std::strtod(text.c_str(), nullptr), exact, unit * 0.5000001) << text;
        const bool exponentForm = text.find('E') != std::string::npos;
        ASSERT_EQ(exponentForm, std::fabs(exact) < 0.99999995E-4 || std::fabs(exact) >= 1E7) << text;
        if (!exponentForm) {
            ASSERT_EQ(numericValue(text), std::strtod(text.c_str(), nullptr)) << text;
        }
        ASSERT_TRUE(isNumeric(text)) << text;
    }
}

TEST(Numbers, StrPrintedAndJoinedPlaceTheBlanks) {
    EXPECT_EQ(str(16), " 16");
    EXPECT_EQ(str(-0.75F), "-0.75");
    EXPECT_EQ(str(static_cast<float>(NotANumber)), " NAN");
    EXPECT_EQ(str(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
    EXPECT_EQ(printed(0.75F), " 0.75 ");
    EXPECT_EQ(printed(std::uint8_t{65}), " 65 ");

    EXPECT_EQ(joined("Item =", 5), "Item = 5");
    EXPECT_EQ(joined("Item = ", 5), "Item = 5");
    EXPECT_EQ(joined("Item =", -5), "Item =-5");
    EXPECT_EQ(joined("number (", -3), "number (-3");
    EXPECT_EQ(joined("number (", 2.5F), "number (2.5");
    EXPECT_EQ(joined("", 2.5F), "2.5");
}

TEST(Numbers, PatternsPlaceTheDigits) {
    struct Case {
        double value;
        const char* pattern;
        const char* text;
    };
    // A '#' behind a '0', and one before a '0' of the fraction, print like a '0'. The sign stands before the
    // whole pattern where negative values have no section of their own. What rounds to zero is a zero.
    const std::vector<Case> cases = {{0, "#######0", "0"},
                                     {123456789012, "#######0", "123456789012"},
                                     {0.75, "#0.00", "0.75"},
                                     {-12.34, "#0.00", "-12.34"},
                                     {16, "###0.####", "16."},
                                     {0.5, "###0.####", "0.5"},
                                     {-3.14159, "###0.####", "-3.1416"},
                                     {20.5, "##0.##", "20.5"},
                                     {0.5, "##.00", ".50"},
                                     {0, "##.00", ".00"},
                                     {7, "00", "07"},
                                     {5, "0#", "05"},
                                     {5, " 000#.#000;-000#.#000", " 0005.0000"},
                                     {-12345.06789, " 000#.#000;-000#.#000", "-12345.0679"},
                                     {8, " #", " 8"},
                                     {12, "  #", "  12"},
                                     {16, " 0#", " 16"},
                                     {0, " #", " "},
                                     {0, "#.#", "."},
                                     {-5, " 0#", "- 05"},
                                     {-5, "0;(0)", "(5)"},
                                     {-5, "0;", "-5"},
                                     {-0.004, "#0.00", "0.00"},
                                     {-0.0, "#0.00", "0.00"},
                                     {-0.4, "#", ""},
                                     {-0.00004, " 000#.#000;-000#.#000", " 0000.0000"},
                                     {2.5, "0.0 mm", "2.5 mm"},
                                     {NotANumber, " 000#.#000", "NAN"},
                                     {-Infinity, "#0.00;-#0.00", "-INF"}};
    for (const auto& [value, pattern, text] : cases) EXPECT_EQ(formatted(value, pattern), text) << pattern;
}

TEST(Numbers, PatternsRoundTheExactValueHalfAwayFromZero) {
    for (int eighths = 0; eighths < 4000; ++eighths) {
        const int hundredths = (eighths * 100 + 4) / 8;
        const std::string digits = std::to_string(1000000 + hundredths);
        const std::string fraction = digits.substr(5);
        const std::string text = std::to_string(hundredths / 100) + '.' + fraction;
        ASSERT_EQ(formatted(eighths / 8.0, "#0.00"), text);
        if (hundredths > 0) {
            ASSERT_EQ(formatted(-eighths / 8.0, "#0.00"), '-' + text);
        }
    }
    EXPECT_EQ(formatted(9.995, "#0.00"), "9.99");   // 9.9949999999999992...
    EXPECT_EQ(formatted(1.005, "#0.00"), "1.00");   // 1.0049999999999998...
    EXPECT_EQ(formatted(0.145F, "#0.00"), "0.14");  // 0.1449999958...
    EXPECT_EQ(formatted(99.996, "#0.00"), "100.00");
    EXPECT_EQ(formatted(0x1p50 + 0.25, "0.0"), "1125899906842624.3");
    EXPECT_EQ(formatted(std::nextafter(0.5, 0.0), "0"), "0");
    EXPECT_EQ(formatted(0x1p1023, "0").substr(0, 20), "89884656743115795386");
    EXPECT_EQ(formatted(1E300, "0").size(), 301U);
    EXPECT_EQ(formatted(0x1p-1074, "0.0000"), "0.0000");
    EXPECT_EQ(formatted(0x1p-1074, "0." + std::string(324, '#')), "0." + std::string(323, '0') + '5');
}

TEST(Numbers, NumericValueIsTheLeadingNumber) {
    const std::vector<std::pair<std::string, double>> cases = {
        {"", 0},           {"-", 0},       {".", 0},
        {"abc", 0},        {"  -4", -4},   {"\t4", 0},
        {"+7.", 7},        {".5", 0.5},    {"-.5x", -0.5},
        {"12abc", 12},     {"1.2.3", 1.2}, {"1E5", 1},
        {"1,5", 1},        {"- 3", 0},     {"--3", 0},
        {"0x10", 0},       {"INF", 0},     {"NAN", 0},
        {"007.250", 7.25}, {"0.1", 0.1},   {"16777217", 16777217}};
    for (const auto& [text, value] : cases) EXPECT_EQ(numericValue(text), value) << text;
    EXPECT_FALSE(std::signbit(numericValue("-0")));
    EXPECT_EQ(numericValue("-1" + std::string(400, '0')), -Infinity);
    EXPECT_EQ(numericValue("000." + std::string(400, '0') + '1'), 0.0);
    // Just above half way between two neighbours: the last digit decides.
    EXPECT_EQ(numericValue("9007199254740993." + std::string(900, '0') + '1'), 9007199254740994.0);
}

TEST(Numbers, NumericMeansOneWholeNumberText) {
    for (const char* text : {"1", " -.5 ", "5.", "+3", "1E5", "1.5e-05", "2E+3"})
        EXPECT_TRUE(isNumeric(text)) << text;
    for (const char* text : {"", " ", ".", "-", "1 2", "12abc", "1.2.3", "E5", "1E", "1E+", "1E5.0", "1,5",
                             "NAN", "INF", "0x10", "- 5", "5\r"}) {
        EXPECT_FALSE(isNumeric(text)) << text;
    }
    for (const char* text : {"12", " -3.0 ", "7."}) EXPECT_TRUE(isWholeNumber(text)) << text;
    for (const char* text : {"", "1.5", "12a", ".5", "1E5"}) EXPECT_FALSE(isWholeNumber(text)) << text;
}

TEST(Numbers, RoundingGoesToEvenBeforeTheRangeIsChecked) {
    EXPECT_EQ(roundToEven(2.5), 2.0);
    EXPECT_EQ(roundToEven(-3.5), -4.0);
    EXPECT_FALSE(std::signbit(roundToEven(-0.3)));
    EXPECT_EQ(roundToEven(-Infinity), -Infinity);
    EXPECT_TRUE(std::isnan(roundToEven(NotANumber)));

    EXPECT_EQ(toInt16(32767.4), 32767);
    EXPECT_EQ(toInt16(32767.5), std::nullopt);
    EXPECT_EQ(toInt16(-32768.5), -32768);
    EXPECT_EQ(toInt16(-32768.6), std::nullopt);
    EXPECT_EQ(toInt32(2147483647.5), std::nullopt);
    EXPECT_EQ(toInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    for (const double value : {NotANumber, Infinity, -Infinity, 1E300}) {
        EXPECT_EQ(toInt16(value), std::nullopt);
        EXPECT_EQ(toInt32(value), std::nullopt);
    }
    EXPECT_EQ(wrap16(32768), -32768);
    EXPECT_EQ(wrap16(-32769), 32767);
}

TEST(Numbers, TheProcessLocaleHasNoSay) {
    struct CommaAndGroups : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaAndGroups));
    EXPECT_EQ(plain(1234.5F) + str(1234567) + formatted(1234.5, "#0.00"), "1234.5 12345671234.50");
    EXPECT_EQ(numericValue("1234.5"), 1234.5);
    std::locale::global(before);
}

TEST(PrintLine, ZonesAreFourteenColumnsWide) {
    PrintLine line;
    line.text("ab").zone().number(-2.5F).zone().number(7).zone().text("x");
    EXPECT_EQ(line.line(), "ab            -2.5           7            x");
    EXPECT_EQ(PrintLine().zone().zone().line().size(), 28U);
    EXPECT_EQ(PrintLine().text("thirteen cols").zone().text("x").line(), "thirteen cols x");
}

TEST(Numbers, TruthIsTrueInAnyCaseOrANumberOtherThanZero) {
    for (const char* text : {"TRUE", " true ", "-1", "0.5", "12abc"}) EXPECT_TRUE(isTrue(text)) << text;
    for (const char* text : {"", "0", "-0.0", "FALSE", "yes", "truex"}) EXPECT_FALSE(isTrue(text)) << text;
}

}  // namespace
}  // namespace tul
