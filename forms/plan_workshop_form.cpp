#include "forms/plan_workshop_form.h"

#include "core/arithmetic.h"
#include "forms/plan_tests_help_form.h"
#include "stats/quality.h"
#include "stats/stat.h"
#include "stats/test_plan.h"

namespace tarvex {

namespace {
constexpr const char* box = "Tarvex7m";
constexpr double coefficientsX = 26;  ///< where the column of coefficients stands

std::string cut2(double v) { return toText(Fix(100 * v) / 100); }
}  // namespace

PlanWorkshopForm::PlanWorkshopForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "Планы многофакторного планирования      Tarvex7m - форма 18"), lab(lab_) {
    Command14.onPress([this] { CreatePlan18(); }, orShow("Ошибка при составление плана", box));
    Command4.onPress([this] { RunPlan18(); }, orShow("Ошибка при расчетах", box));
    Command1.onPress([this] { FitPlan18(); }, orShow("Ошибка при обработке данных", box));
    Command5.onPress([this] { OptimizePlan18(); },
                     orShow("Ошибка при решение системы линейных уравнений", box));
    Command13.onPress([this] { PlotPlan18(); }, orShow("Ошибка при построение графиков", box));
    Command9.onPress([this] { EvalPoint18(); }, orShow("Введите правильно нулевые уровни и интервалы", box));
    Command6.onPress(
        [this] {
            for (int i = 1; i <= lab.plan.Nf; ++i) {
                Text3(lab.plan.Nfact[i]).setText("0");
                Text4(lab.plan.Nfact[i]).setText("0");
            }
        },
        orShow("Введите правильно нулевые уровни и интервалы", box));
    Command7.onPress([this] { page.drawEmpty(Picture1, false); });
    Command3.onPress([this] {
        close();
        desk().unload(PlanTestsHelpForm::formName);
    });
    Option8.setLeadsTo(PlanTestsHelpForm::formName);
    Option8.onChoose([this] { desk().show(PlanTestsHelpForm::formName); });

    std::vector<Layout> factorCells = {"", "нулевой уровень", "", "интервал", "", "Xiopt", "в единицах"};
    for (int i = 1; i <= 6; ++i)
        factorCells.insert(factorCells.end(), {Check3(i), Text1(i), " +/-", Text2(i),
                                               "X" + std::to_string(i) + "opt=", Text3(i), Text4(i)});
    const Layout kinds = frame(
        "План", column({Option12, Option13, Option14, Option15, Option16, row({Check1, Text5}), Text8}));
    const Layout criterion = frame(
        "Критерий", column({row({Option6, Option7, Option8}), row({Option18, Option19, Option20, Option21}),
                            Check4, fields(1, {Text6, Text7, Text20})}));
    layout_ = row({column({row({kinds, criterion}), frame("Факторы", table(7, factorCells)), Command14,
                           Command4, Command1, Command5, Command13, row({Command6, Command9, Text9}),
                           row({Command7, Command3}), Label1, Label2, stretch()}),
                   scrolled(Picture1)});
}

void PlanWorkshopForm::load() { page.drawEmpty(Picture1, false); }

CriterionForm PlanWorkshopForm::criterionForm() const {
    if (Option19.on()) return CriterionForm::dY;
    if (Option20.on()) return CriterionForm::dY2;
    return Option21.on() ? CriterionForm::AbsDY : CriterionForm::Y;
}

void PlanWorkshopForm::CreatePlan18() {
    PlanBlock& p = lab.plan;
    p.kodPlan = Option13.on()   ? planRoto
                : Option14.on() ? planUniform
                : Option15.on() ? planDBox
                : Option16.on() ? planComposite
                                : planOrtho;
    p.Nf = 0;
    bool gap = false, inOrder = true;
    for (int i = 1; i <= 6; ++i) {
        if (!Check3(i).on()) {
            gap = true;
            continue;
        }
        p.Nfact[++p.Nf] = static_cast<std::int16_t>(i);
        inOrder = inOrder && !gap;
    }
    Text8.show(p.Nf);
    if (p.Nf < 2 || p.Nf > maxFactors) throw Refusal("К-во факторов должно быть от 2 до 6", box);
    page = PlanPage::of(p.Nf, 38);
    page.drawEmpty(Picture1, false);
    if (!inOrder) throw Refusal("Факторы должны быть отмечены по порядку", box);

    p.k = {};
    p.N0 = Text5.int16();
    if (!Check1.on()) PlanCenterCount(p);
    if (p.kodPlan == planDBox) p.N0 = 0;
    BuildPlan(p);
    Text5.show(p.N0);
    printPlan();
}

