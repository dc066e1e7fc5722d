#pragma once

#include <QApplication>

namespace zt {

enum class Theme { System, Light, Dark };

/// Gives the application the palette of a theme; that of the system follows the system.
void UseTheme(QApplication& application, Theme theme);

}  // namespace zt
