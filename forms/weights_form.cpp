#include "forms/weights_form.h"

namespace tarvex {

namespace {
constexpr const char* box = "Tarvex7m";
}

OptionButton::Spec WeightsForm::planetSpec(int i) {
    constexpr const char* captions[] = {"",       "Меркурий", "Венера", "Земля",  "Марс", "Юпитер",
                                        "Сатурн", "Уран",     "Нептун", "Плутон", "Ксена"};
    return {.name = "Option9",
            .caption = captions[i],
            .group = "планета",
            .on = i == 1,
            .hint = "Планета, данные моделирования которой просматриваются"};
}

TextField::Spec WeightsForm::shiftSpec(int c) {
    constexpr const char* units[] = {"",
                                     "перигелия, угл.сек.",
                                     "восхождения, угл.сек.",
                                     "наклона, угл.сек.",
                                     "эксцентриситета, *10^6",
                                     "полуоси, км",
                                     "угловой скорости, рад/век"};
    return {.name = "Text" + std::to_string(c),
            .text = "1",
            .hint = std::string("Расчетное смещение за век ") + units[c],
            .width = 11};
}

TextField::Spec WeightsForm::weightSpec(int c) {
    constexpr const char* shifts[] = {"",        "перигелия",       "узла", "наклона", "эксцентриситета",
                                      "полуоси", "угловой скорости"};
    return {.name = "Text" + std::to_string(10 + c),
            .text = "1",
            .hint = std::string("Вес смещения ") + shifts[c] + " в критерии плана, без размерности",
            .width = 5};
}

TextField& WeightsForm::shiftField(int planet, int c) const {
    const TextFields* const columns[] = {&Text1, &Text2, &Text3, &Text4, &Text5, &Text6};
    return (*columns[c - 1])(planet);
}

TextField& WeightsForm::weightField(int planet, int c) const {
    const TextFields* const columns[] = {&Text11, &Text12, &Text13, &Text14, &Text15, &Text16};
    return (*columns[c - 1])(planet);
}

WeightsForm::WeightsForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "Весовые коэффициенты      Tarvex7m - форма 19"), lab(lab_) {
    const Shown badData = orShow("Задайте правильно данные", box);
    Command4.onPress([this] { LoadWeights(); }, badData);
    Command5.onPress([this] { SaveWeights(); }, badData);
    Command1.onPress([this] { LoadModelData(); }, badData);
    Command2.onPress([this] { SaveModelData(); }, badData);
    Command3.onPress([this] { close(); });

    std::vector<Layout> cells = {"",      "перигелий, вес",    blank(), "угол восхождения, вес",
                                 blank(), "угол наклона, вес", blank(), "эксцентриситет, вес",
                                 blank(), "полуось, вес",      blank(), "угловая скорость, вес",
                                 blank()};
    for (int i = 1; i <= weightPlanets; ++i) {
        cells.push_back(Option9(i));
        for (int c = 1; c <= shiftParams; ++c)
            cells.insert(cells.end(), {shiftField(i, c), weightField(i, c)});
    }
    layout_ =
        column({row({frame("План", fields(1, {Text7})), frame("Веса", row({Command4, Command5})),
                     frame("Данные моделирования", row({fields(2, {Text8, Text10}), Command1, Command2}))}),
                table(13, cells), scrolled(Picture1), row({stretch(), Command3})});
}

void WeightsForm::load() {
    if (lab.s.NPlan == 0) lab.s.NPlan = 1;
    Text7.show(lab.s.NPlan);
    drawEmpty(10, 30);
}

void WeightsForm::drawEmpty(double rows, double columns) {
    constexpr double unit = 24.9;
    Picture1.resize(static_cast<int>(columns * unit), static_cast<int>(rows * unit));
    Picture1.setScale(0, rows, columns, 0);
    Picture1.clear();
}

void WeightsForm::LoadWeights() {
    const int N = Text7.int16();
    const std::string name = files::plan(N);
    try {
        planHead = readPlanFile(lab.tree, N, lab.plan, lab.shifts);
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл " + name, box);
    } catch (const FileFailure&) {
        throw Refusal("Ошибка при чтении данных из файла " + name, box);
    }
    drawEmpty(10, 30);
    double y = 9.7;
    Picture1.text(0.3, y, planHead.weights);
    for (int i = 1; i <= weightPlanets; ++i) {
        std::string text = "планета  " + std::to_string(i) + "           ";
        for (int c = 1; c <= shiftParams; ++c) {
            text += (c > 1 ? "    " : "") + toText(lab.shifts.Ves[i][c]);
            weightField(i, c).show(cut6(lab.shifts.Ves[i][c]));
        }
        Picture1.text(0.3, y -= 0.8, text);
    }
}

void WeightsForm::SaveWeights() {
    const int N = Text7.int16();
    for (int i = 1; i <= weightPlanets; ++i)
        for (int c = 1; c <= shiftParams; ++c) lab.shifts.Ves[i][c] = weightField(i, c).number();
    stage("Ошибка при записи данных в файл " + files::plan(N), box,
          [&] { writePlanFile(lab.tree, N, planHead, lab.plan, lab.shifts); });
}

void WeightsForm::LoadModelData() {
    SeriesData& d = lab.series;
    lab.s.NPlan = Text7.int16();
    for (int i = 1; i <= weightPlanets; ++i)
        if (Option9(i).on()) d.Npl = i;
    const std::int16_t shown = Text8.int16();
    const std::string name = files::planShifts(lab.s.NPlan, d.Npl);
    std::int16_t reached = 0;
    try {
        shiftHead = readPlanShifts(lab.tree, lab.s.NPlan, d.Npl, lab.shifts, lab.plan.NexpKon, &reached);
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл " + name, box);
    } catch (const FileFailure&) {
        Text10.show(reached);
        throw Refusal("Ошибка при чтении данных из файла " + name, box);
    }
    Text10.show(lab.plan.NexpKon);
    const double rows = lab.plan.NexpKon / 2.0 + 5;
    drawEmpty(rows, 36);
    Picture1.text(0.3, rows - 0.3, shiftHead.title);
    Picture1.text(0.3, rows - 1, shiftHead.columns);
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
        Picture1.text(0.3, rows - 1.5 - u / 2.0, text);
    }
    for (int c = 1; c <= shiftParams; ++c) shiftField(d.Npl, c).show(lab.shifts.calculated(d.Npl, c, shown));
}

void WeightsForm::SaveModelData() {
    const int planet = lab.series.Npl, experiment = Text8.int16();
    if (planet > weightPlanets) throw SubscriptFailure("no such planet on the form");
    for (int c = 1; c <= shiftParams; ++c)
        lab.shifts.calculated(planet, c, experiment) = shiftField(planet, c).number();
    std::int16_t reached = 0;
    try {
        writePlanShiftsUnscaled(lab.tree, lab.s.NPlan, planet, shiftHead, lab.shifts, lab.plan.NexpKon,
                                reached);
    } catch (const std::exception&) {
        Text10.show(reached);
        throw Refusal("Ошибка при записи данных в файл " + files::planShifts(lab.s.NPlan, planet), box);
    }
    Text10.show(reached);
}

}  // namespace tarvex
