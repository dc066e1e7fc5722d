#include <xlsxwriter.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "velda_util/export/sheet_file.h"

namespace velda {
namespace {

constexpr std::uint32_t kMaxRows = LXW_ROW_MAX;
constexpr std::uint32_t kMaxColumns = LXW_COL_MAX;
constexpr int kMaxCharacters = 32'767;

Outcome OutcomeOf(lxw_error error) {
    return error == LXW_NO_ERROR ? Outcome::Done() : Outcome::Refused(lxw_strerror(error));
}

/// A colour as red-green-blue.
lxw_color_t ColorOf(std::uint32_t color) { return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF); }

std::uint8_t AlignmentOf(HorizontalAlignment alignment) {
    switch (alignment) {
        case HorizontalAlignment::Left: return LXW_ALIGN_LEFT;
        case HorizontalAlignment::Center: return LXW_ALIGN_CENTER;
        case HorizontalAlignment::Right: break;
    }
    return LXW_ALIGN_RIGHT;
}

std::string NumberFormatOf(int places) {
    return places == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(places), '0');
}

Outcome SizeOutcome(const Sheet& sheet) {
    const auto refused = [&](std::string_view key, std::uint32_t count, std::uint32_t most) {
        return Outcome::Refused(FormatText(key, {sheet.Name(), FormatLong(count), FormatLong(most)}));
    };
    if (sheet.RowCount() > kMaxRows) return refused("IDS_TB_EXPORT_TOO_MANY_ROWS", sheet.RowCount(), kMaxRows);
    if (sheet.ColumnCount() <= kMaxColumns) return Outcome::Done();
    return refused("IDS_TB_EXPORT_TOO_MANY_COLUMNS", sheet.ColumnCount(), kMaxColumns);
}

/// Writes rows to a temporary file as they come and packs them when it is closed.
class XlsxFile final : public SheetFile {
public:
    explicit XlsxFile(const std::filesystem::path& path) {
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE;
        book_ = workbook_new_opt(path.c_str(), &options);
    }
    ~XlsxFile() override {
        if (book_) lxw_workbook_free(book_);
    }
    XlsxFile(const XlsxFile&) = delete;
    XlsxFile& operator=(const XlsxFile&) = delete;

    Outcome BeginSheet(const Sheet& sheet, const std::string& name) override;
    Outcome WriteCell(std::uint32_t row, std::uint32_t col, const SheetCell& cell) override;
    Outcome EndRow() override { return Outcome::Done(); }
    Outcome Close() override { return OutcomeOf(workbook_close(std::exchange(book_, nullptr))); }

private:
    struct Format {
        SheetLook look;
        lxw_format* format = nullptr;
    };

    Outcome SetLayout();
    /// What belongs to a row and goes to the file with it: its height, and the merges that begin there.
    Outcome BeginRow(std::uint32_t row);
    Outcome WriteContent(std::uint32_t row, lxw_col_t col, const SheetCell& cell);
    Outcome WriteText(std::uint32_t row, lxw_col_t col, const std::string& text, lxw_format* format);
    /// The format of a look; null for the plain one.
    lxw_format* FormatOf(const SheetLook& look, std::uint32_t col);
    lxw_format* NewFormat(const SheetLook& look);

    lxw_workbook* book_ = nullptr;
    lxw_worksheet* page_ = nullptr;
    const Sheet* sheet_ = nullptr;
    std::vector<SheetMerge> merges_;  ///< by their first rows
    std::size_t nextMerge_ = 0;
    std::vector<Format> formats_;
    std::vector<std::size_t> lastFormats_;  ///< by column, the place in `formats_` that its last cell had
};

Outcome XlsxFile::BeginSheet(const Sheet& sheet, const std::string& name) {
    Outcome size = SizeOutcome(sheet);
    if (!size) return size;
    sheet_ = &sheet;
    page_ = book_ ? workbook_add_worksheet(book_, name.c_str()) : nullptr;
    if (!page_) return OutcomeOf(LXW_ERROR_MEMORY_MALLOC_FAILED);
    lastFormats_.assign(sheet.ColumnCount(), 0);
    merges_ = sheet.Merges();
    const auto byFirstRow = [](const SheetMerge& a, const SheetMerge& b) { return a.firstRow < b.firstRow; };
    std::sort(merges_.begin(), merges_.end(), byFirstRow);
    nextMerge_ = 0;
    return SetLayout();
}

