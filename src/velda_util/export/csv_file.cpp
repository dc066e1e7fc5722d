#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "velda_lib/number_text.h"
#include "velda_util/export/sheet_file.h"

namespace velda {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 16;

/// Whether a program that guesses the meaning of bare texts would take a text for something else: a number or a
/// formula.
bool IsMistakable(std::string_view text) {
    double number = 0.0;
    return std::string_view("=+-@").find(text.front()) != std::string_view::npos || ReadWholeDouble(text, number);
}

bool NeedsQuotes(std::string_view text) {
    if (text.empty()) return false;
    return text.find_first_of(",\"\r\n") != std::string_view::npos || TrimBlanks(text).size() != text.size() ||
           IsMistakable(text);
}

void AppendQuoted(std::string& out, std::string_view text) {
    out += '"';
    for (const char c : text) {
        if (c == '"') out += '"';
        out += c;
    }
    out += '"';
}

/// Texts keep every character, also those that begin like a formula: a mark before them would change the data. Numbers
/// have all digits and a decimal point.
class CsvFile final : public SheetFile {
public:
    CsvFile(const std::filesystem::path& path, const CsvOptions& options)
        : options_(options), file_(std::fopen(path.c_str(), "wb")) {
        if (!file_) fault_ = errno;
        if (options.byteOrderMark) out_ = "\xEF\xBB\xBF";
    }
    ~CsvFile() override {
        if (file_) std::fclose(file_);
    }
    CsvFile(const CsvFile&) = delete;
    CsvFile& operator=(const CsvFile&) = delete;

    Outcome BeginSheet(const Sheet& sheet, const std::string& name) override;
    Outcome WriteCell(std::uint32_t row, std::uint32_t col, const SheetCell& cell) override;
    Outcome EndRow() override;
    Outcome Close() override;

private:
    void AppendText(std::string_view text);
    Outcome Flush();

    CsvOptions options_;
    std::FILE* file_;
    int fault_ = 0;
    std::string out_;
    bool isFirstSheet_ = true;
};

Outcome CsvFile::BeginSheet(const Sheet& /*sheet*/, const std::string& name) {
    if (!isFirstSheet_) out_ += "\r\n";
    isFirstSheet_ = false;
    if (!options_.sheetNames) return Outcome::Done();
    AppendText(name);
    return EndRow();
}

Outcome CsvFile::WriteCell(std::uint32_t /*row*/, std::uint32_t col, const SheetCell& cell) {
    if (col > 0) out_ += ',';
    switch (cell.kind) {
        case SheetCell::Kind::Number: out_ += FormatDoubleExact(cell.number); break;
        case SheetCell::Kind::Check: out_ += cell.checked ? "TRUE" : "FALSE"; break;
        case SheetCell::Kind::Text: AppendText(cell.text); break;
        case SheetCell::Kind::Empty: break;
    }
    return Outcome::Done();
}

Outcome CsvFile::EndRow() {
    out_ += "\r\n";
    return out_.size() < kBlock ? Outcome::Done() : Flush();
}

Outcome CsvFile::Close() {
    Outcome flushed = Flush();
    if (!flushed) return flushed;
    return std::fclose(std::exchange(file_, nullptr)) == 0 ? Outcome::Done() : Outcome::Refused(std::strerror(errno));
}

void CsvFile::AppendText(std::string_view text) {
    if (NeedsQuotes(text)) {
        AppendQuoted(out_, text);
    } else {
        out_ += text;
    }
}

Outcome CsvFile::Flush() {
    if (!file_) return Outcome::Refused(std::strerror(fault_));
    const bool written = std::fwrite(out_.data(), 1, out_.size(), file_) == out_.size();
    out_.clear();
    return written ? Outcome::Done() : Outcome::Refused(std::strerror(errno));
}

}  // namespace

std::unique_ptr<SheetFile> NewCsvFile(const std::filesystem::path& path, const CsvOptions& options) {
    return std::make_unique<CsvFile>(path, options);
}

}  // namespace velda
