#include "forms/eclipse_form.h"

#include <array>
#include <cmath>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "core/et_ut.h"
#include "core/text_files.h"
#include "forms/table_captions.h"
#include "reduction/coordinate_chain.h"

namespace tarvex {

namespace {

constexpr std::array theoryNames = {"", "New0", "JPL0", "JPL2", "Ser0+"};
constexpr std::array stageNames = {"ГЕО ЭКЛ J2000", "+Аберр. планетн.", "+Аберр. звездн.", "J2000 -> JD",
                                   "ГЕО ЭКВ JD",    "+Нутация",         "ТОПО ЭКВ"};
constexpr std::array contactNames = {"1-й контакт", "2-й контакт", "3-й контакт", "4-й контакт"};
constexpr Color sunColor{240, 240, 0}, bodyGreen{0, 200, 0}, shadowColor{220, 220, 220}, white{255, 255, 255},
    black{0, 0, 0}, gridColor{235, 235, 235}, axisColor{150, 150, 150}, dayBlue{90, 110, 200};
constexpr double cellsOfSky = 30;          ///< degrees in a cell of the sky
constexpr double Mrow = 30000 * MK;        ///< metres in a cell of the picture of the bodies
constexpr std::size_t longestPath = 2000;  ///< points of the way over the disk that are kept
const std::string paramFile = "\\Dat\\Param_data.txt", timeFile = "\\Dat\\TimeYer_data.txt";
const std::string badData = "Введите правильно данные\r\n(целая часть числа отделяется запятой)";

const Eclipse::Sky& stageOf(const Eclipse::Stages& s, int stage) {
    const std::array<const Eclipse::Sky*, 7> all = {&s.geoJ2000, &s.source,   &s.receiver, &s.ofDate,
                                                    &s.equator,  &s.nutation, &s.topo};
    return *all[stage];
}

/// hh:mm:ss of the fraction of a day.
std::string hms(ModelState& s, double day) {
    DayToHMS(s, day);
    return Format(s.ChasR, "00") + ":" + Format(s.MinR, "00") + ":" + Format(s.SekR, "00");
}

}  // namespace

EclipseForm::EclipseForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "Неравномерность вращения Земли (ET-UT)"),
      Option4(this, 0, 10, tableOption),
      Option9(this, 0, 4,
              [](int i) {
                  return OptionButton::Spec{
                      .name = "Option9",
                      .caption = theoryNames[i],
                      .group = "theory",
                      .on = i == 0,
                      .hint = i == 0 ? "Теория не выбрана: с этой отметкой расчет не начнется"
                                     : "Теория или эфемерида положений"};
              }),
      StagesSun(this, 0, 13,
                [](int i) {
                    return TextField::Spec{.name = "StagesSun",
                                           .hint = std::string(i % 2 == 0 ? "Долгота" : "Широта") +
                                                   " Солнца, градусы: " + stageNames[i / 2],
                                           .readOnly = true};
                }),
      StagesBody(this, 0, 13,
                 [](int i) {
                     return TextField::Spec{.name = "StagesBody",
                                            .hint = std::string(i % 2 == 0 ? "Долгота" : "Широта") +
                                                    " тела, градусы: " + stageNames[i / 2],
                                            .readOnly = true};
                 }),
      Contact(this, 1, 4,
              [](int i) {
                  return TextField::Spec{
                      .name = "Contact",
                      .label = contactNames[i - 1],
                      .hint = "Всемирное время касания дисков (Луны и тени), найденное между шагами",
                      .readOnly = true,
                      .width = 22};
              }),
      lab(lab_) {
    const Shown bad = orShow(badData, "Tarvex7"), badRun = orShow("Ошибка решения уравнений", "Tarvex7");
    Command1.onPress([this] { start(); }, bad);
    Command4.onPress([this] { lab.s.kodStop = 1; });
    Command5.onPress(
        [this] {
            lab.s.kodStop = 0;
            EclipseRun();
        },
        badRun);
    Command6.onPress(
        [this] {
            lab.s.kodStop = 1;
            EclipseRun();
        },
        badRun);
    Command18.onPress([this] {
        if (startDay_.empty()) return;
        Text2.setText(startDay_);
        Text3.setText(startMonth_);
        Text4.setText(startYear_);
    });
    opens(Command7, "Form17");
    opens(Command9, "Form21");
    opens(Command10, "Form22");
    Command14.onPress([this] { close(); });
    Option8.onChoose([this] { clearDisks(); });
    Option3.onChoose([this] { clearDisks(); });
    Option1.onChoose([this] { chooseData(true); });
    Option2.onChoose([this] { chooseData(false); });
    for (int i = 0; i <= 10; ++i) Option4(i).onChoose([this, i] { chooseTable(i); }, bad);
    for (OptionButton* frameChoice : {&Option12, &Option13}) frameChoice->onChoose([this] { clearDisks(); });

    std::vector<Layout> theories = {Option9(0), "(нет)"},
                        stages = {"", "Солнце L (RA)", "B (Dec)", "тело L (RA)", "B (Dec)"};
    for (int i = 1; i <= 4; ++i) theories.emplace_back(Option9(i));
    for (int k = 0; k < static_cast<int>(stageNames.size()); ++k)
        for (const Layout& cell :
             std::initializer_list<Layout>{stageNames[k], StagesSun(2 * k), StagesSun(2 * k + 1),
                                           StagesBody(2 * k), StagesBody(2 * k + 1)})
            stages.push_back(cell);
    const Layout when = frame("Дата и шаг", column({row({fields(1, {Text2}), Text3, Text4}),
                                                    fields(1, {Text26, Text8}), row({Option18, Option19})}));
    const Layout calendar =
        frame("Календарь", column({Option5, Option6, Option7, row({Option15, Option16}), Label16}));
    const Layout sources = frame("Данные", column({row({Option1, Option2}), row(theories)}));
    const Layout riseAndSet =
        frame("Восход и заход", column({row({Option10, Option11}), fields(1, {Text28, Text29, Text17})}));
    const Layout ancient =
        frame("Таблицы древних астрономов", column({table(4, tableCells(Option4)), Check4}));
    const Layout contacts =
        frame("Касания, всемирное время", fields(1, {Contact(1), Contact(2), Contact(3), Contact(4)}));
    layout_ = column({
        row({column({row({when, frame("Место и тело", fields(1, {Text24, Text25, Text1}))}),
                     row({calendar,
                          column({sources, row({frame("рассчитать затмения", row({Option3, Option8})),
                                                frame("Поправки", row({Check9, Check11, Check10}))})})}),
                     frame("Время", column({row({fields(1, {Text14}), Check5, fields(1, {Text15}), Check6}),
                                            fields(1, {Clocks})})),
                     pages({frame("Солнце и тело, град",
                                  column({table(5, stages), fields(2, {Text31, Text41})})),
                            frame("Касания, восход и записи",
                                  row({contacts, riseAndSet,
                                       frame("Записи", column({Check13, Check23, Check30}))})),
                            frame("Таблицы", ancient)})}),
             column({row({Picture3, column({Picture1, Picture4})}),
                     fields(2, {Separation, SumOfRadii, DifferenceOfRadii, Magnitude, GreatestMagnitude,
                                Text27}),
                     row({Option12, Option13, Check2, Check3, Check7, Check8})})}),
        row({Command1, Command4, Command5, Command6, Check1, Command18, Command7, Command9, Command10,
             Command14}),
    });
}

