#include "zt_db/post/result_seed.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <set>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "velda_lib/word_line.h"
#include "velda_util/pref/whole_file.h"
#include "zt_db/core/record_walk.h"
#include "zt_db/post/result_keeper.h"
#include "zt_db/post/story/story_geometry.h"
#include "zt_db/post/story/story_rows.h"
#include "zt_db/post/story/story_seed.h"
#include "zt_db/records/load_case_kind.h"
#include "zt_db/records/memb.h"
#include "zt_db/records/memb_type.h"
#include "zt_db/records/pont.h"
#include "zt_db/records/splc.h"
#include "zt_db/records/spts.h"
#include "zt_db/records/stld.h"
#include "zt_db/records/thlc.h"

namespace zt {
namespace {

using velda::FormatText;
using velda::LineWord;
using velda::Outcome;
using Words = std::span<const LineWord>;

constexpr std::uint32_t kStations = 9;
constexpr std::uint32_t kMostModes = 1000;
constexpr std::uint32_t kMostInRange = 1000;
constexpr std::size_t kMostColumns = 1 << 14;

/// What the rows of a quantity belong to, and so which numbers stand before its values.
enum class Rows { Node, Support, Station, Link, SlabNode, Mode, One };

constexpr std::size_t NumbersBefore(Rows rows) {
    if (rows == Rows::One) return 0;
    return rows == Rows::Station || rows == Rows::SlabNode ? 2 : 1;
}

/// A line that tells one row of an array. Values repeat their units: three along the axes, three about them.
struct SeedQuantity {
    std::string_view word;
    std::string_view array;
    Rows rows;
    std::size_t columns;
    std::array<int, 2> units{};
    std::size_t optional = 0;  ///< values at the end that may be missing
    bool isModal = false;
};

constexpr std::array<int, 2> kLengths = {Unit::Length, Unit::None};
constexpr std::array<int, 2> kForces = {Unit::Force, Unit::Moment};
constexpr std::array<int, 2> kMasses = {Unit::Mass, Unit::RotationalMass};
constexpr std::array<int, 2> kPlain = {Unit::None, Unit::None};

constexpr SeedQuantity kQuantities[] = {
    {"displacement", ResultName::Displacement, Rows::Node, 6, kLengths},
    {"velocity", ResultName::Velocity, Rows::Node, 6, {Unit::Velocity, Unit::None}},
    {"relative_acceleration", ResultName::RelativeAcceleration, Rows::Node, 6, {Unit::Acceleration, Unit::None}},
    {"absolute_acceleration", ResultName::AbsoluteAcceleration, Rows::Node, 6, {Unit::Acceleration, Unit::None}},
    {"reaction", ResultName::Reaction, Rows::Support, 6, kForces},
    {"reaction_sum", ResultName::ReactionSum, Rows::One, 6, kForces},
    {"load_sum", ResultName::LoadSum, Rows::One, 3, kForces},
    {"force", ResultName::ElementForce, Rows::Station, 6, kForces},
    {"design", ResultName::DesignForce, Rows::Station, 6, kForces},
    {"link", ResultName::LinkForce, Rows::Link, 12, kForces},
    {"slab", ResultName::SlabForce, Rows::SlabNode, 6, kForces},
    {"frequency", ResultName::Frequency, Rows::Mode, 2, kPlain, 1, true},
    {"participation", ResultName::Participation, Rows::Mode, 6, kPlain, 0, true},
    {"effective_mass", ResultName::EffectiveMass, Rows::Mode, 6, kMasses, 0, true},
    {"total_mass", ResultName::TotalMass, Rows::One, 6, kMasses, 0, true},
    {"shape", ResultName::Shape, Rows::Node, 6, kPlain, 0, true},
};

struct KindWord {
    std::string_view word;
    int kind;
};
constexpr KindWord kKinds[] = {
    {"static", LoadCaseKind::Static},
    {"spectrum", LoadCaseKind::Spectrum},
    {"history", LoadCaseKind::TimeHistory},
    {"settlement", LoadCaseKind::Settlement},
    {"combination", LoadCaseKind::Combination},
    {"es_spectrum", LoadCaseKind::EsSpectrum},
    {"pushover", LoadCaseKind::Pushover},
    {"pt", LoadCaseKind::Pt},
    {"es_static", LoadCaseKind::EsStatic},
    {"nonlinear_load", LoadCaseKind::NonlinearLoad},
    {"nonlinear_case", LoadCaseKind::NonlinearCase},
    {"es_combination", LoadCaseKind::EsCombination},
};

bool ReadKind(std::string_view word, int& kind) {
    const auto* found =
        std::find_if(std::begin(kKinds), std::end(kKinds), [&](const KindWord& one) { return one.word == word; });
    if (found != std::end(kKinds)) kind = found->kind;
    return found != std::end(kKinds) || (ScalarFromText(word, kind) && kind >= 0);
}

/// Whether a name may be that of an array or of a list of keys: parts of letters, digits and underlines, where the
/// result file has such.
bool IsArrayName(std::string_view name, bool isKeys) {
    const auto isPlain = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '/';
    };
    const bool isBelow =
        isKeys ? name.starts_with("model/")
               : name.starts_with("modal/") || name.starts_with("case/") || name == ResultName::ElementRanges;
    return isBelow && std::all_of(name.begin(), name.end(), isPlain) && !name.ends_with('/') &&
           name.find("//") == std::string_view::npos;
}

/// A kind and a key: a load case.
struct CaseKey {
    int kind = 0;
    std::uint32_t key = 0;
};

class SeedReader {
public:
    explicit SeedReader(CDataBase& model) : model_(model) {}

