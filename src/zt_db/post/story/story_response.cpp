#include "zt_db/post/story/story_response.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zt {
namespace {

TimedBounds Times(const TimedBounds& value, double factor) {
    const TimedBounds product{{value.bounds.max * factor, value.bounds.min * factor}, value.maxTime, value.minTime};
    if (factor >= 0.0) return product;
    return {{product.bounds.min, product.bounds.max}, product.minTime, product.maxTime};
}

std::vector<double> Row(const ResultArray& array, std::size_t row) {
    const double* values = array.Row(row);
    return values ? std::vector<double>(values, values + array.Columns()) : std::vector<double>{};
}

/// The most probable extreme of a sum of modal values. Without correlation it is the root of the sum of squares,
/// otherwise the complete quadratic combination (Der Kiureghian 1981).
double Combined(const std::vector<double>& values, const std::vector<double>& correlation) {
    double sum = 0.0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (correlation.empty()) {
            sum += values[i] * values[i];
            continue;
        }
        for (std::size_t j = 0; j < values.size(); ++j) {
            sum += correlation[i * values.size() + j] * values[i] * values[j];
        }
    }
    return std::sqrt(std::max(sum, 0.0));
}

}  // namespace

void ResponseForm::Add(const ResponseForm& other, double factor) {
    const auto add = [factor](std::vector<Term>& terms, const std::vector<Term>& more) {
        for (const Term& term : more) terms.push_back({term.place, term.factor * factor});
    };
    add(displacements, other.displacements);
    add(masses, other.masses);
    for (Section section : other.sections) {
        for (double& value : section.factors) value *= factor;
        sections.push_back(section);
    }
}

// ---- opening ----

bool StoryResponse::Open(const CPostDataBase& database, const T_PLCOM_D& combination) {
    *this = {};
    const auto leafOf = [&](int kind, std::uint32_t key) { return AddLeaf(database, kind, key); };
    const bool good = OpenCaseTree(database, combination, leafOf, root_);
    if (!good) *this = {};
    hasEnvelope_ = root_.HasEnvelope() ||
                   std::any_of(leaves_.begin(), leaves_.end(), [](const Leaf& leaf) { return leaf.isModal(); });
    return good;
}

int StoryResponse::AddLeaf(const CPostDataBase& database, int kind, std::uint32_t key) {
    const ResultSource& results = *database.Results();
    if (!HasResultsOf(results, kind, key)) return -1;
    Leaf leaf;
    if (!HasEnvelopes(kind)) {
        leaf.displacement = results.Array(CasePath(kind, key, ResultName::Displacement));
        leaf.force = results.Array(CasePath(kind, key, ResultName::ElementForce));
        leaves_.push_back(std::move(leaf));
        return static_cast<int>(leaves_.size()) - 1;
    }
    const bool isKnown = kind == LoadCaseKind::Spectrum      ? ReadSpectrum(results, key, leaf)
                         : kind == LoadCaseKind::TimeHistory ? ReadHistory(results, key, leaf)
                                                             : false;
    if (!isKnown || !ReadModes(results, leaf.modes)) return -1;
    leaves_.push_back(std::move(leaf));
    return static_cast<int>(leaves_.size()) - 1;
}

bool StoryResponse::ReadSpectrum(const ResultSource& results, std::uint32_t key, Leaf& leaf) {
    leaf.peaks = Row(results.Array(CasePath(LoadCaseKind::Spectrum, key, ResultName::ModalCoordinate)), 0);
    leaf.modes = leaf.peaks.size();
    const ResultArray correlation = results.Array(CasePath(LoadCaseKind::Spectrum, key, ResultName::ModalCorrelation));
    if (!correlation) return leaf.modes > 0;
    if (correlation.Rows() != leaf.modes || correlation.Columns() != leaf.modes) return false;
    for (std::size_t i = 0; i < leaf.modes; ++i) {
        const std::vector<double> row = Row(correlation, i);
        leaf.correlation.insert(leaf.correlation.end(), row.begin(), row.end());
    }
    return leaf.correlation.size() == leaf.modes * leaf.modes;
}

bool StoryResponse::ReadHistory(const ResultSource& results, std::uint32_t key, Leaf& leaf) {
    const auto array = [&](std::string_view name) {
        return results.Array(CasePath(LoadCaseKind::TimeHistory, key, name));
    };
    const ResultArray coordinates = array(ResultName::Coordinate);
    leaf.modes = coordinates.Columns();
    leaf.step = array(ResultName::Step).At(0, 0);
    for (std::size_t i = 0; i < coordinates.Rows(); ++i) {
        const std::vector<double> row = Row(coordinates, i);
        leaf.states.insert(leaf.states.end(), row.begin(), row.end());
    }
    return !leaf.states.empty() && leaf.states.size() == leaf.modes * coordinates.Rows();
}

