#include "zt_cmd/drift_restriction_dialog.h"

#include <algorithm>

#include "zt_cmd/load_case_items.h"

namespace zt {
namespace {

constexpr NamedNumber kDriftMethods[] = {
    {DriftMethod::Maximum, "IDS_CMD_RSTP_MAXIMUM"},
    {DriftMethod::CenterOfMass, "IDS_CMD_RSTP_CENTER"},
};
constexpr NamedNumber kOverturningMethods[] = {
    {0, "IDS_CMD_RSTP_OVERTURNING_WHOLE"},
    {1, "IDS_CMD_RSTP_OVERTURNING_REDUCED"},
};

ListDeclaration<T_RSTP_D> BetaList(const RecordChoice& stories) {
    const auto make = [stories](const T_RSTP_D& record) {
        const auto isTaken = [&](std::uint32_t key) {
            return std::any_of(record.betas.begin(), record.betas.end(),
                               [&](const T_RSTP_BETA& taken) { return taken.story == key; });
        };
        return T_RSTP_BETA{.story = stories.FirstFree(isTaken)};
    };
    return ListAt<T_RSTP_D>(
        "IDS_CMD_RSTP_BETAS", [](auto& record) -> auto& { return record.betas; }, make,
        [stories](std::size_t row) {
            return std::vector<FieldDeclaration<T_RSTP_D>>{
                RecordAt<T_RSTP_D>(
                    "IDS_DB_DATA_NAME_STOR", stories, [row](auto& record) -> auto& { return record.betas[row].story; }),
                NumberAt<T_RSTP_D>(
                    "IDS_CMD_RSTP_BETA", Unit::None, [row](auto& record) -> auto& { return record.betas[row].beta; },
                    kAboveZero),
            };
        });
}

}  // namespace

std::string DriftRestrictionDialog::GetTitle() const {
    return velda::CMsgDll::pfuncLoadStr("IDS_DB_DATA_NAME_RSTP", 0);
}

std::vector<DriftRestrictionDialog::Field> DriftRestrictionDialog::Declared() const {
    return {
        NamedField<T_RSTP_D, &T_RSTP_D::driftMethod>("IDS_CMD_RSTP_METHOD", kDriftMethods),
        NamedField<T_RSTP_D, &T_RSTP_D::overturningMethod>("IDS_CMD_RSTP_OVERTURNING", kOverturningMethods),
        NumberField<T_RSTP_D, &T_RSTP_D::amplification>("IDS_CMD_RSTP_CD", Unit::None, kAboveZero),
        NumberField<T_RSTP_D, &T_RSTP_D::importance>("IDS_CMD_RSTP_IE", Unit::None, kAboveZero),
        NumberField<T_RSTP_D, &T_RSTP_D::responseFactor>("IDS_CMD_RSTP_R", Unit::None, kAboveZero),
        NumberField<T_RSTP_D, &T_RSTP_D::allowableRatio>("IDS_CMD_RSTP_RATIO", Unit::None, kAboveZero),
    };
}

std::vector<DriftRestrictionDialog::List> DriftRestrictionDialog::DeclaredLists() const {
    return {
        LoadCaseList<T_RSTP_D>(
            "IDS_CMD_RSTP_VERTICAL", Database(), 0, [](auto& record) -> auto& { return record.verticalLoads; }),
        BetaList({Database(), &IdentityOf<T_STOR_D>::value}),
    };
}

velda::Outcome DriftRestrictionDialog::CheckRecord() const {
    const std::vector<T_RSTP_BETA>& betas = Edited().betas;
    for (auto beta = betas.begin(); beta != betas.end(); ++beta) {
        const auto first =
            std::find_if(betas.begin(), beta, [&](const T_RSTP_BETA& other) { return other.story == beta->story; });
        if (first == beta) continue;
        return velda::Outcome::Refused(
            velda::FormatText("IDS_CMD_RSTP_STORY_TWICE",
                              {std::to_string(first - betas.begin() + 1), std::to_string(beta - betas.begin() + 1)}));
    }
    return velda::Outcome::Done();
}

}  // namespace zt
