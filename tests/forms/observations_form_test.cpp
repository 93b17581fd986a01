#include "forms/observations_form.h"

#include <signal.h>

#include "experiment/initial_settings.h"
#include "forms/observation_plan_form.h"
#include "forms/planet_perturbations_form.h"
#include "forms/run_form.h"
#include "reduction/observation_file.h"
#include "stats/series.h"
#include "tests/forms/lab_fixture.h"
#include "tests/support/ephemeris_files.h"
#include "tests/support/test_workbook.h"

namespace tarvex {

namespace {

using Told = test::RecordingScreen::Message;

struct Form10Test : test::LabTest {
    Form10Test() {
        for (const char* name : {"Obs/Plan1", "Tab/Plan1", "Ser/Plan1"}) folder.makeFolder(name);
        std::string zeros;
        for (const char* name : {"Меркурий", "Венера", "Земля", "Марс"})
            zeros += std::string(name) + "\r\n 0  0  0  0  0  0  0  0 \r\n 0  0  0  0  0  0  0  0 \r\n";
        test::writeBytes(folder.path() / "Dat/dL1.dat", zeros);
        lab.s.gamma = 6.67259e-11;
    }
    /// Three observations of the Sun near its place.
    void writeSun(const std::string& tail = "") {
        std::string text = "Заголовок 1\r\nвторая строка \r\nc\r\nd\r\n 2000  2001 \r\n";
        text += observationRecord(2000, 1, 10, 12, 291.75, -21.95) + "\r\n";
        text += observationRecord(2000, 1, 20, 12, 302.3, -20.2) + "\r\n";
        text += observationRecord(2000, 1, 30, 12, 312.5, -17.8) + "\r\n";
        test::writeBytes(folder.path() / "Obs/SUMM0_G_100.txt", text + tail);
    }
    ObservationsForm& sun() {
        auto& form = lab.desk.get<ObservationsForm>();
        test::enter(form.bodyNumber, "0", form.fromObservatories, form.observatoryChoice(6));
        return form;
    }
};

}  // namespace

TEST_F(Form10Test, WhatIsMissingIsToldInItsOwnMessage) {
    auto& form = lab.desk.get<ObservationsForm>();
    EXPECT_EQ(screen.told(form.startRun), (Told{"Выберете имитатор", "Tarvex7.0"}));
    form.tableChoice(8).choose();
    EXPECT_EQ(screen.onlyMessage(),
              (Told{"Не найдена таблица\r\n" + (folder.path() / "Tab/Streete.xls").string(), "Tarvex6"}));
    form.tableChoice(8).choose();
    EXPECT_EQ(screen.onlyMessage().title, "Tarvex6") << "a missing one can be tried again";

    form.fromObservatories.choose();
    lab.s.kodStop = 0;
    EXPECT_EQ(screen.told(form.startRun), (Told{"Выберете обсерваторию", "Tarvex7.0"}));
    test::enter(form.bodyNumber, "0", form.observatoryChoice(6));
    EXPECT_EQ(screen.onlyMessage(),
              (Told{"Не найден файл\r\n" + (folder.path() / "Obs/SUMM0_G_100.txt").string(), "Tarvex7"}));
    writeSun();
    form.observatoryChoice(6).choose();
    EXPECT_TRUE(screen.messages.empty());
    form.bodyNumber.setText("3");
    EXPECT_EQ(screen.told(form.startRun), (Told{"Землю не наблюдали", "Tarvex7.0"}));
    lab.s.kodStop = 0;
    for (const char* bad : {"ж", "12", "-1"}) {
        form.bodyNumber.setText(bad);
        EXPECT_EQ(screen.told(form.startRun), (Told{"Введите правильно данные", "Tarvex7.0"})) << bad;
        lab.s.kodStop = 0;
    }
    test::writeBytes(folder.path() / "Obs/GREN0_G_100.txt", "a\r\nb\r\nc\r\nd\r\nyears\r\n");
    test::enter(form.bodyNumber, "0", form.observatoryChoice(1));
    EXPECT_EQ(screen.onlyMessage(), (Told{"Введите правильно данные", "Tarvex7"}));
}

TEST_F(Form10Test, ARunStopsContinuesAndEndsWithItsMeans) {
    writeSun();
    auto& form = sun();
    form.lastYear.setText("2001");
    screen.atYield = [&](int count) {
        if (count == 1) form.stopRun.press();
    };
    EXPECT_EQ(screen.said(form.startRun), "");
    EXPECT_EQ(form.acceptedCount.text(), "2") << "stopped at the second observation";
    EXPECT_EQ(screen.told(form.startRun), (Told{"Надо открыть файл снова", "Tarvex7.0"}));
    form.continueRun.press();
    EXPECT_EQ(form.acceptedCount.text(), "3");
    EXPECT_EQ(lab.s.JDut, 2451564);

    screen.atYield = nullptr;
    test::enter(form.observatoryChoice(6), form.singleStep);
    EXPECT_EQ(form.acceptedCount.text(), "4") << "one step more, from the first record again";
}

TEST_F(Form10Test, ABadRecordLeavesTheSourceClosedAndTheChoiceOpensItAgain) {
    writeSun("          2000 letters\r\n");
    auto& form = sun();
    form.lastYear.setText("2001");
    EXPECT_EQ(screen.said(form.startRun),
              "Ошибка чтения данных из файла\r\n" + (folder.path() / "Obs/SUMM0_G_100.txt").string());
    EXPECT_EQ(form.acceptedCount.text(), "3");
    writeSun();
    form.observatoryChoice(6).choose();
    EXPECT_EQ(screen.said(form.startRun), "");
    EXPECT_EQ(form.acceptedCount.text(), "3");
}

/// A table without cells, so that no office is needed.
TEST_F(Form10Test, CalendarBodyAndDateOfAChosenTable) {
    auto& form = lab.desk.get<ObservationsForm>();
    test::enter(form.bodyNumber, "25", form.tableChoice(5));
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно данные");
    EXPECT_EQ(lab.s.IplSel, 11) << "a number that is no body reaches nothing";
    test::enter(form.bodyNumber, "11", form.tableChoice(0), form.tableChoice(5));
    EXPECT_EQ(screen.said(form.singleStep), "");
    EXPECT_EQ(form.day.text() + "." + form.month.text() + "." + form.year.text(), "1.1.2000")
        << "a first step lands on the start, in the calendar of the table";
    EXPECT_EQ(lab.s.kodKalend, 0) << "the calendar of the others";
    EXPECT_EQ(lab.s.TimeZone, 0);
    const double before = lab.s.JDepoha;
    form.year.setText("99999");
    for (CommandButton* command : {&form.startRun, &form.performExperiments}) {
        command->press();
        EXPECT_EQ(screen.onlyMessage().text, "Введите правильно дату")
            << "and no run from a date that is none";
    }
    EXPECT_EQ(lab.s.JDepoha, before);
}

TEST_F(Form10Test, ATableRunsThroughTheOfficeAndOutlivesAKilledOne) {
    if (!SpreadsheetOffice::available()) GTEST_SKIP() << "built without LibreOffice";
    test::writeWorkbook(
        folder.path() / "Tab/Tycho.xls",
        {{{"E11", "0"}, {"D11", "0"}, {"C11", "0"}, {"G11", "0"}, {"G20", "=[.E11]/10+[.C11]"}}});
    auto& form = lab.desk.get<ObservationsForm>();
    test::enter(form.bodyNumber, "0", form.tableChoice(9));
    EXPECT_TRUE(screen.messages.empty());
    test::enter(form.lastYear, "1580", form.tableStep, "100");
    EXPECT_EQ(screen.said(form.startRun), "");
    EXPECT_EQ(form.acceptedCount.text(), "5")
        << "each 100 days; the first date behind the last year ends the run";
    EXPECT_NEAR(form.observedLongitude.number(), 158.1 + 4, 1e-6);

    kill(lab.office.process(), 9);
    EXPECT_EQ(screen.told(form.startRun), (Told{"Ошибка вычислений в таблицахTycho", "Tarvex7.0"}));
    EXPECT_EQ(lab.s.kodStop, 1);
    form.tableChoice(9).choose();
    EXPECT_EQ(screen.said(form.startRun), "");

    form.year.setText("1580");
    screen.atYield = [&](int) { form.closeForm.press(); };  // closed in the middle of its run
    EXPECT_EQ(screen.said(form.startRun), "");
    EXPECT_FALSE(lab.desk.isLoaded("Form10"));
    EXPECT_EQ(lab.reduction.table.table, nullptr);
}

TEST_F(Form10Test, APlanFileIsWrittenReadAndForgivenItsTail) {
    writeSun();
    auto& form = sun();
    auto& plan = lab.desk.get<ObservationPlanForm>();
    test::enter(plan.factorChosen(4), false, plan.createPlan, plan.loadPlan);
    lab.plan.Yu.fill(0);
    lab.plan.Yras.fill(0);
    lab.plan.b.fill(0.5);
    lab.s.Den0 = 1.5, lab.s.Mes0 = 1, lab.s.JDut = 2451560.25;
    for (int i = 1; i <= 9; ++i) {
        plan.zeroLevel(i).setText(i == 1 ? "149598,5" : std::to_string(i) + ",25");
        plan.codedOptimum(i).setText("-0,5");
        plan.naturalOptimum(i).setText(i == 1 ? "149597,5" : "1");
    }
    plan.systemVX.setText("300,5");
    plan.interval(1).setText("1e308");  // in range, but not in metres
    EXPECT_EQ(screen.said(plan.savePlan), "Задайте правильно данные для плана");
    EXPECT_TRUE(std::isfinite(lab.plan.dXvar[1]));
    plan.interval(1).setText("10");
    EXPECT_EQ(screen.said(plan.savePlan), "");
    const auto path = folder.path() / "Obs/Plan1/0_100_1.dat";
    const std::string text = test::readBytes(path);
    const auto date = text.find(" от ") + std::string(" от ").size();
    EXPECT_EQ(text.substr(0, date), "план № 1 опыт № 1 по планете № 0 для SUMM в эпохе J2000 по R от ");
    const std::string after = text.substr(text.find("\r\n") + 2);
    EXPECT_EQ(after.substr(0, after.find("№ эксперимента")),
              "Начальная дата оптимизации и год окончания\r\n"
              " 1500000  1  2000  2020  2451560250000 \r\n"
              "Нулевые уровни и интервалы варьирования параметров и оптимальные значения\r\n"
              " 1  149598500  10000 -500000  149597500 \r\n"
              " 2  2250000000  100 -500000  1000000 \r\n"
              " 3  3250000000  10000 -500000  1000000 \r\n"
              " 4  4250000000  100000 -500000  1000000 \r\n"
              " 5  5250000000  100000 -500000  1000000 \r\n"
              " 6  6250000000  1000 -500000  1000000 \r\n"
              " 7  7250000  10000 -500000  1000000 \r\n"
              " 8  8250000000  100000 -500000  1000000 \r\n"
              " 9  9250000000  100000 -500000  1000000 \r\n"
              "Скорость Солнечной системы по осям X Y Z и прецессия и вес \r\n"
              " 300500  0  0  5029000000  1000000 \r\n");
    EXPECT_NE(after.find("\r\n1    1000       1000        0  0 \r\n"), std::string::npos) << after;
    EXPECT_NE(after.find("без поправок= 0\r\n 0  500000 \r\n"), std::string::npos);
    EXPECT_DOUBLE_EQ(lab.plan.Xnul[7], 0.00725) << "left divided until the fields are read again";

    test::writeBytes(path, text.substr(0, text.find("№ эксперимента")) + "\xFF damaged");
    lab.plan.Xnul.fill(0);
    lab.reduction.velocity.set(lab.s, {});
    plan.fileSource.choose();
    EXPECT_EQ(screen.said(plan.loadPlan), "");
    EXPECT_DOUBLE_EQ(lab.plan.Xnul[7], 7.25);
    EXPECT_DOUBLE_EQ(lab.plan.Xnul[8], 8.25);
    EXPECT_DOUBLE_EQ(lab.reduction.velocity.of(lab.s).X, 300.5);
    EXPECT_EQ(lab.s.VXsys, 0) << "the velocity of the plan is no matter of a run";
    lab.s.VXsys = 20;
    EXPECT_EQ(lab.reduction.velocity.of(lab.s).X, 20) << "set on Form4 since";

    std::string tooLarge = text;
    tooLarge.replace(text.find("149598500 "), 9, "1.5E308");
    for (const std::string& bad : {text.substr(0, 700), tooLarge}) {
        test::writeBytes(path, bad);
        EXPECT_EQ(screen.told(plan.loadPlan),
                  (Told{"Ошибка чтения данных из файла\r\n\\Obs\\Plan1\\0_100_1.dat", "Tarvex7"}));
        EXPECT_DOUBLE_EQ(lab.plan.Xnul[8], 8.25);
        EXPECT_DOUBLE_EQ(lab.plan.Xnul[1], 149598500000.0);
    }
    plan.templateSource.choose();
    form.year.setText("2147483640");  // no year twenty years later
    EXPECT_EQ(screen.said(plan.loadPlan), "Ошибка при расчете параметров для шаблона");
    test::enter(form.year, "2000", plan.fileSource, plan.testNumber, "9");
    EXPECT_EQ(screen.said(plan.loadPlan), "Не могу найти файл\r\n\\Obs\\Plan1\\0_100_9.dat");
    plan.testNumber.setText("x");
    EXPECT_EQ(screen.said(plan.loadPlan), "Введите правильно номер плана и опыта");
    plan.factorChosen(2).set(false);
    EXPECT_EQ(screen.said(plan.createPlan), "К-во факторов должно быть от 2 до 6");
}

TEST_F(Form10Test, TheOptimumJoinsTheLongSeries) {
    writeSun();
    sun();
    auto& plan = lab.desk.get<ObservationPlanForm>();
    const std::string name = "\\Ser\\Plan1\\Tarvex3Nab.txt";
    EXPECT_EQ(screen.said(plan.addOptimum), "Не могу найти файл\r\n" + name);

    SeriesData series;
    series.FileData = name;
    series.kodData = dataLong;
    series.header = {"one", "two", "three", "four"};
    series.JD0 = 2400000;
    series.records.resize(2);
    series.records[1].dTd = 60000;
    writeSeries(lab.tree, series);
    lab.s.JDepoha = 2450000;
    lab.s.JDut = 2450100;
    test::enter(plan.zeroLevel(2), "0,0167", plan.zeroLevel(1), "149600");
    EXPECT_EQ(screen.said(plan.addOptimum), "");
    SeriesData read;
    readSeries(lab.tree, name, dataLong, read);
    ASSERT_EQ(read.NP1max(), 3);
    EXPECT_EQ(read.date(2), 2450000);
    EXPECT_EQ(read.at(2).ddTd, 200);
    EXPECT_DOUBLE_EQ(read.at(2).Par[parEks], 0.0167);

    screen.answers = {true};
    plan.zeroLevel(2).setText("0,02");
    plan.addOptimum.press();  // replaces
    readSeries(lab.tree, name, dataLong, read);
    EXPECT_EQ(read.NP1max(), 3);
    EXPECT_DOUBLE_EQ(read.at(2).Par[parEks], 0.02);
    EXPECT_EQ(screen.questions.back().text,
              "Точка №  2  с такой датой уже есть\r\nЗаменить параметры этой точки?");

    EXPECT_EQ(screen.said(plan.sendPerturbations), "Загрузите форму 22 (dLp)");
    auto& terms = lab.desk.get<PlanetPerturbationsForm>();
    test::enter(plan.secondPerturber, plan.zeroLevel(9), "0,75", plan.sendPerturbations);
    EXPECT_EQ(terms.amplitude(3 * 10 + 40 + 8).text(), "0,75");
}

/// The model against places of the ephemeris, and against directions of observations that were made of it
/// with 0.3" of noise: both ways its initial data follow.
TEST_F(Form10Test, TheModelIsFittedToPlacesAndToObservations) {
    auto& form = lab.desk.get<ObservationsForm>();
    test::enter(form.fit.source(1), form.fit.from, "1960", form.fit.to, "1960", form.fit.fit);
    EXPECT_EQ(screen.messages.at(0).text, "Модель не подогнана к местам");
    EXPECT_NE(form.status().find("ascp1960.405"), std::string::npos);
    screen.messages.clear();
    test::linkEphemeris(folder);
    formInitialData(lab.experiment(), {.source = Source::JPL2, .year = 1959, .month = 12, .day = 25});
    auto& run = lab.desk.get<RunForm>();
    run.step.setText("86400");
    lab.motion.kodRelativity = 1;
    const auto before = lab.s.X0;
    lab.s.X0[1] += 5e5;
    EXPECT_EQ(screen.said(form.fit.fit), "");
    EXPECT_EQ(form.fit.Vgr.text() + form.fit.VgrLow.text(), "");
    EXPECT_LT(form.fit.chiSquare.number() / form.fit.freedom.number(), 1);
    EXPECT_NE(form.fit.report.text().find("ChiSquare = "), std::string::npos);
    EXPECT_EQ(lab.s.X0[1], before[1] + 5e5);  // shown, not taken

    form.fit.source(2).choose();
    EXPECT_EQ(screen.said(form.fit.fit), "Сначала обработайте наблюдения");
    std::filesystem::copy_file(std::filesystem::path(TARVEX_SOURCE_DIR) / "data/Obs/SUMM1_G_100.txt",
                               folder.path() / "Obs/SUMM1_G_100.txt");
    test::enter(form.bodyNumber, "1", form.fromObservatories, form.observatoryChoice(6), form.lastYear,
                "1961", form.withoutAnimation, true, form.startRun);
    EXPECT_GE(form.acceptedCount.number(), 80);
    test::enter(form.fit.bodies, "1,3", form.fit.sigma, "0,5");
    EXPECT_EQ(screen.said(form.fit.fit), "");
    EXPECT_EQ(form.fit.freedom.number(), 2 * form.acceptedCount.number() - 12);
    EXPECT_LT(form.fit.chiSquare.number() / form.fit.freedom.number(), 2) << form.fit.report.text();
}

}  // namespace tarvex
