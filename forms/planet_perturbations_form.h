#pragma once
// Form22: amplitudes of the periodic terms of Mercury, Venus, the Earth and Mars, each perturbed by two
// bodies.

#include "forms/laboratory.h"

namespace tarvex {

class PlanetPerturbationsForm final : public Form {
public:
    static constexpr const char* formName = "Form22";
    explicit PlanetPerturbationsForm(Laboratory& lab);

    TextFields Text1;  ///< body*10+term for its first perturbing body, 40 more for its second
    TextField Text4{this,
                    {.name = "Text4",
                     .text = "2",
                     .hint = "Номер первого тела, возмущающего Меркурий; идет в Ipert1(1)",
                     .width = 3}};
    TextField Text5{this,
                    {.name = "Text5",
                     .text = "5",
                     .hint = "Номер второго тела, возмущающего Меркурий; идет в Ipert2(1)",
                     .width = 3}};
    TextField Text2{this,
                    {.name = "Text2",
                     .text = "3",
                     .hint = "Номер первого тела, возмущающего Венеру; идет в Ipert1(2)",
                     .width = 3}};
    TextField Text3{this,
                    {.name = "Text3",
                     .text = "5",
                     .hint = "Номер второго тела, возмущающего Венеру; идет в Ipert2(2)",
                     .width = 3}};
    TextField Text6{this,
                    {.name = "Text6",
                     .text = "2",
                     .hint = "Номер первого тела, возмущающего Землю; идет в Ipert1(3)",
                     .width = 3}};
    TextField Text7{this,
                    {.name = "Text7",
                     .text = "5",
                     .hint = "Номер второго тела, возмущающего Землю; идет в Ipert2(3)",
                     .width = 3}};
    TextField Text8{this,
                    {.name = "Text8",
                     .text = "3",
                     .hint = "Номер первого тела, возмущающего Марс; идет в Ipert1(4)",
                     .width = 3}};
    TextField Text9{this,
                    {.name = "Text9",
                     .text = "5",
                     .hint = "Номер второго тела, возмущающего Марс; идет в Ipert2(4)",
                     .width = 3}};
    TextField Text10{this,
                     {.name = "Text10",
                      .label = "файл №",
                      .text = "1",
                      .hint = "Номер N файла \\Dat\\dL<N>.dat",
                      .width = 6}};
    CommandButton Command1{this,
                           {.name = "Command1",
                            .caption = "Задать значения коэффициентов (возмущений)",
                            .hint = "Перенести амплитуды в kLp и номера возмущающих тел в Ipert1, Ipert2",
                            .isDefault = true}};
    CommandButton Command3{this,
                           {.name = "Command3",
                            .caption = "Загрузить из файла №",
                            .hint = "Прочитать амплитуды из файла в kLp и показать; номера тел остаются"}};
    CommandButton Command4{
        this,
        {.name = "Command4",
         .caption = "Записать в файл №",
         .hint = "Записать амплитуды в файл с точностью до миллионной доли градуса; номера тел не пишутся"}};
    CommandButton Command2{this,
                           {.name = "Command2",
                            .caption = "Закрыть форму",
                            .hint = "Закрыть эту форму; заданные коэффициенты остаются"}};

    void load() override;

private:
    void takeFields();
    void loadFile();
    void saveFile();

    Laboratory& lab;
};

}  // namespace tarvex
