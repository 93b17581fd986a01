#include "forms/statistics_form.h"

#include "forms/plan_form.h"
#include "tests/forms/lab_fixture.h"
#include "tests/support/ephemeris_files.h"

namespace tarvex {

namespace {

using Told = test::RecordingScreen::Message;

struct Form6Test : test::LabTest {
    Form6Test() : form(lab.desk.get<StatisticsForm>()) {
        folder.makeFolder("Ser/Plan1");
        folder.makeFolder("Plan1/Txt1");
    }
    std::filesystem::path at(const std::string& name) const { return lab.tree.at(name); }
    void put(const std::string& name, const std::string& bytes) { test::writeBytes(at(name), bytes); }
    std::string bytes(const std::string& name) { return test::readBytes(at(name)); }
    void expectMessage(CommandButton& pressed, const std::string& text,
                       const std::string& title = "Tarvex7") {
        EXPECT_EQ(screen.told(pressed), (Told{text, title}));
    }
    void expectMessage(const std::string& text, const std::string& title = "Tarvex7") {
        EXPECT_EQ(screen.onlyMessage(), (Told{text, title}));
    }

    /// A short series of 12 records, one a year, AlfaP growing by 36 seconds (0.01 degree) a year.
    static std::string shortSeries(int perYear = 1000000) {
        std::string text = "а\r\nб\r\nв\r\nг\r\n 40  245154450 \r\n";  // from 2000 January 1.0
        for (int i = 0; i < 12; ++i)
            text += fileItem(i + 1) + fileItem(36525 * i) + fileItem(100000000 + perYear * i) +
                    " 200000000  700000000  20560000  5790000  1000000 \r\n";
        return text;
    }
    static std::string longSeries() {
        std::string text = "а\r\nб\r\nв\r\nг\r\n 9  237849650 \r\n";
        for (int i = 0; i < 6; ++i)
            text += fileItem(i + 1) + fileItem(3652500.0 * i) + " 3652500  100000000 " + fileItem(1e8 * i) +
                    " 2  3  4  5  6  7  8  9 \r\n";
        return text;
    }
    void loadModel(const std::string& text = shortSeries()) {
        put(model, text);
        form.fromModel.choose();
        EXPECT_EQ(screen.said(form.loadData), "");
    }
    void loadLong() {
        put(observed, longSeries());
        test::enter(form.fromImitator, form.parameterScale, "1");
        EXPECT_EQ(screen.said(form.loadData), "");
    }

