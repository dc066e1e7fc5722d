#pragma once

#include <string>

#include "velda_base/host/modal_dialog.h"
#include "velda_util/grid/tb_grid.h"

namespace zt {

/// The dialog of the find command. Its settings are those of all tables, CTBGrid::m_Find.
class CTBFindDlg final : public velda::ModalDialog {
public:
    static constexpr std::string_view kName = "TableFind";

    /// Searches this table, which outlives the dialog.
    explicit CTBFindDlg(velda::CTBGrid& table) : table_(table) {}

    std::string_view GetName() const override { return kName; }
    void OnInitDialog() override;
    /// Searches and closes. With an empty text nothing happens.
    bool OnOK() override;
    /// Whether the find button can be pressed: asked at each change of the text.
    bool IsFindEnabled() const { return !text.empty(); }

    std::string text;
    bool matchCase = false;
    bool allColumns = false;
    int direction = 0;  ///< the button of the group that is chosen: 0 backward, 1 forward

private:
    velda::CTBGrid& table_;
};

}  // namespace zt
