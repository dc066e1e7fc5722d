#include "zt_db/post/story/story_service.h"

namespace zt {
namespace {

/// Keeps the value of greater magnitude and its node.
void KeepGreater(std::optional<double> value, std::uint32_t node, double& greatest, std::uint32_t& ofNode) {
    if (!value || (ofNode != 0 && std::abs(*value) <= std::abs(greatest))) return;
    greatest = *value;
    ofNode = node;
}

}  // namespace

StoryShift StoryCase::Shift(std::size_t story, std::size_t direction) const {
    StoryShift shift;
    for (const std::uint32_t node : model_.Stories()[story].nodes) {
        const ResponseForm form = model_.Displacement(node, direction);
        if (form.displacements.empty()) continue;
        KeepGreater(response_.Governing(form), model_.Geometry().Nodes()[node].no, shift.greatest, shift.node);
    }
    shift.average = response_.Governing(model_.AverageDisplacement(story, direction)).value_or(0.0);
    shift.center = response_.Governing(model_.CenterDisplacement(story, direction)).value_or(0.0);
    return shift;
}

StoryDrift StoryCase::Drift(std::size_t story, std::size_t direction) const {
    StoryDrift drift;
    for (const StoryLine& line : model_.Stories()[story].lines) {
        const ResponseForm form = model_.Drift(line, direction);
        if (form.displacements.size() < 2) continue;
        KeepGreater(response_.Governing(form), model_.Geometry().Nodes()[line.top].no, drift.greatest, drift.node);
    }
    drift.isKnown = drift.node != 0;
    if (!drift.isKnown) return drift;
    drift.average = response_.Governing(model_.AverageDrift(story, direction)).value_or(0.0);
    drift.center = response_.Governing(model_.CenterDrift(story, direction)).value_or(0.0);
    return drift;
}

template <class FormOf>
StoryShear StoryCase::SharesOf(FormOf formOf) const {
    using Carrier = StoryModel::Carrier;
    const auto sum = response_.Governing(formOf(Carrier::All));
    if (!sum) return {};
    StoryShear shear{.isKnown = true, .sum = *sum};
    const ResponseForm frame = formOf(Carrier::Frame);
    const ResponseForm brace = formOf(Carrier::Brace);
    const auto ofFrame = response_.Governing(frame);
    const auto ofBrace = response_.Governing(brace);
    shear.hasShares =
        (ofFrame || frame.sections.empty()) && (ofBrace || brace.sections.empty()) && (ofFrame || ofBrace);
    if (shear.hasShares) {
        shear.frame = ofFrame.value_or(0.0);
        shear.brace = ofBrace.value_or(0.0);
    }
    return shear;
}

StoryShear StoryCase::Shear(std::size_t story, std::size_t direction) const {
    return SharesOf([&](StoryModel::Carrier carrier) { return model_.Shear(story, direction, carrier); });
}

StoryShear StoryCase::Overturning(std::size_t story, std::size_t direction) const {
    return SharesOf([&](StoryModel::Carrier carrier) {
        ResponseForm form{.component = direction, .isForce = true};
        for (std::size_t i = story; i != StoryLevel::kNone; i = model_.Stories()[i].above) {
            form.Add(model_.Shear(i, direction, carrier), model_.Stories()[i].height);
        }
        return form;
    });
}

int StoryCase::Direction() const {
    std::array<double, 2> sum{};
    for (std::size_t i = 0; i < model_.Stories().size(); ++i) {
        for (std::size_t k = 0; k < 2; ++k) {
            sum[k] += std::abs(response_.Governing(model_.CenterDisplacement(i, k)).value_or(0.0));
        }
    }
    return sum[1] > sum[0] ? 1 : 0;
}

T_RSTP_D StoryService::Restriction() const {
    T_RSTP_D restriction;
    if (Database().Model()) Database().Model()->GetClass<CClassRstp>()->Get(restriction);
    return restriction;
}

bool StoryService::Open(int kind, std::uint32_t key, StoryResponse& response) const {
    T_PLCOM_D combination;
    return control_.MakeLoadComb(kind, key, combination) && response.Open(Database(), combination);
}

}  // namespace zt
