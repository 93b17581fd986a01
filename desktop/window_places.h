#pragma once
// Where windows stood last, each for the size of screen it stood on: an .ini file in the user's settings
// folder.

class QWidget;

namespace tarvex {

void rememberPlace(const QWidget& window);
/// False when this window has not been on such a screen before.
bool restorePlace(QWidget& window);

}  // namespace tarvex
