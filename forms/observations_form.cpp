#include "forms/observations_form.h"

#include <array>

#include "core/numbers.h"
#include "forms/plot_grid.h"
#include "forms/table_captions.h"

namespace tarvex {

namespace {

constexpr std::array observatoryCaptions = {"", "GREN", "PARI", "USNO", "NIKO", "CAPE", "SUMM", "иное"};

/// Fields of a stage and its caption; the precession to the date has none.
struct StageFields {
    const char *L, *B, *caption;
};
constexpr std::array<StageFields, chainStages> stageFields = {{{"Text21", "Text22", "ГЕО ЭКЛ J2000"},
                                                               {"Text31", "Text41", "+Аберр. ис."},
                                                               {"Text32", "Text42", "+Аберр. пр."},
                                                               {nullptr, nullptr, ""},
                                                               {"Text33", "Text43", "ГЕО ЭКВ JD"},
                                                               {"Text34", "Text44", "+Параллакс"},
                                                               {"Text35", "Text45", "+Рефракция"},
                                                               {"Text36", "Text38", "+Нутация"},
                                                               {"Text37", "Text39", "ГЕО ЭКЛ JD"}}};

}  // namespace

ObservationsForm::ObservationsForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "Обработка первичных данных наблюдений"),
      Option4(this, 0, 10, tableOption),
      Option9(this, 0, 7,
              [](int i) {
                  return OptionButton::Spec{
                      .name = "Option9",
                      .caption = observatoryCaptions[i],
                      .group = "observatory",
                      .on = i == 0,
                      .hint = i == 0 ? "Обсерватория не выбрана: с этой отметкой расчет не начнется"
                                     : "Открыть файл наблюдений этой обсерватории и взять ее место"};
              }),
      lab(lab_) {
    for (int i = 0; i < chainStages; ++i) {
        if (stageFields[i].L == nullptr) continue;
        const std::string at = std::string(", градусы: ") + stageFields[i].caption;
        stageL[i] = std::make_unique<TextField>(
            this, TextField::Spec{.name = stageFields[i].L,
                                  .hint = "Долгота или прямое восхождение по теории" + at,
                                  .readOnly = true});
        stageB[i] =
            std::make_unique<TextField>(this, TextField::Spec{.name = stageFields[i].B,
                                                              .hint = "Широта или склонение по теории" + at,
                                                              .readOnly = true});
    }

    const Shown bad = orShow("Введите правильно данные", "Tarvex7.0");
    const Shown badRun = orShow("Ошибка решения уравнений", "Tarvex7.0");
    const Shown badFile = orShow("Введите правильно данные", "Tarvex7");
    Option1.onChoose([this] { chooseKind(true); }, bad);
    Option2.onChoose([this] { chooseKind(false); }, bad);
    for (int i = 0; i <= 10; ++i) Option4(i).onChoose([this, i] { chooseTable(i); }, bad);
    for (int i = 0; i <= 7; ++i) Option9(i).onChoose([this, i] { chooseObservatory(i); }, badFile);

    Command1.onPress([this] { start(); }, bad);
    Command4.onPress([this] { lab.s.kodStop = 1; });
    Command5.onPress(
        [this] {
            lab.s.kodStop = 0;
            pass();
        },
        badRun);
    Command6.onPress(
        [this] {
            lab.s.kodStop = 1;
            pass();
        },
        badRun);
    Command7.onPress([this] { runExperiments(); }, bad);
    Command15.onPress([this] { showStatistics(); }, orShow("Введите правильно масштаб", "Tarvex7.0"));
    Command2.onPress([this] { convertDate(); }, bad);
    Command3.onPress([this] { convertJulian(); }, bad);
    Text51.onChange([this] { convertDate(); }, bad);
    Command18.onPress([this] { restoreStart(); });
    Command10.onPress([this] { findRegression(); }, orShow("Ошибка при обработке данных", "Tarvex7.0"));
    Command12.onPress([this] { plotFactors(); }, orShow("Ошибка при построение графиков", "Tarvex7.0"));
    Text52.onChange([this] { ShowPlanSummary(); }, bad);
    opens(Command9, "Form13");
    opens(Command16, "Form21");
    opens(Command17, "Form22");
    opens(Command11, "Form6");
    Command14.onPress([this] { close(); });
    Command13.onPress([this] { desk().unloadAll(name()); });

    const auto epochs = [this](bool plan) {
        if (!plan) Option13.choose();
        Option14.setEnabled(plan);
        Option13.setEnabled(true);
        auto* varyTerms = desk().isLoaded("Form13")
                              ? dynamic_cast<CheckBox*>(desk().form("Form13").find("Check2"))
                              : nullptr;
        if (varyTerms == nullptr) return;
        if (plan) varyTerms->set(false);
        varyTerms->setEnabled(!plan);
    };
    Option10.onChoose([epochs] { epochs(true); }, bad);
    for (OptionButton* theory : {&Option11, &Option12}) theory->onChoose([epochs] { epochs(false); }, bad);
    HScroll2.onChange([this] { clearSystem(); });

    layOut();
}

