#include "zt_db/exchange/saf_import.h"

#include "velda_lib/number_text.h"
#include "zt_db/exchange/axis_turn.h"
#include "zt_db/exchange/saf_tables.h"
#include "zt_db/exchange/table_set.h"

namespace zt {
namespace {

constexpr std::string_view kModelSheet = "model";
constexpr std::size_t kMostSettings = 1000;

/// Texts of the first two cells of each row.
void ReadSettings(SheetSource& source, std::size_t sheet, ExchangeReport& report, ExchangeModel& model) {
    source.Read(
        sheet,
        [&](const SheetRow& row) {
            const auto text = [&](std::size_t i) {
                if (i >= row.cells.size()) return std::string();
                const SheetValue& cell = row.cells[i];
                if (cell.kind == SheetValueKind::Number) return velda::FormatDouble(cell.number);
                return cell.kind == SheetValueKind::Text ? cell.text : std::string();
            };
            model.settings.push_back({text(0), text(1)});
            return model.settings.size() < kMostSettings;
        },
        report);
}

std::string SettingOf(const ExchangeModel& model, std::string_view name) {
    for (const ExchangeSetting& setting : model.settings) {
        if (Comparable(setting.name) == name) return setting.value;
    }
    return {};
}

void CheckVersion(const ExchangeModel& model, ExchangeReport& report, const std::string& sheet) {
    const std::string version = SettingOf(model, "safversion");
    if (!version.starts_with("2.1") && !version.starts_with("2.2")) {
        report.Add(FindingLevel::Warning, {sheet, 0, {}}, "IDS_XCH_SAF_VERSION", {version});
    }
}

AxisTurn TurnOf(const ExchangeModel& model, ExchangeReport& report, const std::string& sheet) {
    const std::string text = SettingOf(model, "globalcoordinatesystem");
    if (text.empty()) return {};
    const auto turn = AxisTurn::FromText(text);
    if (!turn) report.Add(FindingLevel::Error, {sheet, 0, "Global coordinate system"}, "IDS_XCH_WRONG_WORD", {text});
    return turn.value_or(AxisTurn{});
}

}  // namespace

bool IsSaf(const SheetSource& source) { return SheetOf(saf::kNodes, source) < source.Names().size(); }

bool ReadSaf(SheetSource& source, TableContext& context, ExchangeModel& model) {
    AxisTurn turn;
    for (std::size_t i = 0; i < source.Names().size(); ++i) {
        const std::string& name = source.Names()[i];
        if (Comparable(name) != kModelSheet) continue;
        ReadSettings(source, i, context.report, model);
        context.imperial = Comparable(SettingOf(model, "systemofunits")) == "imperial";
        CheckVersion(model, context.report, name);
        turn = TurnOf(model, context.report, name);
        break;
    }
    if (!IsSaf(source)) {
        context.report.Add(FindingLevel::Error, {}, "IDS_XCH_NO_SHEET", {std::string(saf::kNodes.name)});
        return false;
    }
    const bool read = ReadSheets(source, saf::Tables(), {std::string(kModelSheet), "project"}, context, model);
    if (read) turn.Apply(model);
    return read;
}

}  // namespace zt
