#pragma once
// Controls of Form22, the periodic terms of the planets.  Their order is the tab order.

#include "runtime/form.h"

namespace tarvex {

class PlanetPerturbationsControls : public Form {
public:
    TextFields amplitude;  ///< body*10+term for its first perturbing body, 40 more for its second
    TextField mercuryPerturber1{this,
                                {.name = "Text4",
                                 .text = "2",
                                 .hint = "Номер первого тела, возмущающего Меркурий; идет в Ipert1(1)",
                                 .width = 3}};
    TextField mercuryPerturber2{this,
                                {.name = "Text5",
                                 .text = "5",
                                 .hint = "Номер второго тела, возмущающего Меркурий; идет в Ipert2(1)",
                                 .width = 3}};
    TextField venusPerturber1{this,
                              {.name = "Text2",
                               .text = "3",
                               .hint = "Номер первого тела, возмущающего Венеру; идет в Ipert1(2)",
                               .width = 3}};
    TextField venusPerturber2{this,
                              {.name = "Text3",
                               .text = "5",
                               .hint = "Номер второго тела, возмущающего Венеру; идет в Ipert2(2)",
                               .width = 3}};
    TextField earthPerturber1{this,
                              {.name = "Text6",
                               .text = "2",
                               .hint = "Номер первого тела, возмущающего Землю; идет в Ipert1(3)",
                               .width = 3}};
    TextField earthPerturber2{this,
                              {.name = "Text7",
                               .text = "5",
                               .hint = "Номер второго тела, возмущающего Землю; идет в Ipert2(3)",
                               .width = 3}};
    TextField marsPerturber1{this,
                             {.name = "Text8",
                              .text = "3",
                              .hint = "Номер первого тела, возмущающего Марс; идет в Ipert1(4)",
                              .width = 3}};
    TextField marsPerturber2{this,
                             {.name = "Text9",
                              .text = "5",
                              .hint = "Номер второго тела, возмущающего Марс; идет в Ipert2(4)",
                              .width = 3}};
    TextField fileNumber{this,
                         {.name = "Text10",
                          .label = "файл №",
                          .text = "1",
                          .hint = "Номер N файла \\Dat\\dL<N>.dat",
                          .width = 6}};
    CommandButton setCoefficients{
        this,
        {.name = "Command1",
         .caption = "Задать значения коэффициентов (возмущений)",
         .hint = "Перенести амплитуды в kLp и номера возмущающих тел в Ipert1, Ipert2",
         .isDefault = true}};
    CommandButton loadAmplitudes{
        this,
        {.name = "Command3",
         .caption = "Загрузить из файла №",
         .hint = "Прочитать амплитуды из файла в kLp и показать; номера тел остаются"}};
    CommandButton saveAmplitudes{
        this,
        {.name = "Command4",
         .caption = "Записать в файл №",
         .hint = "Записать амплитуды в файл с точностью до миллионной доли градуса; номера тел не пишутся"}};
    CommandButton closeForm{this,
                            {.name = "Command2",
                             .caption = "Закрыть форму",
                             .hint = "Закрыть эту форму; заданные коэффициенты остаются"}};

    /// Index of the amplitude of term k of a body, perturbed by its first (r = 1) or second (r = 2)
    /// perturber.
    static int cell(int body, int r, int k) { return body * 10 + k + (r == 2 ? 40 : 0); }

protected:
    explicit PlanetPerturbationsControls(Desk& desk);

private:
    void layOut();
};

}  // namespace tarvex
