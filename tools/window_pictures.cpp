// Pictures of the laboratory's windows for the guide: each form is brought to where a reader of the guide
// stands, with the same controls that he would use, and its window is saved.
// usage: window_pictures DATA FOLDER [every [dark] [SCRIPT]]
// DATA is written into: give a copy.  With "every" each form is saved, as it opens or after the lines of the
// script; "dark" takes the palette of a dark desktop.

#include <QApplication>
#include <QMessageBox>
#include <QPalette>
#include <QPixmap>
#include <QTabWidget>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "core/text_files.h"
#include "desktop/desktop_screen.h"
#include "desktop/form_window.h"
#include "desktop/look.h"
#include "desktop/toolkit.h"
#include "forms/laboratory.h"

namespace {

using namespace tarvex;

constexpr int settleMilliseconds = 300;
constexpr int lastForm = 26;
constexpr int widestWindow = 1366, highestWindow = 768;

/// Nobody is there to answer a message: it ends the program.
void endOnMessage() {
    const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    std::fprintf(stderr, "window_pictures: %s\n", qPrintable(box->text()));
    std::_Exit(1);
}

class Pictures {
public:
    Pictures(Laboratory& lab, DesktopScreen& screen, std::string folder)
        : lab_(lab), screen_(screen), folder_(std::move(folder)) {}

    /// "Form2.Text13" gets a text; an option or a tick is switched on; a command is pressed.
    void set(const std::string& reference, const std::string& text) {
        control<TextField>(reference).setText(text);
    }
    void choose(const std::string& reference) { control<OptionButton>(reference).choose(); }
    void tick(const std::string& reference, bool on = true) { control<CheckBox>(reference).set(on); }
    void press(const std::string& reference) { control<CommandButton>(reference).press(); }
    std::string text(const std::string& reference) { return control<TextField>(reference).text(); }

    void open(const std::string& form) {
        lab_.desk.show(form);
        settle();
    }
    /// Presses the command; as soon as `when` holds, the run is stopped by the other one.
    void pressUntil(const std::string& command, const std::string& stop, std::function<bool()> when) {
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, [&] {
            if (when()) press(stop);
        });
        watch.start(1);
        press(command);
    }
    /// Does the lines of a script that act, up to the one that starts with `end`.
    void play(const std::string& script, const std::string& end) {
        TextReader in(script);
        for (std::string line; in.line(line) && !line.starts_with(end);) {
            if (!line.starts_with("Form")) continue;
            const auto sign = line.find(" = ");
            const std::string reference = line.substr(0, sign),
                              value = sign == line.npos ? "" : line.substr(sign + 3);
            lab_.desk.turnTo(lab_.desk.form(reference.substr(0, reference.find('.'))));
            switch (control<Control>(reference).kind()) {
                case Control::Kind::Text:
                    set(reference, value);
                    break;
                case Control::Kind::Option:
                    choose(reference);
                    break;
                case Control::Kind::Check:
                    tick(reference, value == "on");
                    break;
                case Control::Kind::Command:
                    press(reference);
                    break;
                default:
                    throw Failure("cannot do " + line);
            }
        }
    }
    void save(const std::string& form, const std::string& name) {
        open(form);
        QWidget* window = windowOf(form);
        window->resize(window->size().boundedTo({widestWindow, highestWindow}));
        settle();
        grab(*window, name);
    }
    /// The window once more for each further page of its tabs: "form10_page2", "form10_page3" ...
    void savePages(const std::string& form, const std::string& name) {
        int pages = 1;
        for (auto* tabs : windowOf(form)->findChildren<QTabWidget*>()) {
            for (int i = 1; i < tabs->count(); ++i) {
                tabs->setCurrentIndex(i);
                settle();
                grab(*windowOf(form), name + "_page" + std::to_string(++pages));
            }
            tabs->setCurrentIndex(0);
        }
    }

private:
    template <class T>
    T& control(const std::string& reference) {
        const auto dot = reference.find('.');
        Form& form = lab_.desk.form(reference.substr(0, dot));
        auto* found = dynamic_cast<T*>(form.find(reference.substr(dot + 1)));
        if (found == nullptr) throw Failure("no control " + reference);
        return *found;
    }
    QWidget* windowOf(const std::string& form) { return screen_.windowOf(lab_.desk.form(form)); }
    void grab(QWidget& window, const std::string& name) {
        const std::string path = folder_ + "/" + name + ".png";
        if (!window.grab().save(QString::fromStdString(path))) throw Failure("cannot write " + path);
    }
    void settle() {
        screen_.flush();
        screen_.pause(settleMilliseconds);
        screen_.flush();
    }

    Laboratory& lab_;
    DesktopScreen& screen_;
    std::string folder_;
};

