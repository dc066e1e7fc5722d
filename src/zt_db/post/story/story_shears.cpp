#include "zt_db/post/story/story_result_post.h"

// What follows from the forces that cross stories.

namespace zt {

/// The loads that act through the drift, by the drift restriction, at the top of each story; none where it names no
/// loads or they have no results.
std::vector<std::optional<double>> CStoryResultPost::VerticalLoads() const {
    std::vector<std::optional<double>> loads(Model().Stories().size());
    StoryResponse response;
    const T_PLCOM_D combination{.items = Restriction().verticalLoads};
    if (!response.Open(Database(), combination)) return loads;
    const StoryCase loadCase(Model(), response);
    for (std::size_t i = 0; i < loads.size(); ++i) loads[i] = loadCase.Pressure(i);
    return loads;
}

int CStoryResultPost::GetSFR(int kind, std::uint32_t key, List<T_STSFR_D>& records) const {
    return ServeCase(kind, key, "SFR", records, [](const StoryCase& loadCase, List<T_STSFR_D>& all) {
        ForEachPart(all, [&](T_STSFR_PART& part, std::size_t i, std::size_t direction) {
            const StoryShear shear = loadCase.Shear(i, direction);
            part.status = shear.hasShares ? ShearStatus::WithShares
                          : shear.isKnown ? ShearStatus::SumOnly
                                          : ShearStatus::None;
            part.sum = shear.sum;
            part.frame = shear.frame;
            part.brace = shear.brace;
            part.frameRatio = StoryFormula::Ratio(shear.frame, shear.sum);
            part.braceRatio = StoryFormula::Ratio(shear.brace, shear.sum);
        });
    });
}

int CStoryResultPost::GetStbCoeff(int kind, std::uint32_t key, List<T_STBCF_D>& records) const {
    return ServeCase(kind, key, "StbCoeff", records, [&](const StoryCase& loadCase, List<T_STBCF_D>& all) {
        const T_RSTP_D restriction = Restriction();
        const CClassRstp& restrictions = *Database().Model()->GetClass<CClassRstp>();
        const auto vertical = VerticalLoads();
        ForEachPart(all, [&](T_STBCF_PART& part, std::size_t i, std::size_t direction) {
            const StoryLevel& story = loadCase.Model().Stories()[i];
            const StoryDrift drift = loadCase.Drift(i, direction);
            const StoryShear shear = loadCase.Shear(i, direction);
            part.verticalLoad = vertical[i].value_or(0.0);
            part.shear = shear.sum;
            part.beta = restrictions.GetBeta(story.key);
            part.limit = restrictions.GetAllowableLimit(story.key, kind, key);
            part.isChecked = vertical[i] && drift.isKnown && shear.isKnown && shear.sum != 0.0 ? 1 : 0;
            for (std::size_t method = 0; method < 2; ++method) {
                part.drift[method] = StoryFormula::AmplifiedDrift(drift.Of(static_cast<int>(method)),
                                                                  restriction.amplification, restriction.importance);
                if (part.isChecked == 0) continue;
                part.theta[method] =
                    StoryFormula::StabilityCoefficient(part.verticalLoad, part.drift[method], restriction.importance,
                                                       shear.sum, story.height, restriction.amplification);
                part.increment[method] = StoryFormula::SecondOrderAmplification(part.theta[method]);
            }
        });
    });
}

/// EJd of the whole building is told for a triangular load only (JGJ 3-2010, 5.4.1); a case does not tell that it is
/// one, so that this check stays open.
int CStoryResultPost::GetSTC(int kind, std::uint32_t key, List<T_STSTC_D>& records) const {
    const int isServed = ServeCase(kind, key, "STC", records, [this](const StoryCase& loadCase, List<T_STSTC_D>& all) {
        const auto vertical = VerticalLoads();
        ForEachPart(all, [&](T_STSTC_PART& part, std::size_t i, std::size_t direction) {
            const StoryLevel& story = loadCase.Model().Stories()[i];
            std::size_t lowest = i;
            while (loadCase.Model().Stories()[lowest].below != StoryLevel::kNone) {
                lowest = loadCase.Model().Stories()[lowest].below;
            }
            std::size_t topmost = i;
            while (loadCase.Model().Stories()[topmost].above != StoryLevel::kNone) {
                topmost = loadCase.Model().Stories()[topmost].above;
            }
            part.whole.height = loadCase.Model().Stories()[topmost].level - loadCase.Model().Stories()[lowest].base;
            part.whole.gravity = vertical[lowest].value_or(0.0);
            auto& check = part.frame;
            check.height = story.height;
            check.gravity = vertical[i].value_or(0.0);
            const StoryDrift drift = loadCase.Drift(i, direction);
            const StoryShear shear = loadCase.Shear(i, direction);
            if (!drift.isKnown || !shear.isKnown || drift.center == 0.0) return;
            check.stiffness = std::abs(shear.sum / drift.center);
            if (!vertical[i] || check.gravity <= 0.0) return;
            check.ratio = check.stiffness * check.height / check.gravity;
            const auto wordOf = [](bool isYes) { return isYes ? StabilityWord::Yes : StabilityWord::No; };
            check.stability = wordOf(!StoryFormula::FallsBelow(check.ratio, StoryFormula::kFrameStable));
            check.secondOrder = wordOf(StoryFormula::FallsBelow(check.ratio, StoryFormula::kFrameStiff));
        });
    });
    ForEachPart(records, [](T_STSTC_PART& part, std::size_t, std::size_t) {
        for (double* stiffness : {&part.frame.stiffness, &part.whole.stiffness}) {
            if (*stiffness < 0.0) *stiffness = -1.0;
        }
    });
    return isServed;
}

int CStoryResultPost::GetOTM(int kind, std::uint32_t key, List<T_STOTM_D>& records) const {
    return ServeCase(kind, key, "OTM", records, [](const StoryCase& loadCase, List<T_STOTM_D>& all) {
        ForEachPart(all, [&](T_STOTM_PART& part, std::size_t i, std::size_t direction) {
            const StoryShear moment = loadCase.Overturning(i, direction);
            if (!moment.isKnown) return;
            part.hide = 0;
            part.sum = moment.sum;
            part.reduction = {1.0, StoryFormula::OverturningReduction(loadCase.Model().Stories()[i].fromTop)};
            for (std::size_t method = 0; method < 2; ++method)
                part.modified[method] = part.reduction[method] * part.sum;
            part.limitShare = StoryFormula::kFrameMoment;
            if (!moment.hasShares) return;
            part.shareHide = 0;
            part.frame = moment.frame;
            part.wall2 = moment.brace;
            part.share = StoryFormula::Ratio(moment.frame, moment.sum);
            part.check = StoryFormula::Exceeds(part.share, StoryFormula::kFrameMoment) ? 0 : 1;
        });
    });
}

int CStoryResultPost::GetAFS(int kind, std::uint32_t key, List<T_STAFS_D>& records) const {
    return ServeCase(kind, key, "AFS", records, [](const StoryCase& loadCase, List<T_STAFS_D>& all) {
        const StoryModel& model = loadCase.Model();
        const bool isKnown = std::any_of(all.begin(), all.end(), [&](const T_STAFS_D& record) {
            return loadCase.Pressure(record.head.seq - 1).has_value();
        });
        if (!isKnown) all.clear();
        for (std::size_t i = 0; i < all.size(); ++i) {
            all[i].force = loadCase.Pressure(i).value_or(0.0);
            for (std::size_t k = 0; k < 2 && all[i].force != 0.0; ++k) {
                all[i].center[k] = loadCase.Response().Governing(model.Pressure(i, k)).value_or(0.0) / all[i].force;
            }
        }
    });
}

/// The model has no yield strengths: not checked.
int CStoryResultPost::GetYSC(int kind, std::uint32_t key, List<T_STYSC_D>& records) const {
    return ServeCase(kind, key, "YSC", records, [](const StoryCase& loadCase, List<T_STYSC_D>& all) {
        ForEachPart(all, [&](T_STYSC_PART& part, std::size_t i, std::size_t direction) {
            part.shear = loadCase.Shear(i, direction).sum;
        });
    });
}

/// A frame that carries all of the shear has no second system beside it and is not checked.
int CStoryResultPost::Get02Q0(int kind, std::uint32_t key, List<T_ST02Q_D>& records,
                              const StoryFormula::FrameShearShares& shares) const {
    return ServeCase(kind, key, "02Q0", records, [&shares](const StoryCase& loadCase, List<T_ST02Q_D>& all) {
        const auto& stories = loadCase.Model().Stories();
        ForEachPart(all, [&](T_ST02Q_PART& part, std::size_t i, std::size_t direction) {
            const StoryShear own = loadCase.Shear(i, direction);
            if (!own.hasShares) return;
            double most = 0.0;
            double base = 0.0;
            for (std::size_t k = 0; k < stories.size(); ++k) {
                if (stories[k].mdul != stories[i].mdul) continue;
                const StoryShear shear = loadCase.Shear(k, direction);
                most = std::max(most, std::abs(shear.frame));
                if (stories[k].below == StoryLevel::kNone) base = std::abs(shear.sum);
            }
            part.isAbsent = 0;
            part.frame = std::abs(own.frame);
            part.shareOfBase = shares.ofBase * base;
            part.shareOfMost = shares.ofMost * most;
            part.least = std::min(part.shareOfBase, part.shareOfMost);
            if (own.brace == 0.0) return;
            part.status =
                StoryFormula::FallsBelow(part.frame, part.least) ? StoryStatus::Irregular : StoryStatus::Regular;
        });
    });
}

}  // namespace zt
