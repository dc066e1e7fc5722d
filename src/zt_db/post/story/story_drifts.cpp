#include "zt_db/post/story/story_result_post.h"

// Displacements, drifts, and what follows from them alone.

namespace zt {

/// Of X and Y together the magnitude of both; where they have extremes only, these are taken to come at one time.
int CStoryResultPost::GetDSP(int kind, std::uint32_t key, List<T_STDSP_D>& records) const {
    return ServeCase(kind, key, "DSP", records, [](const StoryCase& loadCase, List<T_STDSP_D>& all) {
        for (std::size_t i = 0; i < all.size(); ++i) {
            for (std::size_t direction = 0; direction < 2; ++direction) {
                const StoryShift shift = loadCase.Shift(i, direction);
                all[i].part[direction] = {shift.greatest, shift.average, shift.node};
            }
            T_STDSP_PART& both = all[i].part[2];
            both.average = std::hypot(all[i].part[0].average, all[i].part[1].average);
            for (const std::uint32_t node : loadCase.Model().Stories()[i].nodes) {
                const auto x = loadCase.Response().Governing(loadCase.Model().Displacement(node, 0));
                const auto y = loadCase.Response().Governing(loadCase.Model().Displacement(node, 1));
                const double length = std::hypot(x.value_or(0.0), y.value_or(0.0));
                const bool hasResults = loadCase.Model().Geometry().Nodes()[node].place != CPostDataBase::kNoPlace;
                if (!hasResults || (both.node != 0 && length <= both.maximum)) continue;
                both.maximum = length;
                both.node = loadCase.Model().Geometry().Nodes()[node].no;
            }
        }
    });
}

int CStoryResultPost::GetDFT(int kind, std::uint32_t key, List<T_STDFT_D>& records) const {
    return ServeCase(kind, key, "DFT", records, [this](const StoryCase& loadCase, List<T_STDFT_D>& all) {
        const T_RSTP_D restriction = Restriction();
        const auto vertical = VerticalLoads();
        const auto pointOf = [&](double drift, std::uint32_t node, std::size_t i, const StoryShear& shear) {
            const double height = loadCase.Model().Stories()[i].height;
            const double amplified =
                StoryFormula::AmplifiedDrift(drift, restriction.amplification, restriction.importance);
            T_STDFT_POINT point{.drift = drift, .angle = StoryFormula::Ratio(drift, height), .node = node};
            if (vertical[i] && shear.isKnown) {
                point.pDelta = StoryFormula::SecondOrderAmplification(StoryFormula::StabilityCoefficient(
                    *vertical[i], amplified, restriction.importance, shear.sum, height, restriction.amplification));
            }
            point.modified = amplified * point.pDelta;
            point.ratio = StoryFormula::Ratio(point.modified, height);
            return point;
        };
        for (std::size_t i = 0; i < all.size(); ++i) all[i].type = loadCase.Model().Stories()[i].hasWalls ? 1 : 0;
        ForEachPart(all, [&](T_STDFT_PART& part, std::size_t i, std::size_t direction) {
            const StoryDrift drift = loadCase.Drift(i, direction);
            if (!drift.isKnown) return;
            const StoryShear shear = loadCase.Shear(i, direction);
            part = {1, pointOf(drift.greatest, drift.node, i, shear), pointOf(drift.center, 0, i, shear)};
        });
    });
}

int CStoryResultPost::GetTIC(int kind, std::uint32_t key, List<T_STTIC_D>& records) const {
    return ServeCase(kind, key, "TIC", records, [](const StoryCase& loadCase, List<T_STTIC_D>& all) {
        ForEachPart(all, [&](T_STTIC_PART& part, std::size_t i, std::size_t direction) {
            const StoryShift shift = loadCase.Shift(i, direction);
            part.averageDisplacement = shift.average;
            part.displacement = shift.greatest;
            part.displacementRatio = std::abs(StoryFormula::Ratio(shift.greatest, shift.average));
            const StoryDrift drift = loadCase.Drift(i, direction);
            if (!drift.isKnown) return;
            part.averageDrift = drift.average;
            part.node = drift.node;
            part.drift = drift.greatest;
            part.driftRatio = std::abs(StoryFormula::Ratio(drift.greatest, drift.average));
            const auto isBeyond = [&](double limit) {
                return StoryFormula::Exceeds(std::abs(drift.greatest), limit * std::abs(drift.average));
            };
            part.status = isBeyond(StoryFormula::kTorsion) ? StoryStatus::Irregular : StoryStatus::Regular;
            part.status2 = isBeyond(StoryFormula::kExtremeTorsion) ? StoryStatus::TorsionExtreme : part.status;
        });
    });
}

int CStoryResultPost::GetTAF(int kind, std::uint32_t key, List<T_STTAF_D>& records) const {
    return ServeCase(kind, key, "TAF", records, [](const StoryCase& loadCase, List<T_STTAF_D>& all) {
        ForEachPart(all, [&](T_STTAF_PART& part, std::size_t i, std::size_t direction) {
            const StoryShift shift = loadCase.Shift(i, direction);
            part = {shift.average, shift.node, shift.greatest,
                    StoryFormula::TorsionalAmplification(shift.greatest, shift.average)};
        });
    });
}

}  // namespace zt
