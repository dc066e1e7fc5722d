#include <algorithm>
#include <map>
#include <optional>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_db/exchange/sheet_source.h"
#include "zt_db/exchange/xml_reader.h"
#include "zt_db/exchange/zip_archive.h"

namespace zt {
namespace {

using velda::FormatText;
using velda::Outcome;

std::string LimitText(std::uint64_t limit) { return velda::FormatLong(static_cast<std::int64_t>(limit)); }

/// The sheets of a workbook: their names and the relations that lead to their parts.
class WorkbookHandler final : public XmlHandler {
public:
    void OnBegin(std::string_view name, const XmlAttributes& attributes) override {
        if (name == "sheet") sheets.emplace_back(attributes.Find("name"), attributes.Find("id"));
    }
    void OnEnd(std::string_view) override {}
    void OnText(std::string_view) override {}

    std::vector<std::pair<std::string, std::string>> sheets;
};

/// Relations of a part to others.
class RelationsHandler final : public XmlHandler {
public:
    struct Relation {
        std::string id;
        std::string type;
        std::string target;
    };

    void OnBegin(std::string_view name, const XmlAttributes& attributes) override {
        if (name != "Relationship") return;
        relations.push_back({std::string(attributes.Find("Id")), std::string(attributes.Find("Type")),
                             std::string(attributes.Find("Target"))});
    }
    void OnEnd(std::string_view) override {}
    void OnText(std::string_view) override {}

    /// Target of the relation of a kind such as "officeDocument"; empty when there is none.
    std::string OfType(std::string_view kind) const {
        for (const Relation& relation : relations) {
            if (relation.type.ends_with(kind)) return relation.target;
        }
        return {};
    }
    std::string OfId(std::string_view id) const {
        for (const Relation& relation : relations) {
            if (relation.id == id) return relation.target;
        }
        return {};
    }

    std::vector<Relation> relations;
};

/// Texts that cells refer to by number. Readings of ideographs that stand beside a text are no part of it.
class SharedTextHandler final : public XmlHandler {
public:
    SharedTextHandler(std::vector<std::string>& texts, const SheetLimits& limits) : texts_(texts), limits_(limits) {}

    void OnBegin(std::string_view name, const XmlAttributes&) override {
        if (name == "si") texts_.emplace_back();
        if (name == "rPh") ++phonetic_;
        inText_ = name == "t" && phonetic_ == 0 && !texts_.empty();
    }
    void OnEnd(std::string_view name) override {
        if (name == "rPh") --phonetic_;
        inText_ = false;
    }
    void OnText(std::string_view text) override {
        if (!inText_) return;
        bytes_ += text.size();
        if (bytes_ <= limits_.textBytes) texts_.back() += text;
    }
    bool TooLong() const {
        return bytes_ > limits_.textBytes || texts_.size() > limits_.textBytes / sizeof(std::string);
    }

private:
    std::vector<std::string>& texts_;
    const SheetLimits& limits_;
    std::uint64_t bytes_ = 0;
    int phonetic_ = 0;
    bool inText_ = false;
};

/// Letters of a cell's place as a column from 0: "C7" is 2; none where there are no letters.
std::optional<std::uint32_t> ColumnOfPlace(std::string_view place) {
    std::uint32_t column = 0;
    for (const char c : place) {
        if (c < 'A' || c > 'Z') break;
        if (column > 1'000'000) return column;
        column = column * 26 + static_cast<std::uint32_t>(c - 'A') + 1;
    }
    return column == 0 ? std::nullopt : std::optional(column - 1);
}

/// The rows of one sheet.
class SheetHandler final : public XmlHandler {
public:
    SheetHandler(const std::string& sheet, const std::vector<std::string>& texts, const SheetLimits& limits,
                 RowVisitor visit, ExchangeReport& report)
        : sheet_(sheet), texts_(texts), limits_(limits), visit_(visit), report_(report) {}

    void OnBegin(std::string_view name, const XmlAttributes& attributes) override;
    void OnEnd(std::string_view name) override;
    void OnText(std::string_view text) override {
        if (!inValue_ || failed_) return;
        if (value_.size() + text.size() > limits_.cellBytes) return Fail("IDS_XCH_CELL_TOO_LONG", limits_.cellBytes);
        value_ += text;
    }