/// Mercury for six years: the first result of the README, its series and the fit.
void mercury(Pictures& p) {
    p.open("Form1");
    p.save("Form1", "form1");
    p.press("Form1.Command1");
    p.set("Form2.Text40", "1806");
    for (const char* tick : {"Check4", "Check14", "Check20", "Check22", "Check3", "Check8", "Check9"})
        p.tick(std::string("Form2.") + tick);
    p.set("Form2.Text17", "1");
    p.set("Form2.Text38", "3600");
    p.set("Form2.Text39", "1000");
    p.set("Form2.Text5", "10");
    p.set("Form2.Text9", "1");
    p.press("Form2.Command1");
    p.save("Form2", "form2");
    p.press("Form1.Command3");
    p.press("Form1.Command12");
    p.set("Form2.Text40", "1830");  // a series long enough for a fit
    p.press("Form2.Command1");
    p.open("Form6");
    p.choose("Form6.Option8");
    p.set("Form6.Text28", "0");
    p.set("Form6.Text1", "1,5");
    p.set("Form6.Text2", "0,005");
    p.set("Form6.Text10", "1");
    p.set("Form6.Text4", "1");
    p.press("Form6.Command6");
    p.press("Form6.Command9");
    p.save("Form6", "form6");
}

void plans(Pictures& p) {
    p.open("Form18");
    for (const char* factor : {"Form18.Check3(1)", "Form18.Check3(2)"}) p.tick(factor);
    p.press("Form18.Command14");
    p.press("Form18.Command4");
    p.press("Form18.Command1");
    p.press("Form18.Command5");
    p.press("Form18.Command13");
    p.save("Form18", "form18");
}

/// The plan of the main road: what its script does, up to the optimum.
void wholeRoad(Pictures& p) {
    p.play("examples/main_road.tvx", "echo 8.");
    p.save("Form15", "form15");
}

void observations(Pictures& p) {
    p.open("Form10");
    p.choose("Form10.Option2");
    p.set("Form10.Text1", "0");
    p.choose("Form10.Option9(6)");
    p.choose("Form10.Option21");
    p.choose("Form10.Option18");
    p.tick("Form10.Check31");
    p.set("Form10.Text65", "1969");
    p.press("Form10.Command1");
    p.save("Form10", "form10");
}

void eclipse(Pictures& p) {
    p.open("Form16");
    p.choose("Form16.Option9(3)");
    p.tick("Form16.Check5");
    p.tick("Form16.Check6");
    p.set("Form16.Text14", "1,0817");
    p.set("Form16.Text15", "0");
    p.tick("Form16.Check30");
    p.set("Form16.Text2", "29,42");
    p.set("Form16.Text3", "3");
    p.set("Form16.Text4", "2006");
    p.pressUntil("Form16.Command1", "Form16.Command4", [&] { return !p.text("Form16.Contact(2)").empty(); });
    p.save("Form16", "form16");
}

/// Every form of the laboratory with all its tabs, for a look at all of them after a change of the windows.
void every(Pictures& p, const std::string& script) {
    if (!script.empty()) p.play(script, "end");
    for (int form = 1; form <= lastForm; ++form) {
        const std::string number = std::to_string(form);
        p.save("Form" + number, "form" + number);
        p.savePages("Form" + number, "form" + number);
    }
}

QPalette darkPalette() {
    QPalette dark(QColor(45, 45, 48), QColor(35, 35, 38));
    dark.setColor(QPalette::Base, QColor(30, 30, 32));
    dark.setColor(QPalette::Highlight, QColor(42, 100, 170));
    dark.setColor(QPalette::Link, QColor(110, 170, 240));
    return dark;
}

void help(Pictures& p) {
    p.open("Form3");
    p.set("Form3.Text2", "смещение перигелия");
    p.press("Form3.Command2");
    p.save("Form3", "form3");
    p.save("Form9", "form9");
    p.save("Form5", "form5");
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    const bool wantsEvery = words.size() > 2 && words[2] == "every";
    const bool wantsDark = wantsEvery && words.size() > 3 && words[3] == "dark";
    const std::size_t scriptPlace = wantsDark ? 4 : 3;
    if (words.size() < 2 || (words.size() > 2 && !wantsEvery)) {
        std::fprintf(stderr, "window_pictures DATA FOLDER [every [dark] [SCRIPT]]\n");
        return 2;
    }
    int own = 1;
    prepareToolkit();
    QApplication application(own, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    setLook(application);
    if (wantsDark) QApplication::setPalette(darkPalette());
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &endOnMessage);
    watch.start(settleMilliseconds);
    try {
        DesktopScreen screen;
        Laboratory lab(screen, words[0]);
        Pictures pictures(lab, screen, words[1]);
        if (wantsEvery)
            every(pictures, words.size() > scriptPlace ? words[scriptPlace] : "");
        else
            for (const auto& part : {mercury, plans, wholeRoad, observations, eclipse, help}) part(pictures);
        lab.desk.unloadAll("Form1");
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "window_pictures: %s\n", failure.what());
        return 1;
    }
    return 0;
}