/// x at which the matrix of the plan ends: linear and square columns are wider than those of the pairs.
double PlanWorkshopForm::matrixEnd() const { return 0.3 + 2 * 1.2 * lab.plan.Nf + 0.5 * lab.plan.Npar; }

/// Brings the matrix of the plan and what stands beside it into sight.
void PlanWorkshopForm::showPlan() { Picture1.lookAt(page.rows, page.rows - lab.plan.Nplan / 2.0); }

void PlanWorkshopForm::printPlan() {
    PlanBlock& p = lab.plan;
    showPlan();
    const double sumsY = page.rows - p.Nplan / 2.0 - 0.5;
    double x = 0.3;
    for (int c = 1; c <= lastColumn(p.Nf); ++c) {
        for (int u = 1; u <= p.Nplan; ++u) Picture1.text(x, page.rows - (u - 1) / 2.0, cut2(p.PlanX[c][u]));
        Picture1.text(x, sumsY, cut2(p.EXi[c]));
        Picture1.text(x, sumsY - planLine, cut2(p.EXi2[c]));
        Picture1.text(x, sumsY - 2 * planLine, cut2(p.EXi4[c]));
        x += c <= p.Nf || c >= squareColumn(p.Nf, 1) ? 1.2 : 0.5;
    }
    Picture1.text(x, sumsY, "   EXi");
    Picture1.text(x, sumsY - planLine, "   EXi2");
    Picture1.text(x, sumsY - 2 * planLine, "   EXi4");
    const double y = sumsY - 3 * planLine - 0.2;
    Picture1.text(0.3, y, p.Stroka);
    PlanCoefficients(p);
    Picture1.text(0.3, y - planLine, coefficientText(p, "расчетные коэффициенты  ", [](double v) {
                      return Fix(10000 * v) / 10000;
                  }));
    printSizes(y - 2 * planLine);
}

void PlanWorkshopForm::printSizes(double y) {
    const PlanBlock& p = lab.plan;
    const auto print = [&](const char* label, double value) {
        Picture1.text(0.3, y, label + toText(value));
        y -= planLine;
    };
    print("к-во точек ядра=          ", p.Nyadro);
    print("к-во звездных точек=  ", p.Nzvezd);
    print("к-во нулевых точек=     ", p.N0);
    print("к-во точек плана=         ", p.Nplan);
    print("звездное плечо=     ", p.Plecho);
    if (p.kodPlan == planOrtho) print("среднее значение Xi^2=", p.Xi2sr);
    if (p.kodPlan == planRoto || p.kodPlan == planUniform) {
        print("la2=  ", p.la2);
        print("la4=  ", p.la4);
    }
    if (p.kodPlan == planUniform) print("la4z= ", p.la4z);
}

void PlanWorkshopForm::RunPlan18() {
    PlanBlock& p = lab.plan;
    if (Option7.on()) {
        readCriterionFile();
    } else {
        stage("Введите правильно нулевые уровни и интервалы", box, [&] {
            for (int i = 1; i <= 6; ++i) {
                p.Xnul[i] = Text1(i).number();
                p.dXvar[i] = Text2(i).number();
            }
            if (Option8.on())
                runAdditionalTest(p, desk().get<PlanTestsHelpForm>().test());
            else
                runStandardTest(p);
        });
    }
    Text6.show(p.Yopt);
    takeCriterion(p, criterionForm(), Check4.on());
    showPlan();
    const double x = matrixEnd();
    for (int u = 1; u <= p.Nplan; ++u) {
        Picture1.text(x, page.rows - (u - 1) / 2.0, std::to_string(u));
        Picture1.text(x + 0.9, page.rows - (u - 1) / 2.0, toText(cut6(p.Yu[u])));
    }
    Text20.show(cut6(p.Mcrit));
    Text7.show(cut6(p.Ymin));
    plotExperiments(Picture1, p, p.Yu, 0.1, experimentColor);
}

