#include "desktop/number_edit.h"

#include <gtest/gtest.h>

#include <QHBoxLayout>
#include <QTest>

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

TEST(NumberEdit, AnEnteredFieldShowsItsWholeNumberAndTakesItsPlaceAgain) {
    QWidget window;
    auto* layout = new QHBoxLayout(&window);
    auto *field = new NumberEdit, *neighbour = new NumberEdit;
    for (NumberEdit* edit : {field, neighbour}) {
        edit->setLayoutWidth(60);
        layout->addWidget(edit);
    }
    window.resize(400, 50);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const QRect left = field->geometry(), right = neighbour->geometry();
    for (NumberEdit* edit : {field, neighbour}) {
        edit->setText("-4,16536766758345E+23");
        edit->setFocus();
        EXPECT_GT(edit->width(), edit->fontMetrics().horizontalAdvance(edit->text()));
        EXPECT_TRUE(window.rect().contains(edit->geometry()));
    }
    EXPECT_EQ(field->geometry(), left);
    neighbour->setText("1");
    EXPECT_EQ(neighbour->geometry(), right);
}

}  // namespace tarvex
