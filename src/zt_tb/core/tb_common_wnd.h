#pragma once

#include "velda_util/grid/tb_common.h"
#include "zt_db/doc/doc.h"

namespace zt {

/// What the tables of the model share: the database, the run mode, the replay of hints.
class CTBCommonWnd : public velda::CTBCommon {
public:
    /// How a table stands in its view.
    enum RunMode {
        kAlone = 0,
        kGroup = 1,   ///< one of several tables on tabs
        kDetail = 2,  ///< shows only the rows of selected nodes or members
    };

    /// The current model database; null while no model is open.
    static CDataBase* GetDB();

    int GetTableRunMode() const { return runMode_; }
    void SetTableRunMode(int mode) { runMode_ = mode; }

    /// Replays the change buffer of a hint's database on the rows.
    virtual void UpdateBuffer(T_UPDATE_HINT* hint) = 0;
    /// Adds (code 5) or removes (code 6) the rows of a detail table.
    virtual void UpdateSelInDetail(int /*code*/, const Keys& /*keys*/) {}
    void PreFilterRecord(const Keys& /*keys*/) override {}

    void OnAfterOpen() override;
    bool SetCurrentCell(int row, int col, int flags = 0) override;
    bool CanSaveData() override;
    std::string GetRefusalReason() const override;

protected:
    bool BeginStep(const std::string& name) override;
    bool EndStep() override;
    void CancelStep() override;
    std::string GetUnitText(velda::ColumnId column) const override;

private:
    int runMode_ = kAlone;
};

}  // namespace zt
