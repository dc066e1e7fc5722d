#include "zt_db/post/story/story_result.h"

#include "zt_db/post/story/story_formula.h"

namespace zt {

int CStoryResult::CalcAlwAngle4DFT(double& angle, int) const {
    angle = Restriction().allowableRatio;
    return angle > 0.0 ? 1 : 0;
}

int CStoryResult::GetAllowShearWeightRatio(double& limit, int, const void*, int, int) const {
    limit = 0.0;
    return 0;
}

int CStoryResult::GetSFC(int kind, std::uint32_t key, List<T_STSFC_D>& records, double allowable) const {
    return ServeCase(kind, key, "SFC", records, [allowable](const StoryCase& loadCase, List<T_STSFC_D>& all) {
        ForEachPart(all, [&](T_STSFC_PART& part, std::size_t i, std::size_t direction) {
            const StoryShear shear = loadCase.Shear(i, direction);
            part.weight = loadCase.Model().WeightAtAndAbove(i, direction);
            if (!shear.isKnown || part.weight <= 0.0) return;
            part.shear = std::abs(shear.sum);
            part.ratio = part.shear / part.weight;
            part.allowable = allowable;
            part.status = StoryStatus::Open;
            if (allowable <= 0.0) return;
            const bool isBad = StoryFormula::FallsBelow(part.ratio, allowable);
            part.status = isBad ? StoryStatus::Bad : StoryStatus::Good;
            part.coefficient = isBad ? StoryFormula::Ratio(allowable, part.ratio) : 0.0;
        });
    });
}

/// The greatest drift of all lines, and when it comes.
int CStoryResult::GetDFT4TH(int kind, std::uint32_t key, List<T_STDFTTH_D>& records) const {
    return ServeCase(kind, key, "DFT4TH", records, [this](const StoryCase& loadCase, List<T_STDFTTH_D>& all) {
        double allowable = 0.0;
        const bool hasLimit = CalcAlwAngle4DFT(allowable) != 0;
        ForEachPart(all, [&](T_STDFTTH_PART& part, std::size_t i, std::size_t direction) {
            const StoryModel& model = loadCase.Model();
            const StoryLevel& story = model.Stories()[i];
            for (const StoryLine& line : story.lines) {
                const ResponseForm form = model.Drift(line, direction);
                TimedBounds drift;
                if (form.displacements.size() < 2 || !loadCase.Response().Read(form, drift)) continue;
                const double value = drift.bounds.Governing();
                if (part.inUse != 0 && std::abs(value) <= std::abs(part.drift)) continue;
                part.inUse = 1;
                part.node = model.Geometry().Nodes()[line.top].no;
                part.drift = value;
                part.time = value == drift.bounds.max ? drift.maxTime : drift.minTime;
            }
            part.angle = StoryFormula::Ratio(part.drift, story.height);
            part.allowable = hasLimit ? 1.0 / allowable : -1.0;
            part.isFailed = hasLimit && StoryFormula::Exceeds(std::abs(part.angle), allowable) ? 1 : 0;
            const double average = loadCase.Response().Governing(model.AverageDrift(i, direction)).value_or(0.0);
            part.averageAngle = StoryFormula::Ratio(average, story.height);
            part.angleRatio = std::abs(StoryFormula::Ratio(part.angle, part.averageAngle));
        });
    });
}

int CStoryResult::GetSHR4TH(int kind, std::uint32_t key, List<T_STSHRTH_D>& records) const {
    return ServeCase(kind, key, "SHR4TH", records, [](const StoryCase& loadCase, List<T_STSHRTH_D>& all) {
        bool isKnown = false;
        ForEachPart(all, [&](T_STSHRTH_PART& part, std::size_t i, std::size_t direction) {
            TimedBounds shear;
            if (!loadCase.Response().Read(loadCase.Model().Shear(i, direction), shear)) return;
            isKnown = true;
            part = {shear.bounds.max, shear.bounds.min, shear.maxTime, shear.minTime};
        });
        if (!isKnown) all.clear();
    });
}

/// The force of a story is put together from the modes as its shear is: it is no difference of extreme shears.
int CStoryResult::GetSHR4RS(int kind, std::uint32_t key, List<T_STSHRRS_D>& records) const {
    return ServeCase(kind, key, "SHR4RS", records, [](const StoryCase& loadCase, List<T_STSHRRS_D>& all) {
        const StoryModel& model = loadCase.Model();
        bool isKnown = false;
        ForEachPart(all, [&](T_STSHRRS_PART& part, std::size_t i, std::size_t direction) {
            ResponseForm form = model.Shear(i, direction);
            const auto shear = loadCase.Response().Governing(form);
            if (!shear) return;
            isKnown = true;
            const std::size_t above = model.Stories()[i].above;
            if (above != StoryLevel::kNone) form.Add(model.Shear(above, direction), -1.0);
            part.shear = *shear;
            part.force = loadCase.Response().Governing(form).value_or(0.0);
            part.eccentricity = StoryFormula::kAccidental * model.WidthAcross(i, direction);
            part.moment = part.force * part.eccentricity;
        });
        if (!isKnown) all.clear();
    });
}

int CStoryResult::GetSSF_THRS(const List<std::uint32_t>& histories, std::uint32_t spectrum,
                              List<T_STSSF_D>& records) const {
    constexpr std::size_t kMost = std::tuple_size_v<decltype(T_STSSF_PART::history)>;
    std::vector<std::optional<StoryResponse>> responses(kMost + 1);
    bool isAny = false;
    const auto open = [&](std::size_t place, int kind, std::uint32_t key) {
        StoryResponse response;
        if (key == 0 || !HasModel() || !Open(kind, key, response)) return;
        responses[place] = std::move(response);
        isAny = true;
    };
    for (std::size_t i = 0; i < kMost && i < histories.size(); ++i) open(i, LoadCaseKind::TimeHistory, histories[i]);
    open(kMost, LoadCaseKind::Spectrum, spectrum);
    const std::uint32_t first = histories.empty() ? 0 : histories.front();
    if (!isAny) return ServeStored(LoadCaseKind::TimeHistory, first, "SSF_THRS", records);
    return ServeModel(LoadCaseKind::TimeHistory, first, "SSF_THRS", records, [&](T_STSSF_D& record, std::size_t i) {
        for (std::size_t direction = 0; direction < 2; ++direction) {
            T_STSSF_PART& part = record.part[direction];
            double sum = 0.0;
            double count = 0.0;
            for (std::size_t place = 0; place <= kMost; ++place) {
                if (!responses[place]) continue;
                const double shear = std::abs(responses[place]->Governing(Model().Shear(i, direction)).value_or(0.0));
                (place < kMost ? part.history[place] : part.spectrum) = shear;
                if (place == kMost) continue;
                sum += shear;
                count += 1.0;
            }
            part.mean = StoryFormula::Ratio(sum, count);
        }
    });
}

int CStoryResult::GetDFT4THNC(int kind, std::uint32_t key, List<T_STDFTTH_D>& records) const {
    return ServeStored(kind, key, "DFT4THNC", records);
}

int CStoryResult::GetSHR4THNC(int kind, std::uint32_t key, List<T_STSHRTH_D>& records) const {
    return ServeStored(kind, key, "SHR4THNC", records);
}

int CStoryResult::GetDFT4PV(int kind, std::uint32_t key, int step, List<T_STDFTTH_D>& records) const {
    return ServeStored(kind, key, "DFT4PV/" + std::to_string(step), records);
}

/// Translations are the means by mass; the rotation about the vertical is that of the rigid floor which fits the masses
/// best. Other rotations do not belong to a floor as a whole and are 0.
int CStoryDataCalc::GetMode(int mode, std::vector<T_STMODE_D>& records) const {
    records.clear();
    if (!HasModel() || mode < 1) return 0;
    const ResultArray shape = Database().Results()->Array(std::string(ResultName::Shape) + std::to_string(mode));
    if (shape.Columns() < 6) return 0;
    return ServeModel(0, static_cast<std::uint32_t>(mode), "Mode", records, [&](T_STMODE_D& record, std::size_t i) {
        const StoryModel& model = Model();
        record.mode = mode;
        record.center = model.StoryMasses()[i].center;
        for (std::size_t k = 0; k < 3; ++k) {
            for (const ResponseForm::Term& term : model.CenterDisplacement(i, k).displacements) {
                record.value[k] += term.factor * shape.At(term.place, k);
            }
        }
        double turned = 0.0;
        double inertia = 0.0;
        for (const std::uint32_t at : model.Stories()[i].nodes) {
            const StoryNode& node = model.Geometry().Nodes()[at];
            if (node.place == CPostDataBase::kNoPlace) continue;
            const double x = node.at[0] - record.center[0];
            const double y = node.at[1] - record.center[1];
            const double mass = 0.5 * (model.Masses()[at][0] + model.Masses()[at][1]);
            turned += mass * (x * (shape.At(node.place, 1) - record.value[1]) -
                              y * (shape.At(node.place, 0) - record.value[0]));
            inertia += mass * (x * x + y * y);
        }
        record.value[5] = StoryFormula::Ratio(turned, inertia);
    });
}

}  // namespace zt
