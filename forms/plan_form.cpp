#include "forms/plan_form.h"

#include "core/arithmetic.h"
#include "stats/gravity_plan.h"
#include "stats/plan_file.h"
#include "stats/quality.h"
#include "stats/stat.h"

namespace tarvex {

namespace {

constexpr const char* box = "Tarvex7m";
constexpr double planTop = 19;        ///< the plan is printed this far below the top of the picture
constexpr double observedTop = 12.2;  ///< and the observed shifts above it, below the levels

std::string cut2(double v) { return toText(Fix(100 * v) / 100); }
std::string cut3(double v) { return toText(Fix(1000 * v) / 1000); }
double cut4(double v) { return Fix(10000 * v) / 10000; }

}  // namespace

CheckBox::Spec PlanForm::factorSpec(int i) {
    constexpr const char* captions[] = {
        "", "X1=VX, км/с", "X2=VY, км/с", "X3=VZ, км/с", "X4=Vgr, Vsv", "X5=kPgr1", "X6=m0/m5", "X7=m0/m2"};
    constexpr const char* hints[] = {"",
                                     "Скорость Солнечной системы по X, км/с",
                                     "Скорость Солнечной системы по Y, км/с",
                                     "Скорость Солнечной системы по Z, км/с",
                                     "Скорость гравитации в скоростях света",
                                     "Первый коэффициент закона взаимодействия",
                                     "Отношение массы Солнца к массе Юпитера",
                                     "Отношение массы Солнца к массе Венеры"};
    // the question of the form: the velocity of the system and the speed of gravity
    return {.name = "Check3", .caption = captions[i], .on = i <= 4, .hint = hints[i]};
}

CheckBox::Spec PlanForm::paramSpec(int i) {
    constexpr const char* captions[] = {"",
                                        "Перигелию",
                                        "Узлу восхождения",
                                        "Углу наклона",
                                        "Эксцентриситету",
                                        "Большой оси эллипса",
                                        "Угловой скорости"};
    return {.name = "Check2",
            .caption = captions[i],
            .on = i == 1,
            .hint = "Смещение этого параметра входит в критерий"};
}

CheckBox::Spec PlanForm::planetSpec(int i) {
    constexpr const char* captions[] = {"",       "Меркурий", "Венера", "Земля",  "Марс", "Юпитер",
                                        "Сатурн", "Уран",     "Нептун", "Плутон", "Ксена"};
    return {.name = "Check1",
            .caption = captions[i],
            .on = i == 1,
            .hint = "Смещения этой планеты входят в критерий"};
}

PlanForm::PlanForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "Оптимизация скорости гравитации      Tarvex7m - форма 15"), lab(lab_) {
    const Shown badData = orShow("Задайте правильно данные", box);
    Command5.onPress([this] { CreatePlan15(); }, badData);
    Command14.onPress([this] { LoadPlan15(); }, badData);
    Command12.onPress([this] { SavePlan15(); }, orShow("Задайте правильно номер плана", box));
    Command4.onPress([this] { LoadObserved15(); }, badData);
    Command8.onPress([this] { RunExperiments(); }, orShow("Ошибка при выполнение плана", box));
    Command10.onPress([this] { ComputeCriterion(); }, orShow("Ошибка при обработке данных", box));
    Command1.onPress([this] { Fit15(); }, orShow("Ошибка при рассчете коэффициентов", box));
    Command7.onPress([this] { Optimize15(); }, orShow("Ошибка при решение системы линейных уравнений", box));
    Command9.onPress([this] {
        for (int i = 1; i <= gravityFactors; ++i) Text11(i).setText(Text15(i).text());
    });
    Command13.onPress([this] { Plot15(); },
                      orShow("Ошибка при построение графиков\r\nПопробуйте увеличить масштаб", box));
    Command16.onPress([this] { page.drawEmpty(Picture1, true); });
    Command3.onPress([this] { close(); });
    opens(Command6, "Form19");
    opens(Command15, "Form9");
    Text3.onChange(
        [this] {
            Text5.show(lab.plan.Nexp + 1);
            NextExperiment();
        },
        orShow("Ошибка при выполнение плана", box));
    layOut();
}

