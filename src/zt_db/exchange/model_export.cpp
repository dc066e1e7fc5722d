#include <unistd.h>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "velda_util/export/grid_export_to_excel.h"
#include "zt_db/exchange/csv_tables.h"
#include "zt_db/exchange/model_exchange.h"
#include "zt_db/exchange/model_reader.h"
#include "zt_db/exchange/saf_tables.h"
#include "zt_db/exchange/table_sheet.h"

namespace zt {
namespace {

namespace fs = std::filesystem;
using velda::FormatText;
using velda::Outcome;

constexpr Column<ExchangeSetting> kSettingColumns[] = {
    {{"Name", Need::Required}, &ExchangeSetting::name},
    {{"Value"}, &ExchangeSetting::value},
};

/// A sheet of names and values, which has no header.
class SettingSheet final : public TableSheet {
public:
    SettingSheet(std::string name, std::vector<ExchangeSetting> settings)
        : TableSheet(std::move(name), HeaderStyle::Brackets), settings_(std::move(settings)) {
        for (std::size_t i = 0; i < std::size(kSettingColumns); ++i) AddColumn(kSettingColumns[i].rule, i, 0);
    }
    std::uint32_t RowCount() const override { return static_cast<std::uint32_t>(settings_.size()); }
    std::uint32_t HeaderRowCount() const override { return 0; }
    void ReadCell(std::uint32_t row, std::uint32_t col, velda::SheetCell& cell) const override {
        cell.look = {};
        PutText(cell, col == 0 ? settings_[row].name : settings_[row].value);
    }

private:
    std::vector<ExchangeSetting> settings_;
};

std::vector<ExchangeSetting> ModelSettings(const std::string& name) {
    return {{"Name", name},
            {"SAF Version", "2.2.0"},
            {"Source type", "Software"},
            {"Global coordinate system", "Z vertical"},
            {"LCS of cross-section", "ZYX"},
            {"System of units", "Metric"}};
}

velda::ExportProgress ProgressOf(const ExchangeProgress& progress, const std::string& what) {
    if (!progress) return {};
    return [&progress, what](std::uint64_t done, std::uint64_t) { return progress(what, done); };
}

/// What the report counts of a sheet that is written.
template <class T>
void CountWritten(const ExchangeTable<T>& table, const std::vector<T>& list, ExchangeReport& report) {
    const std::string name(table.name);
    report.CountRead(name, list.size());
    report.CountKept(name, list.size());
}

Outcome WriteSaf(const ExchangeModel& model, const fs::path& target, const ExchangeProgress& progress,
                 ExchangeReport& report) {
    velda::CGridExportToExcel file;
    const std::string name = target.stem().string();
    file.AddSheet(std::make_unique<SettingSheet>("Project", std::vector<ExchangeSetting>{{"Name", name}}));
    file.AddSheet(std::make_unique<SettingSheet>("Model", ModelSettings(name)));
    const auto add = [&]<class T>(const ExchangeTable<T>& table) {
        const std::vector<T>& list = model.*table.list;
        if (list.empty()) return;
        file.AddSheet(
            std::make_unique<RecordSheet<T>>(std::string(table.name), HeaderStyle::Brackets, table.columns, list));
        CountWritten(table, list, report);
    };
    std::apply([&](const auto&... table) { (add(table), ...); }, saf::Tables());
    file.SetProgress(ProgressOf(progress, name));
    Outcome done = file.ExportXlsx(target);
    return done || !file.WasStopped() ? done : Outcome::Refused(FormatText("IDS_XCH_STOPPED", {}));
}

/// What plain tables hold in lists of their own.
void TakeCsvForm(ExchangeModel& model) {
    std::erase_if(model.pointForces, [](const ExchangePointLoad& load) { return load.member.empty(); });
    std::unordered_map<std::string, ExchangeMember*> members;
    for (ExchangeMember& member : model.members) {
        members[member.name] = &member;
        if (member.nodes.size() > 2) member.innerNodes.assign(member.nodes.begin() + 1, member.nodes.end() - 1);
    }
    const auto mark = [](std::string& digits, const ExchangeHinge& hinge) {
        digits = "000000";
        for (std::size_t i = 0; i < 6; ++i) {
            if (hinge.freedoms[i].kind != "Rigid") digits[i] = '1';
        }
    };
    for (const ExchangeHinge& hinge : model.hinges) {
        ExchangeMember& member = *members.at(hinge.member);
        if (hinge.position != "End") mark(member.startRelease, hinge);
        if (hinge.position != "Begin") mark(member.endRelease, hinge);
    }
    for (ExchangeSupport& support : model.supports) {
        for (ExchangeFreedom& freedom : support.freedoms) {
            if (freedom.kind == "Rigid") freedom.kind = "1";
            if (freedom.kind == "Free") freedom.kind = "0";
        }
    }
}

/// What the folder has no table for.
void TellCsvLosses(const ExchangeModel& model, ExchangeReport& report) {
    const auto tell = [&](std::size_t count, std::string_view sheet) {
        if (count == 0) return;
        report.Add(FindingLevel::LeftOut, {std::string(sheet), 0, {}}, "IDS_XCH_NO_TABLE_FOR",
                   {velda::FormatLong(static_cast<std::int64_t>(count))});
    };
    const auto onMember = [](const ExchangePointLoad& load) { return !load.member.empty(); };
    tell(static_cast<std::size_t>(std::count_if(model.pointMoments.begin(), model.pointMoments.end(), onMember)),
         saf::kPointMoments.name);
    tell(model.lineMoments.size(), saf::kLineMoments.name);
}

Outcome WriteTables(ExchangeModel& model, const fs::path& folder, const ExchangeProgress& progress,
                    ExchangeReport& report) {
    Outcome done = Outcome::Done();
    const auto write = [&]<class T>(const ExchangeTable<T>& table) {
        const std::vector<T>& list = model.*table.list;
        if (list.empty() || !done) return;
        const std::string name(table.name);
        velda::CGridExportToExcel file;
        file.SetByteOrderMark(false);
        file.AddSheet(std::make_unique<RecordSheet<T>>(name, HeaderStyle::Suffix, table.columns, list));
        file.SetProgress(ProgressOf(progress, name));
        done = file.ExportCsv(folder / (name + ".csv"));
        if (!done && file.WasStopped()) done = Outcome::Refused(FormatText("IDS_XCH_STOPPED", {}));
        CountWritten(table, list, report);
    };
    std::apply([&](const auto&... table) { (write(table), ...); }, csv::Tables());
    return done;
}

/// The tables are written into a folder beside the target, which then takes its place.
Outcome WriteCsv(ExchangeModel& model, const fs::path& target, const ExchangeProgress& progress,
                 ExchangeReport& report) {
    std::error_code error;
    if (fs::exists(target, error) && !fs::is_empty(target, error)) {
        return Outcome::Refused(FormatText("IDS_XCH_FOLDER_NOT_EMPTY", {target.string()}));
    }
    TellCsvLosses(model, report);
    TakeCsvForm(model);
    const fs::path part = target.string() + ".part" + std::to_string(::getpid());
    fs::create_directories(part, error);
    Outcome done = error ? Outcome::Refused(error.message()) : WriteTables(model, part, progress, report);
    if (done) fs::rename(part, target, error);
    if (done && error) done = Outcome::Refused(error.message());
    if (!done) fs::remove_all(part, error);
    return done;
}

}  // namespace

Outcome ExportModel(const DB_CDataBase& database, const fs::path& target, ExchangeFormat format,
                    const ExchangeProgress& progress, ExchangeReport& report) {
    ExchangeModel model = ReadModel(database, report);
    if (format == ExchangeFormat::Saf) return WriteSaf(model, target, progress, report);
    return WriteCsv(model, target, progress, report);
}

}  // namespace zt
