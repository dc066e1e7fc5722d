#include "desktop/window/recent_files.h"

#include <QFileInfo>
#include <QSettings>

namespace zt {
namespace {

constexpr int kKept = 8;
const QString kKey = QStringLiteral("recentFiles");

}  // namespace

QStringList RecentFiles::Paths() { return QSettings().value(kKey).toStringList(); }

void RecentFiles::Add(const QString& path) {
    const QString whole = QFileInfo(path).absoluteFilePath();
    QStringList paths = Paths();
    paths.removeAll(whole);
    paths.prepend(whole);
    QSettings().setValue(kKey, paths.mid(0, kKept));
}

void RecentFiles::Remove(const QString& path) {
    QStringList paths = Paths();
    paths.removeAll(path);
    QSettings().setValue(kKey, paths);
}

}  // namespace zt