    Outcome Read(std::string_view text) {
        if (constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf"; text.starts_with(kByteOrderMark)) {
            text.remove_prefix(kByteOrderMark.size());
        }
        for (std::size_t at = 0; at < text.size() && outcome_;) {
            const std::size_t end = std::min(text.find('\n', at), text.size());
            ++line_;
            const std::string_view line = text.substr(at, end - at);
            const velda::WordLine read = velda::ReadWordLine(line);
            if (!read.fault.empty()) Fail(line, "IDS_DB_SEED_OPEN");
            if (outcome_ && !read.words.empty()) ReadLine(read.words);
            at = end + 1;
        }
        if (outcome_) PutKeyLists();
        if (outcome_) LayTables();
        return outcome_;
    }

    Outcome Write(ResultSink& sink) const {
        Outcome outcome = Outcome::Done();
        // Cases come first: their arrays stand in them.
        for (const ResultCase& one : cases_) {
            if (outcome) outcome = sink.PutCase(one);
        }
        for (const auto& [name, keys] : keys_) {
            if (outcome && !keys.empty()) outcome = sink.PutKeys(name, keys);
        }
        for (const auto& [name, array] : arrays_) {
            if (outcome && !array.values.empty()) outcome = sink.PutArray(name, array.columns, array.values);
        }
        return outcome;
    }

private:
    struct Array {
        std::size_t columns = 0;
        std::vector<double> values{};
    };
    using RowKey = std::array<std::uint32_t, 2>;
    struct Row {
        std::vector<double> values{};
        int line = 0;
        std::string word{};  ///< what names the row
    };
    struct Table {
        const SeedQuantity* quantity = nullptr;
        std::map<RowKey, Row> rows{};
    };
    /// What lines that begin with a number or a field belong to.
    enum class Block { None, Array, Keys, Story };

    // ---- faults

    void FailAt(int line, std::string_view word, std::string_view key) {
        if (outcome_)
            outcome_ =
                Outcome::Refused(FormatText("IDS_DB_SEED_FAULT", {std::to_string(line), word, FormatText(key, {})}));
    }
    void Fail(std::string_view word, std::string_view key) { FailAt(line_, word, key); }
    static std::string_view TextOf(const LineWord& word) { return word.assigns ? word.name : word.value; }
    /// Whether a line has as many words as it needs; fails otherwise.
    bool Has(Words words, std::size_t least, std::size_t most) {
        if (words.size() < least) Fail(TextOf(words.back()), "IDS_DB_SEED_FEW");
        if (words.size() > most) Fail(TextOf(words[most]), "IDS_DB_SEED_MANY");
        return static_cast<bool>(outcome_);
    }

    // ---- words

