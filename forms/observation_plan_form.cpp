#include "forms/observation_plan_form.h"

#include <array>

#include "core/arithmetic.h"
#include "core/clock.h"
#include "core/numbers.h"
#include "forms/observations_form.h"
#include "forms/planet_perturbations_form.h"
#include "forms/statistics_form.h"
#include "numeric/records.h"
#include "reduction/observation_plan.h"
#include "stats/series.h"
#include "stats/stat.h"

namespace tarvex {

namespace {

constexpr const char* box = "Tarvex7";
constexpr int factors = 9, terms = 8;
constexpr std::array factorNames = {"",
                                    "Rsr, тыс.км.",
                                    "Eks",
                                    "Betta, град ",
                                    "AlfaP, град",
                                    "AlfaU, град",
                                    "Wsr, рад/век",
                                    "AlfaL0, град",
                                    "dP11,рад/век",
                                    "dU11,рад/век"};

std::string cutText(double value, double scale) { return toText(Fix(value * scale) / scale); }

bool usualFactor(int i) { return i == 2 || i == 4 || i == 7; }

TextField::Spec cell(const char* name, int i, const std::string& hint) {
    return {.name = name,
            .text = "0",
            .hint = hint + " X" + std::to_string(i) + " (" + factorNames[i] + ")",
            .width = 14};
}

}  // namespace

ObservationPlanForm::ObservationPlanForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "План эксперименов (наблюдения) Tarvex7m  ф. 13"),
      Check1(this, 1, factors,
             [](int i) {
                 return CheckBox::Spec{
                     .name = "Check1",
                     .caption = "X" + std::to_string(i) + "= " + factorNames[i],
                     .on = usualFactor(i),
                     .hint = "Этот параметр - фактор плана: эксперименты меняют его на интервал"};
             }),
      Text1(this, 1, factors, [](int i) { return cell("Text1", i, "Нулевой уровень"); }),
      Text2(this, 1, factors, [](int i) { return cell("Text2", i, "Интервал варьирования"); }),
      Text3(this, 1, factors, [](int i) { return cell("Text3", i, "Оптимум закодированный,"); }),
      Text4(this, 1, factors, [](int i) { return cell("Text4", i, "Оптимум в единицах уровня,"); }),
      lab(lab_) {
    const Shown badPlan = orShow("Задайте правильно данные для плана", box);
    Command4.onPress([this] { CreatePlan13(); }, badPlan);
    Command1.onPress([this] { LoadPlan13(); }, orShow("Введите правильно номер плана и опыта", box));
    Command2.onPress([this] { SavePlan13(); }, orShow("Задайте правильно номер плана и опыта", box));
    Command3.onPress([this] { OptimizePlan13(); },
                     orShow("Ошибка при решение системы линейных уравнений", box));
    Command5.onPress(
        [this] {
            for (int f = 1; f <= lab.plan.Nf; ++f)
                Text1(lab.plan.Nfact[f]).setText(Text4(lab.plan.Nfact[f]).text());
        },
        badPlan);
    Command6.onPress([this] {
        for (int i = 1; i <= factors; ++i) Text3(i).setText("0");
    });
    Command7.onPress([this] { AddOptimumRecord(); }, orShow("Введите правильно данные", box));
    Command8.onPress([this] { SendToForm22(); }, badPlan);
    Text16.onChange([this] { ReadPlanFields(); }, badPlan);
    opens(Command9, "Form6");
    Command10.onPress([this] { close(); });

    std::vector<Layout> rows = {"", "нулевой уровень", "", "интервал", "", "закодир.", "XoptR"};
    for (int i = 1; i <= factors; ++i)
        rows.insert(rows.end(), {Check1(i), Text1(i), "+/-", Text2(i),
                                 "X" + std::to_string(i) + "opt=", Text3(i), Text4(i)});
    layout_ = column({
        Label20,
        frame("Факторы", column({table(7, rows), "X2...X9 = dL3,dL4,dL7,dL5,dL8,dL9,dL10,dL21 "})),
        row({frame("План", column({row({Option5, Option4}), fields(1, {Text26, Text27}), Command4})),
             frame("Загрузить из", column({row({Option2, Option1}), Command1, Command2})),
             frame("от планеты", column({Check2, row({Option3, Option6}), Command8}))}),
        row({frame("Скорость системы", fields(1, {Text5, Text6, Text7})),
             frame("Оптимум", column({Command3, Command5, Command6, Command7}))}),
        row({stretch(), Command9, Command10}),
    });
}

