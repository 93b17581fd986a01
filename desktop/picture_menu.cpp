#include "desktop/picture_menu.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QStatusTipEvent>

#include "core/failure.h"
#include "desktop/canvas_image.h"
#include "desktop/picture_view.h"

namespace tarvex {

namespace {

void tell(PictureView& view, const QString& text) {
    QStatusTipEvent tip(text);
    QApplication::sendEvent(&view, &tip);
}

void save(PictureView& view, const QString& path) {
    Picture* picture = view.picture();
    if (picture == nullptr) return;
    try {
        picture->save(path.toStdString());
        const bool whole = static_cast<const ImageCanvas*>(picture->canvas())->drawing().complete();
        tell(view,
             "Сохранено: " + path +
                 (whole || !path.endsWith(".csv", Qt::CaseInsensitive) ? "" : " (только последние точки)"));
    } catch (const std::exception& failure) {
        auto* box = new QMessageBox(QMessageBox::Warning, "Tarvex7", "Файл не записан: " + path,
                                    QMessageBox::Ok, view.window());
        box->setDetailedText(QString::fromUtf8(failure.what()));
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->open();
    }
}

/// Asks for a file; a calculation goes on meanwhile.
void saveAs(PictureView& view, const QString& ending, const QString& what) {
    static QString folder = QDir::homePath();  // the next picture is offered the place of the last
    auto* dialog = new QFileDialog(view.window(), "Сохранить рисунок", folder, what + " (*." + ending + ")");
    dialog->setObjectName("savePicture");
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(ending);
    dialog->selectFile(view.window()->objectName() + "-" + view.objectName() + "." + ending);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QFileDialog::fileSelected, &view, [&view](const QString& path) {
        folder = QFileInfo(path).absolutePath();
        save(view, path);
    });
    dialog->open();
}

}  // namespace

void addPictureCommands(QMenu& menu, PictureView& view) {
    const auto add = [&](const QString& text, auto action) {
        QObject::connect(menu.addAction(text), &QAction::triggered, &view, action);
    };
    add("Копировать рисунок", [&view] {
        if (const QImage image = view.image(); !image.isNull()) {
            QApplication::clipboard()->setImage(image);
            tell(view, "Рисунок скопирован");
        }
    });
    add("Сохранить как .png...", [&view] { saveAs(view, "png", "Растр PNG"); });
    add("Сохранить как .bmp...", [&view] { saveAs(view, "bmp", "Растр BMP"); });
    add("Сохранить как .svg...", [&view] { saveAs(view, "svg", "Векторный рисунок SVG"); });
    add("Сохранить точки и линии как .csv...", [&view] { saveAs(view, "csv", "Таблица CSV"); });
    if (!view.zooms()) return;
    menu.addSeparator();
    add("Крупнее", [&view] { view.zoom(2, view.target().center()); });
    add("Весь рисунок", [&view] { view.showWhole(); });
}

}  // namespace tarvex
