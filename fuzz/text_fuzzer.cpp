#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "fuzz_support.h"
#include "velda_lib/number_text.h"
#include "velda_lib/numeric_optimizer.h"
#include "velda_lib/str_parser.h"
#include "velda_lib/word_line.h"
#include "zt_db/core/field_text.h"
#include "zt_db/post/memory_results.h"
#include "zt_db/post/result_seed.h"
#include "zt_db/records/record_list.h"

namespace {

using zt::Require;

void CheckLong(const std::string& text) {
    const velda::LongPrefix prefix = velda::ReadLongPrefix(text);
    Require(prefix.value == velda::wtol(text), "wtol reads the same as ReadLongPrefix");
    char* end = nullptr;
    const long long expected = std::strtoll(text.c_str(), &end, 10);
    using Limits = std::numeric_limits<std::int32_t>;
    const long long inRange = std::clamp<long long>(expected, Limits::min(), Limits::max());
    Require(prefix.value == inRange, "wtol reads the same as strtoll");
    Require(prefix.length == static_cast<std::size_t>(end - text.c_str()), "wtol reads as far as strtoll");
    Require(prefix.saturated == (expected != inRange), "wtol says when it saturates");
}

void CheckDouble(const std::string& text) {
    const double value = velda::wtof(text);
    Require(value == value, "wtof never gives what is no number");
    const double again = velda::wtof(velda::FormatDoubleExact(value));
    if (std::isfinite(value)) {
        Require(std::bit_cast<std::uint64_t>(value) == std::bit_cast<std::uint64_t>(again), "exact texts read back");
    }
    // strtod knows words and hexadecimal numbers besides.
    if (text.find_first_of("xXiInN") != std::string::npos) return;
    const double expected = std::strtod(text.c_str(), nullptr);
    Require(std::bit_cast<std::uint64_t>(value) == std::bit_cast<std::uint64_t>(expected), "wtof reads as strtod does");
}

bool HasLongNumber(const std::string& text) {
    constexpr int kDigits = 5;
    int digits = 0;
    return std::any_of(text.begin(), text.end(), [&](char c) {
        digits = c >= '0' && c <= '9' ? digits + 1 : 0;
        return digits > kDigits;
    });
}

void CheckNumberList(const std::string& text) {
    if (HasLongNumber(text)) return;  // long lists only cost time
    const std::vector<std::uint32_t> untouched{7, 5};
    std::vector<std::uint32_t> numbers = untouched;
    const velda::NumberListResult result = velda::CStrParser::GetNodeList(text, numbers);
    if (!result) {
        Require(numbers == untouched, "a bad token leaves the numbers alone");
        Require(text.find(result.badToken) != std::string::npos && !result.badToken.empty(), "a bad token is named");
        return;
    }
    std::sort(numbers.begin(), numbers.end());
    Require(std::adjacent_find(numbers.begin(), numbers.end()) == numbers.end(), "each number comes once");
    std::vector<std::uint32_t> again;
    const std::string shortText = velda::CNumericOptimizer::OptimizeSortedArray(numbers);
    Require(static_cast<bool>(velda::CNumericOptimizer::SelectNumByStr(shortText, again)), "a range text can be read");
    Require(again == numbers, "a range text reads back");
}

void CheckWordLine(const std::string& text) {
    const velda::WordLine line = velda::ReadWordLine(text);
    if (!line.fault.empty()) return;
    std::string quoted;
    for (const velda::LineWord& word : line.words) {
        if (word.value.find('{') != std::string::npos) return;  // could stand for a text
        quoted += ' ';
        zt::AppendQuoted(quoted, word.value);
    }
    const velda::WordLine again = velda::ReadWordLine(quoted);
    Require(again.fault.empty() && again.words.size() == line.words.size(), "quoted words read back");
    for (std::size_t i = 0; i < line.words.size(); ++i) {
        Require(again.words[i].value == line.words[i].value, "a quoted word reads back");
    }
}

/// A text of results is read whole, or refused with nothing given away.
void CheckResultSeed(const std::string& text) {
    static zt::CDBDoc* const doc = zt::CDBDoc::New().release();
    zt::MemoryResults results;
    const velda::Outcome outcome = zt::ReadResultSeed(text, *doc->GetMDBCtrl()->GetCurrentDB(), results);
    if (outcome) return;
    Require(!outcome.Reason().empty(), "a refused text of results has a reason");
    Require(results.Names().empty() && results.Cases().empty(), "a refused text of results gives nothing");
}

template <class T>
void CheckFieldText(const std::string& text) {
    T value{};
    if (!zt::ValueFromText(text, value)) return;
    T again{};
    const std::string written = zt::ValueText(value);
    Require(zt::ValueFromText(written, again) && again == value, "a field's text reads back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    CheckLong(text);
    CheckDouble(text);
    CheckNumberList(text);
    CheckWordLine(text);
    CheckResultSeed(text);
    CheckFieldText<int>(text);
    CheckFieldText<std::uint32_t>(text);
    CheckFieldText<double>(text);
    CheckFieldText<std::string>(text);
    CheckFieldText<std::vector<std::uint32_t>>(text);
    CheckFieldText<std::vector<std::string>>(text);
    CheckFieldText<std::array<double, 9>>(text);
    CheckFieldText<std::vector<zt::T_LCOM_ITEM>>(text);
    return 0;
}