void ObservationPlanForm::load() {
    Check2.setEnabled(!lab.desk.get<ObservationsForm>().Option10.on());
    Text26.setText("1");
    Text27.setText("1");
    Command4.press();
    Command1.press();
}

void ObservationPlanForm::activate() {
    Command7.setCaption("Добавить параметры в файл Tarvex" +
                        std::to_string(planetOfPlan(lab.desk.get<ObservationsForm>().Text1.int32())) +
                        "Nab.txt");
}

void ObservationPlanForm::CreatePlan13() {
    PlanBlock& plan = lab.plan;
    plan.kodPlan = Option4.on() ? planRoto : planOrtho;
    std::int16_t count = 0;
    plan.Nfact.fill(0);
    for (int i = 1; i <= factors; ++i)
        if (Check1(i).on()) plan.Nfact[++count] = static_cast<std::int16_t>(i);
    plan.Nf = count;
    if (count < 2 || count > maxFactors) throw Refusal("К-во факторов должно быть от 2 до 6", box);
    PlanCenterCount(plan);
    BuildPlan(plan);
    PlanCoefficients(plan);
    lab.desk.get<ObservationsForm>().Text27.show(plan.Nplan);
}

bool ObservationPlanForm::sourceChosen(const ObservationsForm& data) const {
    return data.Option1.on() ? !data.Option4(0).on() : !data.Option9(0).on();
}

std::string ObservationPlanForm::testFile(const ObservationsForm& data) const {
    return planTestFileName(lab.s, lab.s.IplSel, data.Option2.on() ? data.Text56.text() : "", NOpyt_);
}

/// Numbers of plan and test, and the body.
void ObservationPlanForm::readNumbers() {
    lab.s.NPlan = Text26.int16();
    NOpyt_ = Text27.int32();
    const std::int32_t body = lab.desk.get<ObservationsForm>().Text1.int32();
    if (body < 0 || body > rowMoon) throw SubscriptFailure("no such body");
    lab.s.IplSel = body;
}

void ObservationPlanForm::LoadPlan13() {
    readNumbers();
    if (Option1.on())
        fromFile();
    else
        stage("Ошибка при расчете параметров для шаблона", box, [this] { fromTemplate(); });
    showSource();
    ShowPlanFields();
    lab.desk.get<ObservationsForm>().Text52.setText(timeOfDay());
}

void ObservationPlanForm::fromTemplate() {
    ObservationsForm& data = lab.desk.get<ObservationsForm>();
    ModelState& s = lab.s;
    s.God0 = data.Text4.int32();
    lab.reduction.GodK = toInt32(s.God0 + 20.0);
    data.Text65.show(lab.reduction.GodK);
    data.Text51.setText(timeOfDay());  // the date into JD
    s.JDepoha = s.JD;
    s.JDut = 1000;
    planTemplate(s, lab.reduction, lab.plan, data.Option13.on());
}

void ObservationPlanForm::fromFile() {
    ObservationsForm& data = lab.desk.get<ObservationsForm>();
    ModelState& s = lab.s;
    if (!sourceChosen(data)) throw Refusal("Выберете источник данных", box);
    const std::string name = testFile(data);
    try {
        loadPlanTest(s, lab.reduction, lab.plan, lab.tree, name);
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл\r\n" + name, box);
    } catch (const std::exception&) {
        throw Refusal("Ошибка чтения данных из файла\r\n" + name, box);
    }
    data.Text4.show(s.God0);
    data.Text3.show(s.Mes0);
    data.Text2.show(s.Den0);
    data.Text65.show(lab.reduction.GodK);
    data.Text51.setText(timeOfDay());
    s.JDepoha = s.JD;
}

void ObservationPlanForm::showSource() {
    const ModelState& s = lab.s;
    Label20.setCaption(s.NameData + std::to_string(s.IplSel) + "  (с " + toText(s.Den0) + "." +
                       std::to_string(s.Mes0) + "." + std::to_string(s.God0) + " по " +
                       std::to_string(lab.reduction.GodK) + ")");
}