void EclipseForm::load() {
    ModelState& s = lab.s;
    // the perturbation tables, and the ET-UT laws unless the user has set his own
    for (const char* form : {"Form21", "Form22"})
        if (desk().knows(form)) desk().loadAndUnload(form);
    if (desk().knows("Form17") && s.kET[1][4] == 0) desk().loadAndUnload("Form17");
    Picture1.setScale(-10, 14, 10, -10);
    Picture3.setScale(-10, 10, 10, -10);
    Picture4.setScale(-6, 3, 6, -3);
    clearPictures();
    s.Rpl[3][0] = s.Lae;
}

void EclipseForm::unload() {
    gone_ = true;
    table_.close();
}

int EclipseForm::theory() const {
    for (int i = 1; i <= 4; ++i)
        if (Option9(i).on()) return i;
    return 0;
}

/// What may change while a run goes on.
void EclipseForm::takeSettings() {
    using Source = Eclipse::Source;
    constexpr std::array sources = {Source::Ser0Plus, Source::New0, Source::JPL0, Source::JPL2,
                                    Source::Ser0Plus};
    e_.source = Option1.on() ? Source::Tables : sources[theory()];
    e_.lunar = Option8.on();
    e_.moonTerms = Check9.on();
    e_.planetTerms = Check11.on();
    e_.refraction = Check10.on() && !(Check13.on() && Check23.on());
    e_.solstices = Check13.on();
    kodTimeDir = Option18.on() ? 1 : -1;
}

