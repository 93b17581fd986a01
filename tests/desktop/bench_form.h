#pragma once
// A form with every kind of control, and its desk on real windows.

#include <QTimer>
#include <QtTest/QTest>
#include <QtWidgets>
#include <memory>
#include <string>
#include <vector>

#include "desktop/desktop_screen.h"
#include "desktop/form_window.h"
#include "runtime/desk.h"
#include "runtime/form.h"

namespace tarvex::test {

class BenchForm final : public Form {
public:
    static constexpr const char* formName = "Bench";
    explicit BenchForm(Desk& desk) : Form(desk, formName, "Стенд & окно") {
        Command1.onPress([this] {
            seen = Text1.text() + "|" + Text3.text();
            Text2.setText("=" + Text1.text());
        });
        Command2.onPress([this] { run(); });
        Command3.onPress([this] { stop = true; });
        Command4.onPress([this] { close(); });
        Text1.onChange([this] { ++typed; });
        Check1.onChange([this] { Label1.setCaption(Check1.on() ? "да" : "нет"); });
        Option2.onChoose([this] { ++chosen; });
        HScroll1.onChange([this] { scrolled = HScroll1.value(); });
        Picture1.setScale(-10, 12, 10, -10);
        Picture1.onRelease([this](double x, double y, Picture::Button button) {
            mouse = {x, y};
            rightButton = button == Picture::Button::Right;
        });
        layout_ = row({column({frame("Поля", fields(2, {Text1, Text2, Check1, Label1})),
                               frame("Таблица", table(2, {"i", "V, км/с", Text4, Text5})),
                               frame("Выбор", column({Option1, Option2, Option3})), HScroll1, Text3,
                               row({Command1, Command2, Command3, Command4})}),
                       column({Picture1, Picture2})});
    }
    void activate() override { ++activated; }

    /// Gives way until it is stopped.
    void run() {
        stop = false;
        for (passes = 0; passes < 100'000'000 && !stop; ++passes) {
            Text2.show(passes);
            Picture1.line(-10, 0, 10, 0, {255, 0, 0});
            if (passes % 1000 == 0) progress(passes / 1e8);
            desk().yield();
        }
        progress(-1);
        ended = true;
    }

    TextField Text1{this,
                    {.name = "Text1", .label = "V & W, км/с", .text = "19,4", .hint = "Скорость, км/с"}};
    TextField Text2{this, {.name = "Text2", .label = "Итог", .readOnly = true}};
    TextField Text4{this, {.name = "Text4", .text = "1"}};
    TextField Text5{this, {.name = "Text5", .text = "29,8"}};
    CheckBox Check1{this, {.name = "Check1", .caption = "A & B"}};
    Label Label1{this, {.name = "Label1", .caption = "нет"}};
    OptionButton Option1{this, {.name = "Option1", .caption = "первый", .group = "g"}};
    OptionButton Option2{this, {.name = "Option2", .caption = "второй", .group = "g"}};
    OptionButton Option3{this, {.name = "Option3", .caption = "третий", .group = "g"}};
    ScrollBar HScroll1{this, {.name = "HScroll1", .min = 1, .max = 1000, .value = 30}};
    TextField Text3{this, {.name = "Text3", .label = "Заметки", .lines = 3}};
    CommandButton Command1{this, {.name = "Command1", .caption = "Q & A", .isDefault = true}};
    CommandButton Command2{this, {.name = "Command2", .caption = "Старт"}};
    CommandButton Command3{this, {.name = "Command3", .caption = "Остановить"}};
    CommandButton Command4{this, {.name = "Command4", .caption = "Закрыть"}};
    Picture Picture1{this, {.name = "Picture1", .width = 400, .height = 440}};
    Picture Picture2{this, {.name = "Picture2", .width = 200, .height = 200}};
    TextField Text9{this, {.name = "Text9", .hidden = true}};

    std::string seen;
    int typed = 0, chosen = 0, activated = 0, scrolled = 0;
    long passes = 0;
    bool stop = false, ended = false, rightButton = false;
    QPointF mouse;
};

/// Presses a button of the message box that will be open in a moment; tells what the box said.
struct BoxAnswer {
    explicit BoxAnswer(QString button) {
        QTimer::singleShot(20, [this, button = std::move(button)] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr) return;
            text = box->text();
            title = box->windowTitle();
            for (QAbstractButton* one : box->buttons())
                if (one->text() == button) return one->click();
            box->reject();
        });
    }
    QString text, title;
};

}  // namespace tarvex::test
