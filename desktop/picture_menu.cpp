#include "desktop/picture_menu.h"

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusTipEvent>
#include <functional>
#include <set>

#include "core/failure.h"
#include "desktop/canvas_image.h"
#include "desktop/picture_view.h"
#include "desktop/plot_choices.h"
#include "desktop/plot_ticks.h"

namespace tarvex {

namespace {

void tell(PictureView& view, const QString& text) {
    QStatusTipEvent tip(text);
    QApplication::sendEvent(&view, &tip);
}

/// Writes a file and tells of it, or of the failure.
void write(PictureView& view, const QString& path, const std::function<void()>& writing,
           const QString& remark = {}) {
    try {
        writing();
        tell(view, "Сохранено: " + path + remark);
    } catch (const std::exception& failure) {
        auto* box = new QMessageBox(QMessageBox::Warning, "Tarvex7", "Файл не записан: " + path,
                                    QMessageBox::Ok, view.window());
        box->setDetailedText(QString::fromStdString(causeOf(failure)));
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->open();
    }
}

void save(PictureView& view, const QString& path) {
    Picture* picture = view.picture();
    if (picture == nullptr || picture->canvas() == nullptr) return;
    const bool whole = static_cast<const ImageCanvas*>(picture->canvas())->drawing().complete();
    const bool cut = !whole && path.endsWith(".csv", Qt::CaseInsensitive);
    write(
        view, path, [&] { picture->save(path.toStdString()); }, cut ? " (только последние точки)" : "");
}

using Saving = void (*)(PictureView& view, const QString& path);

/// Asks for a file; a calculation goes on meanwhile.
void askFile(PictureView& view, const QString& ending, const QString& what, Saving saving) {
    static QString folder = QDir::homePath();  // the next picture is offered the place of the last
    auto* dialog = new QFileDialog(view.window(), "Сохранить рисунок", folder, what + " (*." + ending + ")");
    dialog->setObjectName("savePicture");
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(ending);
    dialog->selectFile(view.window()->objectName() + "-" + view.objectName() + "." + ending);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QFileDialog::fileSelected, &view, [&view, saving](const QString& path) {
        folder = QFileInfo(path).absolutePath();
        saving(view, path);
    });
    dialog->open();
}

void exportTo(PictureView& view, const QString& path) {
    write(view, path, [&] { view.exportTo(path); });
}

void print(PictureView& view) {
    auto* printer = new QPrinter(QPrinter::HighResolution);
    printer->setPageOrientation(QPageLayout::Landscape);
    auto* dialog = new QPrintDialog(printer, view.window());
    dialog->setObjectName("printPicture");
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, qOverload<QPrinter*>(&QPrintDialog::accepted), &view, [&view](QPrinter* on) {
        QPainter painter;
        if (!painter.begin(on)) return tell(view, "Принтер не отвечает");
        const QRectF page({}, on->pageRect(QPrinter::DevicePixel).size());
        view.paintFigure(painter, page, on->resolution() / 96.0);
    });
    QObject::connect(dialog, &QObject::destroyed, [printer] { delete printer; });
    dialog->open();
}

template <class Action>
QAction* addCommand(QMenu& menu, PictureView& view, const QString& text, Action action) {
    QAction* made = menu.addAction(text);
    QObject::connect(made, &QAction::triggered, &view, action);
    return made;
}

template <class Action>
void addTick(QMenu& menu, PictureView& view, const QString& text, bool on, Action action) {
    QAction* made = addCommand(menu, view, text, action);
    made->setCheckable(true);
    made->setChecked(on);
}

void askColor(PictureView& view, const std::string& quantity, const QColor& now) {
    auto* dialog = new QColorDialog(now, view.window());
    dialog->setObjectName("seriesColor");
    dialog->setWindowTitle("Цвет " + QString::fromStdString(quantity));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QColorDialog::colorSelected, &view, [quantity](const QColor& color) {
        PlotLook look = plotChoices();
        look.chosenColors[quantity] = color;
        choose(look);
    });
    dialog->open();
}

QString quoted(const std::string& name) { return QString::fromStdString(name).replace("&", "&&"); }

