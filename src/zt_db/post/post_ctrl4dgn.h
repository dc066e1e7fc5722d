#pragma once

#include "zt_db/post/post_ctrl.h"
#include "zt_db/records/matl_type.h"

namespace zt {

/// Reads the forces that members were designed for, under the combination that a CPostCtrl has open. Getters have three
/// outputs like those of CPostCtrl, and return 0 where a member was not designed.
class CPostCtrl4Dgn {
public:
    /// The control outlives this.
    explicit CPostCtrl4Dgn(const CPostCtrl& control) : control_(control) {}

    /// Whether a member was designed in concrete; in steel.
    bool IsConcreteDesignResultEnableBeam(std::uint32_t memb) const { return IsDesigned(memb, MatlType::Concrete); }
    bool IsSteelDesignForceEnable(std::uint32_t memb) const { return IsDesigned(memb, MatlType::Steel); }

    int GetBeamDesignForce(std::uint32_t memb, T_FBEM_D* all, T_FBEM_D* max, T_FBEM_D* min) const {
        return IsConcreteDesignResultEnableBeam(memb) ? control_.GetDesignForce(memb, all, max, min) : 0;
    }
    int GetSteelDesignForce(std::uint32_t memb, T_FBEM_D* all, T_FBEM_D* max, T_FBEM_D* min) const {
        return IsSteelDesignForceEnable(memb) ? control_.GetDesignForce(memb, all, max, min) : 0;
    }
    int GetWBemDesignForce(std::uint32_t memb, T_FBEM_D* all, T_FBEM_D* max, T_FBEM_D* min) const {
        return control_.GetDesignForce(memb, all, max, min);
    }
    /// Of columns of one material, and of those of steel in concrete.
    int GetColmDesignForce(std::uint32_t memb, T_FCOL_D* all, T_FCOL_D* max, T_FCOL_D* min) const {
        return IsDesigned(memb, MatlType::Composite) ? 0 : control_.GetDesignForce(memb, all, max, min);
    }
    int GetSrcColmDesignForce(std::uint32_t memb, T_FCOL_D* all, T_FCOL_D* max, T_FCOL_D* min) const {
        return IsDesigned(memb, MatlType::Composite) ? control_.GetDesignForce(memb, all, max, min) : 0;
    }
    int GetWallDesignForce(std::uint32_t memb, T_FCOL_D* all, T_FCOL_D* max, T_FCOL_D* min) const {
        return control_.GetDesignForce(memb, all, max, min);
    }
    int GetBrceDesignForce(std::uint32_t memb, T_FBRC_D* all, T_FBRC_D* max, T_FBRC_D* min) const {
        return control_.GetDesignForce(memb, all, max, min);
    }

private:
    /// Whether a member of a type of material was designed.
    bool IsDesigned(std::uint32_t memb, std::string_view type) const;

    const CPostCtrl& control_;
};

}  // namespace zt