/// Number of the body from its field, 0..11.
std::int32_t EclipseForm::bodyTyped() const {
    const std::int32_t body = Text1.int32();
    if (body < 0 || body > rowMoon) throw SubscriptFailure("no body " + std::to_string(body));
    return body;
}

void EclipseForm::start() {
    ModelState& s = lab.s;
    if (Option1.on() && table_.table == nullptr) throw Refusal("Выберете имитатор", "Tarvex7");
    if (Option2.on() && theory() == 0) throw Refusal("Выберете теорию", "Tarvex7");
    const std::int32_t body = bodyTyped();
    if (body == 3) throw Refusal("Землю не наблюдали", "Tarvex7");
    s.IplSel = body;
    s.NameData = Option1.on() ? table_.table->name : theoryNames[theory()];
    e_.readTable = [this] { readTable(Check4.on()); };
    takeSettings();
    EclipseMasses(s, e_.source);
    s.ObsL = Text24.number();
    s.ObsB = Text25.number();
    ratio(1, Text27.number());
    ratio(1, Text8.number());
    Text26.number();
    kalend_ = Option6.on() ? 1 : Option7.on() ? 2 : 0;
    zone_ = Option16.on() ? 12 : 0;
    s.kodKalend = kalend_;
    s.TimeZone = zone_;
    s.kodErrDate = 0;
    NormalizeDate(s, Text2.number(), Text3.int32(), Text4.int32());
    s.JD = JDfromDate(s, s.DenR, s.MesR, s.GodR);
    s.kodKalend = 0;
    s.TimeZone = 0;
    if (s.kodErrDate != 0) return;  // the date has been complained of
    startDay_ = Text2.text();
    startMonth_ = Text3.text();
    startYear_ = Text4.text();
    if (e_.source == Eclipse::Source::JPL2) {
        DEClose(lab.ephemeris);
        DEOpen(s, lab.ephemeris);
    }
    if (Check30.on()) {
        appendLine(lab.tree.at(paramFile), "планета  № " + toText(body) + "   обсерватория " + s.NameData +
                                               "   данные умножены на 1000 ");
        appendLine(lab.tree.at(paramFile),
                   "дата наблюдения (день с часами, месяц, год), долгота и широта (Солнца потом планеты)");
    }
    if (Check13.on()) {
        appendLine(lab.tree.at(timeFile),
                   "равноденствия и солнцестояния по " + s.NameData +
                       "   ГЕО (ТОПО) координаты Солнца где JDut солнечное время для Гринвича");
        appendLine(lab.tree.at(timeFile),
                   "LTet2  дата  JDut  L геоцентрическая J2000, L и B даты, L и B обратно из горизонта, A "
                   "азимут, H высота");
    }
    contacts_.clear();
    for (int i = 1; i <= 4; ++i) Contact(i).setText("");
    Text28.setText("");
    Text29.setText("");
    greatest_ = 0;
    altitudeKnown_ = false;
    kodRefresh = Check8.on() ? 1 : 0;
    s.kodStop = Check1.on() ? 1 : 0;
    started_ = true;
    stage("Ошибка решения уравнений", "Tarvex7", [&] { EclipseRun(); });
}

void EclipseForm::EclipseRun() {
    if (!started_) throw Failure("no run to go on with");
    Running running(*this);
    do {
        oneStep();
        if (lab.s.kodStop == 1) break;
        running.giveWay();
    } while (lab.s.kodStop != 1 && !gone_);
}

void EclipseForm::oneStep() {
    ModelState& s = lab.s;
    const ArithmeticGuard guard;
    takeSettings();
    ratio(1, Text27.number());
    setClocks();
    EclipseAt(s, lab.ephemeris, e_, [this] { drawBodies(); });
    guard.check();
    showPlaces();
    noteRiseAndSet();
    if (kodRefresh == 1) {
        clearDisks();
        kodRefresh = 2;
    }
    drawSky();
    drawDisks();
    noteContacts();
    if (Check30.on()) writeParam();
    if (e_.kodSolst) writeTimeYer();
    nextDate();
}

