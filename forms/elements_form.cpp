#include "forms/elements_form.h"

#include "core/arithmetic.h"
#include "forms/date_fields.h"
#include "forms/plot_grid.h"
#include "initial/initial_data.h"
#include "initial/parameter_file.h"
#include "initial/start_up.h"
#include "theories/ephemeris.h"

namespace tarvex {

namespace {

constexpr const char* boxTitle = "Tarvex7m";
constexpr double bodyRadius = 0.06, loadedRadius = 0.04;
constexpr Color centreColor{0, 0, 250};
constexpr std::array bodyNames = {"Солнце", "Меркурий", "Венера", "Земля",  "Марс", "Юпитер",
                                  "Сатурн", "Уран",     "Нептун", "Плутон", "Ксена"};

/// Headings of the table in the two views.
constexpr std::array elementHeadings = {"AlfaL, град", "R0sr, тыс.км", "W0sr, рад/год", "Eks",
                                        "Betta, град", "AlfaP, град",  "AlfaU, град"};
constexpr std::array stateHeadings = {"X, тыс.км", "Y, тыс.км ", "Z, тыс.км", "VX, м/с",
                                      "VY, м/с",   "VZ, м/с",    "mSol/mPl"};

}  // namespace

TextField::Spec ElementsForm::result(const char* name, const char* label, const char* hint) {
    return {.name = name, .label = label, .hint = hint, .readOnly = true, .width = 11};
}

CheckBox::Spec ElementsForm::bodyTick(int i) {
    return {.name = "Check2",
            .caption = bodyNames[i],
            .on = i < rowXena,
            .hint = "Объект участвует в модели и в сумме центра масс"};
}

OptionButton::Spec ElementsForm::bodyChoice(int i) {
    return {.name = "Option1",
            .caption = bodyNames[i],
            .group = "body",
            .on = i == 1,
            .hint = "Объект, орбиту которого проверяют"};
}

template <int column>
TextField::Spec ElementsForm::cell(int) {
    static constexpr std::array hints = {"Средняя долгота, градусы, или X, тыс. км",
                                         "Большая полуось или Y, тыс. км",
                                         "Среднее движение, рад/год, или Z, тыс. км",
                                         "Эксцентриситет или VX, м/с",
                                         "Наклон орбиты, градусы, или VY, м/с",
                                         "Долгота перигелия, градусы, или VZ, м/с",
                                         "Долгота узла, градусы, или масса Солнца / масса объекта"};
    return {.name = "Text" + std::to_string(column),
            .hint = std::string(hints[column - 1]) + "; с экрана берется командой загрузки",
            .width = column == 2 ? 13 : 12};  // semi-axes of the outer planets are the longest numbers
}

ElementsForm::ElementsForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "Параметры объектов и начальные данные  Tarvex7m4 - форма 1"),
      lab(lab_),
      check_(*this, lab_) {
    bindCommands();
    bindForms();
    arrange();
}

void ElementsForm::bindCommands() {
    const DateFields date{Text34, Text33, Text32, Text24};
    Command17.onPress([this, date] { gregorianToJulian(lab, date); });
    Command18.onPress([this, date] { julianToGregorian(lab, date); });
    Command3.onPress([this] { loadParameters(); });
    Command4.onPress([this] { saveParameters(); }, orShow("Задайте номер файла", boxTitle));
    Command12.onPress([this] { formInitialData(); });
    Command15.onPress(
        [this] {
            centreOfMass(lab.s);
            showCentre();
        },
        orShow("Ошибка", boxTitle));
    Command2.onPress(
        [this] {
            centreToOrigin(lab.s);
            Option3.choose();
            showCentre();
        },
        orShow("Ошибка", boxTitle));
    Command16.onPress(
        [this] {
            sunFromMomentum(lab.s);
            Option3.choose();
        },
        orShow("Ошибка", boxTitle));
    Command9.onPress([this] {
        if (lab.ephemeris.kodJPLopen == 10) DEClose(lab.ephemeris);
        desk().unloadAll(formName);
    });

    Option2.onChoose([this] { showTable(); });
    Option3.onChoose([this] { showTable(); });
    Text28.onChange([this] { showState(); });
    for (int i = 0; i <= NPlanetMax; ++i) Check2(i).onChange([this] { tick(); });
    Check3.onChange([this] { moonMode(); });
    HScroll1.onChange([this] {
        setScale(" ");
        drawGrid(Picture1, {});
    });

    const Shown badRun = orShow("Ошибка решения уравнений", boxTitle);
    Command13.onPress([this] { check_.start(); });
    Command5.onPress([this] { lab.s.kodStop = 1; });
    Command6.onPress([this] { check_.goOn(); }, badRun);
    Command7.onPress([this] { check_.batch(); }, badRun);
}

