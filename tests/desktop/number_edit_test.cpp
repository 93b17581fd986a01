#include "desktop/number_edit.h"

#include <gtest/gtest.h>

namespace tarvex {

TEST(NumberEdit, LongNumbersKeepSignWholePartAndExponent) {
    struct {
        const char *text, *shown;
    } const cases[] = {
        {"-550250,719695", "-550250,7…"},            // decimals go
        {"-4,16536766758345E+23", "-4,16…E+23"},     // the exponent stays
        {"0,00", "0,00"},                            // fits
        {"12345678901234", "12345678901234"},        // no decimals to leave out: never another number
        {"1234567890,25", "1234567890,25"},          // not even one decimal fits
        {"Tarvex, параметры", "Tarvex, параметры"},  // words
    };
    constexpr int room = 10;
    for (const auto& [text, shown] : cases)
        EXPECT_EQ(shownNumber(text, [](const QString& one) { return one.size() <= room; }).toStdString(),
                  shown);
}

}  // namespace tarvex
