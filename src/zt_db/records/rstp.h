#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/load.h"
#include "zt_db/records/stor.h"

namespace zt {

/// The ratio of shear demand to shear capacity of a story.
struct T_RSTP_BETA {
    std::uint32_t story = 0;
    double beta = 1.0;
    bool operator==(const T_RSTP_BETA&) const = default;
};

template <>
struct Fields<T_RSTP_BETA> {
    static constexpr auto list = std::tuple{
        Refers<T_STOR_D>("story", &T_RSTP_BETA::story, IfGone::Clear),
        Plain("beta", &T_RSTP_BETA::beta),
    };
};

/// Where the drift of a story is taken.
namespace DriftMethod {
inline constexpr int Maximum = 0;  ///< the vertical line of nodes that drifts most
inline constexpr int CenterOfMass = 1;
}  // namespace DriftMethod

struct T_RSTP_UNIT;

/// The story drift restriction; there is one record, under key 1. The factors are those of the seismic code: deflection
/// amplification Cd, importance Ie, response modification R. `verticalLoads` are the loads that act through the drift.
struct T_RSTP_D {
    static constexpr std::uint32_t kKey = 1;

    int driftMethod = DriftMethod::Maximum;
    int overturningMethod = 0;  ///< 1: reduced from the top of the building downwards
    double amplification = 1.0;
    double importance = 1.0;
    double responseFactor = 1.0;
    double allowableRatio = 0.015;
    std::vector<T_LCOM_ITEM> verticalLoads{};
    std::vector<T_RSTP_BETA> betas{};

    static const T_RSTP_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_RSTP_D&) const = default;
};

template <>
struct Fields<T_RSTP_D> {
    static constexpr auto list = std::tuple{
        Plain("driftMethod", &T_RSTP_D::driftMethod),       Plain("overturningMethod", &T_RSTP_D::overturningMethod),
        Plain("amplification", &T_RSTP_D::amplification),   Plain("importance", &T_RSTP_D::importance),
        Plain("responseFactor", &T_RSTP_D::responseFactor), Plain("allowableRatio", &T_RSTP_D::allowableRatio),
        Plain("verticalLoads", &T_RSTP_D::verticalLoads),   Plain("betas", &T_RSTP_D::betas),
    };
};

ZT_RECORD(RSTP, Rstp)

class CClassRstp : public CClassOf<T_RSTP_D> {
public:
    ZT_CLASS_NAMES(RSTP)

    using CClassOf::Get;
    /// Reads the one record; false when the model has none.
    int Get(T_RSTP_D& record) const { return Get(T_RSTP_D::kKey, record); }
    /// The ratio of shear demand to capacity of a story; 1 where none is given, which is on the safe side.
    double GetBeta(std::uint32_t story) const;
    /// The greatest stability coefficient that a story may have, 0.5 / (beta Cd) but not above 0.25 (ASCE 7-16,
    /// eq. 12.8-17). It is the same for every load case.
    double GetAllowableLimit(std::uint32_t story, int kind, std::uint32_t key) const;
};

}  // namespace zt
