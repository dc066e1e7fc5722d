#pragma once

#include <QColor>
#include <QIcon>
#include <string_view>

namespace zt {

/// A picture of a command, drawn in a colour. Null for a name that has none.
QIcon IconOf(std::string_view name, const QColor& color);

}  // namespace zt