void ObservationPlanForm::ShowPlanFields() {
    const PlanBlock& plan = lab.plan;
    for (int i = factors; i >= 2; --i) {
        Text1(i).setText(cutText(plan.Xnul[i], 1e9));
        Text2(i).show(plan.dXvar[i]);
        Text3(i).show(cut6(plan.Xopt[i]));
        Text4(i).show(cut6(plan.XoptR[i]));
    }
    Text1(1).show(cut6(plan.Xnul[1] / MK));
    Text2(1).show(plan.dXvar[1] / MK);
    Text3(1).show(cut6(plan.Xopt[1]));
    Text4(1).show(cut6(plan.XoptR[1] / MK));
    Text5.show(lab.s.VXsys);
    Text6.show(lab.s.VYsys);
    Text7.show(lab.s.VZsys);
    lab.desk.get<ObservationsForm>().Text47.show(lab.reduction.PrecSek);
}

void ObservationPlanForm::ReadPlanFields() {
    PlanBlock& plan = lab.plan;
    for (int i = factors; i >= 1; --i) {
        const double unit = i == 1 ? MK : 1;
        plan.Xnul[i] = finite(Text1(i).number() * unit);
        plan.dXvar[i] = finite(Text2(i).number() * unit);
        plan.Xopt[i] = Text3(i).number();
        plan.XoptR[i] = finite(Text4(i).number() * unit);
    }
    lab.s.VXsys = Text5.number();
    lab.s.VYsys = Text6.number();
    lab.s.VZsys = Text7.number();
    lab.reduction.PrecSek = lab.desk.get<ObservationsForm>().Text47.number();
    lab.reduction.kodDLplan = Check2.on() ? 1 : 0;
    lab.reduction.NplDL = Option6.on() ? 2 : 1;
}

void ObservationPlanForm::SavePlan13() {
    ObservationsForm& data = lab.desk.get<ObservationsForm>();
    readNumbers();
    if (!sourceChosen(data)) throw Refusal("Выберете источник данных наблюдений", box);
    stage("Задайте правильно данные для плана", box, [this] { ReadPlanFields(); });
    if (data.Text13.text() != "Text13")
        criterion_ = (data.Option18.on() ? data.Text11 : data.Text13).number();
    const std::string name = testFile(data);
    stage("Ошибка при записи данных в файл " + name, box, [&] {
        savePlanTest(lab.s, lab.reduction, lab.plan, lab.tree, name, NOpyt_,
                     {data.Option13.on(), data.Option17.on(), data.Check7.on(), criterion_, todayText()});
    });
}

void ObservationPlanForm::OptimizePlan13() {
    PlanBlock& plan = lab.plan;
    Picture& picture = lab.desk.get<ObservationsForm>().Picture4;
    constexpr double belowPlan = 24, afterSystem = 12;
    const double top = lab.desk.get<ObservationsForm>().graphTop() - belowPlan;
    picture.lookAt(top, top - (plan.Nf + 3) * 2 * planLine);
    printOptimum(picture, plan, planLeft, top);
    for (int f = 1; f <= plan.Nf; ++f) {
        const int i = plan.Nfact.at(f);
        const double natural = plan.Xopt[f] * plan.dXvar[i] + plan.Xnul[i];
        picture.text(afterSystem, top - (f + 1) * planLine, toText(plan.Xopt[f]));
        Text3(i).show(cut6(plan.Xopt[f]));
        if (i == 1 && f == 1)
            Text4(1).show(Fix(natural) / MK);
        else
            Text4(i).setText(cutText(natural, 1e9));
    }
}

void ObservationPlanForm::SendToForm22() {
    const int planet = planetOfPlan(lab.desk.get<ObservationsForm>().Text1.int32());
    lab.reduction.NplDL = Option6.on() ? 2 : 1;
    if (planet < 1 || planet > 4) throw SubscriptFailure("no perturbations of this body");
    auto& amplitudes = lab.s.kLp;
    for (int c = 1; c <= terms; ++c) amplitudes[lab.reduction.NplDL][planet * 10 + c] = Text1(c + 1).number();
    if (!lab.desk.isLoaded("Form22")) throw Refusal("Загрузите форму 22 (dLp)", box);
    auto& form = lab.desk.get<PlanetPerturbationsForm>();
    for (int c = 1; c <= terms; ++c) {
        form.Text1(planet * 10 + c).show(amplitudes[1][planet * 10 + c]);
        form.Text1(planet * 10 + 40 + c).show(amplitudes[2][planet * 10 + c]);
    }
}

