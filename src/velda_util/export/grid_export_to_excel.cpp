#include "velda_util/export/grid_export_to_excel.h"

#include "velda_lib/msg_dll.h"
#include "velda_util/export/grid_sheet.h"
#include "velda_util/export/sheet_names.h"
#include "velda_util/pref/whole_file.h"
#include "velda_util/text/unicode_text.h"

namespace velda {
namespace {

namespace fs = std::filesystem;

/// Rows between two reports of progress.
constexpr std::uint64_t kStep = 1000;

Outcome CannotWrite(const fs::path& path, std::string_view reason) {
    return Outcome::Refused(FormatText("IDS_TB_EXPORT_CANNOT_WRITE", {path.string(), reason}));
}

}  // namespace

void CGridExportToExcel::AddGrid(const CTBGrid& grid, std::string title) {
    AddSheet(std::make_unique<GridSheet>(grid, std::move(title)));
}

Outcome CGridExportToExcel::Export(const fs::path& path) {
    const std::string extension = FoldCase(path.extension().string());
    if (extension == ".xlsx") return ExportXlsx(path);
    if (extension == ".csv") return ExportCsv(path);
    stopped_ = false;
    return Outcome::Refused(FormatText("IDS_TB_EXPORT_UNKNOWN_KIND", {path.string()}));
}

Outcome CGridExportToExcel::ExportXlsx(const fs::path& path) { return Write(path, &NewXlsxFile); }

Outcome CGridExportToExcel::ExportCsv(const fs::path& path) {
    const CsvOptions options{byteOrderMark_, sheets_.size() > 1};
    return Write(path, [&](const fs::path& part) { return NewCsvFile(part, options); });
}

Outcome CGridExportToExcel::Write(const fs::path& path, const MakeFile& makeFile) {
    stopped_ = false;
    if (sheets_.empty()) return Outcome::Refused(CMsgDll::pfuncLoadStr("IDS_TB_EXPORT_NOTHING", 0));
    std::error_code error;
    PartFile part(path, error);
    if (error) return CannotWrite(path, error.message());
    const Outcome written = WriteSheets(*makeFile(part.Path()));
    if (stopped_) return written;
    if (!written) return CannotWrite(path, written.Reason());
    error = part.Commit();
    return error ? CannotWrite(path, error.message()) : Outcome::Done();
}

Outcome CGridExportToExcel::WriteSheets(SheetFile& file) {
    std::vector<std::string> titles;
    done_ = 0;
    total_ = 0;
    for (const auto& sheet : sheets_) {
        titles.push_back(sheet->Name());
        total_ += sheet->RowCount();
    }
    const std::vector<std::string> names = SheetNames(titles);
    for (std::size_t i = 0; i < sheets_.size(); ++i) {
        Outcome begun = file.BeginSheet(*sheets_[i], names[i]);
        if (!begun) return begun;
        Outcome written = WriteSheet(file, *sheets_[i]);
        if (!written) return written;
    }
    Outcome closed = file.Close();
    return closed ? Tell() : closed;
}

Outcome CGridExportToExcel::WriteSheet(SheetFile& file, const Sheet& sheet) {
    const std::uint32_t rows = sheet.RowCount();
    const std::uint32_t columns = sheet.ColumnCount();
    SheetCell cell;
    for (std::uint32_t row = 0; row < rows; ++row) {
        for (std::uint32_t col = 0; col < columns; ++col) {
            sheet.ReadCell(row, col, cell);
            Outcome written = file.WriteCell(row, col, cell);
            if (!written) return written;
        }
        Outcome ended = file.EndRow();
        if (ended) ended = RowDone();
        if (!ended) return ended;
    }
    return Outcome::Done();
}

Outcome CGridExportToExcel::RowDone() {
    ++done_;
    return done_ % kStep == 0 && done_ < total_ ? Tell() : Outcome::Done();
}

Outcome CGridExportToExcel::Tell() {
    if (!progress_ || progress_(done_, total_)) return Outcome::Done();
    stopped_ = true;
    return Outcome::Refused(CMsgDll::pfuncLoadStr("IDS_TB_EXPORT_STOPPED", 0));
}

}  // namespace velda
