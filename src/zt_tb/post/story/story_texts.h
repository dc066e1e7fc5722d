#pragma once

#include <string>

#include "velda_util/result/record_cells.h"

namespace zt {

/// What a text stands for that a record does not have.
inline constexpr const char* kNoValue = "-";

/// What story tables take for nothing: values up to it are 0, and verdicts allow for it.
inline constexpr double kStoryTolerance = 1e-10;

/// A drift angle as "1/N", N rounded to a whole number, with a minus sign in front of negative ones; "0" for none.
std::string AngleText(double angle);
/// The same where angles may be as large as 1: those are told as they are.
std::string LargeAngleText(double angle);
/// An allowable drift angle by its denominator, with six digits.
std::string AllowableAngleText(double denominator);

/// Whether an angle of either sign exceeds that of a denominator.
bool ExceedsAngle(double angle, double denominator);
/// "OK" or "NG".
const char* VerdictText(bool isGood);

/// A quotient; 0 where the divisor is nothing.
double RatioOrNone(double value, double divisor);
/// Writes a ratio, or the dash where it is nothing.
void WriteRatio(velda::RecordCells& cells, int fieldNo, double ratio);
/// Writes the dash into neighbouring fields.
void WriteNoValues(velda::RecordCells& cells, int firstField, int lastField);

}  // namespace zt
