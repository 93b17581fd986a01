#include "studio/studio.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>

#include "core/failure.h"
#include "desktop/form_window.h"
#include "desktop/qt_text.h"
#include "desktop/report_file.h"
#include "desktop/report_paper.h"
#include "desktop/window_bar.h"
#include "forms/help_form.h"
#include "script/player.h"
#include "script/session_script.h"
#include "studio/session_files.h"

namespace tarvex {

namespace fs = std::filesystem;

namespace {

using namespace std::chrono_literals;
constexpr auto keepingPause = 3min;  ///< between two savings of the session by itself
constexpr const char* scripts = "Сеансы и сценарии (*.tvx)";

/// A box with Да and Нет that goes when it is answered.
QMessageBox* questionOver(QWidget* over, const QString& question) {
    auto* box = new QMessageBox(QMessageBox::Question, "Tarvex7", question, QMessageBox::NoButton, over);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->addButton("Да", QMessageBox::YesRole);
    box->addButton("Нет", QMessageBox::NoRole);
    return box;
}

bool askUser(QWidget* over, const QString& question) {
    QMessageBox* box = questionOver(over, question);
    bool yes = false;
    QObject::connect(box, &QMessageBox::buttonClicked, box, [&yes, box](QAbstractButton* button) {
        yes = box->buttonRole(button) == QMessageBox::YesRole;
    });
    box->exec();
    return yes;
}

/// The files of a script are named from here meanwhile.
class InFolder {
public:
    explicit InFolder(const fs::path& folder) : before_(fs::current_path(none_)) {
        fs::current_path(folder, none_);
    }
    ~InFolder() { fs::current_path(before_, none_); }
    InFolder(const InFolder&) = delete;
    InFolder& operator=(const InFolder&) = delete;

private:
    std::error_code none_;
    fs::path before_;
};

}  // namespace

fs::path examplesOf(const fs::path& tree) {
    const fs::path beside = fs::absolute(tree).parent_path();
    const fs::path installed =
        fs::path(QCoreApplication::applicationDirPath().toStdString()) / ".." / "share" / "tarvex";
    for (const fs::path& home : {beside, installed})
        if (std::error_code error; fs::is_directory(home / "examples", error)) return home / "examples";
    return {};
}

Studio::Studio(const fs::path& data) : data_(fs::absolute(data)) {
    log_ = std::make_unique<JournalWindow>(data_);
    script_ = std::make_unique<ScriptWindow>([this] { stage_.stopScript(); });
    transcript_.onLine([this](const std::string& line) { script_->print(line); });
    windows_.offer(services());
    keeping_.setInterval(keepingPause);
    QObject::connect(&keeping_, &QTimer::timeout, [this] { keepSession(); });
}

Studio::~Studio() = default;

WindowServices Studio::services() {
    WindowServices all;
    all.help = [this](const Form& asking) { openHelp(lab_->desk, asking); };
    all.map = [this](Form&) { map_->open(); };
    all.session = {
        {.text = "Сохранить сеанс...", .keys = "Ctrl+S", .action = [this](Form& form) { saveAs(form); }},
        {.text = "Открыть сеанс или сценарий...",
         .keys = "Ctrl+O",
         .action = [this](Form& form) { openAny(form); }},
        {.text = "Последние", .more = [this] { return recent(); }},
        {},
        {.text = "Записать сценарий",
         .keys = "Ctrl+R",
         .action = [this](Form& form) { record(form); },
         .on = [this] { return lab_->session.recorder.on(); }},
        {.text = "Отчет об этой форме...",
         .action = [this](Form& form) { report(form, [&form] { return std::vector<const Form*>{&form}; }); }},
        {.text = "Отчет об открытых формах...",
         .keys = "Ctrl+E",
         .action = [this](Form& form) { report(form, [this] { return shownForms(); }); }},
        {.text = "Печать этой формы...", .keys = "Ctrl+P", .action = [this](Form& form) { print(form); }},
        {.text = "Журнал", .keys = "Ctrl+J", .action = [this](Form&) { log_->open(); }},
        {.text = "Отменить последнюю правку",
         .keys = "Ctrl+Z",
         .action =
             [this](Form& form) {
                 if (!lab_->session.undo.undo()) tell(form, "Отменять нечего");
             }},
    };
    return all;
}

std::vector<WindowCommand> Studio::recent() {
    std::vector<WindowCommand> commands;
    for (const QString& file : recentSessions())
        commands.push_back({.text = file, .action = [this, file](Form& form) {
                                if (!refuseInARun(form)) openFile(file);
                            }});
    return commands;
}

// ---------------------------------------------------------------- one laboratory after another

int Studio::run() {
    const bool first = isFirstStart();
    if (const auto last = lastSession(); last && askUser(nullptr, "Продолжить прошлый сеанс?")) next_ = last;
    for (bool opening = true;; opening = false) {
        lab_ = std::make_unique<Laboratory>(stage_, data_);
        saved_ = std::make_unique<SavedFiles>(lab_->desk, data_);
        journal_ = std::make_unique<Journal>(lab_->desk, data_,
                                             [this](const std::string& line) { log_->add(line); });
        MapWindow::Actions actions{[this](const std::string& form) { lab_->desk.show(form); },
                                   [this](const std::string& form) { return lab_->desk.isLoaded(form); },
                                   {}};
        if (!examplesOf(data_).empty())
            actions.play = [this](const Road::Example& example) { playExample(example); };
        map_ = std::make_unique<MapWindow>(FormMap(lab_->desk), std::move(actions));
        lab_->desk.show("Form1");
        if (next_)
            QTimer::singleShot(0, map_.get(), [this] { playNow(); });
        else if (opening && first)
            map_->open();
        keeping_.start();
        const int status = QApplication::exec();
        keeping_.stop();
        const SessionKeeper& keeper = lab_->session.keeper;
        const auto last = keeper.shown().empty() ? keeper.lastLines() : keeper.lines();
        if (lab_->desk.anyLoaded()) lab_->desk.unloadAll("Form1");  // files still open
        write(toQt(lastSessionOf(data_).string()), true, last);
        map_.reset();
        journal_.reset();
        saved_.reset();
        lab_.reset();
        if (!next_) return status;
    }
}

std::optional<Studio::Script> Studio::lastSession() {
    try {
        Script script{"прошлого сеанса", readScript(lastSessionOf(data_)), data_};
        if (isSession(script.lines) && isWorthKeeping(script.lines)) return script;
    } catch (const FileFailure&) {  // none, or none that can be read
    } catch (const LineFailure&) {
    }
    return std::nullopt;
}

/// The present laboratory ends; the script is played in the next one.
void Studio::start(Script script) {
    next_ = std::move(script);
    lab_->desk.unloadAll("Form1");
}

void Studio::playNow() {
    const Script script = std::move(*next_);
    next_.reset();
    playLines(script);
}

void Studio::playLines(const Script& script) {
    const bool session = isSession(script.lines);
    QStringList passed;
    Player player(stage_, lab_->desk, lab_->names);
    player.attach(lab_->session);
    player.onReport([this](const auto& file, const auto& forms) {
        writeReport(file, reportHead(givenOn(lab_->desk)), forms);
    });
    player.onLine([&](int line) {
        if (stage_.stopping()) throw LineFailure{"остановлено", line};
        script_->step(line, toQt(script.lines[line - 1]));
        QCoreApplication::processEvents();
    });
    if (session)
        player.tolerate([&](const LineFailure& failure) {
            if (stage_.stopping()) throw failure;
            script_->print(std::to_string(failure.line) + ": " + failure.text);
            passed << QString::number(failure.line);
        });
    script_->begin(script.title, static_cast<int>(script.lines.size()));
    if (session) script_->hide();
    QString outcome = "Сценарий выполнен";
    {
        const StageScreen::Playing playing(stage_);
        const InFolder home(script.folder);
        try {
            player.play(script.lines);
        } catch (const LineFailure& failure) {
            outcome = QString("Строка %1: %2").arg(failure.line).arg(toQt(failure.text));
        }
    }
    if (session)
        outcome = passed.isEmpty() ? QString("Сеанс открыт")
                                   : "Сеанс открыт, кроме строк " + passed.join(", ") + " файла";
    script_->end(outcome);
    if (session && !passed.isEmpty()) script_->show();
    windows_.notify(outcome.toStdString());
}

// ---------------------------------------------------------------- what the user calls

void Studio::tell(const Form& form, const QString& text) { windows_.note(form, text.toStdString()); }

bool Studio::refuseInARun(const Form& form) {
    if (!lab_->session.keeper.running()) return false;
    tell(form, "Сначала остановите расчет");
    return true;
}

bool Studio::write(const QString& file, bool session, const std::vector<std::string>& lines) try {
    const fs::path path(file.toStdString());
    session ? writeSession(path, lines) : writeScript(path, lines);
    return true;
} catch (const FileFailure&) {
    return false;
}

/// A dialog for a file over the window of a form.  It does not hold a calculation up: what is to be done with
/// the file is done when the user has chosen it.
QFileDialog* Studio::fileDialog(const Form& form, const QString& title, const QString& filter) {
    const QString folder = QFileInfo(recentSessions().value(0)).path();
    auto* dialog =
        new QFileDialog(windows_.windowOf(form), title, folder == "." ? QString() : folder, filter);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    return dialog;
}

void Studio::askWhereToSave(Form& form, const QString& title, const QString& name, const QString& filter,
                            const std::function<void(const QString& file)>& save,
                            const std::function<void()>& giveUp) {
    QFileDialog* dialog = fileDialog(form, title, filter);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QFileInfo(name).suffix());
    dialog->setOption(QFileDialog::DontConfirmOverwrite);  // its question would hold everything up
    dialog->selectFile(name);
    QObject::connect(
        dialog, &QFileDialog::fileSelected, windows_.windowOf(form), [=, this, &form](const QString& file) {
            if (!QFile::exists(file)) return save(file);
            auto* box = questionOver(windows_.windowOf(form), "Файл " + file + " уже есть. Заменить?");
            QObject::connect(box, &QMessageBox::buttonClicked, box,
                             [=, this, &form](QAbstractButton* button) {
                                 if (box->buttonRole(button) == QMessageBox::YesRole) return save(file);
                                 askWhereToSave(form, title, name, filter, save, giveUp);
                             });
            box->open();
        });
    if (giveUp) QObject::connect(dialog, &QDialog::rejected, giveUp);
    dialog->open();
}