void PlanForm::layOut() {
    std::vector<Layout> cells = {"фактор", "уровень", "", "интервал", "", "сейчас", "", "закодир.", "Xiopt"};
    for (int i = 1; i <= gravityFactors; ++i)
        cells.insert(cells.end(), {Check3(i), Text11(i), "+/-", Text12(i), " =", Text13(i),
                                   "X" + std::to_string(i) + "opt=", Text14(i), Text15(i)});
    std::vector<Layout> params, planets;
    for (int i = 1; i <= 6; ++i) params.push_back(Check2(i));
    for (int i = 1; i <= 10; ++i) planets.push_back(Check1(i));
    const Layout plan = column({row({Option1, Option2, Command5, stretch(), Command14, Text4, Command12}),
                                table(9, cells), row({Check5, Check6})});
    const Layout none;
    const Layout runs = column({table(4, {row({Option9, Option11, Option12}),
                                          none,
                                          none,
                                          none,
                                          Command4,
                                          none,
                                          none,
                                          none,
                                          row({"эксперименты", Option5, Option6}),
                                          none,
                                          none,
                                          none,
                                          Command8,
                                          Text5,
                                          "по №",
                                          Text6,
                                          Command10,
                                          none,
                                          none,
                                          none}),
                                row({Text3, column({Command6, stretch()})})});
    const Layout criterion =
        column({row({frame("для модели критерий по", table(2, params)),
                     frame("и использовать планеты", table(3, planets))}),
                frame("критерий брать как", row({Option18, Option19, Option20, Option21}))});
    const Layout regression = column(
        {Command1, Command7, Command9, row({Command13, Check4}), fields(2, {Text1, Text2}), Label1, Label2});
    layout_ = row({column({frame("План", plan),
                           pages({frame("Эксперименты", runs), frame("Критерий", criterion),
                                  frame("Регрессия", regression)}),
                           Label3, row({Command16, Command15, stretch(), Command3})}),
                   scrolled(Picture1)});
}

void PlanForm::load() {
    lab.series.kodData = dataNone;
    CreatePlan15();
}

void PlanForm::activate() { tellState(); }

CriterionForm PlanForm::criterionForm() const {
    if (Option19.on()) return CriterionForm::dY;
    if (Option20.on()) return CriterionForm::dY2;
    return Option21.on() ? CriterionForm::AbsDY : CriterionForm::Y;
}

void PlanForm::tellState() {
    std::string text = planRead;
    if (observedLoaded && lab.shifts.dNab != observedAtLoad)
        text += std::string(text.empty() ? "" : ". ") +
                "Наблюдаемые смещения изменились после \"3-Загрузить\": загрузите их снова";
    Label3.setCaption(text.empty() ? " " : text);
}

void PlanForm::CreatePlan15() {
    PlanBlock& p = lab.plan;
    p.kodPlan = Option2.on() ? planRoto : planOrtho;
    p.Nf = 0;
    for (int i = 1; i <= gravityFactors; ++i)
        if (Check3(i).on()) p.Nfact[++p.Nf] = static_cast<std::int16_t>(i);
    if (p.Nf < 2 || p.Nf > maxFactors) throw Refusal("К-во факторов должно быть от 2 до 6", box);
    PlanCenterCount(p);
    BuildPlan(p);
    PlanCoefficients(p);
    page = PlanPage::of(p.Nf, 58);
    Text6.show(p.Nplan);
    page.drawEmpty(Picture1, true);
    printPlan();
}

/// Brings the plan and the criterion beside it into sight.
void PlanForm::showPlan() {
    Picture1.lookAt(page.rows - planTop, page.rows - planTop - 1 - lab.plan.Nplan / 2.0);
}

void PlanForm::printPlan() {
    const PlanBlock& p = lab.plan;
    showPlan();
    Picture1.text(planLeft, page.rows - planTop,
                  "Номер эксперимента, уровни плана и значение критерия (экспериментальное и расчетное)");
    for (int u = 1, last = experiments(p); u <= last; ++u) {
        const double y = page.rows - planTop - 0.5 - u / 2.0;
        Picture1.text(planLeft, y, std::to_string(u));
        for (int i = 1; i <= p.Nf; ++i) Picture1.text(i + 1, y, cut2(p.PlanX[i][u]));
    }
}

void PlanForm::printColumn(double x, const std::array<double, 100>& values) {
    for (int u = 1, last = experiments(lab.plan); u <= last; ++u)
        Picture1.text(x, page.rows - planTop - 0.5 - u / 2.0, cut3(values[u]));
}

