#include "velda_util/clip/clipboard_text.h"

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "velda_util/text/unicode_text.h"

namespace velda {
namespace {

constexpr char kQuote = '"';

Outcome TooManyCells(const ClipboardLimits& limits) {
    return Outcome::Refused(
        FormatText("IDS_TB_ENGINE_CLIPBOARD_CELLS", {FormatLong(static_cast<std::int64_t>(limits.cells))}));
}

Outcome TooLong(const ClipboardLimits& limits) {
    const std::size_t megabytes = limits.bytes >> 20;
    return Outcome::Refused(
        FormatText("IDS_TB_ENGINE_CLIPBOARD_BYTES", {FormatLong(static_cast<std::int64_t>(megabytes))}));
}

class BlockReader {
public:
    explicit BlockReader(std::string_view text) : text_(text) {}

    /// False when there are more than `cellLimit` cells.
    bool Read(TextBlock& block, std::size_t cellLimit) {
        while (at_ < text_.size()) {
            ReadCell(block);
            if (block.CellCount() > cellLimit) return false;
            if (IsRowEnd(at_)) {
                block.EndRow();
                at_ += RowEndLength(at_);
            } else {
                ++at_;
                if (at_ == text_.size()) EndWithEmptyCell(block);
            }
        }
        return block.CellCount() <= cellLimit;
    }

private:
    std::size_t RowEndLength(std::size_t at) const {
        if (at < text_.size() && text_[at] == '\n') return 1;
        return text_.substr(at, 2) == "\r\n" ? 2 : 0;
    }
    bool IsRowEnd(std::size_t at) const { return at >= text_.size() || RowEndLength(at) > 0; }
    bool IsCellEnd(std::size_t at) const { return IsRowEnd(at) || text_[at] == '\t'; }

    void ReadCell(TextBlock& block) {
        if (text_[at_] == kQuote && ReadQuoted(block)) return;
        std::size_t end = at_;
        while (!IsCellEnd(end)) ++end;
        block.AddCell(text_.substr(at_, end - at_));
        at_ = end;
    }

    /// A tab stood at the end of the text: the cell behind it is empty.
    static void EndWithEmptyCell(TextBlock& block) {
        block.EndCell();
        block.EndRow();
    }

    /// False when the quote opens no quoted cell.
    bool ReadQuoted(TextBlock& block) {
        const std::size_t close = ClosingQuote();
        if (close == std::string_view::npos) return false;
        for (std::size_t at = at_ + 1; at <= close;) {
            const std::size_t quote = text_.find(kQuote, at);
            const std::size_t taken = quote == close ? quote - at : quote - at + 1;
            block.AppendToCell(text_.substr(at, taken));
            at = quote == close ? close + 1 : quote + 2;
        }
        block.EndCell();
        at_ = close + 1;
        return true;
    }

    /// The quote that ends the cell which begins at `at_`; none when it is missing or followed by more text. Looking
    /// for it in vain costs no more than one pass over the whole text: a quote that could open another cell ends the
    /// search.
    std::size_t ClosingQuote() const {
        std::size_t at = text_.find(kQuote, at_ + 1);
        while (at != std::string_view::npos && at + 1 < text_.size() && text_[at + 1] == kQuote) {
            at = text_.find(kQuote, at + 2);
        }
        return at != std::string_view::npos && IsCellEnd(at + 1) ? at : std::string_view::npos;
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

class BlockWriter {
public:
    explicit BlockWriter(std::string& text) : text_(text) {}

    void WriteRow(const TextBlock& block, std::size_t row) {
        const std::size_t count = block.CellsInRow(row);
        for (std::size_t column = 0; column < count; ++column) WriteCell(column, block.Cell(row, column));
        text_ += '\n';
    }

    void WriteHeaders(std::span<const ClipboardHeader> headers) {
        for (std::size_t column = 0; column < headers.size(); ++column) {
            std::string title(headers[column].title);
            if (!headers[column].unit.empty()) title.append(" (").append(headers[column].unit).append(")");
            WriteCell(column, title);
        }
        if (!headers.empty()) text_ += '\n';
    }

private:
    void WriteCell(std::size_t column, std::string_view cell) {
        if (column > 0) text_ += '\t';
        if (!IsCleanUtf8(cell)) {
            WriteClean(CleanUtf8(cell));
        } else {
            WriteClean(cell);
        }
    }

    void WriteClean(std::string_view cell) {
        if (cell.find_first_of("\t\n\r\"") == std::string_view::npos) {
            text_ += cell;
            return;
        }
        text_ += kQuote;
        for (const char c : cell) {
            if (c == kQuote) text_ += kQuote;
            text_ += c;
        }
        text_ += kQuote;
    }

    std::string& text_;
};

}  // namespace

Outcome ClipboardText::Read(std::string_view text, TextBlock& block, const ClipboardLimits& limits) {
    if (text.size() > limits.bytes) return TooLong(limits);
    std::string clean;
    if (!IsCleanUtf8(text)) {
        clean = CleanUtf8(text);
        text = clean;
    }
    TextBlock read;
    if (!BlockReader(text).Read(read, limits.cells)) return TooManyCells(limits);
    block = std::move(read);
    return Outcome::Done();
}

Outcome ClipboardText::Write(const TextBlock& block, std::span<const ClipboardHeader> headers, std::string& text,
                             const ClipboardLimits& limits) {
    if (block.CellCount() + headers.size() > limits.cells) return TooManyCells(limits);
    std::string written;
    written.reserve(block.ByteCount() + block.CellCount());
    BlockWriter writer(written);
    writer.WriteHeaders(headers);
    for (std::size_t row = 0; row < block.RowCount(); ++row) {
        writer.WriteRow(block, row);
        if (written.size() > limits.bytes) return TooLong(limits);
    }
    text = std::move(written);
    return Outcome::Done();
}

}  // namespace velda
