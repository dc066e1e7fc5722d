#include "zt_db/post/story/story_result_post.h"
#include "zt_db/units/exact_units.h"

// Irregularity in stiffness, weight and strength.

namespace zt {
namespace {

/// The mean of a value of the three stories above; none where there are fewer or one has no value.
template <class ValueOf>
std::optional<double> MeanOfThreeAbove(const StoryModel& model, std::size_t story, ValueOf valueOf) {
    double sum = 0.0;
    for (int count = 0; count < 3; ++count) {
        story = model.Stories()[story].above;
        if (story == StoryLevel::kNone) return std::nullopt;
        const std::optional<double> value = valueOf(story);
        if (!value) return std::nullopt;
        sum += *value;
    }
    return sum / 3.0;
}

/// The value of the story above; none where there is no such story or value.
template <class ValueOf>
std::optional<double> OfAbove(const StoryModel& model, std::size_t story, ValueOf valueOf) {
    const std::size_t above = model.Stories()[story].above;
    return above == StoryLevel::kNone ? std::nullopt : valueOf(above);
}

/// Stiffness of all stories in one direction by one method of taking the drift.
class StiffnessCheck {
public:
    StiffnessCheck(const StoryCase& loadCase, std::size_t direction, int method) : model_(loadCase.Model()) {
        for (std::size_t i = 0; i < model_.Stories().size(); ++i) {
            const StoryDrift drift = loadCase.Drift(i, direction);
            const StoryShear shear = loadCase.Shear(i, direction);
            drifts_.push_back(drift.isKnown ? std::optional(drift.Of(method)) : std::nullopt);
            shears_.push_back(shear.isKnown ? std::optional(shear.sum) : std::nullopt);
        }
    }

    void Fill(std::size_t story, T_STSIC_BLOCK& block) const {
        FillAngles(story, block);
        block.drift = drifts_[story].value_or(0.0);
        block.shear = shears_[story].value_or(0.0);
        const auto stiffness = Stiffness(story);
        if (!stiffness) return;
        const auto stiffnessOf = [this](std::size_t i) { return Stiffness(i); };
        const auto upper = OfAbove(model_, story, stiffnessOf);
        const auto three = MeanOfThreeAbove(model_, story, stiffnessOf);
        block.stiffness = *stiffness;
        block.hasNoStiffness = 0;
        block.hasNoUpper = upper ? 0 : 1;
        block.hasNoUpperThree = three ? 0 : 1;
        block.status = upper ? StoryStatus::Regular : StoryStatus::NotCompared;
        if (!upper) return;
        using namespace StoryFormula;
        block.upperStiffness = *upper;
        block.upper07 = kSoft * *upper;
        block.upper08 = three ? kSoftOfThree * *three : 0.0;
        block.ratio = Ratio(*stiffness, *upper);
        const auto isBelow = [&](double share, double shareOfThree) {
            return FallsBelow(*stiffness, share * *upper) || (three && FallsBelow(*stiffness, shareOfThree * *three));
        };
        if (isBelow(kSoft, kSoftOfThree)) block.status = StoryStatus::Irregular;
        block.isExtreme = isBelow(kExtremeSoft, kExtremeSoftOfThree) ? 1 : 0;
    }

private:
    std::optional<double> Stiffness(std::size_t story) const {
        if (!drifts_[story] || !shears_[story] || *drifts_[story] == 0.0) return std::nullopt;
        return std::abs(*shears_[story] / *drifts_[story]);
    }
    std::optional<double> Angle(std::size_t story) const {
        if (!drifts_[story]) return std::nullopt;
        return std::abs(StoryFormula::Ratio(*drifts_[story], model_.Stories()[story].height));
    }
    void FillAngles(std::size_t story, T_STSIC_BLOCK& block) const {
        const auto angle = Angle(story);
        if (!angle) return;
        const auto angleOf = [this](std::size_t i) { return Angle(i); };
        const auto upper = OfAbove(model_, story, angleOf);
        const auto three = MeanOfThreeAbove(model_, story, angleOf);
        block.angle = *angle;
        if (!upper) return;
        using namespace StoryFormula;
        block.angle13 = kDriftException * *upper;
        block.angle12 = three ? kAngleOfThree * *three : 0.0;
        block.angleRatio = Ratio(*angle, *upper);
        block.angleRatioThree = three ? Ratio(*angle, *three) : 0.0;
        const bool isBeyond = Exceeds(*angle, block.angle13) || (three && Exceeds(*angle, block.angle12));
        block.angleStatus = isBeyond ? StoryStatus::Irregular : StoryStatus::Regular;
    }

