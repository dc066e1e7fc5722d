#pragma once

#include <QApplication>
#include <QString>

namespace zt {

/// Opens every kind of window with sample data, in all languages and themes, and writes a picture of each into a
/// folder, which is made. False when a picture could not be written.
bool TakeTour(QApplication& application, const QString& folder);

}  // namespace zt
