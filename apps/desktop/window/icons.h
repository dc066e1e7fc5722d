#pragma once

#include <QColor>
#include <QIcon>
#include <string_view>

namespace zt {

/// A picture of a command, drawn in the colours of an enabled and a disabled one. Null for a name that has none.
QIcon IconOf(std::string_view name, const QColor& enabled, const QColor& disabled);

}  // namespace zt