void ElementsForm::bindForms() {
    opens(Command1, "Form2");
    if (Command1.enabled())
        Command1.onPress([this] {
            handOverElements(lab.s);
            desk().show("Form2");
        });
    opens(Command20, "Form10");
    opens(Command10, "Form4");
    opens(Command11, "Form5");
    opens(Command8, "Form3");
    opens(Command19, "Form16");
    opens(Command21, "Form18");
    opens(Command22, "Form12");
    opens(Command23, "Form14");
    opens(Command24, "Form11");
    opens(Command25, "Form20");
    opens(Command26, "Form24");
    opens(Command27, "Form25");
}

void ElementsForm::arrange() {
    std::vector<Layout> cells = {"в модели", "проверять", Label1, Label2, Label3,
                                 Label4,     Label5,      Label6, Label7};
    for (int i = 0; i <= NPlanetMax; ++i) {
        cells.push_back(Check2(i));
        cells.push_back(Option1(i));
        for (int column = 1; column <= 7; ++column) cells.push_back(cellAt(column, i));
    }
    const Layout loading =
        frame("Источник и дата",
              column({fields(3, {Text34, Text33, Text32}), row({Command17, Command18, fields(1, {Text24})}),
                      row({Option4, Option5, Option8}), Option9, Option6, Option7,
                      table(2, {Command3, fields(1, {Text23}), Command4, blank()})}));
    const Layout initial =
        frame("Начальные данные",
              column({row({Check3, Check4, Check6}), Command12, Command15, Command2, Command16, Check7}));
    const Layout check =
        frame("Проверка орбиты",
              column({fields(2, {Text29, Text30, Text10, Text31}), row({Check1, Check5, Label13}), Command13,
                      row({Command5, Command6, Command7}),
                      fields(2, {Text13, Text40, Text15, Text16, Text21, Text8, Text35, Text12, Text27,
                                 Text22, Text14, Text9, Text37, Text36, Text17, Text18, Text19, Text20})}));
    const Layout forms = frame(
        "Формы", table(3, {Command1, Command20, Command10, Command11, Command8, Command19, Command21,
                           Command22, Command23, Command24, Command25, Command26, Command27, Command9}));
    layout_ = row({column({row({Option2, Option3, stretch(), fields(3, {Text25, Text26, Text11})}),
                           table(9, std::move(cells)), row({column({loading, initial}), check})}),
                   column({Picture1, row({Label10, HScroll1}), forms})});
}

void ElementsForm::load() {
    startUp(lab.s);
    tick();
    Command3.press();
    Command12.press();
}

void ElementsForm::unload() { check_.leave(); }

void ElementsForm::activate() {
    lab.s.kodKalend = 0;
    lab.s.TimeZone = 0;
    setScale("");
    lab.s.NEqMax = (NPlanetMax + 1) * 6 - 1;
}

void ElementsForm::setScale(const char* blankBeforeUnit) {
    lab.s.Mx = HScroll1.value() * 100000. * 1000;
    Label10.setCaption("Масштаб изображения=" + toText(HScroll1.value() / 10.) + blankBeforeUnit +
                       "млн.км/см");
}

TextField& ElementsForm::cellAt(int column, int body) {
    const std::array<TextFields*, 7> columns = {&Text1, &Text2, &Text3, &Text4, &Text5, &Text6, &Text7};
    return (*columns.at(column - 1))(body);
}

// ---------------------------------------------------------------- loading and saving

Source ElementsForm::source() const {
    if (Option5.on()) return Source::JPL0;
    if (Option8.on()) return Source::Ser0;
    if (Option9.on()) return Source::JPL2;
    if (Option6.on()) return Source::File;
    if (Option7.on()) return Source::Screen;
    return Source::New0;
}

void ElementsForm::loadParameters() {
    ModelState& s = lab.s;
    clearSunElements(s);
    s.God0 = Text34.int32();
    s.Mes0 = Text33.int32();
    s.Den0 = Text32.number();
    enterDate(s);
    Text24.show(s.JD0);
    const Source from = source();
    enterTime(s, from);
    s.kodMoon = Check3.on() ? 1 : 0;
    switch (from) {
        case Source::File:
            loadFile();
            break;
        case Source::Screen:
            loadScreen();
            break;
        case Source::JPL2:
            loadEphemeris(s, lab.ephemeris);
            break;
        default:
            loadTheory(s, from);
    }
    meanSpeeds(s);
    Text25.show(s.mSol);
    Text26.show(s.gamma);
    Text11.show(s.Lae / 1000);
    showTable();
    redrawPicture();
}

