#include "batch/fit_run.h"

#include "tests/support/ephemeris_files.h"

namespace tarvex {

namespace {

/// What the program prints for these words, or its failure.
std::string fitted(const std::vector<std::string>& words) {
    std::ostringstream out, err;
    try {
        EXPECT_EQ(runFit(parseFitOptions(words), out, err), 0);
    } catch (const Failure& failure) {
        return failure.what();
    }
    return out.str();
}

}  // namespace

// Places of DE405 against a model with relativity: initial data alone, and with a speed of gravity, of which
// they know no more than a bound.
TEST(FitRun, EphemerisBoundsTheSpeedOfGravity) {
    test::TempFolder folder;
    for (const char* name : {"Dat", "NEW", "Ser"}) folder.makeFolder(name);
    test::linkEphemeris(folder);
    const std::string data = folder.path().string();
    const std::vector<std::string> words = {"--data",  data,   "--places",     "DE405", "--bodies", "1",
                                            "--from",  "1961", "--to",         "1962",  "--every",  "10",
                                            "--sigma", "30",   "--relativity", "on",    "--jobs",   "2"};
    const std::string plain = fitted(words);
    EXPECT_NE(plain.find("ChiSquare = "), std::string::npos) << plain;
    EXPECT_NE(plain.find("Freedom = 216\n"), std::string::npos) << plain;  // 74 places
    EXPECT_NE(plain.find("места согласуются."), std::string::npos) << plain;

    auto withSpeed = words;
    withSpeed.insert(withSpeed.end(), {"--fit", "Vgr", "VXsys=-300", "Vgr=5000", "Text38=7200"});
    const std::string bounded = fitted(withSpeed);
    EXPECT_TRUE(bounded.starts_with("Vgr = не определено\nVgr не меньше ")) << bounded;
    EXPECT_NE(bounded.find("определено только V/Vgr: заданы VXsys, VYsys, VZsys"), std::string::npos);
}

TEST(FitRun, TellsWhatIsMissing) {
    test::TempFolder folder;
    for (const char* name : {"Dat", "JPL", "NEW", "Ser"}) folder.makeFolder(name);
    const std::string data = folder.path().string();
    struct Case {
        std::vector<std::string> words;
        const char* told;
    };
    const Case cases[] = {
        {{"--data", data, "--bodies", "1", "--sigma", "1"}, "нет мест: --places"},
        {{"--places", "DE405", "--bodies", "1", "--sigma", "1"}, "нужны --from и --to"},
        {{"--places", "DE405", "--bodies", "1", "--sigma", "0", "--from", "1961", "--to", "1962"},
         "больше нуля"},
        {{"--places", "DE405", "--bodies", "1,1", "--sigma", "1"}, "без повторений"},
        {{"--places", "x", "--bodies", "1", "--sigma", "1", "--fit", "Vgr,Vxsys"}, "не подгоняется: Vxsys"},
        {{"--data", data, "--places", "none.txt", "--bodies", "1", "--sigma", "1"}, "none.txt"},
        {{"--data", data, "--places", "DE405", "--bodies", "1", "--sigma", "1", "--from", "1961", "--to",
          "1961"},
         "ascp1960.405"},
        {{"--data", data + "/none", "--places", "x", "--bodies", "1", "--sigma", "1"}, "нет каталога данных"},
    };
    for (const Case& c : cases)
        EXPECT_NE(fitted(c.words).find(c.told), std::string::npos) << c.told << "\n" << fitted(c.words);
}

}  // namespace tarvex
