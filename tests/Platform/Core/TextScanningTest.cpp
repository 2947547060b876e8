#include "TextScanning.h"

#include <clocale>
#include <cmath>
#include <gtest/gtest.h>

using namespace pomwick;

TEST(TextScanning, BoolsReadTheFirstCharacterNumbersTheLeadingDecimalSaturatedTinyZero) {
    for (const char* yes : {"1", "TRUE", "true", "Yes", "y", "  t", "+1", "-0009", "007", "9abc"})
        EXPECT_TRUE(boolValue(yes)) << yes;
    for (const char* no : {"", "0", "FALSE", "no", "abc", "  ", "-", "000", "0.9", " x1", "\n"})
        EXPECT_FALSE(boolValue(no)) << no;

    for (const auto& [text, value] :
         {std::pair{"12.7", 12}, {"  -42px", -42}, {"+7", 7}, {"abc", 0}})
        EXPECT_EQ(intValue(text), value) << text;
    EXPECT_EQ(intValue("99999999999999999999"), INT32_MAX);
    EXPECT_EQ(intValue("-99999999999999999999"), INT32_MIN);

    // Floats take the leading decimal number only: not the words and hexadecimal that a C
    // library's scanner would take.
    for (const auto& [text, value] :
         {std::pair{"  1.2abc", 1.2f}, {".5", 0.5f}, {"-3e2", -300.0f}, {"2e", 2.0f}})
        EXPECT_FLOAT_EQ(floatValue(text), value) << text;
    for (const char* notDecimal : {"nan", "inf", "0x10"})
        EXPECT_EQ(floatValue(notDecimal), 0.0f) << notDecimal;
    // Too small for a double reads zero, however it is written.
    const std::string zeros(400, '0');
    for (const std::string& tiny :
         std::vector<std::string>{"1e-999", "-0." + zeros + "1e5", "0.00001e-400"})
        EXPECT_EQ(doubleValue(tiny), 0.0) << tiny;
    for (const std::string& huge : std::vector<std::string>{"1" + zeros, "0.0001e400"})
        EXPECT_EQ(doubleValue(huge), HUGE_VAL) << huge;
}

TEST(TextScanning, FormattingIsFixedSixDecimalsInAnyLocaleAndSplittingKeepsEmptyParts) {
    std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    EXPECT_EQ(formatFloat(0.50196078431), "0.501961");
    EXPECT_EQ(formatFloat(-2.25), "-2.250000");
    std::setlocale(LC_NUMERIC, "C");

    using Parts = std::vector<std::string_view>;
    EXPECT_EQ(componentsSeparatedBy("", ','), Parts{""});
    EXPECT_EQ(componentsSeparatedBy("0.1,0.2,", ','), (Parts{"0.1", "0.2", ""}));
    EXPECT_EQ(componentsSeparatedBy("a,,b", ','), (Parts{"a", "", "b"}));
}