    bool ReadNumber(const LineWord& word, double& value) {
        const bool isRead = !word.assigns && velda::ReadWholeDouble(word.value, value) && std::isfinite(value);
        if (!isRead) Fail(TextOf(word), "IDS_DB_SEED_NUMBER");
        return isRead;
    }
    bool ReadKey(const LineWord& word, std::uint32_t& key) {
        const bool isRead = !word.assigns && ScalarFromText(word.value, key);
        if (!isRead) Fail(TextOf(word), "IDS_DB_SEED_NUMBER");
        return isRead;
    }
    bool ReadNumbers(Words words, std::vector<double>& values) {
        for (const LineWord& word : words) {
            double value = 0.0;
            if (!ReadNumber(word, value)) return false;
            values.push_back(value);
        }
        return true;
    }
    /// A number, or the first and the last of several in a row: "0-8".
    bool ReadRange(const LineWord& word, std::uint32_t& first, std::uint32_t& last) {
        const std::string_view text = word.value;
        const std::size_t dash = std::min(text.find('-'), text.size());
        const bool isRead = !word.assigns && ScalarFromText(text.substr(0, dash), first) &&
                            ScalarFromText(dash < text.size() ? text.substr(dash + 1) : text, last) && first <= last &&
                            last - first < kMostInRange;
        if (!isRead) Fail(TextOf(word), "IDS_DB_SEED_NUMBER");
        return isRead;
    }
    /// A load case: the name of one that was told, or its kind and key as in "static_3".
    bool ReadCase(const LineWord& word, CaseKey& read, bool mustBeTold) {
        const auto isNamed = [&](const ResultCase& one) { return one.name == word.value; };
        auto found = std::find_if(cases_.begin(), cases_.end(), isNamed);
        const std::size_t bar = word.value.rfind('_');
        if (found == cases_.end() && bar != std::string::npos &&
            ReadKind(std::string_view(word.value).substr(0, bar), read.kind) &&
            ScalarFromText(std::string_view(word.value).substr(bar + 1), read.key)) {
            found = FindCase(read);
            if (!mustBeTold) return true;
        }
        if (found == cases_.end()) {
            Fail(TextOf(word), "IDS_DB_SEED_CASE");
            return false;
        }
        read = {found->kind, found->key};
        return true;
    }
    std::vector<ResultCase>::iterator FindCase(const CaseKey& key) {
        return std::find_if(cases_.begin(), cases_.end(),
                            [&](const ResultCase& one) { return one.kind == key.kind && one.key == key.key; });
    }

    // ---- lines

    void ReadLine(Words words) {
        double number = 0.0;
        const LineWord& first = words.front();
        if (first.assigns) return ReadStoryRecord(words);
        if (!first.quoted && velda::ReadWholeDouble(first.value, number)) return ReadRow(words);
        block_ = Block::None;
        if (first.value == "units") return ReadUnits(words);
        if (first.value == "case") return ReadCaseLine(words);
        if (first.value == "array" || first.value == "keys") return ReadArrayHead(words);
        if (first.value == "story") return ReadStoryHead(words);
        for (const SeedQuantity& quantity : kQuantities) {
            if (first.value == quantity.word) return ReadQuantity(quantity, words);
        }
        Fail(first.value, "IDS_DB_SEED_LINE");
    }

    void ReadUnits(Words words) {
        if (!Has(words, 2, 2)) return;
        if (words[1].value != "si" && words[1].value != "current") return Fail(TextOf(words[1]), "IDS_DB_SEED_UNITS");
        units_ = words[1].value == "current" ? &model_.Units() : nullptr;
    }

    void ReadCaseLine(Words words) {
        CaseKey key;
        if (!Has(words, 3, 5)) return;
        if (!ReadKind(words[1].value, key.kind)) return Fail(TextOf(words[1]), "IDS_DB_SEED_KIND");
        if (!ReadKey(words[2], key.key)) return;
        if (FindCase(key) != cases_.end()) return Fail(words[2].value, "IDS_DB_SEED_TWICE");
        ResultCase loadCase = OfModel(key);
        if (words.size() > 3) loadCase.name = words[3].value;
        if (words.size() > 4) loadCase.type = words[4].value;
        cases_.push_back(std::move(loadCase));
    }
    /// A case with the name that it has in the model.
    ResultCase OfModel(const CaseKey& key) const {
        ResultCase loadCase{key.kind, key.key, {}, {}};
        const auto take = [&](auto record, const auto& records) {
            if (records.Get(key.key, record)) loadCase.name = record.name;
            return record;
        };
        if (key.kind == LoadCaseKind::Static) loadCase.type = take(T_STLD_D{}, *model_.GetClass<CClassStld>()).type;
        if (key.kind == LoadCaseKind::Spectrum) take(T_SPLC_D{}, *model_.GetClass<CClassSplc>());
        if (key.kind == LoadCaseKind::TimeHistory) take(T_THLC_D{}, *model_.GetClass<CClassThlc>());
        return loadCase;
    }

    // ---- arrays as they stand