    void UseReader(XmlReader& reader) { reader_ = &reader; }
    bool Failed() const { return failed_; }

private:
    void BeginRow(const XmlAttributes& attributes);
    void BeginCell(const XmlAttributes& attributes);
    void EndCell();
    void EndRow();
    SheetValue ValueOf() const;
    SheetValue SharedText() const;
    void Fail(std::string_view key, std::uint64_t limit) {
        report_.Add(FindingLevel::Error, {sheet_, row_.number, {}}, key, {LimitText(limit)});
        failed_ = true;
        reader_->Stop();
    }

    const std::string& sheet_;
    const std::vector<std::string>& texts_;
    const SheetLimits& limits_;
    RowVisitor visit_;
    ExchangeReport& report_;
    XmlReader* reader_ = nullptr;
    SheetRow row_;
    std::size_t used_ = 0;  ///< cells of the row that hold something, up to the last
    std::uint32_t column_ = 0;
    std::string type_;
    std::string value_;
    bool inCell_ = false;
    bool inValue_ = false;
    int phonetic_ = 0;
    bool failed_ = false;
};

void SheetHandler::OnBegin(std::string_view name, const XmlAttributes& attributes) {
    if (name == "row") return BeginRow(attributes);
    if (name == "c") return BeginCell(attributes);
    if (name == "rPh") ++phonetic_;
    inValue_ = inCell_ && phonetic_ == 0 && (name == "v" || name == "t");
}

void SheetHandler::OnEnd(std::string_view name) {
    if (name == "row") return EndRow();
    if (name == "c") return EndCell();
    if (name == "rPh") --phonetic_;
    inValue_ = false;
}

void SheetHandler::BeginRow(const XmlAttributes& attributes) {
    std::int64_t number = 0;
    const bool told = velda::ReadWholeLong(attributes.Find("r"), number) && number > row_.number;
    row_.number = told && number <= limits_.rows ? static_cast<std::uint32_t>(number) : row_.number + 1;
    if (row_.number > limits_.rows || (told && number > limits_.rows)) Fail("IDS_XCH_TOO_MANY_ROWS", limits_.rows);
    for (SheetValue& value : row_.cells) value.kind = SheetValueKind::Empty;
    used_ = 0;
    column_ = 0;
}

void SheetHandler::BeginCell(const XmlAttributes& attributes) {
    column_ = ColumnOfPlace(attributes.Find("r")).value_or(column_);
    if (column_ >= limits_.columns) return Fail("IDS_XCH_TOO_MANY_COLUMNS", limits_.columns);
    type_ = attributes.Find("t");
    value_.clear();
    inCell_ = true;
}

SheetValue SheetHandler::SharedText() const {
    std::int64_t index = 0;
    const bool known =
        velda::ReadWholeLong(value_, index) && index >= 0 && static_cast<std::uint64_t>(index) < texts_.size();
    if (!known) return {SheetValueKind::Fault};
    const std::string& text = texts_[static_cast<std::size_t>(index)];
    return {text.empty() ? SheetValueKind::Empty : SheetValueKind::Text, 0.0, text};
}

SheetValue SheetHandler::ValueOf() const {
    if (value_.empty()) return {};
    if (type_ == "s") return SharedText();
    if (type_ == "e") return {SheetValueKind::Fault, 0.0, value_};
    if (type_ == "b") return {SheetValueKind::Check, value_ == "1" || value_ == "true" ? 1.0 : 0.0};
    SheetValue value{SheetValueKind::Number};
    if ((type_.empty() || type_ == "n") && velda::ReadWholeDouble(value_, value.number)) return value;
    return {SheetValueKind::Text, 0.0, value_};
}

void SheetHandler::EndCell() {
    inCell_ = false;
    if (failed_) return;
    SheetValue value = ValueOf();
    if (value.kind != SheetValueKind::Empty) {
        if (row_.cells.size() <= column_) row_.cells.resize(column_ + 1);
        row_.cells[column_] = std::move(value);
        used_ = std::max<std::size_t>(used_, column_ + 1);
    }
    ++column_;
}

void SheetHandler::EndRow() {
    if (used_ > 0 && !failed_ && !visit_(row_)) reader_->Stop();
}

class XlsxSource final : public SheetSource {
public:
    explicit XlsxSource(const SheetLimits& limits) : limits_(limits), archive_(limits_) {}

    Outcome Open(const std::filesystem::path& path);
    bool Read(std::size_t sheet, RowVisitor visit, ExchangeReport& report) override;

private:
    Outcome ReadPart(const std::string& part, XmlHandler& handler, velda::FunctionRef<void(XmlReader&)> begun);
    Outcome ReadPart(const std::string& part, XmlHandler& handler) {
        return ReadPart(part, handler, [](XmlReader&) {});
    }
    Outcome ReadSheets(const std::string& book);
    Outcome ReadTexts(const std::string& part);

