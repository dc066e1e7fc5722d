#include <algorithm>
#include <fstream>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "velda_util/text/unicode_text.h"
#include "zt_db/exchange/sheet_source.h"

namespace zt {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 16;

/// The character that separates the fields of a file: the one that its first line holds most often.
char SeparatorOf(std::string_view text) {
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    const auto count = [&](char c) { return std::count(line.begin(), line.end(), c); };
    char best = ',';
    for (const char c : {';', '\t'}) {
        if (count(c) > count(best)) best = c;
    }
    return best;
}

/// Splits texts into fields and rows. Quoted fields may hold separators, line ends and doubled quotes.
class CsvRows {
public:
    CsvRows(const std::string& sheet, const SheetLimits& limits, RowVisitor visit, ExchangeReport& report)
        : sheet_(sheet), limits_(limits), visit_(visit), report_(report) {}

    void UseSeparator(char separator) { separator_ = separator; }
    /// False when nothing more is wanted.
    bool Take(char c);
    bool Finish();
    bool Failed() const { return failed_; }

private:
    enum class State { Start, Bare, Quoted, QuoteInQuoted };

    bool TakeQuoted(char c);
    bool EndField();
    bool EndRow();
    bool Append(char c) {
        if (field_.size() >= limits_.cellBytes) return Fail("IDS_XCH_CELL_TOO_LONG", limits_.cellBytes);
        field_ += c;
        return true;
    }
    bool Fail(std::string_view key, std::uint64_t limit) {
        report_.Add(FindingLevel::Error, {sheet_, row_.number, {}}, key,
                    {velda::FormatLong(static_cast<std::int64_t>(limit))});
        failed_ = true;
        return false;
    }

    const std::string& sheet_;
    const SheetLimits& limits_;
    RowVisitor visit_;
    ExchangeReport& report_;
    char separator_ = ',';
    State state_ = State::Start;
    std::string field_;
    bool quoted_ = false;
    bool afterReturn_ = false;
    SheetRow row_{1, {}};
    std::size_t used_ = 0;
    std::size_t column_ = 0;
    bool failed_ = false;
};

bool CsvRows::Take(char c) {
    const bool lineFeedOfPair = c == '\n' && afterReturn_;
    afterReturn_ = false;
    if (state_ == State::Quoted) return TakeQuoted(c);
    if (state_ == State::QuoteInQuoted && c == '"') {
        state_ = State::Quoted;
        return Append(c);
    }
    if (lineFeedOfPair) return true;
    if (c == '"' && state_ == State::Start) {
        state_ = State::Quoted;
        quoted_ = true;
        return true;
    }
    if (c == separator_) return EndField();
    if (c == '\n' || c == '\r') {
        afterReturn_ = c == '\r';
        return EndField() && EndRow();
    }
    state_ = State::Bare;
    return Append(c);
}

bool CsvRows::TakeQuoted(char c) {
    if (c == '"') {
        state_ = State::QuoteInQuoted;
        return true;
    }
    return Append(c);
}

bool CsvRows::EndField() {
    state_ = State::Start;
    if (column_ >= limits_.columns) return Fail("IDS_XCH_TOO_MANY_COLUMNS", limits_.columns);
    if (!velda::IsCleanUtf8(field_)) return Fail("IDS_XCH_NOT_UTF8", column_ + 1);
    const std::string_view text = quoted_ ? std::string_view(field_) : velda::TrimBlanks(field_);
    if (!text.empty()) {
        if (row_.cells.size() <= column_) row_.cells.resize(column_ + 1);
        SheetValue& value = row_.cells[column_];
        value.text = text;
        const bool isNumber = !quoted_ && velda::ReadWholeDouble(text, value.number);
        value.kind = isNumber ? SheetValueKind::Number : SheetValueKind::Text;
        used_ = column_ + 1;
    }
    field_.clear();
    quoted_ = false;
    ++column_;
    return true;
}

bool CsvRows::EndRow() {
    if (used_ > 0 && !visit_(row_)) return false;
    if (row_.number >= limits_.rows) return Fail("IDS_XCH_TOO_MANY_ROWS", limits_.rows);
    ++row_.number;
    for (SheetValue& value : row_.cells) value.kind = SheetValueKind::Empty;
    used_ = 0;
    column_ = 0;
    return true;
}

bool CsvRows::Finish() {
    if (failed_) return false;
    if (state_ == State::Quoted) return Fail("IDS_XCH_QUOTE_OPEN", row_.number);
    if (state_ == State::Start && field_.empty() && column_ == 0) return true;
    return EndField() && EndRow();
}

class CsvFolder final : public SheetSource {
public:
    CsvFolder(const SheetLimits& limits, std::vector<std::filesystem::path> files)
        : limits_(limits), files_(std::move(files)) {
        for (const auto& file : files_) names_.push_back(file.stem().string());
    }

    bool Read(std::size_t sheet, RowVisitor visit, ExchangeReport& report) override {
        std::ifstream file(files_[sheet], std::ios::binary);
        CsvRows rows(names_[sheet], limits_, visit, report);
        if (!ReadBytes(file, rows)) return !rows.Failed();
        if (!file.eof() || file.bad()) {
            report.Add(FindingLevel::Error, {names_[sheet], 0, {}}, "IDS_XCH_FILE_UNREADABLE");
            return false;
        }
        rows.Finish();
        return !rows.Failed();
    }

private:
    /// False when the rows want no more.
    static bool ReadBytes(std::ifstream& file, CsvRows& rows) {
        std::string block(kBlock, '\0');
        bool first = true;
        while (file) {
            file.read(block.data(), static_cast<std::streamsize>(block.size()));
            std::string_view bytes(block.data(), static_cast<std::size_t>(file.gcount()));
            if (first) {
                if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
                rows.UseSeparator(SeparatorOf(bytes));
                first = false;
            }
            if (!std::all_of(bytes.begin(), bytes.end(), [&](char c) { return rows.Take(c); })) return false;
        }
        return true;
    }

    SheetLimits limits_;
    std::vector<std::filesystem::path> files_;
};

}  // namespace

std::unique_ptr<SheetSource> OpenCsvFolder(const std::filesystem::path& folder, const SheetLimits& limits,
                                           ExchangeReport& report) {
    const std::string name = folder.filename().string();
    const auto refuse = [&](std::string_view key, std::vector<std::string> values) {
        report.Add(FindingLevel::Error, {}, key, std::move(values));
        return nullptr;
    };
    std::vector<std::filesystem::path> files;
    std::error_code error;
    for (std::filesystem::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        std::error_code ignored;
        if (it->path().extension() != ".csv" || !it->is_regular_file(ignored)) continue;
        files.push_back(it->path());
        if (it->file_size(ignored) > limits.unpackedBytes) {
            return refuse("IDS_XCH_FILE_TOO_LARGE",
                          {velda::FormatLong(static_cast<std::int64_t>(limits.unpackedBytes))});
        }
    }
    if (error) return refuse("IDS_XCH_FOLDER_REFUSED", {name, error.message()});
    if (files.empty()) return refuse("IDS_XCH_FOLDER_EMPTY", {name});
    std::sort(files.begin(), files.end());
    return std::make_unique<CsvFolder>(limits, std::move(files));
}

}  // namespace zt