    void ReadArrayHead(Words words) {
        if (!Has(words, 2, words.front().value == "keys" ? words.size() : 2)) return;
        block_ = words.front().value == "keys" ? Block::Keys : Block::Array;
        if (!OpenArray(words[1])) return;
        if (words.size() > 2) ReadRow(words.subspan(2));
    }
    bool OpenArray(const LineWord& word) {
        name_ = word.value;
        const bool isNew = !keys_.contains(name_) && !arrays_.contains(name_) && !tables_.contains(name_);
        if (!IsArrayName(name_, block_ == Block::Keys)) Fail(TextOf(word), "IDS_DB_SEED_NAME");
        if (!isNew) Fail(TextOf(word), "IDS_DB_SEED_TWICE");
        if (outcome_ && block_ == Block::Keys) keys_[name_];
        if (outcome_ && block_ != Block::Keys) arrays_[name_];
        return static_cast<bool>(outcome_);
    }
    void ReadRow(Words words) {
        if (block_ == Block::Keys) {
            for (const LineWord& word : words) {
                if (!ReadKey(word, keys_[name_].emplace_back())) return;
            }
        } else if (block_ == Block::Array) {
            Array& array = arrays_[name_];
            if (array.columns == 0) array.columns = std::min(words.size(), kMostColumns);
            if (Has(words, array.columns, array.columns)) ReadNumbers(words, array.values);
        } else {
            Fail(words.front().value, "IDS_DB_SEED_LINE");
        }
    }

    // ---- rows that are found by numbers

    void ReadQuantity(const SeedQuantity& quantity, Words words) {
        std::size_t at = 1;
        std::string name(quantity.array);
        if (!ReadPath(quantity, words, at, name)) return;
        if (arrays_.contains(name)) return Fail(name, "IDS_DB_SEED_TWICE");
        const std::size_t before = at + NumbersBefore(quantity.rows);
        const std::size_t most = before + quantity.columns;
        if (!Has(words, most - quantity.optional, most)) return;
        RowKey first{};
        RowKey last{};
        if (!ReadRowKey(quantity, words.subspan(at, before - at), first, last)) return;
        Row row{.line = line_, .word = before > at ? words[at].value : std::string(quantity.word)};
        if (!ReadNumbers(words.subspan(before), row.values)) return;
        row.values.resize(quantity.columns);
        for (std::size_t i = 0; units_ && i < row.values.size() && !name.ends_with("_time"); ++i) {
            row.values[i] = units_->ToBase(quantity.units[i % 6 < 3 ? 0 : 1], row.values[i]);
        }
        Table& table = tables_[name];
        table.quantity = &quantity;
        for (std::uint32_t i = 0; i <= last[1] - first[1]; ++i) {
            if (!table.rows.emplace(RowKey{first[0], first[1] + i}, row).second)
                return Fail(row.word, "IDS_DB_SEED_TWICE");
        }
    }
    /// The array that a line belongs to: that of a case, with max or min and such where the case has both, or of modes.
    bool ReadPath(const SeedQuantity& quantity, Words words, std::size_t& at, std::string& name) {
        if (quantity.isModal && quantity.array != ResultName::Shape) return true;
        if (!Has(words, 2, words.size())) return false;
        if (quantity.isModal) {
            std::uint32_t mode = 0;
            if (!ReadMode(words[at++], mode)) return false;
            name += std::to_string(mode);
            return true;
        }
        CaseKey key;
        if (!ReadCase(words[at++], key, true)) return false;
        std::string suffix;
        for (const std::string_view one :
             {ResultName::Max, ResultName::Min, ResultName::MaxTime, ResultName::MinTime}) {
            if (at < words.size() && words[at].value == one.substr(1)) suffix = one;
        }
        if (!suffix.empty()) ++at;
        name = CasePath(key.kind, key.key, quantity.array, suffix);
        return true;
    }
    bool ReadMode(const LineWord& word, std::uint32_t& mode) {
        if (!ReadKey(word, mode)) return false;
        if (mode < 1 || mode > kMostModes) Fail(word.value, "IDS_DB_SEED_PLACE");
        return static_cast<bool>(outcome_);
    }
    bool ReadRowKey(const SeedQuantity& quantity, Words words, RowKey& first, RowKey& last) {
        if (words.empty()) return true;
        if (!(quantity.rows == Rows::Mode ? ReadMode(words[0], first[0]) : ReadKey(words[0], first[0]))) return false;
        last = first;
        if (quantity.rows == Rows::Station) return ReadRange(words[1], first[1], last[1]);
        if (words.size() > 1 && !ReadKey(words[1], first[1])) return false;
        last = first;
        return true;
    }