std::string EclipseForm::clockText(double day) const { return hms(lab.s, day); }

/// The times of this step: JDut0 and the two clocks that run ahead of it.
void EclipseForm::setClocks() {
    ModelState& s = lab.s;
    s.JDut0 = s.JD;
    const double ET1 = Check5.on() ? Text14.number() * 60 : EtUtSelect(s, 1, s.JDut0);
    const double ET2 = Check6.on() ? Text15.number() * 60 : EtUtSelect(s, 2, s.JDut0);
    if (!Check5.on()) Text14.show(cut6(ET1 / 60));
    if (!Check6.on()) Text15.show(cut6(ET2 / 60));
    s.JDet = finite(s.JDut0 + ET1 / 86400);
    s.JDut = finite(s.JDut0 + ET2 / 86400);
    // the day begins at midnight, half a day after the whole Julian date
    const double local = s.ObsL / 15 / 24;
    Clocks.setText("UT=" + clockText(s.JDut0 + 0.5) + "   LTut=" + clockText(s.JDut0 + 0.5 + local) +
                   "   UTet2=" + clockText(s.JDut + 0.5) + "   LTet2=" + clockText(s.JDut + 0.5 + local));
    if (e_.source == Eclipse::Source::Tables) return;
    const double T = (s.JDut0 - JD2000) / 36525;
    PrecessMatrixEcl(s, (1579341 - JD2000) / 36525, T);
    Text31.show(cut6(s.Prec * kUgol));
    PrecessMatrixEcl(s, 0, T);
    Text41.show(cut6(s.Prec * kUgol));
}

void EclipseForm::showPlaces() {
    const int firstStage =
        e_.source == Eclipse::Source::Tables ? 3 : 0;  // a table gives apparent places of date
    for (int k = firstStage; k < static_cast<int>(stageNames.size()); ++k) {
        const auto &sun = stageOf(e_.sun, k), &body = stageOf(e_.body, k);
        StagesSun(2 * k).show(cut6(sun.L));
        StagesSun(2 * k + 1).show(cut6(sun.B));
        StagesBody(2 * k).show(cut6(body.L));
        StagesBody(2 * k + 1).show(cut6(body.B));
    }
    Text17.show(cut6(e_.Tsol));
    const double first = e_.lunar ? e_.RshadowSeen : e_.Rsun;
    Separation.show(cut6(e_.separation));
    SumOfRadii.show(cut6(first + e_.Rbody));
    DifferenceOfRadii.show(cut6(std::abs(first - e_.Rbody)));
    Magnitude.show(cut6(e_.magnitude));
    greatest_ = std::max(greatest_, e_.magnitude);
    GreatestMagnitude.show(cut6(greatest_));
}

void EclipseForm::noteContacts() {
    ModelState& s = lab.s;
    const double first = e_.lunar ? e_.RshadowSeen : e_.Rsun;
    int count = 0;
    const auto found =
        contacts_.step(s.JDut0, e_.separation, first + e_.Rbody, std::abs(first - e_.Rbody), count);
    for (int i = 0; i < count; ++i) {
        // to the nearest second
        double JD = Int(found[i].JDut0 * sekD + 0.5) / sekD + 1e-9;
        const std::string time = hms(s, JD + 0.5);
        DateFromJD(s, JD);
        Contact(static_cast<int>(found[i].kind) + 1)
            .setText(time + "  " + Format(Fix(s.DenR), "00") + "." + Format(s.MesR, "00") + "." +
                     Format(s.GodR, "0000"));
    }
}

/// Rise and set of the Sun's upper limb by the altitudes of this step and the last.
void EclipseForm::noteRiseAndSet() {
    ModelState& s = lab.s;
    const double altitude = e_.altitude[0] + e_.Rsun;
    if (altitudeKnown_) {
        const std::string time = hms(s, (Option10.on() ? s.JDut0 : s.JDut) + 0.5);
        if (lastAltitude_ < 0 && altitude > 0) Text28.setText(time);
        if (lastAltitude_ > 0 && altitude < 0) Text29.setText(time);
    }
    lastAltitude_ = altitude;
    altitudeKnown_ = true;
}

