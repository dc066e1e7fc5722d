#include "zt_anl/model/dynamic_cases.h"

#include <algorithm>
#include <cmath>

#include "zt_db/core/record_walk.h"

namespace zt {
namespace {

/// More states than this are taken for a slip of the pen.
constexpr double kMostStates = 2.0e5;

/// Reads the function of a case; false when it is missing or has no points.
template <class Class>
bool ReadFunction(const CDataBase& database, std::uint32_t key, typename Class::Record& function) {
    return ReadInBase<Class>(database, key, function) && !function.points.empty();
}

/// Reads the functions of the items; false when one is missing, or a static load case that one drives.
bool ReadItems(const CDataBase& database, HistoryCase& of) {
    for (const T_THLC_ITEM& item : of.record.items) {
        T_STLD_D driven;
        const bool isGround = item.stld == 0;
        if (!isGround && !ReadInBase<CClassStld>(database, item.stld, driven)) return false;
        if (!ReadFunction<CClassThfc>(database, item.thfc, of.functions.emplace_back())) return false;
    }
    return !of.functions.empty();
}

bool AreTimesOfUse(const T_THLC_D& record) {
    return record.step > 0.0 && record.duration >= record.step && record.duration / record.step < kMostStates;
}

}  // namespace

std::vector<SpectrumCase> ReadSpectrumCases(const CDataBase& database, AnalysisLog& log) {
    std::vector<SpectrumCase> cases;
    ForEachInOrder<CClassSplc>(database, [&](std::uint32_t key, const T_SPLC_D& record) {
        SpectrumCase read{.key = key, .record = record};
        if (ReadFunction<CClassSpfc>(database, record.spfc, read.spectrum)) {
            cases.push_back(std::move(read));
        } else {
            log.Warn("IDS_ANL_NO_FUNCTION", {record.name});
        }
    });
    return cases;
}

std::vector<HistoryCase> ReadHistoryCases(const CDataBase& database, AnalysisLog& log) {
    std::vector<HistoryCase> cases;
    ForEachInOrder<CClassThlc>(database, [&](std::uint32_t key, const T_THLC_D& record) {
        HistoryCase read{.key = key, .record = record};
        if (!ReadItems(database, read)) {
            log.Warn("IDS_ANL_NO_FUNCTION", {record.name});
        } else if (!AreTimesOfUse(record)) {
            log.Warn("IDS_ANL_HISTORY_TIMES", {record.name});
        } else if (record.damping < 0.0 || record.damping >= 1.0) {
            log.Warn("IDS_ANL_HISTORY_DAMPING", {record.name});
        } else {
            cases.push_back(std::move(read));
        }
    });
    return cases;
}

Vector3 GroundDirectionOf(int direction, double angle) {
    if (direction == GroundDirection::Vertical) return {0.0, 0.0, 1.0};
    return {std::cos(angle), std::sin(angle), 0.0};
}

double SpectrumAt(const T_SPFC_D& spectrum, double period) {
    const auto& points = spectrum.points;
    const auto next = std::upper_bound(points.begin(), points.end(), period,
                                       [](double value, const T_SPFC_POINT& point) { return value < point.period; });
    if (next == points.begin()) return points.front().value;
    if (next == points.end()) return points.back().value;
    const auto last = next - 1;
    return std::lerp(last->value, next->value, (period - last->period) / (next->period - last->period));
}

std::size_t StatesOf(const T_THLC_D& record) {
    constexpr double kRounding = 1.0e-6;  // of a step, so that 0.3 holds three steps of 0.1
    return static_cast<std::size_t>(record.duration / record.step + kRounding) + 1;
}

}  // namespace zt