    // ---- stories

    void ReadStoryHead(Words words) {
        CaseKey key;
        if (!Has(words, 3, 3)) return;
        form_ = FindStoryForm(words[1].value);
        if (!form_) return Fail(TextOf(words[1]), "IDS_DB_SEED_SERVICE");
        if (!ReadCase(words[2], key, false)) return;
        block_ = Block::Story;
        name_ = StoryPath(key.kind, key.key, words[1].value);
        if (arrays_.contains(name_)) return Fail(words[1].value, "IDS_DB_SEED_TWICE");
        arrays_[name_].columns = form_->columns;
    }
    void ReadStoryRecord(Words words) {
        if (block_ != Block::Story) return Fail(words.front().name, "IDS_DB_SEED_LINE");
        Array& array = arrays_[name_];
        const auto wrong = form_->append(HeadOf(array.values.size() / array.columns), words, units_, array.values);
        if (wrong) Fail(TextOf(words[*wrong]), "IDS_DB_SEED_FIELD");
    }
    /// What a record begins with where it does not tell otherwise: the story whose turn it is.
    T_STHEAD_D HeadOf(std::size_t place) {
        if (!stories_) stories_ = StoryGeometry(CPostDataBase(&model_, nullptr)).Stories();
        T_STHEAD_D head{.seq = static_cast<std::uint32_t>(place + 1)};
        if (place >= stories_->size()) return head;
        const StoryLevel& story = (*stories_)[place];
        head.mdul = story.mdul;
        head.story = story.key;
        head.level = story.level;
        head.height = story.height;
        return head;
    }

    // ---- what the text does not tell

    void PutKeyLists() {
        std::map<std::uint32_t, std::uint32_t> numbers;
        ForEachInOrder<CClassPont>(model_, [&](std::uint32_t key, const T_PONT_D& node) { numbers[key] = node.no; });
        const auto isMissing = [&](std::string_view name) { return keys_.find(name) == keys_.end(); };
        if (isMissing(ResultName::Nodes)) {
            auto& nodes = keys_[std::string(ResultName::Nodes)];
            for (const auto& [key, no] : numbers) nodes.push_back(no);
            std::sort(nodes.begin(), nodes.end());
        }
        if (isMissing(ResultName::Supports)) {
            auto& supports = keys_[std::string(ResultName::Supports)];
            for (const std::uint32_t key : KeysOf<CClassSpts>(model_)) supports.push_back(numbers[key]);
            std::sort(supports.begin(), supports.end());
        }
        if (isMissing(ResultName::ElementMembers)) PutMembers(numbers);
        const auto isOf = [](Rows rows) { return [rows](const SeedQuantity& one) { return one.rows == rows; }; };
        PutNamed(ResultName::Links, 1, isOf(Rows::Link));
        PutNamed(ResultName::SlabNodes, 2, isOf(Rows::SlabNode));
        PutNamed(ResultName::Designed, 1, [](const auto& one) { return one.array == ResultName::DesignForce; });
    }
    /// Members with a section are one element each.
    void PutMembers(std::map<std::uint32_t, std::uint32_t>& numbers) {
        auto& members = keys_[std::string(ResultName::ElementMembers)];
        auto& ends = keys_[std::string(ResultName::ElementEnds)];
        auto& ranges = arrays_[std::string(ResultName::ElementRanges)];
        ends.clear();
        ranges = {.columns = 2};
        ForEachInOrder<CClassMemb>(model_, [&](std::uint32_t, const T_MEMB_D& member) {
            if (member.nodes.size() < 2 || PropertyOfMemberType(member.type) != MemberProperty::Section) return;
            members.push_back(member.no);
            ends.insert(ends.end(), {numbers[member.nodes.front()], numbers[member.nodes.back()]});
            ranges.values.insert(ranges.values.end(), {0.0, 1.0});
        });
    }
    /// Lists what lines of some quantities name where the model does not tell what there is: the first numbers of their
    /// rows.
    template <class IsListed>
    void PutNamed(std::string_view name, std::ptrdiff_t numbers, IsListed isListed) {
        if (keys_.find(name) != keys_.end()) return;
        std::set<std::vector<std::uint32_t>> named;
        for (const auto& [path, table] : tables_) {
            if (!isListed(*table.quantity)) continue;
            for (const auto& [key, row] : table.rows) named.emplace(key.begin(), key.begin() + numbers);
        }
        for (const std::vector<std::uint32_t>& key : named) {
            auto& keys = keys_[std::string(name)];
            keys.insert(keys.end(), key.begin(), key.end());
        }
    }

