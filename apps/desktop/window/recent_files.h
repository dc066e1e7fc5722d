#pragma once

#include <QStringList>

namespace zt {

/// The models that were opened last, kept from one run of the program to the next.
class RecentFiles {
public:
    /// The last one first.
    static QStringList Paths();
    static void Add(const QString& path);
    static void Remove(const QString& path);
};

}  // namespace zt
