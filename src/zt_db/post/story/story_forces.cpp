#include <cmath>

#include "zt_db/post/story/story_model.h"

namespace zt {
namespace {

/// Adds the force that crosses a section along a global axis, with a factor: it is taken along a line between the two
/// stations beside the cut.
void AddSection(const StoryCut& cut, std::size_t stations, std::size_t axis, double factor, ResponseForm& form) {
    const double at = cut.position * static_cast<double>(stations - 1);
    const auto first = std::min(static_cast<std::size_t>(at), stations - 2);
    const double share = at - static_cast<double>(first);
    const Vector3 axes{cut.axes.x[axis], cut.axes.y[axis], cut.axes.z[axis]};
    for (std::size_t i = 0; i < 2; ++i) {
        ResponseForm::Section section{.row = cut.element * stations + first + i};
        for (std::size_t k = 0; k < 3; ++k) {
            section.factors[k] = factor * cut.sign * axes[k] * (i == 0 ? 1.0 - share : share);
        }
        form.sections.push_back(section);
    }
}

}  // namespace

/// A section carries what lies beyond it, towards end j, so that of a member whose end j is above it is the force from
/// above. Modes give the whole shear only, by the masses above.
ResponseForm StoryModel::Shear(std::size_t story, std::size_t direction, Carrier carrier) const {
    ResponseForm form{.component = direction, .isForce = true};
    for (const StoryCut& cut : Stories()[story].cuts) {
        const bool isWanted = carrier == Carrier::All || cut.isBrace == (carrier == Carrier::Brace);
        if (isWanted) AddSection(cut, stations_, direction, 1.0, form);
    }
    if (carrier != Carrier::All) return form;
    for (std::size_t i = story; i != StoryLevel::kNone; i = Stories()[i].above) {
        for (const std::uint32_t node : Stories()[i].massed) {
            const std::uint32_t place = geometry_.Nodes()[node].place;
            const double mass = masses_[node][direction];
            if (place != CPostDataBase::kNoPlace && mass > 0.0) form.masses.push_back({place, mass});
        }
    }
    return form;
}

ResponseForm StoryModel::Pressure(std::size_t story, std::size_t lever) const {
    constexpr std::size_t kVertical = 2;
    ResponseForm form{.component = kVertical, .isForce = true};
    for (const StoryCut& cut : Stories()[story].cuts) {
        AddSection(cut, stations_, kVertical, lever < kVertical ? -cut.at[lever] : -1.0, form);
    }
    return form;
}

}  // namespace zt
