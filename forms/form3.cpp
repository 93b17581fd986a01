#include "forms/form3.h"

#include "forms/help_text.h"

namespace tarvex {

Form3::Form3(Laboratory& lab) : Form(lab.desk, formName, "Подсказка      Tarvex7m - форма 3") {
    Text1.setText(help::mainRoad);
    Text2.setText(help::forms);
    Text3.setText(help::form1);
    Text4.setText(help::rules);
    Command1.onPress([this] { close(); });
    layout_ = column({pages({frame("Главный путь", Text1), frame("Формы", Text2),
                             frame("Кнопки формы 1", Text3), frame("Числа и файлы", Text4)}),
                      row({stretch(), Command1})});
}

}  // namespace tarvex