void PlanWorkshopForm::readCriterionFile() {
    PlanBlock& p = lab.plan;
    const std::string name = files::testPlan(p.Nf);
    try {
        if (!readTestPlan(lab.tree, p))
            throw Refusal("Не верное количество факторов или экспериментов в файле\r\n" + name, box);
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл\r\n" + name, box);
    } catch (const FileFailure&) {
        throw Refusal("Ошибка чтения данных из файла\r\n" + name, box);
    }
    for (int i = 1; i <= 6; ++i) {
        Check3(i).set(i <= p.Nf);
        if (i > p.Nf) continue;
        Text1(i).show(p.Xnul[i]);
        Text2(i).show(p.dXvar[i]);
    }
}

void PlanWorkshopForm::FitPlan18() {
    PlanBlock& p = lab.plan;
    if (Option15.on() && p.Nf != 4 && p.Nf != 5) throw Refusal("D план только для 4-х или 5-и факторов", box);
    FitRegression(p);
    showPlan();
    printCoefficients(Picture1, p, coefficientsX, page.rows - 0.5);
    evaluatePlan(p);
    Label1.setCaption(fitQualityText(p));
    drawLegend(Picture1);
    plotExperiments(Picture1, p, p.Yras, 0.2, regressionColor);
    const double x = p.Nf > 5 ? coefficientsX + 5 : matrixEnd() + 4;  // right of the criterion
    for (int u = 1; u <= p.Nplan; ++u) Picture1.text(x, page.rows - (u - 1) / 2.0, toText(cut6(p.Yras[u])));
}

double PlanWorkshopForm::pointValue(bool outside) {
    PlanBlock& p = lab.plan;
    p.Nexp = 1;
    EvalRegression(p);
    // the evaluation has just set Yopt to the number of terms: that is the reference here
    return p.Yu[1] = pointCriterion(p, p.Z[1], criterionForm(), Check4.on(), outside);
}

void PlanWorkshopForm::OptimizePlan18() {
    PlanBlock& p = lab.plan;
    const double top = page.rows - p.Nplan / 2.0 - 8;
    Picture1.lookAt(top, top - (p.Nf + 3) * 2 * planLine);
    printOptimum(Picture1, p, 0.3, top);
    for (int i = 1; i <= p.Nf; ++i) {
        const int factor = p.Nfact[i];
        Text3(factor).show(p.Xopt[i]);
        Text4(factor).show(cut6(p.Xopt[i] * p.dXvar[factor] + p.Xnul[factor]));
    }
    Label2.setCaption(stationaryText(p));
    for (int i = 1; i <= p.Nf; ++i) p.X[i] = Text3(p.Nfact[i]).number();
    const double y = pointValue(false);
    Picture1.text(
        0, -1.1,
        "       X0        X1        X2        X3        X4        X5        X6                   Yopt= " +
            toText(cut6(y)));
}

void PlanWorkshopForm::PlotPlan18() {
    PlanBlock& p = lab.plan;
    p.Mcrit = Text20.number();
    p.Ymin = Text7.number();
    const Color color{lab.s.ColorR[1], lab.s.ColorG[1], lab.s.ColorB[1]};
    page.showPlots(Picture1);
    plotAlongFactors(
        Picture1, p, [&](int i) { return Text3(p.Nfact[i]).number(); }, color);
}

void PlanWorkshopForm::EvalPoint18() {
    PlanBlock& p = lab.plan;
    for (int i = 1; i <= p.Nf; ++i) p.X[i] = Text1(p.Nfact[i]).number();  // taken as coded here
    Text9.show(pointValue(true));
}

}  // namespace tarvex
