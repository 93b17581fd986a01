#include "forms/plan_workshop_form.h"

#include "core/arithmetic.h"
#include "forms/screens.h"
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
    : PlanWorkshopControls(lab_.desk, formName,
                           "Планы многофакторного планирования      Tarvex7m - форма 18"),
      lab(lab_) {
    createPlan.onPress([this] { CreatePlan18(); }, orShow("Ошибка при составление плана", box));
    runExperiments.onPress([this] { RunPlan18(); }, orShow("Ошибка при расчетах", box));
    fitCoefficients.onPress([this] { FitPlan18(); }, orShow("Ошибка при обработке данных", box));
    optimizeFactors.onPress([this] { OptimizePlan18(); },
                            orShow("Ошибка при решение системы линейных уравнений", box));
    drawPlots.onPress([this] { PlotPlan18(); }, orShow("Ошибка при построение графиков", box));
    evaluatePoint.onPress([this] { EvalPoint18(); },
                          orShow("Введите правильно нулевые уровни и интервалы", box));
    zeroOptimum.onPress(
        [this] {
            for (int i = 1; i <= lab.plan.Nf; ++i) {
                codedOptimum(lab.plan.Nfact[i]).setText("0");
                optimum(lab.plan.Nfact[i]).setText("0");
            }
        },
        orShow("Введите правильно нулевые уровни и интервалы", box));
    quality.report.onPress([this] { qualityReport(); }, orShow("Ошибка при обработке данных", box));
    quality.onGrowth(
        lab.plan, [this](int i) { return codedOptimum(lab.plan.Nfact[i]).number(); },
        [this](const auto& centre, double half) { growPlanAround(centre, half); },
        orShow("Ошибка при составление плана", box));
    clearDrawing.onPress([this] { page.drawEmpty(picture, false); });
    closeForm.onPress([this] {
        close();
        desk().unload(PlanTestsScreen::formName);
    });
    additionalTests.setLeadsTo(PlanTestsScreen::formName);
    additionalTests.onChoose([this] { desk().show(PlanTestsScreen::formName); });
    layOut();
}

void PlanWorkshopForm::load() { page.drawEmpty(picture, false); }

CriterionForm PlanWorkshopForm::criterionForm() const {
    if (criterionIsDifference.on()) return CriterionForm::dY;
    if (criterionIsSquare.on()) return CriterionForm::dY2;
    return criterionIsModulus.on() ? CriterionForm::AbsDY : CriterionForm::Y;
}

void PlanWorkshopForm::CreatePlan18() {
    PlanBlock& p = lab.plan;
    fittedCriterion = {};
    p.kodPlan = rotatablePlan.on()          ? planRoto
                : uniformRotatablePlan.on() ? planUniform
                : dOptimalPlan.on()         ? planDBox
                : compositePlan.on()        ? planComposite
                                            : planOrtho;
    p.Nf = 0;
    bool gap = false, inOrder = true;
    for (int i = 1; i <= 6; ++i) {
        if (!useFactor(i).on()) {
            gap = true;
            continue;
        }
        p.Nfact[++p.Nf] = static_cast<std::int16_t>(i);
        inOrder = inOrder && !gap;
    }
    factorCount.show(p.Nf);
    if (p.Nf < 2 || p.Nf > maxFactors) throw Refusal("К-во факторов должно быть от 2 до 6", box);
    page = PlanPage::of(p.Nf, 38);
    page.drawEmpty(picture, false);
    if (!inOrder) throw Refusal("Факторы должны быть отмечены по порядку", box);

    p.k = {};
    p.N0 = centrePoints.int16();
    if (!givenCentrePoints.on()) PlanCenterCount(p);
    if (p.kodPlan == planDBox) p.N0 = 0;
    BuildPlan(p);
    centrePoints.show(p.N0);
    printPlan();
}

/// x at which the matrix of the plan ends: linear and square columns are wider than those of the pairs.
double PlanWorkshopForm::matrixEnd() const { return 0.3 + 2 * 1.2 * lab.plan.Nf + 0.5 * lab.plan.Npar; }

/// Brings the matrix of the plan and what stands beside it into sight.
void PlanWorkshopForm::showPlan() { picture.lookAt(page.rows, page.rows - lab.plan.Nplan / 2.0); }

void PlanWorkshopForm::printPlan() {
    PlanBlock& p = lab.plan;
    showPlan();
    const double sumsY = page.rows - p.Nplan / 2.0 - 0.5;
    double x = 0.3;
    for (int c = 1; c <= lastColumn(p.Nf); ++c) {
        for (int u = 1; u <= p.Nplan; ++u) picture.text(x, page.rows - (u - 1) / 2.0, cut2(p.PlanX[c][u]));
        picture.text(x, sumsY, cut2(p.EXi[c]));
        picture.text(x, sumsY - planLine, cut2(p.EXi2[c]));
        picture.text(x, sumsY - 2 * planLine, cut2(p.EXi4[c]));
        x += c <= p.Nf || c >= squareColumn(p.Nf, 1) ? 1.2 : 0.5;
    }
    picture.text(x, sumsY, "   EXi");
    picture.text(x, sumsY - planLine, "   EXi2");
    picture.text(x, sumsY - 2 * planLine, "   EXi4");
    const double y = sumsY - 3 * planLine - 0.2;
    picture.text(0.3, y, p.Stroka);
    PlanCoefficients(p);
    picture.text(0.3, y - planLine, coefficientText(p, "расчетные коэффициенты  ", [](double v) {
                     return Fix(10000 * v) / 10000;
                 }));
    printSizes(y - 2 * planLine);
}

