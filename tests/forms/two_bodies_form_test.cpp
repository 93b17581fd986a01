#include "forms/two_bodies_form.h"

#include "forms/pulsar_form.h"
#include "tests/forms/lab_fixture.h"

namespace tarvex {

using test::readBytes;
using test::writeBytes;

class Form25Test : public test::LabTest {
protected:
    Form25Test() { lab.s.gamma = 66.7259e-12; }
    /// The given pair at rest in the origin, ready to run.
    void prepare() {
        form.Command7.press();
        form.Command6.press();
        form.Text22.setText("360");
    }
    void stopAfter(int yields) {
        const int goal = screen.yields + yields;
        screen.atYield = [this, goal](int count) {
            if (count >= goal) form.Command2.press();
        };
    }
    std::filesystem::path file(int N) { return lab.tree.at(files::pulsar(N)); }

    TwoBodiesForm& form = lab.desk.get<TwoBodiesForm>();
};

TEST_F(Form25Test, WindowOfTheEffectIsPrintedWithItsRates) {
    prepare();
    form.Option10.choose();  // nothing has run: nothing to tell
    EXPECT_TRUE(screen.messages.empty());
    form.Text36.setText("2000");
    form.Option4.choose();
    stopAfter(1);
    form.Command1.press();
    form.Option9.choose();
    form.Option10.choose();  // no time between
    EXPECT_EQ(screen.onlyMessage().text, "Ошибка решения уравнений");
    form.Option9.choose();
    stopAfter(8);
    form.Command3.press();
    EXPECT_GT(toNumber(form.Text11.text()), 0);
    form.Option10.choose();
    int rates = 0;
    for (const auto& d : test::drawnOn(form.Picture2))
        if (d.kind == test::Drawn::Kind::Text)
            for (const char* start : {"dT=", "dEks=", "dAlfaP=", "dRsr=", "dP="})
                rates += d.text.starts_with(start);
    EXPECT_EQ(rates, 5);
}

TEST_F(Form25Test, FieldsOfTheStartAreNotReadAgain) {
    prepare();
    form.Check8.set(true);
    form.Text23.setText("10");
    form.Text36.setText("30000");
    double atPress = 0;
    screen.atYield = [&](int n) {
        if (n > 1) {
            atPress = lab.twoBody.Tsec;
            return form.Command2.press();
        }
        for (TextField* field : {&form.Text6, &form.Text21, &form.Text36, &form.Text43, &form.Text44,
                                 &form.Text45, &form.Text46})
            field->setText("");  // half typed
        form.Check5.set(true);
        form.Check6.set(true);
        form.Check7.set(true);
    };
    form.Command1.press();
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_EQ(screen.yields, 2);
    EXPECT_GT(lab.twoBody.Tsec, atPress);  // the press is read at the next display
    form.Option9.choose();
    EXPECT_TRUE(screen.messages.empty());

    form.Text36.setText("10");  // read again where a run goes on
    form.Text21.setText("0,5");
    screen.atYield = [this](int) { form.Command2.press(); };
    form.Command3.press();
    EXPECT_EQ(lab.twoBody.NC0, 10);
    EXPECT_EQ(lab.twoBody.Vgr, 0.5 * Vsv);
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form25Test, ClosingTheFormEndsItsRunAndNoOther) {
    prepare();
    screen.atYield = [this](int) { form.Command9.press(); };
    form.Command1.press();
    EXPECT_EQ(screen.yields, 1);
    EXPECT_EQ(lab.s.kodStop, 0);
    EXPECT_FALSE(lab.desk.isLoaded("Form25"));
}

TEST_F(Form25Test, FileOfAPulsarByteForByteAndBack) {
    form.Text4.setText("1,4398");
    form.Text5.setText("1,3886");
    form.Text7.setText("0,6171338");
    form.Text8.setText("292,54487");
    form.Text37.setText("47,2");
    form.Text10.setText("1950,1");
    form.Text22.setText("0,059");
    form.Text2.setText("7");
    form.Command8.press();
    EXPECT_EQ(readBytes(file(7)),
              "km1= 1000000*m1 / mSol_____km2= 1000000*m2 / mSol___1000000*Eks___1000000*AlfaP "
              "град___1000000*Betta град___Rsr м___1000000*P0i сек\r\n"
              "  \r\n"
              "1439800 1388600 617133 292544870 47200000 1950100000 59000\r\n");
    form.Text10.setText("123456789012");  // more digits than a number item has: no exponent
    form.Command8.press();
    EXPECT_NE(readBytes(file(7)).find(" 123456789012000000 59000\r\n"), std::string::npos);
    form.Text10.setText("1950,1");
    form.Command8.press();
    form.Text8.setText("0");
    form.Option11.choose();
    form.Command7.press();
    EXPECT_EQ(form.Text8.text(), "292,54487");
    EXPECT_EQ(form.Text10.text(), "1950,1");
    EXPECT_EQ(form.Text7.text(), "0,617133");
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form25Test, BadFilesAndFieldsEndInTheirMessages) {
    form.Option11.choose();
    form.Text2.setText("5");
    const std::string before = form.Text10.text();
    form.Command7.press();
    EXPECT_EQ(screen.onlyMessage().text, "Не могу найти файл \\Dat\\Pulsar5.dat");
    for (const char* bad : {"", "a\nb\n1 2 3 4 5 6", "a\nb\n1 2 3 four 5 6 7", "\x01\x02\x03"}) {
        writeBytes(file(5), bad);
        form.Command7.press();
        EXPECT_EQ(screen.onlyMessage().text, "Ошибка чтения данных из файла \\Dat\\Pulsar5.dat");
        EXPECT_EQ(form.Text10.text(), before);
    }
    form.Text2.setText("");
    form.Command8.press();
    EXPECT_EQ(screen.onlyMessage().text, "Задайте номер файла");
    std::filesystem::remove_all(lab.tree.at("\\Dat"));
    form.Text2.setText("6");
    form.Command8.press();
    EXPECT_EQ(screen.onlyMessage().text, "Ошибка записи в файл \\Dat\\Pulsar6.dat");

    form.Option12.choose();
    form.Command3.press();  // nothing to go on with
    EXPECT_EQ(screen.onlyMessage().text, "Ошибка решения уравнений");
    for (const char* body : {"10", "12", "0", "x"}) {
        form.Text12.setText(body);
        form.Command7.press();
        EXPECT_EQ(screen.onlyMessage().text, "Задайте правильно данные");
    }
    form.Text12.setText("11");
    prepare();
    for (const auto& [field, text] :
         std::initializer_list<std::pair<TextField*, const char*>>{{&form.Text21, "0"},
                                                                   {&form.Text22, "0"},
                                                                   {&form.Text23, "0"},
                                                                   {&form.Text36, "40000"},
                                                                   {&form.Text6, "0"},
                                                                   {&form.Text24, "?"}}) {
        const std::string good = field->text();
        field->setText(text);
        form.Command1.press();
        EXPECT_EQ(screen.onlyMessage(),
                  (test::RecordingScreen::Message{"Задайте правильно данные", "Tarvex7mm"}))
            << field->name();
        field->setText(good);
    }
    form.Text5.setText("0");
    form.Command6.press();
    EXPECT_EQ(screen.onlyMessage().text, "Задайте правильно данные");
}

TEST_F(Form25Test, AdditionalParametersReachTheRun) {
    auto& extras = lab.desk.get<PulsarForm>();
    extras.Text3.setText("0");
    extras.Text3.setText("0,01");
    extras.Check2.set(true);
    extras.Check5.set(true);
    extras.Text1.setText("1E9");
    extras.Option2.choose();
    extras.Command1.press();
    prepare();
    form.Text36.setText("500");
    stopAfter(1);
    form.Command1.press();
    EXPECT_TRUE(lab.twoBody.fromNode);
    EXPECT_EQ(lab.twoBody.kSopr, 1e9);
    EXPECT_TRUE(screen.messages.empty());
}

}  // namespace tarvex
