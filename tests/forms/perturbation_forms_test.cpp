#include "forms/moon_perturbations_form.h"
#include "forms/planet_perturbations_form.h"
#include "tests/forms/lab_fixture.h"
#include "theories/perturbations.h"

namespace tarvex {

namespace {

const test::RecordingScreen::Message badData{"Введите правильно данные", "Tarvex7"};

struct Form21Test : test::LabTest {
    MoonPerturbationsForm& form = lab.desk.get<MoonPerturbationsForm>();
    ModelState& s = lab.s;
};

/// A file with the number body*1000 + row*100 + term in millionths.
std::string sampleFile() {
    std::string text;
    for (int body = 1; body <= 4; ++body) {
        text += "Планета\r\n";
        for (int r = 1; r <= 2; ++r) {
            for (int k = 1; k <= 8; ++k) text += " " + std::to_string(body * 1000 + r * 100 + k) + " ";
            text += "\r\n";
        }
    }
    return text;
}

struct Form22Test : test::LabTest {
    Form22Test() { write(sampleFile()); }
    void write(const std::string& text) { test::writeBytes(folder.path() / "Dat" / "dL1.dat", text); }
    ModelState& s = lab.s;
};

}  // namespace

TEST_F(Form21Test, TicksDecideWhichTermsAct) {
    EXPECT_EQ(s.kLl[1], 0);  // the main inequality lies in the ellipse
    EXPECT_EQ(s.kLl[3], -1.2739);
    EXPECT_EQ(s.kLl[28], -0.0153);
    test::enter(form.termTaken(1), true, form.termTaken(25), false, form.amplitude(16), "-0,5");
    form.amplitude(25).setText("слово");  // not ticked: not read
    form.setCoefficients.press();
    EXPECT_EQ(s.kLl[1], 6.2889);
    EXPECT_EQ(s.kLl[25], 0);
    EXPECT_EQ(s.kLl[16], -0.5);
    EXPECT_TRUE(screen.messages.empty());

    form.amplitude(5).setText("");
    EXPECT_EQ(screen.told(form.setCoefficients),
              (test::RecordingScreen::Message{"Введите правильно номер объекта на форме 10", "Tarvex7"}));
    EXPECT_EQ(s.kLl[5], 0);
    EXPECT_EQ(s.kLl[7], -0.0347);
}

TEST_F(Form22Test, LoadTakesTheFileAndUnloadKeepsTheTable) {
    lab.desk.loadAndUnload("Form22");
    EXPECT_TRUE(screen.messages.empty());
    for (int body = 1; body <= 4; ++body)
        for (int r = 1; r <= 2; ++r)
            for (int k = 1; k <= 8; ++k)
                EXPECT_DOUBLE_EQ(s.kLp[r][body * 10 + k], (body * 1000 + r * 100 + k) / 1e6);
    EXPECT_EQ(s.Ipert1, (std::array<std::int32_t, 5>{0, 2, 3, 2, 3}));
    EXPECT_EQ(s.Ipert2, (std::array<std::int32_t, 5>{0, 5, 5, 5, 5}));
    auto& form = lab.desk.get<PlanetPerturbationsForm>();
    test::enter(form.mercuryPerturber1, "6", form.venusPerturber1, "7", form.setCoefficients);
    EXPECT_EQ(s.Ipert1[1], 6);
    EXPECT_EQ(s.Ipert1[2], 7);
}

TEST_F(Form22Test, WithoutItsFileItShowsTheMessageAndStaysAtZero) {
    std::filesystem::remove(folder.path() / "Dat" / "dL1.dat");
    s.kLp[1][11] = 5;
    auto& form = lab.desk.get<PlanetPerturbationsForm>();
    EXPECT_EQ(screen.onlyMessage(), badData);
    EXPECT_EQ(s.kLp, (decltype(s.kLp){}));
    EXPECT_EQ(form.amplitude(11).text(), "0");
}

TEST_F(Form22Test, SavedAmplitudesComeBackCutToMillionths) {
    auto& form = lab.desk.get<PlanetPerturbationsForm>();
    test::enter(form.fileNumber, "7", form.amplitude(11), "0,0000019", form.amplitude(88), "-1,5");
    EXPECT_EQ(screen.said(form.saveAmplitudes), "");
    EXPECT_EQ(s.kLp[1][11], 0.0000019);  // the fields again, not what was written
    EXPECT_TRUE(test::readBytes(folder.path() / "Dat" / "dL7.dat")
                    .starts_with("Меркурий\r\n 1  1102  1103  1104  1105  1106  1107  1108 \r\n"));
    form.loadAmplitudes.press();
    EXPECT_EQ(s.kLp[1][11], 0.000001);
    EXPECT_EQ(form.amplitude(88).text(), "-1,5");
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form22Test, BadFilesAndFieldsLoseNothing) {
    auto& form = lab.desk.get<PlanetPerturbationsForm>();
    const auto kept = s.kLp;
    const std::string whole = sampleFile();
    std::string word = whole;
    word.replace(whole.size() - 20, 4, "xxxx");
    std::string binary(5000, '\0');
    for (std::size_t i = 0; i < binary.size(); ++i) binary[i] = static_cast<char>(i * 31);
    for (const std::string& text : {std::string(), whole.substr(0, 40), whole.substr(0, whole.size() - 30),
                                    word, binary, "a\n1 2 3\n" + whole}) {
        write(text);
        EXPECT_EQ(screen.told(form.loadAmplitudes), badData) << text.substr(0, 30);
        EXPECT_EQ(s.kLp, kept);
    }
    for (TextField* field : {&form.amplitude(34), &form.venusPerturber2, &form.marsPerturber2}) {
        EXPECT_EQ(screen.told(form.setCoefficients, *field, "2 3"), badData) << field->name();
    }
    form.fileNumber.setText("40000");
    EXPECT_EQ(screen.told(form.loadAmplitudes), badData);
    form.fileNumber.setText("2");
    std::filesystem::create_directory(folder.path() / "Dat" / "dL2.dat");
    EXPECT_EQ(screen.told(form.saveAmplitudes), badData);
    EXPECT_DOUBLE_EQ(s.kLp[2][48], kept[2][48] * 1e6);  // left scaled: meant
    form.amplitude(11).setText("1e305");
    EXPECT_EQ(screen.told(form.saveAmplitudes), badData);
    for (const auto& row : s.kLp)
        for (const double v : row) EXPECT_TRUE(std::isfinite(v));
}

}  // namespace tarvex
