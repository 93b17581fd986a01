#pragma once
// How all windows look: the style of the toolkit, made readable on light and on dark desktops.

class QApplication;

namespace tarvex {

/// Style and font of a program with windows; colours are those of the user's desktop.
void setLook(QApplication& application);

}  // namespace tarvex
