#include "zt_cmd/field_declaration.h"

#include <cmath>

namespace zt {

bool FieldLimits::Holds(double number) const {
    const bool isHighEnough = isAboveLeast ? number > least : number >= least;
    return isHighEnough && number <= most && (!isWhole || number == std::round(number));
}

std::string FieldLimits::Reason(const std::string& label, const std::string& text) const {
    const std::string from = velda::FormatDouble(least);
    const std::string to = velda::FormatDouble(most);
    if (isWhole) return velda::FormatText("IDS_CMD_LIMIT_WHOLE", {label, text, from, to});
    if (std::isfinite(most)) return velda::FormatText("IDS_CMD_LIMIT_RANGE", {label, text, from, to});
    return velda::FormatText(isAboveLeast ? "IDS_CMD_LIMIT_ABOVE" : "IDS_CMD_LIMIT_LEAST", {label, text, from});
}

}  // namespace zt
