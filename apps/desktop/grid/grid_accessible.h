#pragma once

namespace zt {

class GridWidget;

/// Makes tables known to screen readers. May be called again.
void InstallGridAccessibility();
/// Tells screen readers, when there are any, that another cell became the current one.
void TellCurrentCell(GridWidget& widget);

}  // namespace zt