std::string PlanForm::planFileName(int N, bool withBlank) const {
    std::string name = files::plan(N);
    if (withBlank) name.insert(name.rfind('\\'), " ");  // one of the messages has a blank here
    return name;
}

void PlanForm::LoadPlan15() {
    PlanBlock& p = lab.plan;
    const int N = Text4.int16();
    PlanFileHead head;
    try {
        head = readPlanFile(lab.tree, N, p, lab.shifts);
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл " + planFileName(N, false), box);
    } catch (const FileFailure&) {
        throw Refusal("Ошибка при чтении данных из файла " + planFileName(N, false), box);
    }
    double y = page.rows - 0.3;
    Picture1.lookAt(page.rows, page.rows - observedTop);
    const auto print = [&](const std::string& text) {
        Picture1.text(planLeft, y, text);
        y -= 0.55;
    };
    print(head.levels);
    print(head.kind);
    for (int i = 1; i <= gravityFactors; ++i) {
        Text11(i).show(p.Xnul[i]);
        Text12(i).show(p.dXvar[i]);
        Text13(i).show(p.Xnul[i] + (Check3(i).on() ? p.dXvar[i] : 0));
        Text14(i).show(p.Xopt[i]);
        Text15(i).show(p.XoptR[i]);
        print("X" + std::to_string(i) + "             " + toText(p.Xnul[i]) + "          " +
              toText(p.dXvar[i]) + "            Xopt" + std::to_string(i) + "             " +
              toText(p.Xopt[i]) + "          " + toText(p.XoptR[i]));
    }
    print(head.weights);
    for (int i = 1; i <= weightPlanets; ++i) {
        std::string text = "планета  " + std::to_string(i) + "           ";
        for (int c = 1; c <= shiftParams; ++c) text += (c > 1 ? "    " : "") + toText(lab.shifts.Ves[i][c]);
        print(text);
    }
}

void PlanForm::readLevels() {
    for (int i = 1; i <= gravityFactors; ++i) {
        lab.plan.Xnul[i] = Text11(i).number();
        lab.plan.dXvar[i] = Text12(i).number();
    }
}

void PlanForm::SavePlan15() {
    PlanBlock& p = lab.plan;
    const int N = Text4.int16();
    readLevels();
    for (int i = 1; i <= gravityFactors; ++i) {
        p.Xopt[i] = Text14(i).number();
        p.XoptR[i] = Text15(i).number();
    }
    stage("Ошибка при записи данных в файл " + planFileName(N, true), box, [&] {
        writePlanFile(lab.tree, N, PlanFileHead::of(N, p.kodPlan == planRoto, p.Nf), p, lab.shifts);
    });
}

void PlanForm::LoadObserved15() {
    SeriesData& d = lab.series;
    d.kodData = dataNone;
    d.DirImit = Option11.on() ? "\\JPL" : Option12.on() ? "\\Ser" : "\\NEW";
    const std::string name = files::shifts(d.DirImit);
    ShiftFileHead head;
    try {
        head = readObservedShifts(lab.tree, d.DirImit, weightPlanets, lab.shifts);
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл " + name, box);
    } catch (const FileFailure&) {
        throw Refusal("Ошибка при чтении данных из файла " + name, box);
    }
    d.kodData = dataImitatorShifts;
    observedAtLoad = lab.shifts.dNab;
    observedLoaded = true;
    tellState();
    double y = page.rows - observedTop;
    Picture1.lookAt(y, page.rows - planTop);
    const auto print = [&](const std::string& text) {
        Picture1.text(planLeft, y, text);
        y -= 0.5;
    };
    print(head.title);
    print(
        "№ планеты      перигелий        угол восходящего узла       наклон орбиты"
        "               эксцентриситет    большая полуось эллипса    угловая скорость");
    constexpr const char* labels[] = {"",
                                      "    dAlfaP100  = ",
                                      "    dAlfaU100  = ",
                                      "    dBetta100  = ",
                                      "    dEks100  = ",
                                      "    dRsr100  = ",
                                      "    dW100  = "};
    constexpr const char* patterns[] = {"",         "0000.0000", "0000.0000", "000.00000",
                                        "000.0000", "0000.0000", "000.0000"};
    for (int i = 1; i <= weightPlanets; ++i) {
        std::string text = std::to_string(i);
        for (int c = 1; c <= shiftParams; ++c)
            text += labels[c] + Format(cut4(lab.shifts.dNab[i][c]), patterns[c]);
        print(text);
    }
}

