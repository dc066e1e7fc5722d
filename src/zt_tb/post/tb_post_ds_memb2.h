#pragma once

#include <set>

#include "zt_tb/post/tb_post_ds1.h"

namespace zt {

/// A source of results along members, with a row for each chosen part. It shows members of some types, of all modules
/// or of one. Where the model has several modules, a row before the records lets the user choose one.
class CTBPostDSMemb2 : public ObjectSource {
public:
    /// `types` are the type codes of the members that the table shows.
    CTBPostDSMemb2(int kind, const ResultDeclaration& declaration, std::set<int> types);

    /// The members of the current module, or of all modules when none is current.
    void MakeObjectKeys(std::vector<std::uint32_t>& keys) override;
    /// Drops members of other types.
    void FilterObjectKeys(std::vector<std::uint32_t>& keys) override;
    bool HasModuleChoice() const override { return true; }
    /// 0 while all modules are shown.
    std::uint32_t GetCurModuleKey() const override { return moduleKey_; }
    void AfterSetRecCount() override;
    void AfterRedrawTable() override;
    /// The button beside the names of the modules: shows the members of the chosen one. The load cases stay.
    void OnEvent(const velda::T_TB_EVENT_D& event) override;

private:
    std::set<int> types_;
    std::uint32_t moduleKey_ = 0;
};

}  // namespace zt
