#pragma once

namespace zt {

/// Kinds of load cases, the numbers that stand beside a load-case key.
namespace LoadCaseKind {
inline constexpr int Static = 1;
inline constexpr int Spectrum = 4;
inline constexpr int TimeHistory = 5;
inline constexpr int Settlement = 9;
inline constexpr int Combination = 10;
inline constexpr int EsSpectrum = 16;
inline constexpr int Pushover = 17;
inline constexpr int Pt = 18;
inline constexpr int EsStatic = 26;
inline constexpr int NonlinearLoad = 28;
inline constexpr int NonlinearCase = 29;
inline constexpr int EsCombination = 30;
}  // namespace LoadCaseKind

/// What of a case with envelopes is meant, the number that stands beside its kind.
namespace LoadCaseSubKind {
inline constexpr int All = 0;
inline constexpr int Max = 1;
inline constexpr int Min = -1;
inline constexpr int Single = 2;  ///< a case without envelopes
}  // namespace LoadCaseSubKind

}  // namespace zt
