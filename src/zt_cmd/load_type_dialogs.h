#pragma once

#include "zt_cmd/property_dialog_of.h"
#include "zt_db/records/bmla.h"
#include "zt_db/records/bwld.h"
#include "zt_db/records/sbla.h"

namespace zt {

/// The dialog of beam load types: what stands on beams, and its dead load per area.
class BeamLoadTypeDialog final : public PropertyDialogOf<CClassBltp> {
public:
    static constexpr std::string_view kName = "BeamLoadTypeDialog";

    using PropertyDialogOf::PropertyDialogOf;
    std::string_view GetName() const override { return kName; }
    std::string GetTitle() const override;

protected:
    std::vector<Field> Declared() const override;
};

/// The dialog of the types of walls on beams.
class WallLoadTypeDialog final : public PropertyDialogOf<CClassBwtp> {
public:
    static constexpr std::string_view kName = "WallLoadTypeDialog";

    using PropertyDialogOf::PropertyDialogOf;
    std::string_view GetName() const override { return kName; }
    std::string GetTitle() const override;

protected:
    std::vector<Field> Declared() const override;
};

/// The dialog of slab load types. They have no names; users know them by their places in the order of keys.
class SlabLoadTypeDialog final : public PropertyDialogOf<CClassSltp> {
public:
    static constexpr std::string_view kName = "SlabLoadTypeDialog";

    using PropertyDialogOf::PropertyDialogOf;
    std::string_view GetName() const override { return kName; }
    std::string GetTitle() const override;
    bool ListsKeys() const override { return false; }

protected:
    std::vector<Field> Declared() const override;
    std::string ListText(std::size_t place, const T_SLTP_D& record) const override;
};

}  // namespace zt
