#include "desktop/plot_choices.h"

#include <QApplication>
#include <QSettings>

#include "desktop/picture_view.h"

namespace tarvex {

namespace {

QSettings settings() { return {QSettings::IniFormat, QSettings::UserScope, "tarvex", "pictures"}; }

/// Keys of settings may not hold slashes.
QString keyOf(const std::string& name) { return QString::fromUtf8(QByteArray::fromStdString(name).toHex()); }
std::string nameOfKey(const QString& key) { return QByteArray::fromHex(key.toLatin1()).toStdString(); }

}  // namespace

PlotLook plotChoices() {
    QSettings kept = settings();
    PlotLook look;
    look.distinct = kept.value("distinct", true).toBool();
    kept.beginGroup("colors");
    for (const QString& key : kept.childKeys()) {
        const QColor color(kept.value(key).toString());
        if (color.isValid()) look.chosenColors[nameOfKey(key)] = color;
    }
    kept.endGroup();
    kept.beginGroup("signs");
    for (const QString& key : kept.childKeys()) {
        const int sign = kept.value(key).toInt();
        if (sign >= 0 && sign < signs) look.chosenSigns[nameOfKey(key)] = static_cast<Sign>(sign);
    }
    return look;
}

void choose(const PlotLook& look) {
    QSettings kept = settings();
    kept.clear();
    kept.setValue("distinct", look.distinct);
    for (const auto& [quantity, color] : look.chosenColors)
        kept.setValue("colors/" + keyOf(quantity), color.name());
    for (const auto& [run, sign] : look.chosenSigns)
        kept.setValue("signs/" + keyOf(run), static_cast<int>(sign));
    kept.sync();
    for (QWidget* one : QApplication::allWidgets())
        if (auto* view = dynamic_cast<PictureView*>(one)) view->takeLook();
}

}  // namespace tarvex
