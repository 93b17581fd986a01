#include "core/numbers.h"

#include "tests/support/testing.h"

#include <limits>

namespace tarvex {

TEST(Numbers, CutsLiterallyAndNeverLeavesMinusZero) {
    EXPECT_EQ(Fix(MK * 0.000251), 250);  // the product lies just below 251
    EXPECT_EQ(Fix(1.98892e30 / 1e25), 198891);
    EXPECT_EQ(Fix(-1.9), -1);
    EXPECT_EQ(Int(-1.1), -2);
    EXPECT_FALSE(std::signbit(Fix(-0.3)));
    EXPECT_EQ(toText(cut6(-1e-9)), "0");
}

TEST(Numbers, WholeNumbersRoundHalfToEvenAndRefuseWhatDoesNotFit) {
    EXPECT_EQ(toInt16(6.5), 6);
    EXPECT_EQ(toInt16(7.5), 8);
    EXPECT_EQ(toInt16(-0.5), 0);
    EXPECT_EQ(toInt16(32767.4), 32767);
    EXPECT_THROW(toInt16(32767.5), OverflowFailure);
    EXPECT_EQ(toInt32(-2147483648.0), std::numeric_limits<std::int32_t>::min());
    EXPECT_THROW(toInt32(2147483648.0), OverflowFailure);
    EXPECT_THROW(toInt32(std::nan("")), OverflowFailure);
}

TEST(Numbers, ReadsWhatAPersonTypesAndNothingElse) {
    EXPECT_EQ(toNumber(" 1,5 "), 1.5);
    EXPECT_EQ(toNumber("1.5"), 1.5);
    EXPECT_EQ(toNumber("+12E3"), 12000);
    EXPECT_EQ(toNumber("0.24D-02"), 0.0024);
    EXPECT_EQ(toNumber(",5"), 0.5);
    EXPECT_EQ(toNumber("-1e-400"), 0);
    for (const char* bad :
         {"", " ", "abc", "1 000", "1.000,5", "1,2,3", "12x", "nan", "inf", "--1", "+-1", "0x10", "1e", ","})
        EXPECT_THROW(toNumber(bad), ConversionFailure) << bad;
    EXPECT_THROW(toNumber("1e400"), OverflowFailure);
}

TEST(Numbers, WritesReadableTextsThatReadBack) {
    EXPECT_EQ(toText(2378862), "2378862");
    EXPECT_EQ(toText(0.1 + 0.2), "0,3");
    EXPECT_EQ(toText(-0.000001), "-0,000001");
    EXPECT_EQ(toText(1e15), "1000000000000000");
    EXPECT_EQ(toText(1.98976e30), "1,98976E+30");
    EXPECT_EQ(toText(6.67006e-11), "6,67006E-11");
    EXPECT_EQ(fileItem(-12.25), "-12.25 ");
    EXPECT_EQ(fileItem(7555444333222.0), " 7555444333222 ");
    EXPECT_THROW(toText(INFINITY), ArithmeticFailure);
    EXPECT_THROW(fileItem(std::nan("")), ArithmeticFailure);
    for (const double v : {1.0 / 3, 123456.789, -2.5e-9, 9.99999999999999e14, 4e200})
        EXPECT_NEAR(toNumber(toText(v)), v, std::abs(v) * 1e-14);
}

TEST(Numbers, FormatsByPattern) {
    EXPECT_EQ(Format(1.5, "00.00"), "01,50");
    EXPECT_EQ(Format(-12.345, "0000.00"), "-0012,35");
    EXPECT_EQ(Format(2.675, "0.00"), "2,68");  // half away from zero in the decimal sense
    EXPECT_EQ(Format(-0.001, "00.00"), "00,00");
    EXPECT_EQ(Format(12345, "00"), "12345");
    EXPECT_EQ(Format(-57909226.541, "000000000.000"), "-057909226,541");
    EXPECT_THROW(Format(std::nan(""), "00"), ArithmeticFailure);
}

}  // namespace tarvex
