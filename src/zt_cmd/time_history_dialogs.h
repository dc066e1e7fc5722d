#pragma once

#include "zt_cmd/property_dialog_of.h"
#include "zt_db/records/thlc.h"

namespace zt {

/// The dialog of time functions.
class TimeFunctionDialog final : public PropertyDialogOf<CClassThfc> {
public:
    static constexpr std::string_view kName = "TimeFunctionDialog";

    using PropertyDialogOf::PropertyDialogOf;
    std::string_view GetName() const override { return kName; }
    std::string GetTitle() const override;

protected:
    std::vector<Field> Declared() const override;
    std::vector<List> DeclaredLists() const override;
    /// The times ascend.
    velda::Outcome CheckRecord() const override;
};

/// The dialog of time-history load cases. Its rows are what time functions drive.
class TimeHistoryCaseDialog final : public PropertyDialogOf<CClassThlc> {
public:
    static constexpr std::string_view kName = "TimeHistoryCaseDialog";

    using PropertyDialogOf::PropertyDialogOf;
    std::string_view GetName() const override { return kName; }
    std::string GetTitle() const override;

protected:
    std::vector<Field> Declared() const override;
    std::vector<List> DeclaredLists() const override;
    /// The duration has one step at least.
    velda::Outcome CheckRecord() const override;

private:
    std::vector<Field> Cells(std::size_t row) const;
};

}  // namespace zt
