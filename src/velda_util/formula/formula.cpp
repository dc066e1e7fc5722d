#include "velda_util/formula/formula.h"

#include "velda_lib/number_text.h"
#include "velda_util/formula/formula_scan.h"

namespace velda {

bool IsMarkedFormula(std::string_view text) { return TrimBlanks(text).starts_with('='); }

bool IsExpression(std::string_view text) {
    // Most cells hold a plain number or name: they are told apart without a scan.
    if (text.find_first_of("+-*/^(") == std::string_view::npos || IsMarkedFormula(text)) return false;
    if (text.size() > kMaxFormulaBytes) return false;  // nobody types so much: not worth the memory of a scan
    const FormulaScan scan = ScanFormula(text);
    return scan.wellFormed && scan.hasOperation;
}

bool IsFormula(std::string_view text) { return IsMarkedFormula(text) || IsExpression(text); }

FormulaConversion ConvertFormulaToValue(std::string& text, bool numeric) {
    const bool formula = numeric ? IsFormula(text) : IsMarkedFormula(text);
    if (!formula) return {};
    FormulaValue result = ThreadFormulaEvaluator().Evaluate(text);
    if (!result) return {FormulaOutcome::Error, std::move(result.reason)};
    text = FormatDouble(result.value);
    return {FormulaOutcome::Converted, {}};
}

}  // namespace velda