void ElementsForm::loadFile() {
    ModelState& s = lab.s;
    s.NFile = Text23.int16();
    const std::string name = files::parameters(s.NFile);
    const auto open = [&] {
        try {
            return ParameterReader(lab.tree, s.NFile);
        } catch (const OpenFailure&) {
            throw Refusal("Не могу найти файл " + name, boxTitle);
        }
    };
    ParameterReader file = open();
    stage("Ошибка чтения данных из файла " + name, boxTitle, [&] {
        file.date(s);
        Text34.show(s.God0);
        Text33.show(s.Mes0);
        Text32.show(s.Den0);
        enterDate(s);
        Text24.show(s.JD0);
        file.bodies(s, [this](int body) { plotRow(body); });
    });
}

void ElementsForm::loadScreen() {
    ModelState& s = lab.s;
    s.mSol = Text25.number();
    s.gamma = Text26.number();
    s.Lae = finite(Text11.number() * 1000);
    for (int i = 0; i <= NPlanetMax; ++i) {
        const auto typed = [&](int column) { return cellAt(column, i).number(); };
        if (Option2.on()) {
            enterElements(s, i, typed);
        } else {
            enterState(s, i, typed);
            plotRow(i);
        }
    }
}

void ElementsForm::plotRow(int body) {
    const ModelState& s = lab.s;
    Picture1.disc(s.X[body] / s.Mx, s.Y[body] / s.Mx, loadedRadius, bodyColor(s, body));
}

void ElementsForm::saveParameters() {
    ModelState& s = lab.s;
    s.NFile = Text23.int16();
    s.God0 = Text34.int32();
    s.Mes0 = Text33.int32();
    s.Den0 = Text32.number();
    const std::string name = files::parameters(s.NFile);
    try {
        writeParameters(s, lab.tree, s.NFile);
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл " + name, boxTitle);
    } catch (const Failure&) {
        throw Refusal("Ошибка записи в файл " + name, boxTitle);
    }
}

// ---------------------------------------------------------------- initial data

void ElementsForm::formInitialData() {
    initialDataFromElements(lab.s, {.moon = Check3.on(), .bary3 = Check4.on(), .bary = Check6.on()});
    showTable();
    redrawPicture();
}

void ElementsForm::showCentre() {
    const ModelState& s = lab.s;
    const double x = s.X[rowCentre], y = s.Y[rowCentre], z = s.Z[rowCentre];
    if (Check7.on()) Picture1.cross(x / s.Mx, y / s.Mx, 1, centreColor);
    Text17.show(Fix(x) / MK);
    Text18.show(Fix(y) / MK);
    Text19.show(Fix(z) / MK);
}

// ---------------------------------------------------------------- table and picture

void ElementsForm::showTable() {
    if (!Option2.on()) return showState();
    const std::array<Label*, 7> headings = {&Label1, &Label2, &Label3, &Label4, &Label5, &Label6, &Label7};
    for (int k = 0; k < 7; ++k) headings[k]->setCaption(elementHeadings[k]);
    for (int i = 0; i <= NPlanetMax; ++i) {
        const auto shown = shownElements(lab.s, i);
        for (int k = 0; k < 7; ++k) cellAt(k + 1, i).show(shown[k]);
    }
}

void ElementsForm::showState() {
    const std::array<Label*, 7> headings = {&Label1, &Label2, &Label3, &Label4, &Label5, &Label6, &Label7};
    for (int k = 0; k < 7; ++k) headings[k]->setCaption(stateHeadings[k]);
    for (int i = 0; i <= NPlanetMax; ++i) showStateRow(i, 7);
}

void ElementsForm::showStateRow(int body, int columns) {
    const auto shown = shownState(lab.s, body);
    for (int k = 0; k < columns; ++k) cellAt(k + 1, body).show(shown[k]);
}

void ElementsForm::redrawPicture() {
    const ModelState& s = lab.s;
    drawGrid(Picture1, {});
    for (int i = 0; i <= NPlanetMax; ++i)
        drawBothViews(Picture1, s.X[i] / s.Mx, s.Y[i] / s.Mx, s.Z[i] / s.Mx, bodyRadius, bodyColor(s, i));
}

void ElementsForm::tick() {
    std::array<bool, bodies> ticked{};
    for (int i = 0; i <= NPlanetMax; ++i) {
        ticked[i] = Check2(i).on();
        Option1(i).setEnabled(ticked[i]);
    }
    tickBodies(lab.s, ticked);
    Option1(rowSun).setEnabled(false);  // the Sun has no orbit to check
}

void ElementsForm::moonMode() {
    const bool moon = Check3.on();
    for (Control* control :
         {static_cast<Control*>(&Check2(rowXena)), static_cast<Control*>(&Option1(rowXena))})
        control->setCaption(moon ? "Луна" : "Ксена");
    Check2(rowXena).set(moon);
    Option1(rowEarthMoon).setEnabled(!moon);
    Option1(rowXena).setEnabled(Check2(rowXena).on());
}

}  // namespace tarvex
