// Form10: one run, what it reads from the fields and what it shows.
#include <algorithm>
#include <cmath>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "core/clock.h"
#include "core/numbers.h"
#include "forms/date_fields.h"
#include "forms/observations_form.h"
#include "forms/plot_grid.h"
#include "reduction/reduction_files.h"

namespace tarvex {

namespace {

constexpr Color green{0, 200, 0}, dRcolor{0, 0, 200}, dLcolor{255, 0, 0}, moonColor{220, 220, 220};
constexpr double pointRadius = 0.05, rejectedRadius = 0.15;
constexpr int progressEvery = 64;  ///< passes

}  // namespace

/// The calendar and the start of the day of the data.
void ObservationsForm::takeCalendar() {
    lab.s.kodKalend = Option7.on() ? 2 : Option6.on() ? 1 : 0;
    lab.s.TimeZone = Option16.on() ? 12 : 0;
}

/// Number of the body from its field, 0..11.
std::int32_t ObservationsForm::bodyTyped() const {
    const std::int32_t body = Text1.int32();
    if (body < 0 || body > rowMoon) throw SubscriptFailure("no body " + std::to_string(body));
    return body;
}

void ObservationsForm::convertDate() {
    const CalendarKept kept(lab.s);
    takeCalendar();
    gregorianToJulian(lab, {Text4, Text3, Text2, Text5});
}

void ObservationsForm::convertJulian() {
    const CalendarKept kept(lab.s);
    takeCalendar();
    julianToGregorian(lab, {Text4, Text3, Text2, Text5});
}

void ObservationsForm::restoreStart() {
    Text4.show(lab.s.God0);
    Text3.show(lab.s.Mes0);
    Text2.show(lab.s.Den0);
}

void ObservationsForm::readChoices() {
    ReductionChoices& c = lab.reduction.choices;
    c.tables = Option1.on();
    c.earth = Option19.on() ? EarthTheory::JPL0 : Option20.on() ? EarthTheory::Ser0 : EarthTheory::Ser0Plus;
    c.planet = Option10.on() ? PlanetTheory::Plan : Option11.on() ? PlanetTheory::JPL0 : PlanetTheory::Ser0;
    c.epochJ2000 = Option13.on();
    c.byDistance = Option17.on();
    c.aberrSource = Check15.on();
    c.aberrReceiver = Check16.on();
    c.nutation = Check17.on();
    c.parallax = Check24.on();
    c.refraction = Check23.on();
    c.planetTerms = Check27.on();
    c.earthMoonTerms = Check31.on();
    c.visibility = Check29.on();
    c.darkSky = Check25.on();
    c.horizonPicture = Option3.on() && !Check4.on();
    c.replacePrecession = Check19.on();
    c.countLongitude = Check11.on();
    c.countLatitude = Check12.on();
    c.filter = Check20.on();
    c.statistics = Check21.on();
    c.goodBadFiles = Check22.on();
    c.debugFile = Check13.on();
    c.rootMeanSquare = Check7.on();
    c.weightByCount = Check26.on();
    c.pause = Check28.on();
    c.HplMin = Text46.number();
    c.HsolMax = Text48.number();
    c.Precess = Text47.number();
    c.fileNumber = Text56.text();
    c.goodNumber = Text57.text();
    readFields();
}

/// The numbers that may be typed while a run goes on.
void ObservationsForm::readFields() {
    ReductionChoices& c = lab.reduction.choices;
    lab.s.DtCur = Text18.number();
    c.dMax = Text50.number();
    c.Pauza = Text17.int32();
    MT_ = Text6.number();
    MAlfa_ = Text19.number();
    MdAlfa_ = Text20.number();
    MdR_ = Text49.number();
    Ysdvig_ = Text53.number();
}

/// False when the date is none.
bool ObservationsForm::ReadRunParams() {
    ModelState& s = lab.s;
    ReductionState& r = lab.reduction;
    s.kodStop = 1;
    if (Option1.on() && Option4(0).on()) throw Refusal("Выберете имитатор", "Tarvex7.0");
    if (Option2.on() && Option9(0).on()) throw Refusal("Выберете обсерваторию", "Tarvex7.0");
    const std::int32_t body = bodyTyped();
    if (body == 3) throw Refusal("Землю не наблюдали", "Tarvex7.0");
    s.IplSel = body;
    s.ObsL = Text24.number();
    s.ObsB = Text25.number();
    readChoices();
    s.kodErrDate = 0;
    convertDate();
    if (s.kodErrDate != 0) return false;  // the date has been complained of
    const CalendarKept kept(s);
    takeCalendar();
    r.kodKalendTab = s.kodKalend;
    r.TimeZoneTab = s.TimeZone;
    s.JDepoha = s.JD;
    s.God0 = s.GodR;
    s.Mes0 = s.MesR;
    s.Den0 = s.DenR;
    r.GodK = Text65.int32();
    if (desk().isLoaded("Form13"))
        if (auto* signal = dynamic_cast<TextField*>(desk().form("Form13").find("Text16")))
            signal->setText(timeOfDay());
    s.kodStop = 0;
    return true;
}

void ObservationsForm::start() {
    if (running_) return;
    if (Option2.on() && lab.s.kodStop == 1) throw Refusal("Надо открыть файл снова", "Tarvex7.0");
    if (!ReadRunParams()) return;
    ShowPlanSummary();  // an empty graph below, and above it the plan beside which the responses are printed
    page_.showPlots(Picture4);
    clearSystem();
    startReduction(reduction());
    drawLimits();
    pass();
}

void ObservationsForm::drawLimits() {
    const ReductionChoices& c = lab.reduction.choices;
    if (!c.filter) return;
    const auto limit = [this](double y) { Picture4.line(0, y, page_.columns, y, green); };
    if (c.byDistance) {
        limit(ratio(c.dMax, MdR_) + Ysdvig_);
    } else {
        limit(4 + Ysdvig_ + ratio(c.dMax, MdAlfa_));
        limit(4 + Ysdvig_ - c.dMax / MdAlfa_);
    }
}

/// Passes from where the run stands.
void ObservationsForm::pass() {
    if (running_) return;  // pressed while a run gives way: that run goes on
    readChoices();
    struct Mark {
        explicit Mark(ObservationsForm& form_) : form(form_) { form.running_ = true; }
        ~Mark() {
            form.running_ = false;
            if (form.gone_) form.closeSources();
            form.progress(-1);
        }
        ObservationsForm& form;
    } mark(*this);
    stage("Ошибка решения уравнений", "Tarvex7.0", [this] { ReductionRun(reduction(), *this); });
}

void ObservationsForm::dateRead() {
    const ModelState& s = lab.s;
    const ReductionState& r = lab.reduction;
    if (r.choices.tables) {
        Text58.setText(r.worldDate);
        Text4.show(s.God);
        Text3.show(s.Mes);
        Text2.show(s.Den);
    }
    Text5.show(s.JD);
    Text63.show(cut6(r.Ln));
    Text64.show(cut6(r.Bn));
}

void ObservationsForm::heliocentric() {
    if (Check4.on()) return;
    const ModelState& s = lab.s;
    for (const int body : {0, 3, static_cast<int>(s.IplSel)}) {
        const Color color = body == rowMoon ? moonColor : bodyColor(s, body);
        drawBothViews(Picture1, s.X[body] / s.Mx, s.Y[body] / s.Mx, s.Z[body] / s.Mx, 0.06, color);
    }
}

/// Sun, Earth and body as seen from the Earth, or azimuth and altitude of Sun and body.
void ObservationsForm::drawSky() {
    const ModelState& s = lab.s;
    const ReductionState& r = lab.reduction;
    const int b = s.IplSel;
    const Color color = b == rowMoon ? moonColor : bodyColor(s, b);
    if (Option3.on()) {
        Picture3.disc(r.sun.L / 18, r.sun.B / 9, 0.1, bodyColor(s, 0));
        Picture3.disc(r.body.L / 18, r.body.B / 9, 0.06, color);
        return;
    }
    drawBothViews(Picture3, 0, 0, 0, 0.06, bodyColor(s, 3));
    if (b != rowSun)
        drawBothViews(Picture3, s.X[0] / s.Mx, s.Y[0] / s.Mx, s.Z[0] / s.Mx, 0.06, bodyColor(s, 0));
    // by the theory, on the ecliptic like the Sun: the row itself holds the data in their own frame by now
    const SkyPlace& place = r.stage[stageJ2000];
    const double B = place.B / kUgol, L = place.L / kUgol, R = r.Rgeo / s.Mx;
    drawBothViews(Picture3, R * std::cos(B) * std::cos(L), R * std::cos(B) * std::sin(L), R * std::sin(B),
                  0.06, color);
}

void ObservationsForm::graphPoint(double y, Color color) {
    const double x = ratio((lab.s.JD - lab.s.JDepoha) / 365.25, MT_);
    Picture4.disc(x, y + Ysdvig_, pointRadius, color);
}

void ObservationsForm::placed() {
    const ReductionState& r = lab.reduction;
    Text40.show(lab.s.JDet);
    if (!r.choices.visibility && !r.choices.horizonPicture) return;
    Text54.show(cut6(r.body.L));
    Text55.show(cut6(r.body.B));
}

void ObservationsForm::compared() {
    const ReductionState& r = lab.reduction;
    for (int i = 0; i < chainStages; ++i) {
        if (!r.reached[i] || !stageL[i]) continue;
        stageL[i]->show(cut6(r.stage[i].L));
        stageB[i]->show(cut6(r.stage[i].B));
    }
    const bool L = Check11.on(), B = Check12.on();
    if (Check1.on() && L) graphPoint(ratio(r.Lt, MAlfa_), {0, 0, 255});
    if (Check1.on() && B) graphPoint(ratio(r.Bt, MAlfa_), {50, 0, 200});
    if (Check9.on() && L) graphPoint(ratio(r.Ln, MAlfa_), {220, 250, 0});
    if (Check9.on() && B) graphPoint(ratio(r.Bn, MAlfa_), {220, 250, 0});
    if (Check18.on() && r.reached[stageSource] && r.reached[stageReceiver]) {
        const auto shift = [&](ChainStage to, ChainStage from) {
            return ratio(std::remainder(r.stage[to].L - r.stage[from].L, 360) * 3600, MdAlfa_);
        };
        graphPoint(shift(stageSource, stageJ2000) + 5, {255, 0, 0});
        graphPoint(shift(stageReceiver, stageSource) + 3, {0, 250, 0});
        graphPoint(shift(stageReceiver, stageJ2000) + 1, {0, 0, 250});
    }
    if (!Check4.on()) drawSky();
}

void ObservationsForm::rejected() {
    const ReductionState& r = lab.reduction;
    const double x = ratio((lab.s.JD - lab.s.JDepoha) / 365.25, MT_);
    if (Option17.on() && Check14.on())
        Picture4.circle(x, ratio(r.dR, MdR_) + Ysdvig_, rejectedRadius, dRcolor);
    if (Option18.on() && Check10.on())
        Picture4.circle(x, ratio(r.dL * 3600, MdAlfa_) + 4 + Ysdvig_, rejectedRadius, {200, 0, 0});
}

void ObservationsForm::accepted() {
    const ReductionState& r = lab.reduction;
    const auto& c = r.criterion;
    const int j = r.measure(), k = r.experiment;
    Text23.show(r.NObs);
    Text60.show(r.NPlus);
    Text78.show(r.NObs - r.NPlus);
    Text7.show(cut6(r.dL));
    Text8.show(cut6(r.dB));
    Text15.show(cut6(r.dR));
    Text9.show(cut6(r.sumL / r.NObs));
    Text10.show(cut6(r.sumB / r.NObs));
    Text13.show(cut6(c[1][j][k]));
    Text11.show(cut6(c[2][j][k] / 3600));
    Text12.show(cut6(c[3][j][k] / 3600));
    if (r.choices.weightByCount) Text29.show(cut6(lab.plan.Xnul[10]));

    const bool L = Check11.on(), B = Check12.on();
    const auto seconds = [this](double degrees) { return ratio(degrees * 3600, MdAlfa_); };
    if (Check10.on() && L) graphPoint(seconds(r.dL) + 4, dLcolor);
    if (Check10.on() && B) graphPoint(seconds(r.dB) + 4, {0, 130, 100});
    if (Check14.on()) graphPoint(ratio(r.dR, MdR_), dRcolor);
    if (Check34.on() && L) graphPoint(seconds(r.sumL / r.NObs) + 4, {250, 220, 0});
    if (Check34.on() && B) graphPoint(seconds(r.sumB / r.NObs) + 4, {200, 200, 0});
    if (Check6.on()) graphPoint(ratio(c[1][j][k], MdR_), {0, 0, 0});
    if (Check35.on() && L) graphPoint(ratio(c[2][j][k], MdAlfa_), {0, 0, 0});
    if (Check35.on() && B) graphPoint(ratio(c[3][j][k], MdAlfa_), {220, 220, 0});
}

/// In short pieces, so that "Остановить" is seen at once.
void ObservationsForm::pause(int milliseconds) {
    constexpr int piece = 100;
    for (int left = milliseconds; left > 0 && lab.s.kodStop != 1; left -= piece)
        desk().screen().pause(std::min(left, piece));
}

void ObservationsForm::giveWay() {
    const ReductionState& r = lab.reduction;
    if (++passes_ % progressEvery == 0)
        progress((lab.s.JD - lab.s.JDepoha) / (std::max(1, r.GodK + 1 - lab.s.God0) * 365.25));
    desk().yield();
}

void ObservationsForm::showStatistics() {
    ReductionState& r = lab.reduction;
    const std::int32_t scale = Text49.int32();
    r.NPlus = scale;  // the field of the scale is this counter's, and that is meant
    clearSystem();
    const auto polygon = [&](Picture& picture, int first, double left, double factor, double bottom,
                             const char* name) {
        const auto y = [&](int n) { return ratio(factor * r.count[n], scale) + bottom; };
        for (int n = first + 1; n <= first + 18; ++n)
            picture.line(n - left, y(n), n + 1 - left, y(n + 1), {255, 0, 0});
        return picture.text(1 - left + first, bottom + 19, name, {255, 0, 0});
    };
    page_.showPlots(Picture4);
    polygon(Picture1, 0, 10, 3, -10, "dLpl");
    polygon(Picture3, 20, 30, 3, -10, "dBpl");
    polygon(Picture4, 40, 40, 1, 0, "dRpl");
    if (Check21.on()) writeStatistics(lab.s, r, lab.tree);
}

}  // namespace tarvex