    SheetLimits limits_;
    ZipArchive archive_;
    std::vector<std::string> parts_;  ///< by sheet
    std::vector<std::string> texts_;
};

/// The part that a target names, as seen from a folder of the archive.
std::string PartOf(const std::string& folder, std::string target) {
    if (target.starts_with('/')) return target.substr(1);
    const auto joined = (std::filesystem::path(folder) / target).lexically_normal();
    return joined.generic_string();
}

std::string FolderOf(const std::string& part) { return std::filesystem::path(part).parent_path().generic_string(); }

std::string RelationsOf(const std::string& part) {
    const std::filesystem::path path(part);
    return (path.parent_path() / "_rels" / (path.filename().string() + ".rels")).generic_string();
}

Outcome XlsxSource::ReadPart(const std::string& part, XmlHandler& handler, velda::FunctionRef<void(XmlReader&)> begun) {
    XmlReader reader(handler);
    begun(reader);
    Outcome parsed = Outcome::Done();
    Outcome read = archive_.Read(part, [&](const char* bytes, std::size_t size) {
        parsed = reader.Feed(bytes, size);
        return parsed && !reader.IsStopped();
    });
    if (!read) return read;
    if (parsed) parsed = reader.Finish();
    if (parsed) return parsed;
    return Outcome::Refused(FormatText("IDS_XCH_PART_REFUSED", {part, parsed.Reason()}));
}

Outcome XlsxSource::Open(const std::filesystem::path& path) {
    Outcome opened = archive_.Open(path);
    if (!opened) return opened;
    RelationsHandler root;
    if (archive_.Has("_rels/.rels")) {
        Outcome read = ReadPart("_rels/.rels", root);
        if (!read) return read;
    }
    const std::string target = root.OfType("/officeDocument");
    const std::string book = target.empty() ? "xl/workbook.xml" : PartOf("", target);
    if (!archive_.Has(book)) return Outcome::Refused(FormatText("IDS_XCH_NO_WORKBOOK", {book}));
    return ReadSheets(book);
}

Outcome XlsxSource::ReadSheets(const std::string& book) {
    WorkbookHandler sheets;
    Outcome read = ReadPart(book, sheets);
    if (!read) return read;
    if (sheets.sheets.size() > limits_.sheets) {
        return Outcome::Refused(FormatText("IDS_XCH_TOO_MANY_SHEETS", {LimitText(limits_.sheets)}));
    }
    RelationsHandler relations;
    read = ReadPart(RelationsOf(book), relations);
    if (!read) return read;
    for (const auto& [name, id] : sheets.sheets) {
        const std::string target = relations.OfId(id);
        const std::string part = PartOf(FolderOf(book), target);
        if (target.empty() || !archive_.Has(part)) {
            return Outcome::Refused(FormatText("IDS_XCH_SHEET_MISSING", {name, part}));
        }
        names_.push_back(name);
        parts_.push_back(part);
    }
    const std::string texts = relations.OfType("/sharedStrings");
    return texts.empty() ? Outcome::Done() : ReadTexts(PartOf(FolderOf(book), texts));
}

Outcome XlsxSource::ReadTexts(const std::string& part) {
    SharedTextHandler handler(texts_, limits_);
    Outcome read = ReadPart(part, handler);
    if (read && handler.TooLong()) {
        return Outcome::Refused(FormatText("IDS_XCH_TEXTS_TOO_LONG", {LimitText(limits_.textBytes)}));
    }
    return read;
}

bool XlsxSource::Read(std::size_t sheet, RowVisitor visit, ExchangeReport& report) {
    SheetHandler handler(names_[sheet], texts_, limits_, visit, report);
    const Outcome read = ReadPart(parts_[sheet], handler, [&](XmlReader& reader) { handler.UseReader(reader); });
    if (!read) report.Add(FindingLevel::Error, {names_[sheet], 0, {}}, "IDS_XCH_SHEET_REFUSED", {read.Reason()});
    return read && !handler.Failed();
}

}  // namespace

std::unique_ptr<SheetSource> OpenWorkbook(const std::filesystem::path& path, const SheetLimits& limits,
                                          ExchangeReport& report) {
    auto source = std::make_unique<XlsxSource>(limits);
    const Outcome opened = source->Open(path);
    if (opened) return source;
    report.Add(FindingLevel::Error, {}, "IDS_XCH_WORKBOOK_REFUSED", {path.filename().string(), opened.Reason()});
    return nullptr;
}

}  // namespace zt
