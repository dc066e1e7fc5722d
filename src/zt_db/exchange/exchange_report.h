#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace zt {

/// How much a finding matters. An error means that nothing is taken over.
enum class FindingLevel { Note, Converted, LeftOut, Warning, Error };

/// Where something was found. A row of 0 means the whole sheet, an empty column the whole row.
struct ExchangePlace {
    std::string sheet{};
    std::uint32_t row = 0;
    std::string column{};
};

/// Something that an import or an export has to say, as a text key with values.
struct ExchangeFinding {
    FindingLevel level = FindingLevel::Note;
    ExchangePlace place{};
    std::string key{};
    std::vector<std::string> values{};

    /// In the current language, without the place.
    std::string Text() const;
};

/// What became of the rows of one sheet.
struct SheetCount {
    std::string sheet;
    std::uint64_t read = 0;
    std::uint64_t kept = 0;
};

/// What was read, converted, left out and why. Of findings of one kind in one column only the first ones are held, the
/// others are counted, so that a long file does not make a long report.
class ExchangeReport {
public:
    static constexpr std::uint32_t kMostOfOneKind = 10;
    static constexpr std::size_t kMostKinds = 5000;

    void Add(FindingLevel level, ExchangePlace place, std::string_view key, std::vector<std::string> values = {});
    void CountRead(const std::string& sheet, std::uint64_t rows);
    void CountKept(const std::string& sheet, std::uint64_t rows);

    const std::vector<ExchangeFinding>& Findings() const { return findings_; }
    const std::vector<SheetCount>& Sheets() const { return sheets_; }
    /// Findings of a level, those that are only counted included.
    std::uint64_t Count(FindingLevel level) const;
    bool HasErrors() const { return Count(FindingLevel::Error) > 0; }

    /// The whole report in the current language, one line for each finding; what matters most comes first.
    std::string Text() const;

private:
    using Kind = std::tuple<FindingLevel, std::string, std::string, std::string>;

    std::string LevelText(FindingLevel level) const;
    SheetCount& CountOf(const std::string& sheet);

    std::vector<ExchangeFinding> findings_;
    std::vector<SheetCount> sheets_;
    std::map<Kind, std::uint64_t> kinds_;
    std::map<FindingLevel, std::uint64_t> counts_;
};

}  // namespace zt