bool StoryResponse::ReadModes(const ResultSource& results, std::size_t modes) {
    const ResultArray frequencies = results.Array(ResultName::Frequency);
    while (shapes_.size() < modes) {
        const std::size_t mode = shapes_.size();
        ResultArray shape = results.Array(std::string(ResultName::Shape) + std::to_string(mode + 1));
        if (!shape || shape.Columns() < 3) return false;
        const double circular = 2.0 * std::numbers::pi * frequencies.At(mode, 0);
        shapes_.push_back(std::move(shape));
        squares_.push_back(circular * circular);
    }
    return true;
}

// ---- reading ----

bool StoryResponse::Read(const ResponseForm& form, TimedBounds& bounds) const {
    return !root_.parts.empty() && ReadNode(root_, form, bounds);
}

std::optional<double> StoryResponse::Governing(const ResponseForm& form) const {
    TimedBounds bounds;
    return Read(form, bounds) ? std::optional(bounds.bounds.Governing()) : std::nullopt;
}

/// Sums of extremes come at no one time; only a case by itself keeps its times.
bool StoryResponse::ReadNode(const CaseTree& node, const ResponseForm& form, TimedBounds& bounds) const {
    if (node.leaf >= 0) {
        if (!ReadLeaf(leaves_[static_cast<std::size_t>(node.leaf)], form, bounds)) return false;
        bounds = Times(bounds, node.factor);
        return true;
    }
    TimedBounds whole{};
    for (std::size_t i = 0; i < node.parts.size(); ++i) {
        TimedBounds own{};
        if (!ReadNode(node.parts[i], form, own)) return false;
        if (i == 0) {
            whole = own;
        } else if (node.isEnvelope) {
            if (own.bounds.max > whole.bounds.max)
                whole = {{own.bounds.max, whole.bounds.min}, own.maxTime, whole.minTime};
            if (own.bounds.min < whole.bounds.min)
                whole = {{whole.bounds.max, own.bounds.min}, whole.maxTime, own.minTime};
        } else {
            whole = {{whole.bounds.max + own.bounds.max, whole.bounds.min + own.bounds.min}, 0.0, 0.0};
        }
    }
    bounds = Times(whole, node.factor);
    return true;
}

bool StoryResponse::ReadLeaf(const Leaf& leaf, const ResponseForm& form, TimedBounds& bounds) const {
    if (!leaf.isModal()) {
        double value = 0.0;
        if (!ReadStatic(leaf, form, value)) return false;
        bounds = {{value, value}, 0.0, 0.0};
        return true;
    }
    std::vector<double> values;
    if (!OfModes(leaf, form, values)) return false;
    if (!leaf.peaks.empty()) {
        for (std::size_t i = 0; i < leaf.modes; ++i) values[i] *= leaf.peaks[i];
        const double extreme = Combined(values, leaf.correlation);
        bounds = {{extreme, -extreme}, 0.0, 0.0};
        return true;
    }
    const std::size_t states = leaf.states.size() / leaf.modes;
    for (std::size_t state = 0; state < states; ++state) {
        const double* coordinates = leaf.states.data() + state * leaf.modes;
        double value = 0.0;
        for (std::size_t i = 0; i < leaf.modes; ++i) value += coordinates[i] * values[i];
        const double time = static_cast<double>(state) * leaf.step;
        if (state == 0) bounds = {{value, value}, time, time};
        if (value > bounds.bounds.max) bounds = {{value, bounds.bounds.min}, time, bounds.minTime};
        if (value < bounds.bounds.min) bounds = {{bounds.bounds.max, value}, bounds.maxTime, time};
    }
    return true;
}

bool StoryResponse::ReadStatic(const Leaf& leaf, const ResponseForm& form, double& value) const {
    if (form.isForce && (!leaf.force || form.sections.empty())) return false;
    if (!form.isForce && form.component >= leaf.displacement.Columns()) return false;
    for (const ResponseForm::Term& term : form.displacements) {
        if (term.place >= leaf.displacement.Rows()) return false;
        value += term.factor * leaf.displacement.At(term.place, form.component);
    }
    for (const ResponseForm::Section& section : form.sections) {
        const double* forces = leaf.force.Columns() >= section.factors.size() ? leaf.force.Row(section.row) : nullptr;
        if (!forces) return false;
        for (std::size_t i = 0; i < section.factors.size(); ++i) value += section.factors[i] * forces[i];
    }
    return true;
}

/// What a unit of each mode gives to a quantity. Masses times the square of the circular frequency times the shape are
/// the elastic forces of a mode, whose sum above a story is its shear.
bool StoryResponse::OfModes(const Leaf& leaf, const ResponseForm& form, std::vector<double>& values) const {
    if (form.isForce && form.masses.empty()) return false;
    values.assign(leaf.modes, 0.0);
    for (std::size_t mode = 0; mode < leaf.modes; ++mode) {
        const auto& terms = form.isForce ? form.masses : form.displacements;
        for (const ResponseForm::Term& term : terms) {
            if (term.place >= shapes_[mode].Rows()) return false;
            values[mode] += term.factor * shapes_[mode].At(term.place, form.component);
        }
        if (form.isForce) values[mode] *= squares_[mode];
    }
    return true;
}

}  // namespace zt