/// Colours of quantities and signs of runs, as far as they are on the picture.
void addLooks(QMenu& menu, PictureView& view) {
    const PlotLook look = plotChoices();
    QMenu* looks = menu.addMenu("Цвета и знаки");
    addTick(*looks, view, "Различимые цвета", look.distinct, [look] {
        PlotLook other = look;
        other.distinct = !other.distinct;
        choose(other);
    });
    addCommand(*looks, view, "Выбрать заново", [] { choose({}); });
    std::set<std::string> quantities, runs;
    for (const auto& [number, series] : view.picture()->plot().all()) {
        if (series.points().empty()) continue;
        if (quantities.insert(series.spec().quantity).second)
            addCommand(*looks, view, "Цвет: " + quoted(series.spec().quantity) + "...",
                       [&view, quantity = series.spec().quantity, now = look.colorOf(series, false)] {
                           askColor(view, quantity, now);
                       });
        if (series.spec().color < 0 || series.spec().joined || !runs.insert(series.spec().run).second)
            continue;
        const QString name =
            series.spec().run.empty() ? quoted(series.spec().quantity) : quoted(series.spec().run);
        QMenu* kinds = looks->addMenu("Знак: " + name);
        for (int sign = 0; sign < signs; ++sign)
            addTick(*kinds, view, nameOf(static_cast<Sign>(sign)),
                    look.signOf(series) == static_cast<Sign>(sign), [look, run = series.spec().run, sign] {
                        PlotLook other = look;
                        other.chosenSigns[run] = static_cast<Sign>(sign);
                        choose(other);
                    });
    }
}

/// What the meaning of a picture makes possible.
void addPlotCommands(QMenu& menu, PictureView& view) {
    menu.addSeparator();
    addCommand(menu, view, "Вписать", [&view] { view.fit(); });
    addCommand(menu, view, "Очистить рисунок", [&view] { view.wipe(); });
    addTick(menu, view, "Легенда", view.overlay().legendShown(), [&view] {
        view.overlay().showLegend(!view.overlay().legendShown());
        view.update();
    });
    const Plot& plot = view.picture()->plot();
    std::set<int> shown;
    for (const auto& [number, series] : plot.all())
        if (!series.points().empty()) shown.insert(series.spec().layer);
    if (shown.size() > 1) {
        QMenu* axes = menu.addMenu("Оси");
        for (const auto& [layer, meaning] : plot.layers())
            if (shown.contains(layer))
                addTick(*axes, view,
                        quoted(titleOf(meaning->axes.x)) + "; " + quoted(titleOf(meaning->axes.y)),
                        view.overlay().layerOf(plot) == layer, [&view, layer = layer] {
                            view.overlay().chooseLayer(layer);
                            view.update();
                        });
    }
    if (!plot.empty()) addLooks(menu, view);
}

}  // namespace

void addPictureCommands(QMenu& menu, PictureView& view) {
    const Picture* picture = view.picture();
    if (picture == nullptr) return;
    const auto add = [&](const QString& text, auto action) { addCommand(menu, view, text, action); };
    const auto addFile = [&](const QString& text, const char* ending, const char* what, Saving saving) {
        add(text, [&view, ending, what, saving] { askFile(view, ending, what, saving); });
    };
    add("Копировать рисунок", [&view] {
        if (const QImage image = view.image(); !image.isNull()) {
            QApplication::clipboard()->setImage(image);
            tell(view, "Рисунок скопирован");
        }
    });
    addFile("Сохранить как .png...", "png", "Растр PNG", save);
    addFile("Сохранить как .bmp...", "bmp", "Растр BMP", save);
    addFile("Сохранить как .svg...", "svg", "Векторный рисунок SVG", save);
    addFile("Сохранить точки и линии как .csv...", "csv", "Таблица CSV", save);
    if (picture->plot().described()) {
        menu.addSeparator();
        addFile("С осями и легендой как .pdf...", "pdf", "Страница PDF", exportTo);
        addFile("С осями и легендой как .svg...", "svg", "Векторный рисунок SVG", exportTo);
        addFile("Ряды с единицами как .csv...", "csv", "Таблица CSV", exportTo);
    }
    add("Печать...", [&view] { print(view); });
    if (picture->plot().described()) addPlotCommands(menu, view);
    if (!view.zooms() && !picture->plot().described()) return;
    menu.addSeparator();
    add("Крупнее", [&view] { view.zoom(2, view.target().center()); });
    add("Весь рисунок", [&view] { view.showWhole(); });
}

}  // namespace tarvex