void ObservationsForm::layOut() {
    std::vector<Layout> stages = {"", "L (RA), град", "B (Dec), град"};
    for (int i = 0; i < chainStages; ++i)
        if (stageL[i]) stages.insert(stages.end(), {stageFields[i].caption, *stageL[i], *stageB[i]});
    std::vector<Layout> observatories;
    for (int i = 0; i <= 7; ++i)
        observatories.push_back(i == 0 ? row({Option9(0), "(нет)"}) : Layout(Option9(i)));

    const Layout data = column({
        row({Option1, Option2, Label58}),
        frame("Tab", column({table(3, tableCells(Option4)), Check19})),
        frame("Obs", column({table(4, observatories), fields(2, {Text59, Text56}), Check3})),
        frame("Начало, место и объект", column({fields(2, {row({Text2, Text3, Text4}), Text1, Text5, Text18,
                                                           Text24, Text25, Text16, Text14, Text65}),
                                                row({Command2, Command3, Command18})})),
        frame("Календарь", column({row({Option5, Option6, Option7}), row({Option15, Option16})})),
    });
    const Layout theory = column({
        frame("когда Земля (z) и Луна (l) по", row({Option19, Option20, Option21})),
        frame("параметры орбит планет (p)", row({Option10, Option11, Option12})),
        frame("параметры в эпохе", row({Option13, Option14, Text47})),
        frame("Поправки", table(4, {Check15, Check16, Check17, Check24, Check23, Check27, Check31})),
        frame("Видимость", column({row({Check29, Text46}), row({Check25, Text48})})),
        frame("критерий", column({row({Option17, Option18, Check7}), row({Check20, Text50})})),
        frame("Отчеты", column({row({Check21, Check13}), row({Check22, Text57}), row({Check26, Text29})})),
    });
    const Layout results = column({
        frame("Дата шага", fields(1, {Text58, Text40})),
        frame("Теория по ступеням", table(3, stages)),
        frame("Данные и отклонения теории от них",
              fields(2, {Text63, Text64, Text7, Text8, Text9, Text10, Text11, Text12, Text15, Text13, Text54,
                         Text55})),
        frame("Принято наблюдений", fields(3, {Text23, Text60, Text78})),
    });
    const Layout drawing = column({
        frame("наблюденя", row({Option8, Option3})),
        frame("Рисунки тел", row({Label2, HScroll2})),
        frame("Нижний график", table(3, {Check1, Check9, Check18, Check11, Check12, blank(), Check10, Check34,
                                         Check35, Check14, Check6})),
        frame("Масштабы нижнего графика", fields(2, {Text6, Text19, Text20, Text49, Text53, Text28})),
        frame("Ход расчета", row({Check28, Text17, Check4, Check30})),
    });
    const Layout plan = column({
        frame("Эксперименты", column({row({Command7, Text26, Text27}), Check8})),
        frame("Регрессия", column({Command10, Command12})),
        row({Command9, Command11}),
    });
    layout_ = column({
        row({pages({frame("Данные", data), frame("Теория и отбор", theory), frame("Результаты", results),
                    frame("Рисунки", drawing), frame("План", plan)}),
             pages({frame("Отклонения", scrolled(Picture4)), frame("Тела", row({Picture1, Picture3}))})}),
        row({Command1, Command4, Command5, Command6, Command15, Command16, Command17, stretch(), Command14,
             Command13}),
    });
}

void ObservationsForm::load() {
    lab.s.TipData = "Tab";
    lab.plan.Nf = 3;
    for (int i = 0; i <= 7; ++i) Option9(i).setEnabled(false);
    Check26.setEnabled(false);
    Option14.setEnabled(false);
    clearGraph();
    clearSystem();
    lab.office.onBusy([this](bool busy) {
        Label58.setCaption(busy ? "Открывается таблица ..." : "");
        if (busy) desk().yield();
    });
    for (const char* form : {"Form13", "Form21", "Form22"})
        if (desk().knows(form) && !desk().isLoaded(form)) desk().loadAndUnload(form);
}

void ObservationsForm::unload() {
    if (running_) lab.s.kodStop = 1;
    lab.office.onBusy([](bool) {});
    gone_ = true;
    if (!running_) closeSources();  // otherwise when the pass that still runs has ended
}

void ObservationsForm::clearGraph() {
    const double wider = std::max(1.0, Text28.number());
    page_ = PlanPage::of(lab.plan.Nf, 46);
    page_.columns = static_cast<int>(page_.columns * std::min(wider, 10.0));
    page_.drawEmpty(Picture4, true);
    Picture4.line(0, 4, page_.columns, 4, {100, 100, 100});
}

void ObservationsForm::clearSystem() {
    lab.s.Mx = HScroll2.value() * 100000.0 * 1000;
    Label2.setCaption("Масштаб = " + toText(HScroll2.value() * 2 / 10.0) + " млн.км/см");
    drawGrid(Picture1, {});
    drawGrid(Picture3, {});
}

}  // namespace tarvex