void ObservationPlanForm::AddOptimumRecord() {
    ObservationsForm& data = lab.desk.get<ObservationsForm>();
    ModelState& s = lab.s;
    const PlanBlock& plan = lab.plan;
    const int planet = planetOfPlan(data.Text1.int32());
    s.NPlan = Text26.int16();
    Record record;
    record.Par[parAlfaP] = Text1(4).number();
    record.Par[parAlfaU] = Text1(5).number();
    record.Par[parBetta] = Text1(3).number();
    record.Par[parEks] = Text1(2).number();
    record.Par[parW] = Text1(6).number();
    record.Par[parAlfaL0] = Text1(7).number();
    record.Par[parDP11] = Text1(8).number();
    record.Par[parDU11] = Text1(9).number();
    record.Par[parVes] = plan.Xnul[10];
    record.Par[parRsr] = Text1(1).number() / 1000;
    const double date = s.JDepoha;
    record.ddTd = 2 * (s.JDut - date);

    lab.desk.show("Form6");
    auto& form = lab.desk.get<StatisticsForm>();
    form.Option7.choose();
    form.Option17.choose();
    form.Text28.show(s.NPlan);
    form.Option3(planet).choose();

    SeriesData changed = lab.series;
    changed.Npl = planet;
    changed.DirImit = "\\Ser";
    changed.FileData = files::series("\\Ser\\Plan" + std::to_string(s.NPlan), planet);
    const std::string& name = changed.FileData;
    try {
        readSeries(lab.tree, name, dataLong, changed);
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл\r\n" + name, box);
    } catch (const Refusal&) {
        throw;
    } catch (const std::exception&) {
        lab.desk.message("Ошибка чтения данных из файла\r\n" + name, box);
        throw Refusal("Ошибка записи данных в файл\r\n" + name, box);
    }
    changed.kodData = dataLong;
    const std::string asRead =
        "NP1max=  " + std::to_string(changed.NP1max()) + "   JD0 =  " + toText(changed.JD0);
    changed.header[2] = "по плану №  " + std::to_string(s.NPlan) + "   от " + todayText();
    int at = recordAt(changed, date);
    if (at == 0) {
        at = placeFor(changed, date);
        insertRecord(changed, at, date, record);
    } else if (desk().screen().ask("Точка №  " + std::to_string(at) + "  с такой датой уже есть\r\n" +
                                       "Заменить параметры этой точки?",
                                   box)) {
        record.dTd = changed.at(at).dTd;
        changed.records[at - 1] = record;
    } else {
        insertRecord(changed, at, date, record);
    }
    stage("Ошибка записи данных в файл\r\n" + name, box, [&] { writeSeries(lab.tree, changed); });
    lab.series = std::move(changed);
    printSeries(asRead, at);
}

/// The series on the picture of Form6: the heads, the line of what was read, the records, the new one between
/// lines.
void ObservationPlanForm::printSeries(const std::string& asRead, int marked) {
    struct Item {
        const char* label;
        int p;
        const char* pattern;
        double factor;
    };
    constexpr Item items[] = {{"    Ves= ", parVes, "00.000", 1},
                              {"    AlfaP  = ", parAlfaP, "000000.0000", 1},
                              {"    AlfaU  = ", parAlfaU, "000000.0000", 1},
                              {"    Betta  = ", parBetta, "000.00000", 1},
                              {"    Eks  = ", parEks, "0.0000000", 1},
                              {"    Rsr  = ", parRsr, "0000000.000", 1000},
                              {"    W0  = ", parW, "0000.0000", 1},
                              {"    AlfaL0  = ", parAlfaL0, "0000000.000", 1},
                              {"    dP11  = ", parDP11, "00.000000", 1},
                              {"    dU11  = ", parDU11, "00.000000", 1}};
    const SeriesData& d = lab.series;
    auto& form = lab.desk.get<StatisticsForm>();
    const double rows = d.NP1max() / 2.0 + 10;
    form.drawEmpty(rows, 52, false);
    double y = rows - 0.3;
    const auto print = [&](const std::string& text) {
        form.Picture1.text(0.3, y, text);
        y -= 0.5;
    };
    for (const std::string& line : d.header) print(line);
    print(asRead);
    for (int i = 1; i <= d.NP1max(); ++i) {
        const Record& r = d.at(i);
        std::string text = Format(i, "0000") + "    dT= " + Format(r.dTd, "0000000.00") +
                           "    ddT= " + Format(r.ddTd, "000000.00");
        for (const Item& item : items) text += item.label + Format(r.Par[item.p] * item.factor, item.pattern);
        if (i == marked) print("---------------------");
        print(text);
        if (i == marked) print("---------------------");
    }
}

}  // namespace tarvex
