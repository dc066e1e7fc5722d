#pragma once

#include <QApplication>

namespace zt {

enum class Theme { System, Light, Dark };

/// Gives the application the palette of a theme; that of the system stays as it is.
void UseTheme(QApplication& application, Theme theme);

}  // namespace zt