    const StoryModel& model_;
    std::vector<std::optional<double>> drifts_;
    std::vector<std::optional<double>> shears_;
};

/// Weight of a story by the lighter of its neighbours. A roof that is lighter than the floor below it does not count
/// (ASCE/SEI 7-16, Table 12.3-2, type 2).
void FillWeights(const StoryModel& model, std::size_t story, std::size_t direction, T_STWIC_PART& part) {
    const auto weightOf = [&](std::size_t i) { return kGravity * model.StoryMasses()[i].mass[direction]; };
    const StoryLevel& level = model.Stories()[story];
    part.weight = weightOf(story);
    const auto compare = [&](std::size_t other) {
        const bool isLightRoof = model.Stories()[other].fromTop == 1 && weightOf(other) < part.weight;
        if (!isLightRoof) part.ratio = std::max(part.ratio, StoryFormula::Ratio(part.weight, weightOf(other)));
    };
    if (level.above != StoryLevel::kNone) {
        part.hasNoUpper = 0;
        part.upperWeight = weightOf(level.above);
        compare(level.above);
    }
    if (level.below != StoryLevel::kNone) {
        part.hasNoLower = 0;
        part.lowerWeight = weightOf(level.below);
        compare(level.below);
    }
}

}  // namespace

int CStoryResultPost::GetSIC(int kind, std::uint32_t key, List<T_STSIC_D>& records) const {
    return ServeCase(kind, key, "SIC", records, [](const StoryCase& loadCase, List<T_STSIC_D>& all) {
        for (std::size_t direction = 0; direction < 2; ++direction) {
            for (const int method : {DriftMethod::Maximum, DriftMethod::CenterOfMass}) {
                const StiffnessCheck check(loadCase, direction, method);
                for (std::size_t i = 0; i < all.size(); ++i) {
                    check.Fill(i, all[i].part[direction].method[static_cast<std::size_t>(method)]);
                }
            }
        }
    });
}

/// The exception by drift angles holds for a module whose stories, but the two topmost, drift at most 1.3 times as
/// much as the one above (ASCE/SEI 7-16, 12.3.2.2).
int CStoryResultPost::GetWIC(int kind, std::uint32_t key, List<T_STWIC_D>& records) const {
    List<T_STSIC_D> stiffness;
    GetSIC(kind, key, stiffness);
    const auto blockOf = [&](std::size_t i, std::size_t direction, int method) -> const T_STSIC_BLOCK& {
        return stiffness[i].part[direction].method[static_cast<std::size_t>(method)];
    };
    const auto isExcepted = [&](std::uint32_t module, std::size_t direction, int method) {
        bool isAny = false;
        for (std::size_t i = 0; i < stiffness.size(); ++i) {
            const StoryLevel& story = Model().Stories()[i];
            if (story.mdul != module || story.fromTop <= 2) continue;
            const T_STSIC_BLOCK& block = blockOf(i, direction, method);
            if (block.angleStatus == StoryStatus::NotCompared) return false;
            if (StoryFormula::Exceeds(block.angle, block.angle13)) return false;
            isAny = true;
        }
        return isAny;
    };
    return ServeModel(kind, key, "WIC", records, [&](T_STWIC_D& record, std::size_t i) {
        record.head.direction = stiffness.empty() ? 0 : stiffness[i].head.direction;
        for (std::size_t direction = 0; direction < 2; ++direction) {
            T_STWIC_PART& part = record.part[direction];
            FillWeights(Model(), i, direction, part);
            const auto statusOf = [&](int method) {
                if (part.ratio == 0.0) return StoryStatus::NotCompared;
                const bool isHeavy = StoryFormula::Exceeds(part.ratio, StoryFormula::kWeight);
                return isHeavy && !isExcepted(record.head.mdul, direction, method) ? StoryStatus::Irregular
                                                                                   : StoryStatus::Regular;
            };
            part.status = statusOf(DriftMethod::Maximum);
            part.statusCenter = statusOf(DriftMethod::CenterOfMass);
            if (stiffness.empty()) continue;
            part.angleRatio = blockOf(i, direction, DriftMethod::Maximum).angleRatio;
            part.angleRatioCenter = blockOf(i, direction, DriftMethod::CenterOfMass).angleRatio;
        }
    });
}

/// The model has no strengths of stories: not checked.
int CStoryResultPost::GetCIC(int kind, std::uint32_t key, List<T_STCIC_D>& records) const {
    return ServeCase(kind, key, "CIC", records, [](const StoryCase&, List<T_STCIC_D>&) {});
}

}  // namespace zt