    // ---- rows in their places

    void LayTables() {
        MakePlaces();
        for (const auto& [name, table] : tables_) {
            Array& array = arrays_[name];
            array.columns = table.quantity->columns;
            array.values.resize(CountOf(table) * array.columns);
            for (const auto& [key, row] : table.rows) {
                const auto place = PlaceOf(table.quantity->rows, key);
                if (!place) return FailAt(row.line, row.word, "IDS_DB_SEED_PLACE");
                std::copy(row.values.begin(), row.values.end(),
                          array.values.begin() + static_cast<std::ptrdiff_t>(*place * array.columns));
            }
        }
    }
    void MakePlaces() {
        const auto make = [this](Rows rows, std::string_view name) {
            const auto found = keys_.find(name);
            if (found == keys_.end()) return;
            const std::size_t width = rows == Rows::SlabNode ? 2 : 1;
            auto& places = places_[rows];
            for (std::size_t i = 0; i + width <= found->second.size(); i += width) {
                // Of the elements of a member the first counts.
                places.emplace(RowKey{found->second[i], width > 1 ? found->second[i + 1] : 0}, i / width);
            }
            counts_[rows] = found->second.size() / width;
        };
        make(Rows::Node, ResultName::Nodes);
        make(Rows::Support, ResultName::Supports);
        make(Rows::Station, ResultName::ElementMembers);
        make(Rows::Link, ResultName::Links);
        make(Rows::SlabNode, ResultName::SlabNodes);
    }
    std::size_t CountOf(const Table& table) {
        switch (table.quantity->rows) {
            case Rows::One: return 1;
            case Rows::Mode: return table.rows.rbegin()->first[0];
            case Rows::Station: return counts_[Rows::Station] * kStations;
            default: return counts_[table.quantity->rows];
        }
    }
    std::optional<std::size_t> PlaceOf(Rows rows, const RowKey& key) {
        if (rows == Rows::One) return 0;
        if (rows == Rows::Mode) return key[0] - 1;
        const RowKey wanted = {key[0], rows == Rows::Station ? 0 : key[1]};
        const auto found = places_[rows].find(wanted);
        if (found == places_[rows].end()) return std::nullopt;
        if (rows != Rows::Station) return found->second;
        // Stations count on over the elements of a member.
        const auto& members = keys_.find(ResultName::ElementMembers)->second;
        const std::size_t element = found->second + key[1] / kStations;
        if (element >= members.size() || members[element] != key[0]) return std::nullopt;
        return found->second * kStations + key[1];
    }

    CDataBase& model_;
    const CUnitCtrl* units_ = nullptr;  ///< current units, where the text is in those
    int line_ = 0;
    Outcome outcome_ = Outcome::Done();
    std::vector<ResultCase> cases_;
    std::map<std::string, std::vector<std::uint32_t>, std::less<>> keys_;
    std::map<std::string, Array, std::less<>> arrays_;
    std::map<std::string, Table, std::less<>> tables_;
    Block block_ = Block::None;
    std::string name_;  ///< of the array whose rows follow
    const StoryForm* form_ = nullptr;
    std::optional<std::vector<StoryLevel>> stories_;
    std::map<Rows, std::map<RowKey, std::size_t>> places_;
    std::map<Rows, std::size_t> counts_;
};

}  // namespace

Outcome ReadResultSeed(std::string_view text, CDataBase& model, ResultSink& sink) {
    SeedReader reader(model);
    const Outcome outcome = reader.Read(text);
    return outcome ? reader.Write(sink) : outcome;
}

Outcome SeedResults(CDBDoc& doc, const std::filesystem::path& file) {
    constexpr std::size_t kMostBytes = std::size_t{1} << 28;
    std::string text;
    if (const std::error_code error = velda::ReadWholeFile(file, kMostBytes, text)) {
        return Outcome::Refused(FormatText("IDS_DB_SEED_UNREADABLE", {file.string(), error.message()}));
    }
    CDataBase& model = *doc.GetMDBCtrl()->GetCurrentDB();
    return doc.GetResults().Keep(FormatText("IDS_DB_STEP_SEED_RESULTS", {}), "seed", kStations,
                                 [&](ResultSink& sink) { return ReadResultSeed(text, model, sink); });
}

}  // namespace zt