    const std::string model = "\\Plan1\\Txt1\\Tarvex1Ras1.txt", observed = "\\Ser\\Plan1\\Tarvex1Nab.txt";
    StatisticsForm& form;
};

}  // namespace

TEST_F(Form6Test, FileFollowsTheOptions) {
    struct Case {
        OptionButton *on, *imitator;
        const char* file;
    };
    for (const Case& c : {Case{&form.fromImitator, &form.ownImitator, "\\Ser\\Plan2\\Tarvex11Nab.txt"},
                          {&form.fromImitator, &form.jplImitator, "\\JPL\\Tarvex11Nab.txt"},
                          {&form.fromImitator, &form.newcombImitator, "\\NEW\\Tarvex11Nab.txt"},
                          {&form.fromModel, &form.newcombImitator, "\\Plan2\\Txt11\\Tarvex11Ras5.txt"}}) {
        c.on->choose();
        c.imitator->choose();
        test::enter(form.planet(11), form.planNumber, "2", form.experimentNumber, "5");
        expectMessage(form.loadData, std::string("Не могу найти файл\r\n") + c.file);
        EXPECT_EQ(lab.series.kodData, 0);
    }
    put("\\JPL\\Tarvex1Nab.txt", "мусор");
    test::enter(form.fromImitator, form.jplImitator, form.planet(1));
    expectMessage(form.loadData, "Ошибка чтения данных из файла\r\n\\JPL\\Tarvex1Nab.txt");
    for (TextField* field :
         {&form.experimentNumber, &form.planNumber}) {  // the experiment too, though an imitator has none
        field->setText("два");
        expectMessage(form.loadData, "Задайте правильно данные");
        field->setText("1");
    }
}

TEST_F(Form6Test, LoadedSeriesIsShownAndDrawn) {
    const double originOfRun = lab.s.JD0 = 5;
    loadModel();
    EXPECT_EQ(lab.series.kodData, 4);
    EXPECT_EQ(lab.s.JD0, originOfRun);  // a series has an origin of its own
    EXPECT_EQ(form.recordCount.text() + form.firstRecord.text() + form.lastRecord.text(), "12112");
    EXPECT_EQ(form.firstValue.text() + " " + form.lastValue.text(), "1 1,11");
    EXPECT_EQ(form.firstYear.text() + " " + form.firstMonth.text() + " " + form.firstDay.text(), "2000 1 1");
    EXPECT_EQ(form.lastYear.text() + " " + form.lastMonth.text() + " " + form.lastDay.text(),
              "2010 12 31,75");
    // The picture tells dates and degrees: what the file has.
    const Plot::Series& drawn = form.picture.plot().all().begin()->second;
    ASSERT_EQ(drawn.points().size(), 12U);
    for (const std::size_t i : {0U, 11U}) {
        const Plot::Point value = drawn.meaningOf(i).value(drawn.points()[i]);
        EXPECT_NEAR(value.x, 2000 + static_cast<double>(i), 0.01);
        EXPECT_NEAR(value.y, 1 + 0.01 * static_cast<double>(i), 1e-9);
    }
    EXPECT_EQ(drawn.spec().name() + drawn.meaningOf(0).axes.y.unit, "AlfaP, план 1град");
}

TEST_F(Form6Test, TextTellsTheRecordsAsTheFileHasThem) {
    test::enter(form.showAsText, true, form.moonPerigeeRate, true);
    const std::string moon =
        "а\r\nб\r\nв\r\nг\r\n 1  237849650 \r\n"
        " 1  0  3652500  100000000  0  0  0  0  0  300000000  0  700000000  0 \r\n";
    struct Case {
        int planet, param;
        std::string series;
        const char* told;
    };
    for (const Case& c : {Case{1, 7, longSeries(), "    ddT= 036525,00    Ves= "},
                          {11, 1, moon, "    ddT= 036525,00    Ves= "},
                          {11, 6, moon, "    W0  = 0003,00000    AlfaL0"}}) {
        put("\\Ser\\Plan1\\Tarvex" + std::to_string(c.planet) + "Nab.txt", c.series);
        test::enter(form.planet(c.planet), form.parameter(c.param));
        EXPECT_EQ(screen.said(form.loadData), "");
        bool told = false;
        for (const auto& item : test::drawnOn(form.picture))
            told = told || item.text.find(c.told) != std::string::npos;
        EXPECT_TRUE(told) << c.planet << " " << c.param;
    }
    EXPECT_EQ(lab.series.at(1).Par[parW], 7);  // in memory the rate stands in the place of W*
}

TEST_F(Form6Test, LargePictureIsAskedForAndNoStopsTheLoad) {
    form.parameterScale.setText("0,00001");
    put(model, shortSeries());
    test::enter(form.fromModel, form.loadData);
    ASSERT_EQ(screen.questions.size(), 1u);
    EXPECT_EQ(screen.questions[0].text,
              "Вы действительно хотите\r\nтакой большой график.\r\nЕсли Да, то придется подождать");
    EXPECT_EQ(lab.series.kodData, 0);
    screen.answers = {true};
    form.loadData.press();
    EXPECT_EQ(lab.series.kodData, 4);
}

TEST_F(Form6Test, MousePicksTheSample) {
    form.loadData.press();
    screen.messages.clear();
    form.picture.release(3, 3, Picture::Button::Left);
    expectMessage("Не могу найти эту точку");
    form.timeScale.setText("1");
    loadModel();
    form.picture.release(4.4, 3, Picture::Button::Left);  // 3.4 years: record 4
    EXPECT_EQ(test::texts(form.firstRecord, form.firstValue), "4 | 1,03");
    EXPECT_EQ(form.firstYear.text() + form.newYear.text() + form.newEndYear.text(), "200220022002");
    form.picture.release(99, 3, Picture::Button::Right);
    EXPECT_EQ(form.lastRecord.text(), "12");
    form.picture.release(8.6, 3, Picture::Button::Right);
    EXPECT_EQ(test::texts(form.lastRecord, form.lastYear), "9 | 2008");
}

TEST_F(Form6Test, FitFindsTheShiftAndFillsTheTables) {
    loadModel();
    lab.plan.Nf = 5;
    lab.plan.Xopt[1] = 0.25;
    for (OptionButton* equation : {&form.fitLine, &form.fitParabola}) {
        equation->choose();
        EXPECT_EQ(screen.said(form.fitData), "");
        EXPECT_NEAR(form.secularShift.number(), 3600, 0.01);  // a degree a century
        EXPECT_NEAR(form.secularShiftError.number(), 0, 0.01);
        EXPECT_NEAR(form.targetValue.number(), 1, 2e-5);
    }
    EXPECT_EQ(lab.plan.Nf, 5);  // the parabola leaves the plan alone
    EXPECT_EQ(lab.plan.Xopt[1], 0.25);
    EXPECT_EQ(lab.shifts.dNab[1][1], form.secularShift.number());
    EXPECT_EQ(lab.shifts.dRas[1][1][1], form.secularShift.number());

    test::enter(form.targetValue, "прежний", form.fitConstant, form.fitData);
    EXPECT_EQ(test::texts(form.secularShift, form.targetValue), "0 | прежний");
    form.groupSize.setText("7");
    expectMessage(form.fitData, "Первичные данные должны быть\r\nразбиты минимум на 2 группы");
    for (auto [field, text] : {std::pair{&form.lastRecord, "13"},
                               {&form.firstRecord, "-2147483647"},
                               {&form.groupSize, "0"},
                               {&form.epochYear, "x"},
                               {&form.searchShiftScale, "x"}}) {
        const std::string old = field->text();
        form.groupSize.setText("2");
        field->setText(text);
        expectMessage(form.fitData, "Ошибка при обработке данных или маленькие масштабы", "Tarvex7mm");
        field->setText(old);
    }
}

TEST_F(Form6Test, RecordsAreDeletedFromTheFile) {
    expectMessage(form.deletePoint, "У Вас не загружены первичные данные");
    loadModel();
    lab.plan.TestText[3] = "строка исключения";  // an optimum found meanwhile
    form.markedRecord.setText("1");
    EXPECT_EQ(screen.said(form.deletePoint), "");
    EXPECT_TRUE(bytes(model).starts_with("а\r\nб\r\nв\r\nг\r\n 11  245190975 \r\n 1  0  10")) << bytes(model);
    EXPECT_EQ(form.recordCount.text() + " " + form.lastRecord.text(), "11 11");
    const std::string before = bytes(model);
    for (const char* number : {"0", "12", "-3"}) {
        form.markedRecord.setText(number);
        expectMessage(form.deletePoint, "Ошибка вычислений");
    }
    EXPECT_EQ(bytes(model), before);
    form.markedRecord.setText("2");
    std::filesystem::remove(at(model));  // the folder goes with it: the write must fail
    std::filesystem::remove_all(at("\\Plan1\\Txt1"));
    expectMessage(form.deletePoint, "Ошибка записи данных в файл\r\n" + model);
    EXPECT_EQ(lab.series.NP1max(), 11);
    std::filesystem::create_directory(at("\\Plan1\\Txt1"));
    expectMessage(form.loadData, "Не могу найти файл\r\n" + model);
    // after a failed load nothing is rewritten
    expectMessage(form.deletePoint, "У Вас не загружены первичные данные");
}

TEST_F(Form6Test, RecordsAreAddedOneParameterAtATime) {
    loadLong();
    test::enter(form.parameter(1), form.newYear, "1770", form.newEndYear, "1790", form.newValue, "0,5");
    EXPECT_EQ(screen.said(form.addPoint), "");
    EXPECT_TRUE(bytes(observed).starts_with(
        "а\r\nб\r\nв\r\nг\r\n 7  236754000 \r\n 1  0  730500  100000000  50000000  0  0 "))
        << bytes(observed);
    test::enter(form.parameter(7), form.newValue, "250");
    form.addPoint.press();  // no: a second record of the date
    ASSERT_EQ(screen.questions.size(), 1u);
    EXPECT_EQ(screen.questions[0].text,
              "Точка № 1 с такой датой уже есть\r\nЗаменить отмеченный параметр в этой точке?");
    EXPECT_EQ(lab.series.NP1max(), 8);
    screen.answers = {true};
    test::enter(form.parameter(4), form.newValue, "0,25", form.addPoint);
    EXPECT_EQ(lab.series.NP1max(), 8);
    EXPECT_EQ(lab.series.at(1).Par[parEks], 0.25);
    test::enter(form.newMonth, "13", form.newYear, "99999");
    expectMessage(form.addPoint, "Введите правильно дату", "Tarvex7.0");
}

TEST_F(Form6Test, SpoiltLoadsRefuseToRewrite) {
    const std::string rest =
        " можно только если при загрузке\r\n          не был отмечен параметр AlfaL0\r\n"
        "         а для Луны еще и AlfaP или AlfaU\r\n     или W* и один из чекбоксов dP11 или dU11";
    struct Case {
        int planet, param;
        bool rate;
    };
    for (const Case& c : {Case{1, 7, false}, {11, 1, false}, {11, 2, false}, {11, 6, true}}) {
        test::enter(form.planet(c.planet), form.parameter(c.param));
        form.moonPerigeeRate.set(c.rate);
        form.parameterScale.setText("1000");
        put("\\Ser\\Plan1\\Tarvex" + std::to_string(c.planet) + "Nab.txt", longSeries());
        ASSERT_EQ(screen.said(form.loadData), "");
        form.parameter(3).choose();  // what counts is the parameter of the load
        expectMessage(form.deletePoint, "УДАЛИТЬ ТОЧКУ" + rest);
        expectMessage(form.addPoint, "ДОБАВИТЬ ТОЧКУ" + rest);
    }
    EXPECT_EQ(lab.series.at(1).Par[parW], lab.series.at(1).Par[parDP11]);
}

TEST_F(Form6Test, ShiftFilesAreReadAndRewritten) {
    expectMessage(form.saveShiftFile, "У Вас не были загружены данные из файла");
    expectMessage(form.loadShiftFile, "Не могу найти файл\r\n\\Ser\\TarvexNab.dat");
    ShiftTables t;
    t.dNab[2][4] = 12.5;
    writeObservedShifts(lab.tree, "\\Ser", t);
    test::enter(form.planet(2), form.parameter(4), form.loadShiftFile);
    EXPECT_EQ(form.shiftInFile.text(), "12,5");
    test::enter(form.secularShift, "-3,25", form.saveShiftFile, form.loadShiftFile);
    EXPECT_EQ(form.shiftInFile.text(), "-3,25");
    put("\\Ser\\TarvexNab.dat", "мусор");
    expectMessage(form.loadShiftFile, "Ошибка чтения данных из файла\r\n\\Ser\\TarvexNab.dat");
    // and the bad file is not rewritten
    expectMessage(form.saveShiftFile, "У Вас не были загружены данные из файла");
    EXPECT_EQ(bytes("\\Ser\\TarvexNab.dat"), "мусор");
}

TEST_F(Form6Test, AllExperimentsOfAPlanAreFittedIntoItsFile) {
    for (int u = 1; u <= 3; ++u) put(files::runRecord(1, 1, u), shortSeries(1000000 * u));
    writePlanShifts(lab.tree, 1, 1, lab.shifts, 3);
    test::enter(form.fromModel, form.loadShiftFile);
    EXPECT_EQ(lab.plan.Nplan, 3);
    form.wholePlan.set(true);
    EXPECT_EQ(screen.said(form.saveShiftFile), "");
    ShiftTables read;
    std::int16_t count = 0;
    readPlanShifts(lab.tree, 1, 1, read, count);
    for (int u = 1; u <= 3; ++u) EXPECT_NEAR(read.dRas[1][1][u], 3600 * u, 0.01);
    const std::string before = bytes(files::planShifts(1, 1));
    std::filesystem::remove(at(files::runRecord(1, 1, 2)));
    form.experimentNumber.setText("1");
    expectMessage(form.saveShiftFile, "Не могу найти файл\r\n\\Plan1\\Txt1\\Tarvex1Ras2.txt");
    EXPECT_EQ(bytes(files::planShifts(1, 1)), before);
}

TEST_F(Form6Test, AShiftHasItsErrorAndADifferenceOfTwoSeriesAFarSmallerOne) {
    // 60 passages of a slope of 360" a century in a common wave; the other run is 36" slower and loses one
    const auto passages = [](double slope, int lost) {
        std::string text = "а\r\nб\r\nв\r\nг\r\n 60  245154450 \r\n";
        for (int i = 0; i < 60; ++i)
            if (i != lost)
                text += fileItem(i + 3) + fileItem(4400 * i) +
                        fileItem(Fix(1e8 * (50 + slope / 3600 * i * 44 / 36525 + 2e-3 * std::sin(0.3 * i) +
                                            1e-5 * std::cos(37.0 * i * (lost + 2))))) +
                        " 200000000  700000000  20560000  5790000  1000000 \r\n";
        return text;
    };
    loadModel(passages(360, -1));
    put("\\Plan1\\Txt1\\Tarvex1Ras2.txt", passages(324, 20));
    test::enter(form.groupSize, "1", form.fitData);
    const double error = form.slopeError.number();
    EXPECT_GT(error, 10);
    EXPECT_GT(form.lagOne.number(), 0.8);
    EXPECT_LT(form.effectivePoints.number(), 60);
    EXPECT_LT(form.slopeLow.number(), form.secularShift.number() - error);
    EXPECT_GT(form.slopeHigh.number(), form.secularShift.number() + error);
    EXPECT_NE(form.resampledLow.text(), "");
    EXPECT_EQ(lab.shifts.dRasErr[1][1][1], error);
    EXPECT_EQ(form.passageNotice.caption(), " ");

    test::enter(form.pairExperiment, "2", form.pairPlan, "1", form.pairedToTable, true);
    EXPECT_EQ(screen.said(form.pairedFit), "");
    EXPECT_NEAR(form.pairedShift.number(), 36, 1);
    EXPECT_LT(form.pairedError.number(), 0.5);
    EXPECT_EQ(form.pairedCount.text(), "59");
    EXPECT_EQ(lab.shifts.dRasErr[1][1][1], form.pairedError.number());

    test::enter(form.experimentNumber, "2", form.loadData, form.fitData);
    EXPECT_EQ(form.passagesFound.text() + form.passagesExpected.text(), "5960");
    EXPECT_EQ(form.passageNotice.caption(), "потеряно прохождений: 1");
    test::enter(form.withPeriods, true, form.fitData);
    EXPECT_NEAR(form.secularShift.number(), 324, 3 * form.slopeError.number());

    lab.shifts.dNab[1][1] = 1;  // the file of errors goes with that of the shifts
    put(
        "\\Ser\\TarvexNab.dat", "а\r\nб\r\n" + [] {
            std::string rows;
            for (int i = 1; i <= 11; ++i) rows += " 1  0  0  0  0  0  0 \r\n";
            return rows;
        }());
    test::enter(form.fromImitator, form.loadShiftFile, form.secularShift, "5", form.slopeError, "0,25",
                form.saveShiftFile);
    EXPECT_EQ(
        bytes("\\Ser\\TarvexNabErr.dat").substr(bytes("\\Ser\\TarvexNabErr.dat").find(" 1  ")).substr(0, 11),
        " 1  250000 ");
    lab.shifts.dNabErr = {};
    form.loadShiftFile.press();
    EXPECT_EQ(lab.shifts.dNabErr[1][1], 0.25);
    EXPECT_TRUE(screen.messages.empty());

    expectMessage(form.pairedFit, "У Вас не загружены первичные данные");
    test::enter(form.fromModel, form.loadData, form.pairSource(2));
    expectMessage(form.pairedFit, "Не могу найти файл\r\n\\JPL\\Tarvex1Nab.txt");
    test::enter(form.fitConstant, form.fitData);
    EXPECT_EQ(form.slopeError.text(), "");  // a constant has no slope
}

// The observed table by DE405, over the years of the model.
TEST_F(Form6Test, ObservedShiftsAreMeasuredByTheEphemeris) {
    test::enter(form.observedFrom, "1961", form.observedTo, "1970", form.observedFromDE405);
    EXPECT_EQ(screen.messages.at(0).text, "Смещения по DE405 не измерены");
    EXPECT_NE(form.status().find("ascp1960.405"), std::string::npos);
    screen.messages.clear();

    test::linkEphemeris(folder);
    lab.shifts.dNab[5][2] = 11;
    lab.shifts.dNabErr[5][2] = 12;
    writeObservedShifts(lab.tree, "\\JPL", lab.shifts);
    writeObservedErrors(lab.tree, "\\JPL", lab.shifts);
    auto& plan = lab.desk.get<PlanForm>();
    plan.usePlanet(3).set(true);
    const auto state = lab.s.ElemStart;
    EXPECT_EQ(screen.said(form.observedFromDE405), "");
    // ten years of Mercury: the perihelion of a century within its error, the node far better
    EXPECT_NEAR(lab.shifts.dNab[1][1], 568, 3 * lab.shifts.dNabErr[1][1]);
    EXPECT_LT(lab.shifts.dNabErr[1][1], 100);
    EXPECT_NEAR(lab.shifts.dNab[1][2], -452, 10);
    EXPECT_GT(lab.shifts.dNabErr[3][1], 0);
    EXPECT_EQ(lab.shifts.dNab[5][2] + lab.shifts.dNabErr[5][2], 23);  // what it does not measure stays
    EXPECT_EQ(lab.s.ElemStart, state);
    EXPECT_EQ(lab.series.kodData, dataImitatorShifts);
    for (const char* name : {"TarvexNab.dat.old", "TarvexNabErr.dat.old", "Tarvex1Nab.txt", "Tarvex3Nab.txt"})
        EXPECT_TRUE(std::filesystem::exists(folder.path() / "JPL" / name)) << name;
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "JPL" / "Tarvex2Nab.txt"));
}

}  // namespace tarvex
