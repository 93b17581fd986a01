#include "desktop/window_places.h"

#include <QScreen>
#include <QSettings>
#include <QWidget>

namespace tarvex {

namespace {

/// Windows have names; a screen is known by its size.
QString keyOf(const QWidget& window) {
    const QSize screen = window.screen()->size();
    return QString("%1x%2/%3").arg(screen.width()).arg(screen.height()).arg(window.objectName());
}

QSettings places() { return {QSettings::IniFormat, QSettings::UserScope, "tarvex", "windows"}; }

}  // namespace

void rememberPlace(const QWidget& window) { places().setValue(keyOf(window), window.saveGeometry()); }

bool restorePlace(QWidget& window) {
    const QByteArray place = places().value(keyOf(window)).toByteArray();
    return !place.isEmpty() && window.restoreGeometry(place);
}

}  // namespace tarvex
