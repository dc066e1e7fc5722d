#pragma once

#include "velda_util/grid/gx_tab_wnd.h"

namespace zt {

class CTBView;

/// The tab strip of a view, which it tells that another tab came to the front and that a table goes.
class CMyGXTabWnd final : public velda::CGXTabWnd {
public:
    /// The owner outlives the strip.
    explicit CMyGXTabWnd(CTBView& owner) : owner_(owner) {}

protected:
    void OnTabSwitch() override;
    void OnRemoveTab(const velda::TabPane* pane) override;

private:
    CTBView& owner_;
};

}  // namespace zt
