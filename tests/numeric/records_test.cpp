#include "numeric/records.h"

#include "tests/support/test_run.h"

namespace tarvex {

using test::readBytes;
using test::TestRun;

namespace {

/// Outcome of a start: text and title of a refusal, "data" for any other failure, "" when it succeeds.
std::string outcome(TestRun& t) {
    try {
        t.start();
    } catch (const Refusal& refusal) {
        return refusal.text + "|" + refusal.title;
    } catch (const std::exception&) {
        return "data";
    }
    return "";
}

}  // namespace

TEST(Records, RunFileByteForByte) {
    TestRun t;
    t.settings.boxes.records = true;
    t.settings.experiment = 7;
    t.settings.windowDegrees = 0.5;
    t.settings.stepDivider = 100;
    t.settings.lastYear = 1801;
    t.s.VXsys = -12.5;
    t.startAndGo();
    EXPECT_EQ(
        readBytes(t.folder.path() / "Plan0/Txt1/Tarvex1Ras7.txt"),
        "эксперимент № 7 для объекта № 1 из 10 от 21.11.2026 плоскость эклиптики в эпоху J2000 начало "
        "01,50.01.1801\r\n"
        "шаг решения 3600 сек  уменьшен у перигелия в 100 раз     dAlfa= 0,5   kodBary= 0   kodMoon= 0   "
        "kodDX= 0   "
        "kodPgr= 0   kodOTO=  0   kodSun=  0\r\n"
        "Классика  Ser0    VXsys=  -12,5   VYsys= 0   VZsys= 0   Vgr= 0 Vsv   k1= 0  k2= 0  m2=  408523     "
        "m5= "
        "1047,348\r\n"
        " № замера     прошло дней   перигелий     восхождение     наклон   эксцентриситет    полуось     "
        "угл.скорость\r\n"
        " 0  237886200 \r\n"
        " 3  24146  7713698848  4857316406  701600879  20559361  5791734631  260879296736 \r\n"
        " 3  28545  7713634138  4857358029  701601742  20559260  5791727249  260879296736 \r\n"
        " 4  32943  7713609996  4857249753  701600860  20559084  5791735711  260879296736 \r\n");
}

// A mass of a plan as it was typed: the thousandfold is divided, not the quotient multiplied, or the cut
// would lose a unit.
TEST(Records, MassesOfTheHeadAreCutAfterTheDivision) {
    TestRun t;
    t.s.m[0] = 1.98892e30;
    t.s.m[5] = t.s.m[0] / 1047.35;
    t.start();
    t.run.FileRas = "\\Dat\\r.txt";
    writeRasHead(t.tree, t.s, t.motion, t.run, "");
    EXPECT_NE(readBytes(t.folder.path() / "Dat/r.txt").find("     m5= 1047,35\r\n"), std::string::npos);
}

TEST(Records, AnglesAreContinuedOverWholeTurns) {
    struct Case {
        double theory, measured, continued;
    };
    for (const Case c : {Case{77, 77.1, 77.1}, Case{359, 1, 361}, Case{361, 359, 359}, Case{725, 4, 724},
                         Case{719.9, 0.2, 720.2}, Case{-10, 350.5, -9.5}, Case{-359, 1.5, -358.5},
                         Case{-1, 0.5, 0.5}, Case{-359.9, 359.8, -360.2}, Case{0, 12, 0}})
        EXPECT_NEAR(continuousAngle(c.theory / kUgol, c.measured), c.continued, 1e-9) << c.theory;
}

TEST(Records, EnergyRunWritesPercentsAtEachDisplay) {
    TestRun t;
    t.settings.boxes = {};
    t.settings.boxes.energy = t.settings.boxes.records = t.settings.boxes.track = t.settings.boxes.endAtYear =
        true;
    t.settings.stepsPerDisplay = 2000;
    t.settings.lastYear = 1801;
    t.motion.kodEpot = t.motion.kodCMnow = 1;
    t.startAndGo();
    const std::string file = readBytes(t.folder.path() / "Plan0/Txt1/Tarvex1Ras1.txt");
    EXPECT_NE(file.find(" E0sys= " + toText(t.run.E0sys) + " MKD0sys= " + toText(t.run.MKD0sys) + "\r\n"),
              file.npos);
    EXPECT_NE(file.find("\r\n № замера     прошло дней          dEsys %       dMKDsys %      dEKsys %\r\n 0  "
                        "237886200 \r\n"),
              file.npos);
    TextReader reader(t.folder.path() / "Plan0/Txt1/Tarvex1Ras1.txt");
    for (int line = 0; line < 4; ++line) reader.line();
    reader.number();
    reader.number();
    for (int record = 1; record <= 4; ++record) {
        EXPECT_EQ(reader.number(), 0);
        EXPECT_EQ(reader.number(), Fix(100 * record * 2000 / 24.));
        EXPECT_LT(std::abs(reader.number()), 1e8 * 1e-6);  // kept to 10^-8
        EXPECT_LT(std::abs(reader.number()), 1e8 * 1e-8);
        EXPECT_GT(std::abs(reader.number()), 1e8 * 1e-3);  // the kinetic part swings
        EXPECT_EQ(reader.number(), 0);
        EXPECT_EQ(reader.number(), 0);
        EXPECT_EQ(reader.number(), 0);
    }
    EXPECT_TRUE(reader.noMoreItems());
    EXPECT_EQ(t.run.Eks, 0);

    TextReader track(t.folder.path() / "Dat/Tarvex1XYZ1.txt");
    EXPECT_EQ(track.line(),
              "эксперимент № 1 для объекта № 1 из 10 от  21.11.2026 плоскость эклиптики в эпоху J2000    "
              "начало 01,50.01.1801");
    EXPECT_EQ(track.line(),
              "шаг решения 3600 сек  уменьшен у перигелия в 1000 раз     dAlfa= 1   kodBary= 0   "
              "kodMoon=  0   kodDX=  0   kodPgr=  0");
    EXPECT_EQ(track.line(),
              "Классика  Ser0             VXsys=  0   VYsys= 0   VZsys= 0    Vgr= 0 Vsv   k1= 0  k2= 0");
    EXPECT_TRUE(
        track.line().ends_with("энергия системы в Дж /10^30   момент количества движения в кг*м^2/с /10^30"));
    const std::string first = track.line();
    EXPECT_TRUE(first.starts_with("25,833.03.1801____T= 000000007,200____X= ")) << first;
    EXPECT_NE(first.find("____Vpl= 00"), first.npos);
}

TEST(Records, AFolderThatVanishesEndsTheRun) {
    TestRun t;
    t.settings.boxes.records = true;
    t.settings.stepDivider = 50;
    t.start();
    std::filesystem::remove_all(t.folder.path() / "Plan0");
    EXPECT_THROW(t.go(), Refusal);
    EXPECT_EQ(t.run.NZamer, 3);  // the first perihelion that has a record
}

/// From Start to the end of its run a file belongs to one program, also while the run is stopped.
TEST(Records, AFileThatAnotherProgramWritesIsRefusedAtStart) {
    struct Case {
        void (*choose)(TestRun&);
        const char* file;
    };
    for (const Case c :
         {Case{[](TestRun& t) { t.settings.boxes.records = true; }, "Plan0/Txt1/Tarvex1Ras1.txt"},
          Case{[](TestRun& t) { t.settings.boxes.track = true; }, "Dat/Tarvex1XYZ1.txt"},
          Case{[](TestRun& t) {
                   t.settings.boxes.records = true;
                   t.settings.model = false;
               },
               "NEW/Tarvex1Nab.txt"}}) {
        TestRun first, second;
        for (TestRun* t : {&first, &second}) {
            t->tree = first.tree;
            c.choose(*t);
            t->settings.stepDivider = 50;
            t->settings.lastYear = 1801;
        }
        second.settings.step = 1800;
        const auto file = first.folder.path() / c.file;
        struct Stopper : RunPort {
            bool giveWay() override { return false; }
        } stopper;
        first.start();
        RunLoop(first.experiment(), stopper);
        const std::string before = readBytes(file);
        for (int i = 0; i < 2; ++i) try {
                second.start();
                ADD_FAILURE() << c.file << " was taken";
            } catch (const FileFailure& failure) {
                EXPECT_EQ(std::string(failure.what()), "файл " + file.string() + " пишет другая программа");
            }
        EXPECT_EQ(readBytes(file), before);
        continueExperiment(first.experiment(), first.settings);
        first.go();
        EXPECT_GT(readBytes(file).size(), before.size());
        second.start();
        EXPECT_NE(readBytes(file).find("1800 сек"), std::string::npos);
        EXPECT_THROW(continueExperiment(first.experiment(), first.settings), FileFailure);
    }
}

TEST(Records, PathsAndCountsOfModelsAndImitators) {
    TestRun t;
    t.run.kodModel = 1;
    t.s.NPlan = 3, t.s.NFile = 12, t.s.IplSel = 4;
    t.run.Period = 687, t.run.GodEnd = 1901, t.s.God0 = 1801;
    EXPECT_EQ(recordFile(t.s, t.run), "\\Plan3\\Txt4\\Tarvex4Ras12.txt");
    EXPECT_EQ(recordCount(t.s, t.run), 159);
    t.run.GodEnd = 1701;
    EXPECT_EQ(recordCount(t.s, t.run), -159);
    t.s.IplSel = 3;
    EXPECT_EQ(recordCount(t.s, t.run), 32000);
    t.run.kodModel = 0;
    t.run.boxes.theory = Imitator::New0;
    EXPECT_EQ(recordFile(t.s, t.run), "\\NEW\\Tarvex3Nab.txt");
    t.run.boxes.theory = Imitator::JPL2;
    t.s.kodMoon = 1;
    EXPECT_EQ(recordFile(t.s, t.run), "\\JPL\\Tarvex11Nab.txt");
    EXPECT_EQ(trackFile(t.s), "\\Dat\\Tarvex11XYZ12.txt");
    t.run.boxes.energy = true;
    t.s.Dt = 3600, t.s.NC0 = 0;
    EXPECT_THROW(recordCount(t.s, t.run), ArithmeticFailure);
    t.s.NC0 = 1;
    t.run.GodEnd = 2000000000;
    EXPECT_THROW(recordCount(t.s, t.run), OverflowFailure);
}

TEST(ExperimentStart, RefusesWithTheMessageOfTheFirstFault) {
    const std::string data = "data";
    struct Case {
        const char* name;
        void (*spoil)(TestRun&);
        std::string message;
    };
    const std::string number = "номер объекта должен быть от 0 до 10|Tarvex7.0";
    const Case cases[] = {
        {"object 11", [](TestRun& t) { t.settings.body = 11, t.settings.step = TypedText{"abc"}; }, number},
        {"object -1", [](TestRun& t) { t.settings.body = -1; }, number},
        {"object 10,4 is 10",
         [](TestRun& t) {
             t.settings.body = 10.4;
             t.s.ElemStart[5][10] = 1e12;
         },
         ""},
        {"object text", [](TestRun& t) { t.settings.body = TypedText{""}; }, data},
        {"object 0", [](TestRun& t) { t.settings.body = 0; },
         "Номер планеты для вычисления параметров должен быть от 1 до 10|Tarvex7"},
        {"no speed", [](TestRun& t) { t.settings.gravitySpeed = 0, t.settings.finiteGravitySpeed = true; },
         "Надо задать скорость гравитации отличную от нуля|Tarvex7mmm"},
        {"no speed in relativity",
         [](TestRun& t) { t.settings.gravitySpeed = 0, t.settings.relativistic = true; },
         "Скорость гравитации в ОТО не может быть равна нулю|Tarvex7mmm"},
        {"speed huge", [](TestRun& t) { t.settings.gravitySpeed = 1e301; }, data},
        {"exponent", [](TestRun& t) { t.settings.distanceExponent = TypedText{"два"}; }, data},
        {"file number", [](TestRun& t) { t.settings.experiment = 40000; }, data},
        {"step", [](TestRun& t) { t.settings.step = TypedText{"час"}; }, data},
        {"step of nothing", [](TestRun& t) { t.settings.step = 0; }, data},
        {"step backwards", [](TestRun& t) { t.settings.step = -3600; }, data},
        {"divider below zero", [](TestRun& t) { t.settings.stepDivider = -10; }, data},
        {"divider", [](TestRun& t) { t.settings.stepDivider = 32768; }, data},
        {"batch", [](TestRun& t) { t.settings.stepsPerDisplay = TypedText{"-"}; }, data},
        {"scale", [](TestRun& t) { t.settings.angleScale = TypedText{""}; }, data},
        {"years", [](TestRun& t) { t.settings.timeScale = TypedText{"1 000"}; }, data},
        {"plot", [](TestRun& t) { t.settings.plotScale = TypedText{"x"}; }, data},
        {"shift", [](TestRun& t) { t.settings.plotShift = TypedText{"x"}; }, data},
        {"end", [](TestRun& t) { t.settings.lastYear = 3e9; }, data},
        {"window", [](TestRun& t) { t.settings.windowDegrees = TypedText{"один"}; }, data},
        {"missing folder", [](TestRun& t) { t.s.NPlan = 9, t.settings.boxes.records = true; }, data},
        {"nothing ticked", [](TestRun& t) { test::tick(t.s, -1); }, data},
        {"trace too long",
         [](TestRun& t) {
             t.motion.kodDX = 3, t.settings.gravitySpeed = 1e-6, t.settings.finiteGravitySpeed = true;
         },
         data},
        {"origin on the body", [](TestRun& t) { t.settings.body = 3, t.settings.boxes.originEarth = true; },
         data},
        {"energy with the Moon",
         [](TestRun& t) { t.settings.model = false, t.s.kodMoon = 1, t.settings.boxes.energy = true; },
         "В имитаторах энергия системы считается только для Луны вместе с Землей\r\n      (если надо то "
         "задайте на форме "
         "1 движение Луны и Земли совместное)|Tarvex7.0"},
        {"New0 with the Moon", [](TestRun& t) { t.settings.model = false, t.s.kodMoon = 1; },
         "     В имитаторах New0 и JPL0 не может быть номер объекта 0 или 10\r\nи не может быть задано на "
         "форме 1 "
         "отдельно движение Луны и Земли|Tarvex7"},
        {"JPL2 with Xena",
         [](TestRun& t) {
             t.settings.model = false, t.settings.boxes.theory = Imitator::JPL2, t.settings.body = 10;
         },
         "     В имитаторе JPL2 объектом 10 может быть только Луна\r\n(если надо то задайте на форме 1 "
         "отдельно движение "
         "Луны и Земли)|Tarvex7"},
    };
    for (const Case& c : cases) {
        TestRun t;
        c.spoil(t);
        EXPECT_EQ(outcome(t), c.message) << c.name;
    }
}

TEST(ExperimentStart, ImitatorsTakeTheirMassesAndLeaveThem) {
    TestRun t;
    const double before = t.s.m[1];
    t.settings.model = false;
    EXPECT_EQ(outcome(t), "");
    EXPECT_EQ(t.run.ModelName, "NEW_0");
    EXPECT_DOUBLE_EQ(t.s.m[0] / t.s.m[1], 6000000);
    EXPECT_NE(t.s.m[1], before);
    EXPECT_EQ(t.motion.DXp[3][1], t.s.X0[1] - t.s.X0[3]);  // no equation of motion will form the pairs
    EXPECT_DOUBLE_EQ(t.motion.Rik[0][5], std::hypot(t.s.X0[5], t.s.Y0[5], t.s.Z0[5]));
    t.settings.model = true;
    t.s.provenance.source = Source::JPL2;
    t.settings.relativistic = true;
    EXPECT_EQ(outcome(t), "");
    EXPECT_EQ(t.run.ModelName, "OTO   JPL2");
    EXPECT_DOUBLE_EQ(t.s.m[0] / t.s.m[1], 6000000);
}

}  // namespace tarvex
