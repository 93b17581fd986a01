#include "forms/gravity_bench_form.h"

#include <fmt/format.h>

#include <array>
#include <cmath>

#include "core/arithmetic.h"
#include "theories/geometry.h"

namespace tarvex {

namespace {

constexpr std::array bodyNames = {"Солнце", "Меркурий", "Венера", "Земля",  "Марс",
                                  "Юпитер", "Сатурн",   "Уран",   "Нептун", "Плутон"};
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
    : Form(lab_.desk, formName, "Тестирование алгоритма учета скорости гравитации    Tarvex7m  - форма 7"),
      Check1(this, 0, 9,
             [](int i) {
                 return CheckBox::Spec{.name = "Check1",
                                       .caption = bodyNames[i],
                                       .on = i <= 1,
                                       .hint = "Тело пары; отмечают ровно два"};
             }),
      lab(lab_) {
    const Shown bad = orShow("Введите правильно данные или увеличьте MF или MV", "Tarvex7");
    Command1.onPress([this] { place(); }, bad);
    Command3.onPress([this] { iterate(); }, bad);
    Command4.onPress([this] { close(); });
    for (OptionButton* option : {&Option1, &Option2})
        option->onChoose([this] {
            if (placed_) draw();
        });
    for (OptionButton* option : {&Option3, &Option4})
        option->onChoose([this] {
            if (placed_ && bench_.NDiffur > 0) showAction();
        });
    HScroll1.onChange([this] {
        lab.s.Mx = HScroll1.value() * 100000.0 * 1000;
        Label23.setCaption("Масштаб = " + toText(HScroll1.value() / 10.0) + " млн.км/см");
    });

    std::vector<Layout> choice;
    for (int i = 0; i <= 9; ++i) choice.emplace_back(Check1(i));
    layout_ = row({
        column({
            row({frame("Тела", table(2, choice)),
                 frame("Условия", column({fields(2, {Text1, Text2, Text6, Text40, Text23, Text62, Text46}),
                                          row({fields(3, {Text3, Text4, Text5}), Check3}),
                                          row({Check2, Check4, Check5})}))}),
            row({column({Command1, Command3}), fields(1, {Text10})}),
            row({frame("Сейчас", fields(3, {Text7, Text8, Text9})),
                 frame("Показать", row({Option3, Option4}))}),
            frame("Положения (тыс.км) и скорости (м/с)",
                  table(7, {"",     "X",      "Y",    "Z",      "VX",   "VY",     "VZ",   "тело 1", Text11,
                            Text13, Text15,   Text17, Text19,   Text21, "тело 2", Text12, Text14,   Text16,
                            Text18, Text20,   Text22, "след 1", Text24, Text26,   Text28, Text47,   Text48,
                            Text49, "след 2", Text25, Text27,   Text29, Text50,   Text51, Text52})),
            frame("Действие тела i на тело k",
                  column({table(5, {"", "угол VX", "угол VY", "угол VZ", "dV, м/с", "i", Text31, Text32,
                                    Text33, Text34, "k", Text35, Text36, Text37, Text38}),
                          fields(3, {Text53, Text54, Text55, Text59, Text60, Text61, Text30, Text41, Text42,
                                     Text43, Text44, Text45, Text56, Text57, Text58})})),
        }),
        column({Picture1, row({Label23, HScroll1}), row({Option1, Option2, stretch(), Command4})}),
    });
}

void GravityBenchForm::load() {
    ModelState& s = lab.s;
    Text3.show(s.VXsys);
    Text4.show(s.VYsys);
    Text5.show(s.VZsys);
    s.Mx = HScroll1.value() * 100000.0 * 1000;
    Picture1.setScale(-10, 10, 10, -10);
    clearPicture();
    Picture1.setTextHeight(16);  // the longest note fills the width
    double y = 9.4;
    for (const char* note : notes) Picture1.text(-9.6, y -= 0.8, note, black);
}

void GravityBenchForm::clearPicture() {
    Picture1.clear();
    for (int i = -10; i <= 10; ++i) {
        Picture1.line(i, -10, i, 10, grey);
        Picture1.line(-10, i, 10, i, grey);
    }
    Picture1.line(-10, 0, 10, 0, axis);
    Picture1.line(0, -10, 0, 10, axis);
}

void GravityBenchForm::place() {
    ModelState& s = lab.s;
    Motion& m = lab.motion;
    GravityBench b;
    int ticked = 0;
    for (int i = 0; i <= 9; ++i) {
        if (!Check1(i).on()) continue;
        if (++ticked > 2) throw Refusal("Должно быть отмечено только 2 объекта", "Tarvex7");
        (ticked == 1 ? b.N1 : b.N2) = i;
    }
    if (ticked < 2) throw Failure("two bodies are needed");
    ratio(1, Text23.number());
    ratio(1, Text46.number());
    placed_ = false;
    if (Check2.on()) {
        Text6.show(m.Vgr / Vsv);
        Text40.show(m.kPgr1);
        Text62.show(m.kPgr2);
        benchRestore(s, m);
        for (const auto& [body, field] : {std::pair{b.N1, &Text1}, std::pair{b.N2, &Text2}}) {
            if (body == 0) {
                field->show(0);
                continue;
            }
            PairGeometry(s, 0, body);
            field->show(cut6(s.LonPl[body]));
        }
    } else {
        const double Vgr = Text6.number() * Vsv, k1 = Text40.number(), k2 = Text62.number();
        const double L1 = Text1.number() / kUgol, L2 = Text2.number() / kUgol;
        ratio(1, Vgr);
        m.Vgr = Vgr;
        m.kPgr1 = k1;
        m.kPgr2 = k2;
        benchPlace(s, m, b.N1, L1);
        benchPlace(s, m, b.N2, L2);
    }
    if (Check3.on()) {
        s.VXsys = Text3.number();
        s.VYsys = Text4.number();
        s.VZsys = Text5.number();
        for (const int i : {b.N1, b.N2}) {
            s.VX[i] = finite(s.VX[i] + 1000 * s.VXsys);
            s.VY[i] = finite(s.VY[i] + 1000 * s.VYsys);
            s.VZ[i] = finite(s.VZ[i] + 1000 * s.VZsys);
        }
    }
    benchPresent(s, m, b);
    bench_ = b;
    m.N1 = static_cast<std::int16_t>(b.N1);  // the debug text of a run follows this pair
    m.N2 = static_cast<std::int16_t>(b.N2);
    placed_ = true;
    showPresent();
    draw();
    Picture1.text(-9.6, 9.8,
                  "kmax= " + toText(m.NSled) + "   P00= " + toText(s.Dt) + "   Tr= " + toText(m.dTstageSave),
                  black);
}

void GravityBenchForm::showPresent() {
    const ModelState& s = lab.s;
    const int i = bench_.N1, k = bench_.N2;
    const std::array<TextField*, 12> all = {&Text11, &Text12, &Text13, &Text14, &Text15, &Text16,
                                            &Text17, &Text18, &Text19, &Text20, &Text21, &Text22};
    const std::array values = {s.X[i] / MK, s.X[k] / MK, s.Y[i] / MK, s.Y[k] / MK, s.Z[i] / MK, s.Z[k] / MK,
                               s.VX[i],     s.VX[k],     s.VY[i],     s.VY[k],     s.VZ[i],     s.VZ[k]};
    for (std::size_t n = 0; n < all.size(); ++n) all[n]->show(cut6(values[n]));
    Text7.show(cut6(bench_.present.L / MK));
    Text8.show(cut6(bench_.present.T));
    Text9.show(bench_.present.F);
    Text10.show(0);
}

void GravityBenchForm::iterate() {
    if (!placed_) throw Failure("the bodies have no place yet");
    bench_.useTrace = Check4.on();
    bench_.usePressure = Check5.on();
    ratio(1, Text23.number());
    ratio(1, Text46.number());
    benchIterate(lab.s, lab.motion, bench_);
    Text10.show(bench_.NDiffur);
    showAction();
    draw();
    if (Check4.on() && lab.motion.kodDX == 3) printTrace();
}

void GravityBenchForm::showAction() {
    const GravityBench& b = bench_;
    const GravityBench::Action &a = Option3.on() ? b.a12 : b.a21, &other = Option3.on() ? b.a21 : b.a12;
    const std::array<TextField*, 6> traces = {&Text24, &Text25, &Text26, &Text27, &Text28, &Text29};
    const std::array places = {b.trace1.X, b.trace2.X, b.trace1.Y, b.trace2.Y, b.trace1.Z, b.trace2.Z};
    for (std::size_t n = 0; n < traces.size(); ++n) traces[n]->show(cut6(places[n] / MK));
    const std::array<TextField*, 6> speeds = {&Text47, &Text48, &Text49, &Text50, &Text51, &Text52};
    const std::array late = {b.a12.VX, b.a12.VY, b.a12.VZ, b.a21.VX, b.a21.VY, b.a21.VZ};
    for (std::size_t n = 0; n < speeds.size(); ++n) speeds[n]->show(cut6(late[n]));
    Text31.show(degrees(a.dAlfaVX1, 100));
    Text32.show(degrees(a.dAlfaVY1, 100));
    Text33.show(degrees(a.dBettaVZ1, 100));
    Text34.show(cut6(a.dV1));
    Text35.show(degrees(a.dAlfaVX2, 100));
    Text36.show(degrees(a.dAlfaVY2, 100));
    Text37.show(degrees(a.dBettaVZ2, 100));
    Text38.show(cut6(a.dV2));
    Text53.show(degrees(a.Alfa, 1000));
    Text54.show(degrees(a.Betta, 1000));
    Text55.show(cut6(a.L / MK));
    Text59.show(cut6(a.T));
    Text60.show(cut6(a.dV2 - a.dV1));
    Text61.show(ratio(b.a12.L, b.a21.L));
    Text30.show(ratio(b.a12.F, b.a21.F));
    Text41.show(a.Fs);
    Text42.show(a.F);
    Text43.show(a.FX);
    Text44.show(a.FY);
    Text45.show(a.FZ);
    Text56.show(a.FX - a.FXs);
    Text57.show(a.FY - a.FYs);
    Text58.show(a.FZ - a.FZs);
    ratio(1, other.L);
}

void GravityBenchForm::draw() {
    const ModelState& s = lab.s;
    const GravityBench& b = bench_;
    const double MF = forceUnit * Text23.number(), MV = 1000 * Text46.number();
    const auto across = [&](double y, double z) { return Option1.on() ? y : z; };
    clearPicture();
    const auto body = [&](int i, double FX, double FY, double FZ) {
        const double x = s.X[i] / s.Mx, y = across(s.Y[i], s.Z[i]) / s.Mx;
        Picture1.line(x, y, x + ratio(FX, MF), y + ratio(across(FY, FZ), MF), forceColor);
        Picture1.line(x, y, x + ratio(s.VX[i], MV), y + ratio(across(s.VY[i], s.VZ[i]), MV), speedColor);
        Picture1.disc(x, y, 0.2, i == 0 ? Color{230, 190, 0} : Color{s.ColorR[i], s.ColorG[i], s.ColorB[i]});
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
            Picture1.circle(t->X / s.Mx, across(t->Y, t->Z) / s.Mx, 0.15, traceColor);
    }
    const Motion& m = lab.motion;
    if (m.kodDX != 3 || m.SledXsave.size() == 0) return;
    const int step = std::max(1, m.NSled / 10);
    for (const int i : {b.N1, b.N2})
        for (int n = 0; n < m.SledXsave.size(); n += step)
            Picture1.circle(m.SledXsave.at(n, i) / s.Mx,
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
        Picture1.text(
            -9.6, y,
            fmt::format("k{0}=   {1}   Xk+1= {2}   Xsled= {3}   Xk=   {4}   X{0}=  {5}   T{6}=  {7}", number,
                        k, toText(m.SledXsave.at(k + 1, i)), toText(trace), toText(m.SledXsave.at(k, i)),
                        toText(s.X[i]), pair, toText(T)),
            black);
        y -= 0.8;
    }
}

}  // namespace tarvex