void PlanForm::ComputeCriterion() {
    PlanBlock& p = lab.plan;
    p.b.fill(1);
    if (Option5.on())
        testCriterionOfPlan();
    else
        modelCriterion();
    findExtremes(p);
    Text2.show(cut6(p.Mcrit));
    Text1.show(cut6(p.Ymin));
    showPlan();
    printColumn(p.Nf + 2.5, p.Yu);
    plotExperiments(Picture1, p, p.Yu, 0.1, experimentColor);
}

void PlanForm::testCriterionOfPlan() {
    PlanBlock& p = lab.plan;
    for (int i = 1; i <= p.Nf; ++i) {
        const int factor = p.Nfact[i];
        Text11(factor).setText("0");
        Text12(factor).setText("1");
        p.Xnul[factor] = 0;
        p.dXvar[factor] = 1;
    }
    codedTest(p, criterionForm());
    Text4.show(p.Z[1]);  // over the plan number: meant
}

void PlanForm::modelCriterion() {
    PlanBlock& p = lab.plan;
    if (lab.series.kodData == dataNone) throw Refusal("Загрузите данные наблюдений", box);
    const int N = lab.s.NPlan;  // as last set by any form: 0 after a batch
    planRead = "Критерий по файлам плана № " + toText(N);
    if (Text4.text() != toText(N)) planRead += " (в поле плана № " + Text4.text() + ")";
    tellState();
    std::vector<int> planets, params;
    for (int c = 1; c <= shiftParams; ++c)
        if (Check2(c).on()) params.push_back(c);
    for (int planet = 1; planet <= weightPlanets; ++planet) {
        if (!Check1(planet).on()) continue;
        planets.push_back(planet);
        const std::string name = files::planShifts(N, planet);
        std::int16_t count = 0;
        stage("Ошибка чтения данных из файла " + name, box,
              [&] { readPlanShifts(lab.tree, N, planet, lab.shifts, count); });
        if (count != p.Nplan)
            throw Refusal("К-во экспериментов в плане не равно к-ву в файле \r\n" + name, box);
    }
    for (int u = 1, last = experiments(p); u <= last; ++u)
        p.Yu[u] = shiftCriterion(lab.shifts, planets, params, u, criterionForm());
}

void PlanForm::Fit15() {
    PlanBlock& p = lab.plan;
    FitRegression(p);
    evaluatePlan(p);
    Label1.setCaption(fitQualityText(p));
    const double y = page.rows - planTop - 0.6;
    showPlan();
    Picture1.text(p.Nf + 9, y, "Номер коэффициента уравнения регрессии и его значение");
    printCoefficients(Picture1, p, p.Nf + 9, y - planLine);
    printColumn(p.Nf + 5, p.Yras);
    drawLegend(Picture1);
    plotExperiments(Picture1, p, p.Yras, 0.2, regressionColor);
}

void PlanForm::Optimize15() {
    PlanBlock& p = lab.plan;
    const double top = page.rows - planTop - 1.5 - p.Nplan / 2.0;
    Picture1.lookAt(top, top - (p.Nf + 3) * 2 * planLine);
    printOptimum(Picture1, p, planLeft, top);
    for (int i = 1; i <= p.Nf; ++i) {
        const int factor = p.Nfact[i];
        Text14(factor).show(cut6(p.Xopt[i]));
        Text15(factor).show(cut6(p.Xopt[i] * p.dXvar[factor] + p.Xnul[factor]));
    }
    Label2.setCaption(stationaryText(p));
}

void PlanForm::Plot15() {
    PlanBlock& p = lab.plan;
    p.Mcrit = Text2.number();
    p.Ymin = Text1.number();
    const Color color{lab.s.ColorR[1], lab.s.ColorG[1], lab.s.ColorB[1]};
    page.showPlots(Picture1);
    plotAlongFactors(
        Picture1, p, [&](int i) { return Check4.on() ? Text14(p.Nfact[i]).number() : 0; }, color);
}

}  // namespace tarvex