void EclipseForm::nextDate() {
    ModelState& s = lab.s;
    const double step = e_.kodSolst ? ratio(Text26.number(), Text8.number()) : Text26.number();
    s.kodKalend = kalend_;
    s.TimeZone = zone_;
    s.kodErrDate = 0;
    if (kodTimeDir > 0) {
        NormalizeDate(s, Text2.number() + step, Text3.int32(), Text4.int32());
        s.JD = JDfromDate(s, s.DenR, s.MesR, s.GodR);
    } else {
        double JD = s.JD = s.JDut0 - step;
        DateFromJD(s, JD);
    }
    s.kodKalend = 0;
    s.TimeZone = 0;
    if (s.kodErrDate != 0) s.kodStop = 1;  // the way ends where the calendar does
    Text2.show(s.DenR);
    Text3.show(s.MesR);
    Text4.show(s.GodR);
}

// ---------------------------------------------------------------------------------------------- pictures

void EclipseForm::clearPictures() {
    Picture1.clear();
    Picture1.line(-10, 0, 10, 0, axisColor);
    Picture1.line(0, -10, 0, 14, axisColor);
    Picture1.line(-10, 12, 10, 12, axisColor);
    Picture1.text(0.2, 13.8, "Z", black);
    Picture1.text(0.2, 9.8, "Y", black);
    Picture1.text(9.2, 1, "X", black);
    Picture4.clear();
    for (int x = -6; x <= 6; ++x) Picture4.line(x, -3, x, 3, gridColor);
    for (int y = -3; y <= 3; ++y) Picture4.line(-6, y, 6, y, y == 0 ? axisColor : gridColor);
    Picture4.text(-5.9, 2.95, "высота, град", black);
    Picture4.text(2, -2.3, "азимут, град", black);
    Picture4.text(0.1, 0.75, "Юг", black);
    Picture4.text(-5.9, -0.05, "горизонт                          вид на юг", black);
    clearDisks();
}

void EclipseForm::clearDisks() {
    Picture3.clear();
    drawDiskGrid();
    oldSun_ = oldBody_ = oldShadow_ = {};
    path_.clear();
}

void EclipseForm::drawDiskGrid() {
    for (int i = -10; i <= 10; ++i) {
        Picture3.line(i, -10, i, 10, gridColor);
        Picture3.line(-10, i, 10, i, gridColor);
    }
    Picture3.line(-10, 0, 10, 0, axisColor);
    Picture3.line(0, -10, 0, 10, axisColor);
    Picture3.text(0.1, 9.9, "dB, град", black);
    Picture3.text(7.4, 0.9, "dL, град", black);
}

/// The bodies in the plane of the ecliptic and from the side, heliocentric.
void EclipseForm::drawBodies() {
    const ModelState& s = lab.s;
    for (const int row : {0, 3, static_cast<int>(s.IplSel)}) {
        const Color color = row == 0 ? Color{230, 200, 0} : row == 3 ? Color{0, 0, 255} : bodyGreen;
        Picture1.disc(s.X[row] / Mrow, s.Y[row] / Mrow, row == 0 ? 0.5 : 0.25, color);
        Picture1.disc(s.X[row] / Mrow, s.Z[row] / Mrow + 12, row == 0 ? 0.5 : 0.25, color);
    }
}

void EclipseForm::drawSky() {
    const auto mark = [&](int row, Color color) {
        Picture4.disc(e_.azimuth[row] / cellsOfSky, e_.altitude[row] / cellsOfSky, 0.06, color);
    };
    mark(0, {230, 190, 0});
    mark(lab.s.IplSel, bodyGreen);
    if (e_.lunar) mark(rowShadow, dayBlue);
}

