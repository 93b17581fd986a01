#include "forms/weights_form.h"

namespace tarvex {

namespace {
constexpr const char* box = "Tarvex7m";
}

WeightsForm::WeightsForm(Laboratory& lab_)
    : WeightsControls(lab_.desk, formName, "Весовые коэффициенты      Tarvex7m - форма 19"), lab(lab_) {
    const Shown badData = orShow("Задайте правильно данные", box);
    loadWeightFile.onPress([this] { LoadWeights(); }, badData);
    saveWeightFile.onPress([this] { SaveWeights(); }, badData);
    loadShiftFile.onPress([this] { LoadModelData(); }, badData);
    saveShiftFile.onPress([this] { SaveModelData(); }, badData);
    closeForm.onPress([this] { close(); });
    layOut();
}

void WeightsForm::load() {
    if (lab.s.NPlan == 0) lab.s.NPlan = 1;
    planNumber.show(lab.s.NPlan);
    drawEmpty(10, 30);
}

void WeightsForm::drawEmpty(double rows, double columns) {
    constexpr double unit = 24.9;
    fileContents.resize(static_cast<int>(columns * unit), static_cast<int>(rows * unit));
    fileContents.setScale(0, rows, columns, 0);
    fileContents.clear();
}

void WeightsForm::LoadWeights() {
    const int N = planNumber.int16();
    const std::string name = files::plan(N);
    try {
        const PlanFileHead head = readPlanFile(lab.tree, N, lab.plan, lab.shifts);
        plan_ = {N, head, lab.plan};
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл " + name, box);
    } catch (const FileFailure&) {
        throw Refusal("Ошибка при чтении данных из файла " + name, box);
    }
    drawEmpty(10, 30);
    double y = 9.7;
    fileContents.text(0.3, y, plan_->head.weights);
    for (int i = 1; i <= weightPlanets; ++i) {
        std::string text = "планета  " + std::to_string(i) + "           ";
        for (int c = 1; c <= shiftParams; ++c) {
            text += (c > 1 ? "    " : "") + toText(lab.shifts.Ves[i][c]);
            weightField(i, c).show(cut6(lab.shifts.Ves[i][c]));
        }
        fileContents.text(0.3, y -= 0.8, text);
    }
}

void WeightsForm::SaveWeights() {
    const int typed = planNumber.int16();
    const LoadedPlan loaded = plan_ ? *plan_ : LoadedPlan{typed, {}, lab.plan};
    const int N = loaded.number;
    for (int i = 1; i <= weightPlanets; ++i)
        for (int c = 1; c <= shiftParams; ++c) lab.shifts.Ves[i][c] = weightField(i, c).number();
    stage("Ошибка при записи данных в файл " + files::plan(N), box,
          [&] { writePlanFile(lab.tree, N, loaded.head, loaded.plan, lab.shifts); });
    if (N == typed) return;
    planNumber.show(N);
    setStatus("Записан план № " + std::to_string(N) + ", который был загружен");
}

void WeightsForm::LoadModelData() {
    SeriesData& d = lab.series;
    lab.s.NPlan = planNumber.int16();
    for (int i = 1; i <= weightPlanets; ++i)
        if (viewedPlanet(i).on()) d.Npl = i;
    const std::int16_t shown = experimentNumber.int16();
    const std::string name = files::planShifts(lab.s.NPlan, d.Npl);
    std::int16_t reached = 0;
    try {
        const ShiftFileHead head =
            readPlanShifts(lab.tree, lab.s.NPlan, d.Npl, lab.shifts, lab.plan.NexpKon, &reached);
        shifts_ = {lab.s.NPlan, d.Npl, head, lab.shifts, lab.plan.NexpKon};
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл " + name, box);
    } catch (const FileFailure&) {
        recordsRead.show(reached);
        throw Refusal("Ошибка при чтении данных из файла " + name, box);
    }
    recordsRead.show(lab.plan.NexpKon);
    const double rows = lab.plan.NexpKon / 2.0 + 5;
    drawEmpty(rows, 36);
    fileContents.text(0.3, rows - 0.3, shifts_->head.title);
    fileContents.text(0.3, rows - 1, shifts_->head.columns);
    constexpr const char* labels[] = {"",
                                      "    dAlfaP100= ",
                                      "    dAlfaU100= ",
                                      "    dBetta100= ",
                                      "    dEks100= ",
                                      "    dRsr100= ",
                                      "    dW100= "};
    constexpr const char* patterns[] = {"",          "0000.0000", "0000.0000", "000.00000",
                                        "000.00000", "0000.0000", "0000.0000"};
    for (int u = 1; u <= lab.plan.NexpKon; ++u) {
        std::string text = " " + std::to_string(u);
        for (int c = 1; c <= shiftParams; ++c)
            text += labels[c] + Format(lab.shifts.dRas[d.Npl][c][u], patterns[c]);
        fileContents.text(0.3, rows - 1.5 - u / 2.0, text);
    }
    for (int c = 1; c <= shiftParams; ++c) shiftField(d.Npl, c).show(lab.shifts.calculated(d.Npl, c, shown));
}

void WeightsForm::SaveModelData() {
    LoadedShifts saved =
        shifts_ ? *shifts_ : LoadedShifts{lab.s.NPlan, lab.series.Npl, {}, lab.shifts, lab.plan.NexpKon};
    const int planet = saved.planet, experiment = experimentNumber.int16();
    if (planet > weightPlanets) throw SubscriptFailure("нет на форме планеты № " + std::to_string(planet));
    for (int c = 1; c <= shiftParams; ++c)
        lab.shifts.calculated(planet, c, experiment) = saved.shifts.calculated(planet, c, experiment) =
            shiftField(planet, c).number();
    if (shifts_) shifts_ = saved;
    std::int16_t reached = 0;
    try {
        writePlanShiftsUnscaled(lab.tree, saved.plan, planet, saved.head, saved.shifts, saved.experiments,
                                reached);
    } catch (const std::exception&) {
        recordsRead.show(reached);
        throw Refusal("Ошибка при записи данных в файл " + files::planShifts(saved.plan, planet), box);
    }
    recordsRead.show(reached);
}

}  // namespace tarvex
