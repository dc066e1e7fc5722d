#pragma once

#include "zt_cmd/property_dialog_of.h"
#include "zt_db/records/load.h"

namespace zt {

/// The dialog of load combinations. Its rows are the load cases and other combinations that one holds, with factors.
class LoadCombinationDialog final : public PropertyDialogOf<CClassLcom> {
public:
    static constexpr std::string_view kName = "LoadCombinationDialog";

    using PropertyDialogOf::PropertyDialogOf;
    std::string_view GetName() const override { return kName; }
    std::string GetTitle() const override;

protected:
    std::vector<Field> Declared() const override;
    std::string ListText(std::size_t place, const T_LCOM_D& record) const override;
    /// Every row has a load case.
    velda::Outcome CheckRecord() const override;

    std::size_t RowCount(const T_LCOM_D& record) const override { return record.items.size(); }
    std::vector<Field> DeclaredRow(std::size_t row) const override;
    /// The new row has the first load case that no other row has.
    void AppendRow(T_LCOM_D& record) const override;
    void EraseRow(T_LCOM_D& record, std::size_t row) const override;

private:
    /// A load case and the text that it is chosen by, its own among those of its kind.
    struct NamedCase {
        std::uint32_t key;
        std::string text;
    };
    /// The load cases of a kind; empty for kinds whose cases are no records.
    std::vector<NamedCase> Cases(int kind) const;
    std::vector<std::string> CaseTexts(const T_LCOM_ITEM& item) const;
    std::string CaseText(const T_LCOM_ITEM& item) const;
    void ReadCase(T_LCOM_ITEM& item, const std::string& text) const;
    void ReadKind(T_LCOM_ITEM& item, const std::string& text) const;
};

}  // namespace zt