void Studio::saveAs(Form& form) {
    askWhereToSave(form, "Сохранить сеанс", "Сеанс.tvx", scripts, [this, &form](const QString& file) {
        const bool done = write(file, true, lab_->session.keeper.lines());
        if (done) rememberSession(file);
        tell(form, (done ? "Сеанс сохранен: " : "Не удалось записать ") + file);
    });
}

void Studio::openAny(Form& form) {
    if (refuseInARun(form)) return;
    QFileDialog* dialog = fileDialog(form, "Открыть сеанс или сценарий", scripts);
    dialog->setFileMode(QFileDialog::ExistingFile);
    QObject::connect(dialog, &QFileDialog::fileSelected, [this, &form](const QString& file) {
        if (!refuseInARun(form)) openFile(file);  // one may have begun in another window meanwhile
    });
    dialog->open();
}

void Studio::openFile(const QString& file) {
    try {
        const fs::path path = fs::absolute(file.toStdString());
        const bool example = path.parent_path() == examplesOf(data_);
        Script script{QFileInfo(file).fileName(), readScript(path),
                      example ? data_ / "Risunki" : path.parent_path()};
        rememberSession(file);
        start(std::move(script));
    } catch (const FileFailure& failure) {
        windows_.notify("Не удалось прочитать " + file.toStdString() + " (" + failure.what() + ")");
    } catch (const LineFailure& failure) {
        windows_.notify(file.toStdString() + ": " + failure.text);
    }
}

