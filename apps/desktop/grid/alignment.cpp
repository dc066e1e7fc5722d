#include "desktop/grid/alignment.h"

namespace zt {

Qt::Alignment AlignmentOf(const velda::CGXStyle& style) {
    Qt::Alignment alignment;
    switch (style.GetHorizontalAlignment()) {
        case velda::HorizontalAlignment::Left: alignment = Qt::AlignLeft; break;
        case velda::HorizontalAlignment::Center: alignment = Qt::AlignHCenter; break;
        case velda::HorizontalAlignment::Right: alignment = Qt::AlignRight; break;
    }
    switch (style.GetVerticalAlignment()) {
        case velda::VerticalAlignment::Top: return alignment | Qt::AlignTop;
        case velda::VerticalAlignment::Center: return alignment | Qt::AlignVCenter;
        case velda::VerticalAlignment::Bottom: return alignment | Qt::AlignBottom;
    }
    return alignment;
}

}  // namespace zt
