#include "forms/statistics_form.h"

#include <algorithm>

#include "core/arithmetic.h"

namespace tarvex {

OptionButton::Spec StatisticsForm::planetSpec(int i) {
    constexpr const char* captions[] = {"",       "Меркурий", "Венера", "Земля",  "Марс",  "Юпитер",
                                        "Сатурн", "Уран",     "Нептун", "Плутон", "Ксена", "Луна"};
    return {.name = "Option3",
            .caption = captions[i],
            .group = "планета",
            .on = i == 1,
            .hint = "Планета, записи которой обрабатываются"};
}

OptionButton::Spec StatisticsForm::paramSpec(int i) {
    constexpr const char* captions[] = {"", "AlfaP", "AlfaU", "Betta", "Eks", "Rsr", "W*", "AlfaL0", "Ves"};
    constexpr const char* hints[] = {"",
                                     "Долгота перигелия, град",
                                     "Долгота восходящего узла, град",
                                     "Наклон орбиты, град",
                                     "Эксцентриситет",
                                     "Большая полуось, млн. км",
                                     "Угловая скорость, рад/век",
                                     "Средняя долгота, град",
                                     "Вес записи"};
    return {.name = "Option4", .caption = captions[i], .group = "параметр", .on = i == 1, .hint = hints[i]};
}

StatisticsForm::StatisticsForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "Статистическая обработка параметров орбит             Tarvex7m  - форма 6"),
      lab(lab_) {
    const Shown badData = orShow("Задайте правильно данные", "Tarvex7");
    Command6.onPress([this] { LoadSeries(); }, badData);
    Command9.onPress([this] { FitSample(); },
                     orShow("Ошибка при обработке данных или маленькие масштабы", "Tarvex7mm"));
    Command1.onPress([this] { DeleteRecord(); }, orShow("Ошибка вычислений", "Tarvex7"));
    Command2.onPress([this] { AddRecord(); }, orShow("Ошибка вычислений", "Tarvex7"));
    Command4.onPress([this] { LoadShifts(); }, badData);
    Command5.onPress([this] { SaveShifts(); }, badData);
    Command7.onPress(
        [this] {
            const std::string name = Text26.text();
            Picture1.save(lab.tree.at("\\Risunki\\" + name + (name.ends_with(".png") ? "" : ".bmp")));
        },
        orShow("Ошибка записи файла", "Tarvex7"));
    Command3.onPress([this] { close(); });
    opens(Command16, "Form15");
    opens(Command15, "Form9");
    Picture1.onRelease([this](double x, double, Picture::Button button) { pick(x, button); },
                       orShow("Не могу найти эту точку", "Tarvex7"));
    layOut();
}

void StatisticsForm::layOut() {
    std::vector<Layout> planets, params;
    for (int i = 1; i <= 11; ++i) planets.push_back(Option3(i));
    for (int i = 1; i <= 8; ++i) params.push_back(Option4(i));
    const Layout source = frame("на", row({Option7, Option8}));
    const Layout imitators = frame("имитаторы", row({Option13, Option14, Option17}));
    const Layout what = row({frame("Планета", table(2, planets)), frame("Параметр", table(2, params)),
                             column({source, imitators, fields(1, {Text28, Text10})})});
    const Layout loading =
        column({row({Command6, Check1, Check2}), row({Check3, Text31, Check10, Check11}),
                fields(2, {Text1, Text2}), row({Command7, Text26}),
                frame("Смещения", column({row({Command4, Text25}), row({Command5, Check12})}))});
    const Layout fitting = column({
        row({frame("ур-е аппроксимации", row({Option9, Option10, Option11})),
             frame("в группе", fields(1, {Text4}))}),
        Check6,
        row({frame("критерий при переборе", row({Option12, Option15, Option16})),
             fields(1, {Text29, Text7})}),
        fields(1, {Text23, Text19}),
        row({Check4, Check7, Check9}),
        Command9,
        row({fields(2, {Text24, Text27}), Label20}),
        fields(2, {Text39, Text11, Text12, Text13}),
    });
    const Layout testing = column({Check8, fields(2, {Text37, Text36, Text35, Text14})});
    const Layout editing =
        column({row({Command1, Text5}), Command2, fields(2, {Text34, Text33, Text32, Text38, Text30})});
    const Layout sample = frame("Выборка", column({fields(3, {Text3, Text15, Text16}),
                                                   table(5, {"первая", Text9, Text8, Text6, Text17,
                                                             "последняя", Text22, Text21, Text20, Text18})}));
    layout_ = row({column({what, sample,
                           pages({frame("Загрузка и смещения", loading), frame("Аппроксимация", fitting),
                                  frame("Тест", testing), frame("Правка записей", editing)}),
                           row({Command16, Command15, Command3}), stretch()}),
                   scrolled(Picture1)});
}

void StatisticsForm::load() {
    lab.series.kodData = dataNone;
    drawEmpty(13, 29.5, true);
}

void StatisticsForm::activate() {
    lab.s.kodKalend = 0;
    lab.s.TimeZone = 0;
}

double StatisticsForm::placeY(double value) const { return ratio(value - Ymin, Mpar) + 1; }

Color StatisticsForm::chosenColor() const {
    const int n = Text31.int16();
    if (n < 0 || n >= static_cast<int>(lab.s.ColorR.size())) throw SubscriptFailure("colour number");
    return {lab.s.ColorR[n], lab.s.ColorG[n], lab.s.ColorB[n]};
}

void StatisticsForm::drawEmpty(double rows, double columns, bool grid) {
    constexpr double unit = 24.9;
    constexpr Color line{200, 200, 200}, middle{150, 150, 150};
    Picture1.resize(toInt32(columns * unit), toInt32(rows * unit));
    Picture1.setScale(0, rows, columns, 0);
    Picture1.clear();
    lineY = rows - 0.3;
    if (!grid) return;
    // a picture can have many thousand columns: lines closer than a pixel show nothing
    const int stepX = 1 + static_cast<int>(columns / 2000), stepY = 1 + static_cast<int>(rows / 2000);
    // numbers at the edges stand inside the picture; in its lower corners those of the sides
    constexpr double lineHeight = 0.6;
    for (int x = 0; x <= columns; x += stepX) {
        Picture1.line(x, 0, x, rows, line);
        if (x >= 1 && x <= columns - 2) Picture1.text(x, lineHeight, std::to_string(x), middle);
    }
    for (int j = 0; j <= rows; j += stepY) {
        const double y = std::clamp(j + lineHeight / 2, lineHeight, rows);
        Picture1.line(0, j, columns, j, line);
        Picture1.text(0, y, std::to_string(j - 1), middle);
        Picture1.text(columns - 1, y, std::to_string(j - 5), middle);
    }
    Picture1.line(0, 5, columns, 5, middle);
    Picture1.text(0.65, rows - 0.1, "Alfa");
    Picture1.text(std::max(columns - 3, 3.6), rows - 0.1, "dAlfa");
}

}  // namespace tarvex
