#pragma once

#include "zt_tb/post/tb_post_ds1.h"

namespace zt {

/// Displacements of nodes.
class CTBPostDisp : public CTBPostDS1 {
public:
    explicit CTBPostDisp(int kind);
    static const ResultDeclaration& Declared();

    void MakeObjectKeys(std::vector<std::uint32_t>& keys) override;
    void ApplyObjects(const TB_ACTIVE_PARAM& param) override;
    void GetRecTexts(velda::RecordCells& cells) override;

protected:
    void ReadRecord() override;
    bool AreObjectsSorted() const override { return hasAllNodes_ || CTBPostDS1::AreObjectsSorted(); }

private:
    bool hasAllNodes_ = false;  ///< as they were found, which is in their order: a large table opens faster
    T_DISP_D record_;
};

/// Reactions of supported nodes, with their sums over all nodes below the table.
class CTBPostReac : public CTBPostDS1 {
public:
    explicit CTBPostReac(int kind);
    static const ResultDeclaration& Declared();

    void MakeObjectKeys(std::vector<std::uint32_t>& keys) override;
    void GetRecTexts(velda::RecordCells& cells) override;
    void ApplyExternalActive(const TB_ACTIVE_PARAM& param) override;
    void AfterApplyParam(const TB_ACTIVE_PARAM& param) override;
    void AfterSetRecCount() override;
    void AfterRedrawTable() override;

    std::size_t ObjectCount() const override { return reacting_.size(); }
    std::uint32_t ObjectNumber(std::size_t object) const override { return reacting_[object]; }

protected:
    void ReadRecord() override;

private:
    void FindReacting();
    void WriteSum(int row, std::size_t load);

    std::vector<std::uint32_t> reacting_;  ///< those of the chosen nodes that carry a reaction
    T_REAC_D record_;
};

/// Forces of elastic links: a record has a row for each end.
class CTBPostStek : public CTBPostDS1 {
public:
    explicit CTBPostStek(int kind);
    static const ResultDeclaration& Declared();

    void MakeObjectKeys(std::vector<std::uint32_t>& keys) override;
    void GetRecTexts(velda::RecordCells& cells) override;
    /// Links are no objects of the model: they are chosen in a list of their own.
    int FillActiveExtra(TB_ACTIVE_PARAM& param) override;
    void ApplyObjects(const TB_ACTIVE_PARAM& param) override;

protected:
    void ReadRecord() override;
    int RecordRows() const override;

private:
    T_ELNK_D record_;
    std::array<std::uint32_t, 2> nodes_{};
};

}  // namespace zt
