#include "velda_lib/word_line.h"

#include "velda_lib/msg_dll.h"

namespace velda {
namespace {

class LineReader {
public:
    explicit LineReader(std::string_view line) : rest_(line) {}

    WordLine Read() {
        WordLine result;
        SkipBlanks();
        if (!rest_.empty() && rest_.front() == '#') return result;
        for (; !rest_.empty() && fault_.empty(); SkipBlanks()) result.words.push_back(ReadWord());
        result.fault = fault_;
        return result;
    }

private:
    void SkipBlanks() {
        const std::size_t at = rest_.find_first_not_of(" \t\r");
        rest_.remove_prefix(at == std::string_view::npos ? rest_.size() : at);
    }

    char Take() {
        const char c = rest_.front();
        rest_.remove_prefix(1);
        return c;
    }

    LineWord ReadWord() {
        LineWord word;
        while (!rest_.empty() && rest_.front() != ' ' && rest_.front() != '\t' && rest_.front() != '\r') {
            const char c = rest_.front();
            if (c == '"') {
                Take();
                word.quoted = true;
                ReadQuoted(word.value);
            } else if (c == '[') {
                ReadList(word.value);
            } else if (c == '=' && !word.assigns && !word.quoted && !word.value.empty()) {
                Take();
                word.assigns = true;
                word.name = std::move(word.value);
                word.value.clear();
            } else {
                word.value += Take();
            }
        }
        return word;
    }

    void ReadQuoted(std::string& value) {
        while (!rest_.empty()) {
            const char c = Take();
            if (c == '"') return;
            if (c == '\\') {
                ReadEscape(value);
            } else if (c == '{' && rest_.find('}') != std::string_view::npos && LooksLikeKey()) {
                ReadKey(value);
            } else {
                value += c;
            }
        }
        fault_ = "the quote is not closed";
    }

    void ReadEscape(std::string& value) {
        const char c = rest_.empty() ? '\0' : Take();
        switch (c) {
            case 't': value += '\t'; return;
            case 'n': value += '\n'; return;
            case '"':
            case '\\': value += c; return;
            default: fault_ = std::string("unknown escape \"\\") + c + "\"";
        }
    }

    bool LooksLikeKey() const {
        for (const std::string_view prefix : {"IDS_", "IDB_", "CMB_", "IDC_"}) {
            if (rest_.starts_with(prefix)) return true;
        }
        return false;
    }

    void ReadKey(std::string& value) {
        const std::size_t end = rest_.find('}');
        value += CMsgDll::pfuncLoadStr(rest_.substr(0, end), 0);
        rest_.remove_prefix(end + 1);
    }

    /// Takes a list with everything in it, quotes included, as it stands.
    void ReadList(std::string& value) {
        int depth = 0;
        bool quoted = false;
        while (!rest_.empty()) {
            const char c = Take();
            value += c;
            if (quoted && c == '\\' && !rest_.empty()) {
                value += Take();
            } else if (c == '"') {
                quoted = !quoted;
            } else if (!quoted && c == '[') {
                ++depth;
            } else if (!quoted && c == ']' && --depth == 0) {
                return;
            }
        }
        fault_ = "the list is not closed";
    }

    std::string_view rest_;
    std::string fault_;
};

}  // namespace

WordLine ReadWordLine(std::string_view line) { return LineReader(line).Read(); }

}  // namespace velda
