#pragma once

#include <QMenu>

#include "velda_base/host/menu.h"

namespace zt {

/// Fills a menu of the toolkit; the command of an entry is the data of its action.
void FillMenu(QMenu& menu, const velda::CMenu& items);

class QtMenus final : public velda::IMenuTracker {
public:
    int Track(const velda::CMenu& menu, velda::CWnd* window, velda::WindowPoint place) override;
};

}  // namespace zt