Outcome XlsxFile::SetLayout() {
    lxw_error error = LXW_NO_ERROR;
    for (std::uint32_t col = 0; col < sheet_->ColumnCount() && error == LXW_NO_ERROR; ++col) {
        const auto at = static_cast<lxw_col_t>(col);
        const auto pixels = static_cast<std::uint32_t>(sheet_->ColumnWidth(col));
        error = worksheet_set_column_pixels(page_, at, at, pixels, nullptr);
    }
    worksheet_freeze_panes(page_, sheet_->HeaderRowCount(), static_cast<lxw_col_t>(sheet_->FrozenColumnCount()));
    return OutcomeOf(error);
}

Outcome XlsxFile::BeginRow(std::uint32_t row) {
    if (row < sheet_->HeaderRowCount()) {
        worksheet_set_row_pixels(page_, row, static_cast<std::uint32_t>(sheet_->HeaderRowHeight()), nullptr);
    }
    for (; nextMerge_ < merges_.size() && merges_[nextMerge_].firstRow == row; ++nextMerge_) {
        const SheetMerge& merge = merges_[nextMerge_];
        // Without text and format a merge writes no cells, which would end the row before its time.
        const lxw_error error =
            worksheet_merge_range(page_, merge.firstRow, static_cast<lxw_col_t>(merge.firstCol), merge.lastRow,
                                  static_cast<lxw_col_t>(merge.lastCol), nullptr, nullptr);
        if (error != LXW_NO_ERROR) return OutcomeOf(error);
    }
    return Outcome::Done();
}

Outcome XlsxFile::WriteCell(std::uint32_t row, std::uint32_t col, const SheetCell& cell) {
    if (col == 0) {
        Outcome begun = BeginRow(row);
        if (!begun) return begun;
    }
    return WriteContent(row, static_cast<lxw_col_t>(col), cell);
}

Outcome XlsxFile::WriteContent(std::uint32_t row, lxw_col_t col, const SheetCell& cell) {
    lxw_format* format = FormatOf(cell.look, col);
    switch (cell.kind) {
        case SheetCell::Kind::Number: return OutcomeOf(worksheet_write_number(page_, row, col, cell.number, format));
        case SheetCell::Kind::Check: return OutcomeOf(worksheet_write_boolean(page_, row, col, cell.checked, format));
        case SheetCell::Kind::Text: return WriteText(row, col, cell.text, format);
        case SheetCell::Kind::Empty: break;
    }
    const bool isSeen = cell.look.isHeader || cell.look.interior;
    return isSeen ? OutcomeOf(worksheet_write_blank(page_, row, col, format)) : Outcome::Done();
}

Outcome XlsxFile::WriteText(std::uint32_t row, lxw_col_t col, const std::string& text, lxw_format* format) {
    const lxw_error error = worksheet_write_string(page_, row, col, text.c_str(), format);
    if (error != LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED) return OutcomeOf(error);
    return Outcome::Refused(
        FormatText("IDS_TB_EXPORT_TEXT_TOO_LONG", {sheet_->Name(), FormatLong(row + 1), FormatLong(kMaxCharacters)}));
}

lxw_format* XlsxFile::FormatOf(const SheetLook& look, std::uint32_t col) {
    std::size_t& last = lastFormats_[col];
    if (last < formats_.size() && formats_[last].look == look) return formats_[last].format;
    for (last = 0; last < formats_.size(); ++last) {
        if (formats_[last].look == look) return formats_[last].format;
    }
    formats_.push_back({look, NewFormat(look)});
    return formats_.back().format;
}

lxw_format* XlsxFile::NewFormat(const SheetLook& look) {
    if (look == SheetLook{}) return nullptr;
    lxw_format* format = workbook_add_format(book_);
    if (!format) return nullptr;
    if (look.places) format_set_num_format(format, NumberFormatOf(*look.places).c_str());
    if (look.bold) format_set_bold(format);
    if (look.wrap) format_set_text_wrap(format);
    if (look.textColor) format_set_font_color(format, ColorOf(*look.textColor));
    if (look.interior) format_set_bg_color(format, ColorOf(*look.interior));
    if (look.horizontal) format_set_align(format, AlignmentOf(*look.horizontal));
    if (look.isHeader) {
        format_set_align(format, LXW_ALIGN_VERTICAL_CENTER);
        format_set_border(format, LXW_BORDER_THIN);
    }
    return format;
}

}  // namespace

std::unique_ptr<SheetFile> NewXlsxFile(const std::filesystem::path& path) { return std::make_unique<XlsxFile>(path); }

}  // namespace velda
