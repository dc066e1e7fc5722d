#include "zt_db/core/record_walk.h"
#include "zt_db/library/sect_util.h"
#include "zt_db/post/story/member_weight.h"
#include "zt_db/post/story/story_result_post.h"
#include "zt_db/records/record_list.h"

// What follows from the model alone, and lists of load cases.

namespace zt {
namespace {

/// Deeper nesting than any user makes is a ring in damaged records.
constexpr std::size_t kDeepest = 32;

/// Horizontal stiffness of a member that crosses a story, along X and Y: a column held against rotation at both ends,
/// 12 E I / h^3, or the axial stiffness of a brace. Frames with weak beams are softer than that; the places of centres
/// of rigidity do not suffer from it where all columns are softened alike (Muto 1974, Aseismic Design Analysis of
/// Buildings: stiffness of columns between rigid floors).
std::array<double, 2> StiffnessOf(const CDataBase& model, const StoryGeometry& geometry, const StoryCut& cut,
                                  double height) {
    T_MEMB_D member;
    T_SECT_D section;
    T_MATL_D material;
    if (!ReadInBase<CClassMemb>(model, cut.member, member) || !ReadInBase<CClassSect>(model, member.prop, section) ||
        !ReadInBase<CClassMatl>(model, member.matl, material)) {
        return {};
    }
    const T_SECT_STIFFNESS own =
        section.stiffness.area > 0.0 ? section.stiffness : CSectUtil::GetProperStiffPosition(section, 0);
    const double elasticity = material.analysis[0].elasticity;
    std::array<double, 2> stiffness{};
    for (std::size_t k = 0; k < 2; ++k) {
        if (cut.isBrace) {
            const double length = ShapeOfMember(model, geometry, member).length;
            stiffness[k] = StoryFormula::Ratio(elasticity * own.area * cut.axes.x[k] * cut.axes.x[k], length);
        } else {
            const double inertia = own.izz * cut.axes.y[k] * cut.axes.y[k] + own.iyy * cut.axes.z[k] * cut.axes.z[k];
            stiffness[k] = StoryFormula::Ratio(12.0 * elasticity * inertia, height * height * height);
        }
    }
    return stiffness;
}

}  // namespace

/// Ratio of eccentricity and elastic radius as in the Enforcement Order of the Building Standard Law (Japan), art.
/// 82-6: Re = e / re, re^2 = KR / K.
int CStoryResultPost::GetECC(int kind, std::uint32_t key, List<T_STECC_D>& records) const {
    return ServeModel(kind, key, "ECC", records, [this](T_STECC_D& record, std::size_t i) {
        const StoryLevel& story = Model().Stories()[i];
        record.mass = Model().StoryMasses()[i].center;
        std::array<double, 2> sum{};
        std::array<double, 2> moment{};
        std::vector<std::array<double, 2>> parts;
        for (const StoryCut& cut : story.cuts) {
            parts.push_back(StiffnessOf(*Database().Model(), Model().Geometry(), cut, story.height));
            for (std::size_t k = 0; k < 2; ++k) {
                sum[k] += parts.back()[k];
                moment[k] += parts.back()[k] * cut.at[1 - k];
            }
        }
        if (sum[0] <= 0.0 || sum[1] <= 0.0) return;
        record.rigidity = {moment[1] / sum[1], moment[0] / sum[0]};
        for (std::size_t c = 0; c < parts.size(); ++c) {
            for (std::size_t k = 0; k < 2; ++k) {
                const double lever = story.cuts[c].at[1 - k] - record.rigidity[1 - k];
                record.torsion += parts[c][k] * lever * lever;
            }
        }
        for (std::size_t k = 0; k < 2; ++k) {
            record.eccentricity[k] = std::abs(record.mass[k] - record.rigidity[k]);
            record.radius[k] = std::sqrt(record.torsion / sum[k]);
        }
        for (std::size_t k = 0; k < 2; ++k) {
            record.ratio[k] = StoryFormula::Ratio(record.eccentricity[1 - k], record.radius[k]);
        }
        record.isChecked = 1;
    });
}

int CStoryResultPost::GetSWT(int kind, std::uint32_t key, List<T_STSWT_D>& records) const {
    return ServeModel(kind, key, "SWT", records, [this](T_STSWT_D& record, std::size_t i) {
        const StoryWeights& weights = Model().Weights()[i];
        record.column = weights.column;
        record.beam = weights.beam;
        record.brace = weights.brace;
        record.wall = weights.wall;
        record.slab = weights.slab;
        record.sum = weights.column + weights.beam + weights.brace + weights.wall + weights.slab;
    });
}

int CStoryResultPost::GetSMS(int kind, std::uint32_t key, List<T_STSMS_D>& records) const {
    return ServeModel(kind, key, "SMS", records, [this](T_STSMS_D& record, std::size_t i) {
        const StoryMass& mass = Model().StoryMasses()[i];
        record.mass = mass.mass;
        record.rotational = mass.rotational;
        record.center = mass.center;
    });
}

bool CStoryResultPost::LoadsOf(int kind, std::uint32_t key, double factor, std::vector<Vector3>& loads,
                               std::size_t depth) const {
    if (kind == LoadCaseKind::Static) {
        if (!Database().Model()->GetClass<CClassStld>()->Exist(key)) return false;
        const std::vector<Vector3> own = NodalForces(*Database().Model(), Model().Geometry(), key);
        for (std::size_t i = 0; i < own.size(); ++i) {
            for (std::size_t k = 0; k < 3; ++k) loads[i][k] += factor * own[i][k];
        }
        return true;
    }
    T_PLCOM_D combination;
    if (kind != LoadCaseKind::Combination || depth > kDeepest || !CClassPLcom(&Database()).Get(key, combination) ||
        combination.type == LoadCombinationType::Envelope) {
        return false;
    }
    return std::all_of(combination.items.begin(), combination.items.end(), [&](const T_LCOM_ITEM& item) {
        return LoadsOf(item.kind, item.key, factor * item.factor, loads, depth + 1);
    });
}

/// Loads at the foot of a module go to the ground and belong to no story.
int CStoryResultPost::GetSLD(int kind, std::uint32_t key, List<T_STSLD_D>& records) const {
    records.clear();
    if (!HasModel()) return 0;
    std::vector<Vector3> loads(Model().Geometry().Nodes().size());
    const bool isKnown = LoadsOf(kind, key, 1.0, loads, 0);
    if (!isKnown) return ServeStored(kind, key, "SLD", records);
    return ServeModel(kind, key, "SLD", records, [&](T_STSLD_D& record, std::size_t i) {
        for (const std::uint32_t node : Model().Stories()[i].massed) {
            for (std::size_t k = 0; k < 3; ++k) record.load[k] += loads[node][k];
        }
    });
}

// ---- load cases ----

int CStoryResultPost::GetLoadCaseKeyList4WindSeis(List<std::uint32_t>& wind, List<std::uint32_t>& seismic,
                                                  List<std::uint32_t>& spectra) const {
    wind = CClassPStld(&Database()).KeysOfType(LoadCaseType::Wind);
    seismic = CClassPStld(&Database()).KeysOfType(LoadCaseType::Earthquake);
    spectra = CClassPSplc(&Database()).Keys();
    return wind.empty() && seismic.empty() && spectra.empty() ? 0 : 1;
}

int CStoryResultPost::GetLoadCaseKeyList4DrftAng(List<std::uint32_t>& wind, List<std::uint32_t>& seismic,
                                                 List<std::uint32_t>& spectra) const {
    return GetLoadCaseKeyList4WindSeis(wind, seismic, spectra);
}

int CStoryResultPost::GetLoadCaseKeyList4StTIC(List<std::uint32_t>& spectra, List<std::uint32_t>& seismic,
                                               List<std::uint32_t>& esCombinations,
                                               List<std::uint32_t>& combinations) const {
    List<std::uint32_t> wind;
    GetLoadCaseKeyList4WindSeis(wind, seismic, spectra);
    GetLoadCaseKeyList4ECLC(esCombinations);
    combinations = CClassPLcom(&Database()).Keys();
    std::erase_if(combinations, [this](std::uint32_t key) {
        T_PLCOM_D combination;
        return !CClassPLcom(&Database()).Get(key, combination) || combination.active == 0 ||
               !HoldsEarthquake(combination, 0);
    });
    return spectra.empty() && seismic.empty() && esCombinations.empty() && combinations.empty() ? 0 : 1;
}

bool CStoryResultPost::HoldsEarthquake(const T_PLCOM_D& combination, std::size_t depth) const {
    return depth <= kDeepest &&
           std::any_of(combination.items.begin(), combination.items.end(), [&](const T_LCOM_ITEM& item) {
               T_PLCOM_D inner;
               T_PSTLD_D loadCase;
               switch (item.kind) {
                   case LoadCaseKind::Spectrum: return true;
                   case LoadCaseKind::Static:
                       return CClassPStld(&Database()).Get(item.key, loadCase) &&
                              loadCase.type == LoadCaseType::Earthquake;
                   case LoadCaseKind::Combination:
                       return CClassPLcom(&Database()).Get(item.key, inner) && HoldsEarthquake(inner, depth + 1);
                   default: return false;
               }
           });
}

int CStoryResultPost::ExistPEclcLoadCase() const { return CClassPEclc(&Database()).Exist(); }

int CStoryResultPost::GetLoadCaseKeyList4ECLC(List<std::uint32_t>& keys) const {
    return CClassPEclc(&Database()).GetKeyList(keys);
}

}  // namespace zt
