#include "forms/gravity_bench_form.h"

#include <fmt/format.h>

#include <array>
#include <cmath>

#include "core/arithmetic.h"
#include "core/run_inputs.h"
#include "theories/geometry.h"

namespace tarvex {

namespace {

constexpr Color black{0, 0, 0}, grey{225, 225, 225}, axis{150, 150, 150}, forceColor{220, 0, 0},
    speedColor{0, 0, 220}, traceColor{0, 150, 0};
constexpr double forceUnit = 1e12;  ///< N of one unit of the field MF
/// Notes that the picture carries until the bodies are drawn on it.
constexpr std::array notes = {"при учете давления гравитации используется формула Норин1 ",
                              "если координаты и скорости для теста берутся с формы2, то они ",
                              "берутся такими как они были при 4-ом обращении метода Рунге-Кутта",
                              "к системе дифференциальных уравнений Diffur на форме 2",
                              "при этом ускорения скоростей dVi и dVk берутся как на форме2",
                              "так и на этой форме7 с предыдущего шага решения на форме 2",
                              "скорости dVi и dVk это проекции векторов скорости i-го и k-го тел на вектор",
                              "скорости гравитации при ее распространении от следа i-го тела к k-у телу"};

double degrees(double radians, double scale) { return Fix(scale * radians * kUgol) / scale; }

}  // namespace

GravityBenchForm::GravityBenchForm(Laboratory& lab_)
    : GravityBenchControls(lab_.desk, formName,
                           "Тестирование алгоритма учета скорости гравитации    Tarvex7m  - форма 7"),
      lab(lab_) {
    const Shown bad = orShow("Введите правильно данные или увеличьте MF или MV", "Tarvex7");
    placeBodies.onPress([this] { place(); }, bad);
    iterateOnce.onPress([this] { iterate(); }, bad);
    closeForm.onPress([this] { close(); });
    for (OptionButton* option : {&planeXy, &planeXz})
        option->onChoose([this] {
            if (placed_) draw();
        });
    for (OptionButton* option : {&firstOnSecond, &secondOnFirst})
        option->onChoose([this] {
            if (placed_ && bench_.NDiffur > 0) showAction();
        });
    scale.onChange([this] {
        lab.s.Mx = scale.value() * 100000.0 * 1000;
        scaleLabel.setCaption("Масштаб = " + toText(scale.value() / 10.0) + " млн.км/см");
    });

    std::vector<Layout> choice;
    for (int i = 0; i <= 9; ++i) choice.emplace_back(inPair(i));
    layout_ = row({
        column({
            row({frame("Тела", table(2, choice)),
                 frame("Условия", column({fields(2, {longitude1, longitude2, gravitySpeed, k1, forceScale, k2,
                                                     velocityScale}),
                                          row({fields(3, {systemVx, systemVy, systemVz}), addSystemVelocity}),
                                          row({fromRun, useDelay, usePressure})}))}),
            row({column({placeBodies, iterateOnce}), fields(1, {iterations})}),
            row({frame("Сейчас", fields(3, {distanceNow, travelTimeNow, forceNow})),
                 frame("Показать", row({firstOnSecond, secondOnFirst}))}),
            frame(
                "Положения (тыс.км) и скорости (м/с)",
                table(7, {"",      "X",      "Y",     "Z",      "VX",    "VY",     "VZ",    "тело 1", x1,
                          y1,      z1,       vx1,     vy1,      vz1,     "тело 2", x2,      y2,       z2,
                          vx2,     vy2,      vz2,     "след 1", traceX1, traceY1,  traceZ1, lateVx1,  lateVy1,
                          lateVz1, "след 2", traceX2, traceY2,  traceZ2, lateVx2,  lateVy2, lateVz2})),
            frame("Действие тела i на тело k",
                  column({table(5, {"", "угол VX", "угол VY", "угол VZ", "dV, м/с", "i", sourceAngleVx,
                                    sourceAngleVy, sourceAngleVz, sourceRadialSpeed, "k", targetAngleVx,
                                    targetAngleVy, targetAngleVz, targetRadialSpeed}),
                          fields(3, {pullLongitude, pullLatitude, pullDistance, pullTime, recessionSpeed,
                                     distanceRatio, forceRatio, traceForce, force, forceX, forceY, forceZ,
                                     pressureX, pressureY, pressureZ})})),
        }),
        column({pairPicture, row({scaleLabel, scale}), row({planeXy, planeXz, stretch(), closeForm})}),
    });
}

void GravityBenchForm::load() {
    ModelState& s = lab.s;
    systemVx.show(s.VXsys);
    systemVy.show(s.VYsys);
    systemVz.show(s.VZsys);
    s.Mx = scale.value() * 100000.0 * 1000;
    pairPicture.setScale(-10, 10, 10, -10);
    clearPicture();
    pairPicture.setTextHeight(16);  // the longest note fills the width
    double y = 9.4;
    for (const char* note : notes) pairPicture.text(-9.6, y -= 0.8, note, black);
}

void GravityBenchForm::clearPicture() {
    pairPicture.clear();
    for (int i = -10; i <= 10; ++i) {
        pairPicture.line(i, -10, i, 10, grey);
        pairPicture.line(-10, i, 10, i, grey);
    }
    pairPicture.line(-10, 0, 10, 0, axis);
    pairPicture.line(0, -10, 0, 10, axis);
}

/// The two ticked bodies.
GravityBench GravityBenchForm::chosenPair() {
    std::array<bool, 10> ticked{};
    for (int i = 0; i < static_cast<int>(ticked.size()); ++i) ticked[i] = inPair(i).on();
    return benchPair(ticked);
}

/// The pair as the run left it; the fields show its law and the bodies' longitudes.
void GravityBenchForm::takeRun(const GravityBench& b) {
    ModelState& s = lab.s;
    Motion& m = lab.motion;
    gravitySpeed.show(m.Vgr / Vsv);
    k1.show(m.kPgr1);
    k2.show(m.kPgr2);
    benchRestore(s, m);
    for (const auto& [body, field] : {std::pair{b.N1, &longitude1}, std::pair{b.N2, &longitude2}}) {
        if (body == 0) {
            field->show(0);
            continue;
        }
        PairGeometry(s, rowSun, body);
        field->show(cut6(s.LonPl[body]));
    }
}

/// The pair on circular orbits at the longitudes of the fields, with their law.
void GravityBenchForm::takeFields(const GravityBench& b) {
    Motion& m = lab.motion;
    const double Vgr = gravitySpeed.number() * Vsv, first = k1.number(), second = k2.number();
    const double L1 = longitude1.number() / kUgol, L2 = longitude2.number() / kUgol;
    benchPlacePair(lab.s, m, b, Vgr, first, second, L1, L2);
}

void GravityBenchForm::addSpeedOfSystem(const GravityBench& b) {
    const double VXsys = systemVx.number(), VYsys = systemVy.number(), VZsys = systemVz.number();
    benchAddVelocity(lab.s, b, VXsys, VYsys, VZsys);
}

void GravityBenchForm::place() {
    ModelState& s = lab.s;
    Motion& m = lab.motion;
    GravityBench b = chosenPair();
    ratio(1, forceScale.number());
    ratio(1, velocityScale.number());
    placed_ = false;
    law_ = BenchLaw::of(m);
    const BenchLawInUse use(m, law_);
    const RunInputsKept kept(s);
    if (fromRun.on())
        takeRun(b);
    else
        takeFields(b);
    if (addSystemVelocity.on()) addSpeedOfSystem(b);
    benchPresent(s, m, b);
    bench_ = b;
    m.N1 = static_cast<std::int16_t>(b.N1);  // the debug text of a run follows this pair
    m.N2 = static_cast<std::int16_t>(b.N2);
    placed_ = true;
    showPresent();
    draw();
    pairPicture.text(
        -9.6, 9.8, "kmax= " + toText(m.NSled) + "   P00= " + toText(s.Dt) + "   Tr= " + toText(m.dTstageSave),
        black);
}

void GravityBenchForm::showPresent() {
    const ModelState& s = lab.s;
    const int i = bench_.N1, k = bench_.N2;
    const std::array<TextField*, 12> all = {&x1, &x2, &y1, &y2, &z1, &z2, &vx1, &vx2, &vy1, &vy2, &vz1, &vz2};
    const std::array values = {s.X[i] / MK, s.X[k] / MK, s.Y[i] / MK, s.Y[k] / MK, s.Z[i] / MK, s.Z[k] / MK,
                               s.VX[i],     s.VX[k],     s.VY[i],     s.VY[k],     s.VZ[i],     s.VZ[k]};
    for (std::size_t n = 0; n < all.size(); ++n) all[n]->show(cut6(values[n]));
    distanceNow.show(cut6(bench_.present.L / MK));
    travelTimeNow.show(cut6(bench_.present.T));
    forceNow.show(bench_.present.F);
    iterations.show(0);
}

void GravityBenchForm::iterate() {
    if (!placed_) throw Failure("тела еще не расставлены");
    bench_.useTrace = useDelay.on();
    bench_.usePressure = usePressure.on();
    ratio(1, forceScale.number());
    ratio(1, velocityScale.number());
    {
        const BenchLawInUse use(lab.motion, law_);
        benchIterate(lab.s, lab.motion, bench_);
    }
    iterations.show(bench_.NDiffur);
    showAction();
    draw();
    if (useDelay.on() && lab.motion.kodDX == codeOf(Retardation::ByTrace)) printTrace();
}

void GravityBenchForm::showAction() {
    const GravityBench& b = bench_;
    const GravityBench::Action &a = firstOnSecond.on() ? b.a12 : b.a21,
                               &other = firstOnSecond.on() ? b.a21 : b.a12;
    const std::array<TextField*, 6> traces = {&traceX1, &traceX2, &traceY1, &traceY2, &traceZ1, &traceZ2};
    const std::array places = {b.trace1.X, b.trace2.X, b.trace1.Y, b.trace2.Y, b.trace1.Z, b.trace2.Z};
    for (std::size_t n = 0; n < traces.size(); ++n) traces[n]->show(cut6(places[n] / MK));
    const std::array<TextField*, 6> speeds = {&lateVx1, &lateVy1, &lateVz1, &lateVx2, &lateVy2, &lateVz2};
    const std::array late = {b.a12.VX, b.a12.VY, b.a12.VZ, b.a21.VX, b.a21.VY, b.a21.VZ};
    for (std::size_t n = 0; n < speeds.size(); ++n) speeds[n]->show(cut6(late[n]));
    sourceAngleVx.show(degrees(a.dAlfaVX1, 100));
    sourceAngleVy.show(degrees(a.dAlfaVY1, 100));
    sourceAngleVz.show(degrees(a.dBettaVZ1, 100));
    sourceRadialSpeed.show(cut6(a.dV1));
    targetAngleVx.show(degrees(a.dAlfaVX2, 100));
    targetAngleVy.show(degrees(a.dAlfaVY2, 100));
    targetAngleVz.show(degrees(a.dBettaVZ2, 100));
    targetRadialSpeed.show(cut6(a.dV2));
    pullLongitude.show(degrees(a.Alfa, 1000));
    pullLatitude.show(degrees(a.Betta, 1000));
    pullDistance.show(cut6(a.L / MK));
    pullTime.show(cut6(a.T));
    recessionSpeed.show(cut6(a.dV2 - a.dV1));
    distanceRatio.show(ratio(b.a12.L, b.a21.L));
    forceRatio.show(ratio(b.a12.F, b.a21.F));
    traceForce.show(a.Fs);
    force.show(a.F);
    forceX.show(a.FX);
    forceY.show(a.FY);
    forceZ.show(a.FZ);
    pressureX.show(a.FX - a.FXs);
    pressureY.show(a.FY - a.FYs);
    pressureZ.show(a.FZ - a.FZs);
    ratio(1, other.L);
}

void GravityBenchForm::draw() {
    const ModelState& s = lab.s;
    const GravityBench& b = bench_;
    const double MF = forceUnit * forceScale.number(), MV = 1000 * velocityScale.number();
    const auto across = [&](double y, double z) { return planeXy.on() ? y : z; };
    clearPicture();
    const auto body = [&](int i, double FX, double FY, double FZ) {
        const double x = s.X[i] / s.Mx, y = across(s.Y[i], s.Z[i]) / s.Mx;
        pairPicture.line(x, y, x + ratio(FX, MF), y + ratio(across(FY, FZ), MF), forceColor);
        pairPicture.line(x, y, x + ratio(s.VX[i], MV), y + ratio(across(s.VY[i], s.VZ[i]), MV), speedColor);
        pairPicture.disc(x, y, 0.2,
                         i == 0 ? Color{230, 190, 0} : Color{s.ColorR[i], s.ColorG[i], s.ColorB[i]});
    };
    if (b.NDiffur == 0) {
        const double sx = Sgn(s.X[b.N2] - s.X[b.N1]), sy = Sgn(s.Y[b.N2] - s.Y[b.N1]),
                     sz = Sgn(s.Z[b.N2] - s.Z[b.N1]);
        const GravityBench::Present& p = b.present;
        body(b.N1, sx * p.FX, sy * p.FY, sz * p.FZ);
        body(b.N2, -sx * p.FX, -sy * p.FY, -sz * p.FZ);
    } else {
        body(b.N1, b.a21.FX, b.a21.FY, b.a21.FZ);
        body(b.N2, b.a12.FX, b.a12.FY, b.a12.FZ);
        for (const GravityBench::Point* t : {&b.trace1, &b.trace2})
            pairPicture.circle(t->X / s.Mx, across(t->Y, t->Z) / s.Mx, 0.15, traceColor);
    }
    const Motion& m = lab.motion;
    if (m.kodDX != codeOf(Retardation::ByTrace) || m.SledXsave.size() == 0) return;
    const int step = std::max(1, m.NSled / 10);
    for (const int i : {b.N1, b.N2})
        for (int n = 0; n < m.SledXsave.size(); n += step)
            pairPicture.circle(m.SledXsave.at(n, i) / s.Mx,
                               across(m.SledYsave.at(n, i), m.SledZsave.at(n, i)) / s.Mx, 0.1, traceColor);
}

/// Where in the saved trace the pulls come from.
void GravityBenchForm::printTrace() {
    const ModelState& s = lab.s;
    const Motion& m = lab.motion;
    double y = 9;
    const std::tuple<int, double, double, const char*, const char*> bodiesOfPair[] = {
        {bench_.N1, bench_.trace1.X, bench_.delay1, "1", "12"},
        {bench_.N2, bench_.trace2.X, bench_.delay2, "2", "21"}};
    for (const auto& [i, trace, T, number, pair] : bodiesOfPair) {
        const int k = std::max(0, static_cast<int>(Fix(ratio(T - m.dTstageSave, s.Dt))));
        if (k + 1 >= m.SledXsave.size()) continue;
        pairPicture.text(
            -9.6, y,
            fmt::format("k{0}=   {1}   Xk+1= {2}   Xsled= {3}   Xk=   {4}   X{0}=  {5}   T{6}=  {7}", number,
                        k, toText(m.SledXsave.at(k + 1, i)), toText(trace), toText(m.SledXsave.at(k, i)),
                        toText(s.X[i]), pair, toText(T)),
            black);
        y -= 0.8;
    }
}

}  // namespace tarvex