/// The disks near each other: the Sun in the centre and the body, or the shadow in the centre and the Moon.
void EclipseForm::drawDisks() {
    const ModelState& s = lab.s;
    const int body = s.IplSel, centre = e_.lunar ? rowShadow : 0;
    const double MdB = Text27.number();
    const auto place = [&](int row, double radius) {
        Mark m;
        m.radius = radius / MdB;
        if (Option12.on()) {
            m.x = (s.Lpl[centre] - s.Lpl[row]) * std::cos(s.Bpl[centre] / kUgol) / MdB;
            m.y = (s.Bpl[row] - s.Bpl[centre]) / MdB;
        } else {
            m.x = (e_.azimuth[row] - e_.azimuth[centre]) * std::cos(e_.altitude[centre] / kUgol) / MdB;
            m.y = (e_.altitude[row] - e_.altitude[centre]) / MdB;
        }
        return m;
    };
    const auto paint = [&](const Mark& m, Color color) {
        if (m.radius <= 0) return;
        Picture3.disc(m.x, m.y, m.radius, color);
        Picture3.circle(m.x, m.y, m.radius, color == white ? white : black);
    };
    if (!Check2.on()) {
        for (const Mark* old : {&oldSun_, &oldBody_, &oldShadow_}) paint(*old, white);
        drawDiskGrid();
    }
    oldSun_ = place(0, e_.Rsun);
    oldBody_ = place(body, e_.Rbody);
    oldShadow_ = e_.lunar ? place(rowShadow, e_.RshadowSeen) : Mark{};
    if (e_.lunar) {
        paint(oldSun_, sunColor);
        paint(oldBody_, bodyGreen);
        Picture3.circle(oldShadow_.x, oldShadow_.y, oldShadow_.radius, black);
        Picture3.disc(oldShadow_.x, oldShadow_.y, oldShadow_.radius, shadowColor);
        Picture3.circle(oldBody_.x, oldBody_.y, oldBody_.radius, bodyGreen);
    } else if (s.Rpl[12][body] > s.Rpl[12][0]) {  // the farther disk first, so that the near one covers it
        paint(oldBody_, bodyGreen);
        paint(oldSun_, sunColor);
    } else {
        paint(oldSun_, sunColor);
        paint(oldBody_, bodyGreen);
    }
    if (Check3.on()) {
        if (path_.size() == longestPath) path_.pop_front();
        path_.push_back(oldBody_);
        for (const Mark& m : path_) Picture3.disc(m.x, m.y, 0.05, {200, 0, 0});
    }
    if (Check7.on()) {
        const Mark east = place(rowLimb, 0), west = place(rowLimb + 4, 0);
        Picture3.line(east.x, east.y, west.x, west.y, {120, 120, 220});
    }
}

// ------------------------------------------------------------------------------------------------- files

/// A line while the boxes of the disks meet in azimuth and altitude.
void EclipseForm::writeParam() {
    ModelState& s = lab.s;
    const int b = s.IplSel;
    const double reach = e_.Rsun + e_.Rbody;
    if (std::abs(e_.azimuth[b] - e_.azimuth[0]) > reach || std::abs(e_.altitude[b] - e_.altitude[0]) > reach)
        return;
    std::string line;
    for (const double v :
         {Fix(1000 * Text2.number()), 1000 * Text3.number(), 1000 * Text4.number(), Fix(1000 * s.Lpl[0]),
          Fix(1000 * s.Bpl[0]), Fix(1000 * s.Lpl[b]), Fix(1000 * s.Bpl[b])})
        line += fileItem(v);
    appendLine(lab.tree.at(paramFile), line);
}

/// A line near an equinox or a solstice: the Sun forward, and back from the horizon.
void EclipseForm::writeTimeYer() {
    ModelState& s = lab.s;
    const auto back = EclipseBack(s, e_, !Check23.on(), e_.source != Eclipse::Source::Tables);
    double JD = s.JDut0;
    DateFromJD(s, JD);
    const std::string date =
        Format(Fix(s.DenR), "00") + "." + Format(s.MesR, "00") + "." + Format(s.GodR, "0000");
    appendLine(lab.tree.at(timeFile),
               clockText(s.JDut + 0.5 + s.ObsL / 15 / 24) + "  " + date + "  JDut= " +
                   Format(s.JDut, "0000000.0000") + "   L= " + Format(e_.sun.geoJ2000.L, "000.000") +
                   "   L= " + Format(e_.sun.ofDate.L, "000.0000") +
                   "   B= " + Format(e_.sun.ofDate.B, "00.00000000") + "   L= " + Format(back.L, "000.0000") +
                   "   B= " + Format(back.B, "00.00000000") + "   A= " + Format(e_.azimuth[0], "000.0") +
                   "   H= " + Format(e_.altitude[0], "00.0"));
}

}  // namespace tarvex
