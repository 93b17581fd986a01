// Readers of what a person types or an observatory wrote: numbers, dates, expressions, scripts, records,
// places.
#include <memory>
#include <sstream>

#include "core/calendar.h"
#include "core/failure.h"
#include "core/name_table.h"
#include "fuzz/target.h"
#include "reduction/converter.h"
#include "reduction/observation_file.h"
#include "runtime/desk.h"
#include "script/expression.h"
#include "script/player.h"
#include "script/script_screen.h"

namespace tarvex::fuzz {

namespace {

/// The words of the input, blanks apart, as numbers; what is no number is left out.
std::vector<double> numbersIn(std::string_view input) {
    std::vector<double> out;
    std::istringstream words{std::string(input)};
    for (std::string word; words >> word && out.size() < 8;) {
        try {
            out.push_back(toNumber(word));
        } catch (const Failure&) {
        }
    }
    out.resize(8);
    return out;
}

const Target numbers("numbers", [](std::string_view input) {
    const double value = toNumber(input);
    expectFinite(value, "a number");
    if (toNumber(toFullText(value)) != value) std::abort();
    expectFinite(toNumber(toText(value)), "a shown number");
    expectNumbers(fileItem(value) + Format(value, "0000.000"), "an item");
    expectFinite(cut6(value / 1e9), "a cut number");
});

const Target calendar("calendar", [](std::string_view input) {
    const auto typed = numbersIn(input);
    ModelState s;
    s.kodKalend = static_cast<std::int16_t>(static_cast<unsigned char>(input.empty() ? 0 : input[0]) % 3);
    s.TimeZone = std::fmod(typed[0], 24);
    double JD = JDfromDate(s, typed[1], toInt32(typed[2]), toInt32(typed[3]));
    expectFinite(JD, "a Julian date");
    DateFromJD(s, JD);
    DayToHMS(s, s.DenR);
    NormalizeDate(s, typed[4], toInt32(typed[5]), toInt32(typed[6]));
    for (const double value : {s.DenR, s.SekR}) expectFinite(value, "a date");
});

const Target expression("expression", [](std::string_view input) {
    expectFinite(evaluate(input, [](std::string_view) { return 2.5; }), "an expression");
});

const Target script("script", [](std::string_view input) {
    std::istringstream in{std::string(input)};
    std::ostringstream out;
    ScriptScreen screen(out);
    Desk desk(screen);
    class Bare final : public Form {
    public:
        explicit Bare(Desk& desk) : Form(desk, "Form1", "form") {}
        TextField field{this, {.name = "Text1"}};
        CheckBox box{this, {.name = "Check1"}};
        CommandButton command{this, {.name = "Command1"}};
        ScrollBar bar{this, {.name = "HScroll1", .min = 1, .max = 9, .value = 3}};
        Picture picture{this, {.name = "Picture1", .width = 50, .height = 50}};
    };
    desk.add("Form1", [&desk] { return std::make_unique<Bare>(desk); });
    const NameTable names;
    const auto lines = readScript(in);
    for (const std::string& line : lines)  // nothing is written outside a folder of the target's own
        if (line.find("save") != line.npos || line.find("report") != line.npos) return;
    Player(screen, desk, names).play(lines);
});

const Target observations("observations", [](std::string_view input) {
    put("\\Obs\\SUMM1_G_100.txt", input);
    ObservationFile file;
    const auto header = file.open(tree().at("\\Obs\\SUMM1_G_100.txt"), "SUMM");
    for (const bool byDistance : {true, false}) {
        file.rewind();
        try {
            while (const auto seen = file.ReadObsRecord({header.firstYear, header.lastYear, byDistance})) {
                for (const double value : {seen->hours, seen->ascension, seen->declination})
                    expectFinite(value, "an observation");
            }
        } catch (const Failure&) {
        }
    }
});

const Target converter("converter", [](std::string_view input) {
    const auto typed = numbersIn(input);
    const auto s = std::make_unique<ModelState>();
    s->JD = s->JDut0 = s->JDet = 2400000.5 + std::fmod(typed[0], 1e6);
    s->ObsB = std::fmod(typed[1], 90);
    s->ObsL = std::fmod(typed[2], 360);
    ConvBase base;
    ConvPrepare(*s, base);
    ConvBodyByTheory(*s, base, 1 + static_cast<int>(std::fmod(std::fabs(typed[3]), 9)));
    for (const auto plane :
         {ConvFrame::Plane::Ecliptic, ConvFrame::Plane::Equator, ConvFrame::Plane::Horizon}) {
        const ConvFrame frame{plane, ConvFrame::Origin::Observer, false};
        ConvFromBase(*s, base, 1, frame);
        ConvToBase(*s, base, 1, frame);
    }
    for (const Rows* row : {&s->X, &s->Y, &s->Z}) expectAllFinite(*row, "a place");
    expectAllFinite(base.row, "a place of the base frame");
});

}  // namespace

}  // namespace tarvex::fuzz
