#pragma once

#include "zt_cmd/property_dialog_of.h"
#include "zt_db/records/splc.h"

namespace zt {

/// The dialog of response spectra.
class SpectrumDialog final : public PropertyDialogOf<CClassSpfc> {
public:
    static constexpr std::string_view kName = "SpectrumDialog";

    using PropertyDialogOf::PropertyDialogOf;
    std::string_view GetName() const override { return kName; }
    std::string GetTitle() const override;

protected:
    std::vector<Field> Declared() const override;
    std::vector<List> DeclaredLists() const override;
    /// The periods ascend.
    velda::Outcome CheckRecord() const override;
};

/// The dialog of response spectrum load cases.
class SpectrumCaseDialog final : public PropertyDialogOf<CClassSplc> {
public:
    static constexpr std::string_view kName = "SpectrumCaseDialog";

    using PropertyDialogOf::PropertyDialogOf;
    std::string_view GetName() const override { return kName; }
    std::string GetTitle() const override;

protected:
    std::vector<Field> Declared() const override;
};

}  // namespace zt