void Studio::record(Form& form) {
    Recorder& recorder = lab_->session.recorder;
    if (!recorder.on()) {
        if (refuseInARun(form)) return;
        recorder.start();
        return tell(form, "Идет запись сценария; Ctrl+R кончает ее");
    }
    // what is not written goes on being recorded
    const auto save = [this, &form, &recorder, lines = recorder.soFar()](const QString& file) {
        const bool done = write(file, false, lines);
        if (done) {
            rememberSession(file);
            recorder.stop();
        }
        tell(form, (done ? "Сценарий сохранен: " : "Не удалось записать ") + file);
    };
    askWhereToSave(form, "Сохранить сценарий", "Сценарий.tvx", scripts, save,
                   [this, &form] { tell(form, "Запись сценария идет дальше; Ctrl+R кончает ее"); });
}

std::vector<const Form*> Studio::shownForms() {
    std::vector<const Form*> forms;
    for (const std::string& name : lab_->desk.names())
        if (const auto& shown = lab_->session.keeper.shown();
            std::find(shown.begin(), shown.end(), name) != shown.end())
            forms.push_back(&lab_->desk.form(name));
    return forms;
}

void Studio::report(Form& form, const std::function<std::vector<const Form*>()>& forms) {
    askWhereToSave(form, "Сохранить отчет", "Отчет.pdf", "Отчет (*.pdf *.html)",
                   [this, &form, forms](const QString& file) {
                       try {
                           writeReport(file.toStdString(), reportHead(givenOn(lab_->desk)), forms());
                           tell(form, "Отчет сохранен: " + file);
                       } catch (const FileFailure& failure) {
                           tell(form, "Не удалось записать " + file + " (" + failure.what() + ")");
                       }
                   });
}

/// Fields, tables and pictures, as in a report.
void Studio::print(Form& form) {
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setPageMargins({15, 15, 15, 15}, QPageLayout::Millimeter);
    auto* dialog = new QPrintDialog(printer.get(), windows_.windowOf(form));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QDialog::accepted, [this, &form, printer] {
        try {
            paintReport(*printer, reportHead(givenOn(lab_->desk)), drawnBlocks({&form}));
        } catch (const FileFailure& failure) {
            tell(form, QString("Не напечатано: ") + failure.what());
        }
    });
    dialog->open();
}

void Studio::playExample(const Road::Example& example) {
    if (lab_->session.keeper.running()) return windows_.notify("Сначала остановите расчет");
    const bool fresh = !isWorthKeeping(lab_->session.keeper.lines());
    if (!fresh && !askUser(windows_.front(), "Пример идет в новом сеансе. Закрыть нынешний?")) return;
    openFile(toQt((examplesOf(data_) / example.file).string()));
}

/// A session that has not changed is not written again.
void Studio::keepSession() {
    auto lines = lab_->session.keeper.lines();
    if (lines == kept_ || stage_.playing()) return;
    write(toQt(lastSessionOf(data_).string()), true, lines);
    kept_ = std::move(lines);
}

}  // namespace tarvex