void PlanWorkshopForm::printSizes(double y) {
    const PlanBlock& p = lab.plan;
    const auto print = [&](const char* label, double value) {
        picture.text(0.3, y, label + toText(value));
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
    fittedCriterion = {};
    if (criterionFromFile.on()) {
        readCriterionFile();
    } else {
        stage("Введите правильно нулевые уровни и интервалы", box, [&] {
            for (int i = 1; i <= 6; ++i) {
                p.Xnul[i] = zeroLevel(i).number();
                p.dXvar[i] = interval(i).number();
            }
            if (additionalTests.on())
                runAdditionalTest(p, screenOf<PlanTestsScreen>(desk()).test());
            else
                runStandardTest(p);
        });
    }
    referenceValue.show(p.Yopt);
    takeCriterion(p, criterionForm(), divideByReference.on());
    showPlan();
    const double x = matrixEnd();
    for (int u = 1; u <= p.Nplan; ++u) {
        picture.text(x, page.rows - (u - 1) / 2.0, std::to_string(u));
        picture.text(x + 0.9, page.rows - (u - 1) / 2.0, toText(cut6(p.Yu[u])));
    }
    criterionScale.show(cut6(p.Mcrit));
    criterionMinimum.show(cut6(p.Ymin));
    plotExperiments(picture, p, p.Yu, 0.1, experimentColor);
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
        useFactor(i).set(i <= p.Nf);
        if (i > p.Nf) continue;
        zeroLevel(i).show(p.Xnul[i]);
        interval(i).show(p.dXvar[i]);
    }
}

void PlanWorkshopForm::FitPlan18() {
    PlanBlock& p = lab.plan;
    if (dOptimalPlan.on() && p.Nf != 4 && p.Nf != 5)
        throw Refusal("D план только для 4-х или 5-и факторов", box);
    FitRegression(p);
    showPlan();
    printCoefficients(picture, p, coefficientsX, page.rows - 0.5);
    evaluatePlan(p);
    fittedCriterion = p.Yu;
    fitQuality.setCaption(fitQualityText(p));
    drawLegend(picture);
    plotExperiments(picture, p, p.Yras, 0.2, regressionColor);
    const double x = p.Nf > 5 ? coefficientsX + 5 : matrixEnd() + 4;  // right of the criterion
    for (int u = 1; u <= p.Nplan; ++u) picture.text(x, page.rows - (u - 1) / 2.0, toText(cut6(p.Yras[u])));
}

double PlanWorkshopForm::pointValue(bool outside) {
    PlanBlock& p = lab.plan;
    p.Nexp = 1;
    EvalRegression(p);
    setStatus(
        "Значение в этой точке записано вместо отклика опыта 1: перед уравнением проведите опыты снова");
    // the evaluation has just set Yopt to the number of terms: that is the reference here
    return p.Yu[1] = pointCriterion(p, p.Z[1], criterionForm(), divideByReference.on(), outside);
}

void PlanWorkshopForm::OptimizePlan18() {
    PlanBlock& p = lab.plan;
    const double top = page.rows - p.Nplan / 2.0 - 8;
    picture.lookAt(top, top - (p.Nf + 3) * 2 * planLine);
    printOptimum(picture, p, 0.3, top);
    for (int i = 1; i <= p.Nf; ++i) {
        const int factor = p.Nfact[i];
        codedOptimum(factor).show(p.Xopt[i]);
        optimum(factor).show(cut6(p.Xopt[i] * p.dXvar[factor] + p.Xnul[factor]));
    }
    stationaryPoint.setCaption(stationaryText(p));
    for (int i = 1; i <= p.Nf; ++i) p.X[i] = codedOptimum(p.Nfact[i]).number();
    const double y = pointValue(false);
    picture.text(
        0, -1.1,
        "       X0        X1        X2        X3        X4        X5        X6                   Yopt= " +
            toText(cut6(y)));
}

void PlanWorkshopForm::PlotPlan18() {
    PlanBlock& p = lab.plan;
    p.Mcrit = criterionScale.number();
    p.Ymin = criterionMinimum.number();
    const Color color{lab.s.ColorR[1], lab.s.ColorG[1], lab.s.ColorB[1]};
    page.showPlots(picture);
    plotAlongFactors(
        picture, p, [&](int i) { return codedOptimum(p.Nfact[i]).number(); }, color);
}

void PlanWorkshopForm::EvalPoint18() {
    PlanBlock& p = lab.plan;
    for (int i = 1; i <= p.Nf; ++i) p.X[i] = zeroLevel(p.Nfact[i]).number();  // taken as coded here
    pointResult.show(pointValue(true));
}

void PlanWorkshopForm::qualityReport() {
    PlanBlock p = lab.plan;
    if (fittedCriterion != std::array<double, 100>{})
        p.Yu = fittedCriterion;  // the optimum is put into row 1
    quality.show(p, criterionIsSquare.on() || criterionIsModulus.on(), picture, page);
}

void PlanWorkshopForm::growPlanAround(const std::vector<double>& centre, double half) {
    quality.add(lab.plan, centre, half);
    page.drawEmpty(picture, false);
    printPlan();
}

}  // namespace tarvex
