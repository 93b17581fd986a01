#include "reduction/ancient_tables.h"

#include "tests/support/testing.h"

namespace tarvex {

namespace {

/// A workbook without an office: what cells hold, and what was written to them.
class PlainWorkbook final : public Workbook {
public:
    std::vector<CellValue> calculate(const std::vector<Cell>& inputs, const std::vector<double>& values,
                                     const std::vector<Cell>& outputs) override {
        for (std::size_t i = 0; i < inputs.size(); ++i) written[key(inputs[i])] = values[i];
        std::vector<CellValue> all;
        all.reserve(outputs.size());
        for (const Cell& c : outputs) all.push_back(cells.at(key(c)));
        return all;
    }
    static std::string key(const Cell& c) { return std::to_string(c.sheet) + "!" + c.name; }

    std::map<std::string, CellValue> cells;
    std::map<std::string, double> written;
};

struct Table : ::testing::Test {
    PlainWorkbook& use(int option) {
        auto own = std::make_unique<PlainWorkbook>();
        auto& book = *own;
        t.table = &ancientTable(option);
        t.book = std::move(own);
        return book;
    }
    double read(bool correct = false, double zero = almagestPrecReduction) {
        return ReadTableCells(s, t, date, zero, correct);
    }
    ModelState s;
    TableInUse t;
    ObservedDate date{-45, 6, 17, 12.5, 17.520833};
};

}  // namespace

TEST_F(Table, TheLatitudeOfMarsInTheAlmagestIsSouthBehindAnS) {
    auto& book = use(4);
    s.IplSel = 4;
    s.JDepoha = 1448637.5;
    s.JDut0 = s.JDepoha + 36525;
    book.cells = {{"6!AD57", 123.5}, {"6!AF30", 1.25}, {"6!AE30", std::string("N")}};
    for (const auto& [mark, latitude] :
         std::map<std::string, double>{{"N", 1.25}, {"S", -1.25}, {"s", 1.25}, {"", 1.25}}) {
        book.cells["6!AE30"] = mark;
        read();
        EXPECT_EQ(s.Bpl[4], latitude) << mark;
    }
    EXPECT_EQ(s.Lpl[4], 123.5);
    EXPECT_DOUBLE_EQ(s.Prec, 1 + 3.9);
    read(false, almagestPrecEclipse);
    EXPECT_DOUBLE_EQ(s.Prec, 1 + 6.83);
    EXPECT_EQ(book.written,
              (std::map<std::string, double>{{"1!B6", -45}, {"1!C6", 6}, {"1!D6", 17}, {"1!E6", 12.5}}));

    book.cells["6!AD57"] = std::string("text");
    EXPECT_THROW(read(), ConversionFailure);
    EXPECT_EQ(s.Lpl[4], 123.5) << "nothing is written when the cells are wrong";
}

TEST_F(Table, PrecessionIsAddedAndReplacedAsTheTableNeeds) {
    auto& book = use(3);  // longitudes without precession
    book.cells = {{"1!C22", 10.0}, {"1!C15", 100.0}, {"1!F15", -4.0}, {"1!C14", 200.0}};
    s.IplSel = 11;
    s.Lpl[0] = 50;
    read();
    EXPECT_EQ(s.Lpl[11], 110);
    EXPECT_EQ(s.Lpl[0], 60) << "the Sun's row too, whichever body is read";
    s.IplSel = 0;
    read();
    EXPECT_EQ(s.Lpl[0], 210) << "once";
    EXPECT_EQ(s.Bpl[0], 0);

    auto& alfonso = use(2);
    alfonso.cells = {{"1!D39", 8.0}, {"1!D112", 300.0}};
    s.IplSel = 4;
    t.PrecTab0 = 7;
    s.JDepoha = 2000000;
    s.JDut0 = 2000000 + 36525;
    EXPECT_DOUBLE_EQ(read(true), 7 + 5025. / 3600);
    EXPECT_DOUBLE_EQ(s.Lpl[4], 300 - 8 + 7 + 5025. / 3600);
    EXPECT_EQ(s.Bpl[4], 0) << "the table has no latitude";
}

TEST_F(Table, WhatATableDoesNotHaveKeepsItsOldValue) {
    use(9).cells = {{"1!G20", 1.0}};
    s.IplSel = 2;
    s.Lpl[2] = 77;
    s.Bpl[2] = -3;
    read();
    EXPECT_EQ(s.Lpl[2], 77);
    EXPECT_EQ(s.Bpl[2], -3);
    t.close();
    EXPECT_THROW(read(), Failure);
    SpreadsheetOffice office;
    openTable(t, 5, office, DataTree("/nowhere"));  // a name without cells opens nothing
    read(true);
    EXPECT_EQ(s.Lpl[2], 77);
    EXPECT_THROW(openTable(t, 11, office, DataTree("/nowhere")), SubscriptFailure);
    EXPECT_THROW(openTable(t, 1, office, DataTree("/nowhere")), OpenFailure);
    EXPECT_EQ(t.table, nullptr);
}

}  // namespace tarvex
