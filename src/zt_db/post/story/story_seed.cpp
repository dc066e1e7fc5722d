#include "zt_db/post/story/story_seed.h"

#include <algorithm>
#include <cmath>

#include "zt_db/post/story/story_rows.h"

namespace zt {
namespace {

/// Brings the numbers of a field from current to SI units.
template <class FieldTag, class Value>
void FieldToBase(Value& value, const CUnitCtrl& units) {
    constexpr const auto& field = FieldTag::value;
    if constexpr (field.units.Convert() && std::is_same_v<Value, double>) {
        value = units.ToBase(field.units.codes[0], value);
    } else if constexpr (field.units.Convert()) {
        for (double& one : value) one = units.ToBase(field.units.codes[0], one);
    }
}

/// Sets the field of a name from a text; false when there is none or the text is no value of it.
template <class Record>
bool SetField(Record& record, const velda::LineWord& word, const CUnitCtrl* units) {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all;
        AppendColumnNames<Record>("", all);
        return all;
    }();
    std::size_t at = 0;
    bool isSet = false;
    VisitFields(record, [&](auto tag, auto& owner) {
        if (names[at++] != word.name) return;
        auto& value = owner.*(decltype(tag)::value.member);
        isSet = ValueFromText(word.value, value);
        if (isSet && units) FieldToBase<decltype(tag)>(value, *units);
    });
    return isSet;
}

template <class Record>
std::optional<std::size_t> AppendRecord(const T_STHEAD_D& head, std::span<const velda::LineWord> fields,
                                        const CUnitCtrl* units, std::vector<double>& numbers) {
    Record record{.head = head};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (!fields[i].assigns || !SetField(record, fields[i], units)) return i;
    }
    const std::vector<double> row = RowOfRecord(record);
    if (!std::all_of(row.begin(), row.end(), [](double value) { return std::isfinite(value); })) return 0;
    numbers.insert(numbers.end(), row.begin(), row.end());
    return std::nullopt;
}

template <class Record>
StoryForm FormOf(std::string_view service) {
    return {service, RowOfRecord(Record{}).size(), &AppendRecord<Record>};
}

constexpr std::string_view kPushover = "DFT4PV";

const std::vector<StoryForm>& Forms() {
    static const std::vector<StoryForm> forms = {
        FormOf<T_STDSP_D>("DSP"),        FormOf<T_STDFT_D>("DFT"),       FormOf<T_STTIC_D>("TIC"),
        FormOf<T_STSIC_D>("SIC"),        FormOf<T_STWIC_D>("WIC"),       FormOf<T_STCIC_D>("CIC"),
        FormOf<T_STSFR_D>("SFR"),        FormOf<T_STTAF_D>("TAF"),       FormOf<T_STBCF_D>("StbCoeff"),
        FormOf<T_STSTC_D>("STC"),        FormOf<T_STOTM_D>("OTM"),       FormOf<T_STECC_D>("ECC"),
        FormOf<T_STSWT_D>("SWT"),        FormOf<T_STSMS_D>("SMS"),       FormOf<T_STSLD_D>("SLD"),
        FormOf<T_STAFS_D>("AFS"),        FormOf<T_STYSC_D>("YSC"),       FormOf<T_ST02Q_D>("02Q0"),
        FormOf<T_STSFC_D>("SFC"),        FormOf<T_STDFTTH_D>("DFT4TH"),  FormOf<T_STSHRTH_D>("SHR4TH"),
        FormOf<T_STSHRRS_D>("SHR4RS"),   FormOf<T_STSSF_D>("SSF_THRS"),  FormOf<T_STDFTTH_D>("DFT4THNC"),
        FormOf<T_STSHRTH_D>("SHR4THNC"), FormOf<T_STDFTTH_D>(kPushover), FormOf<T_STMODE_D>("Mode"),
    };
    return forms;
}

}  // namespace

const StoryForm* FindStoryForm(std::string_view service) {
    const std::size_t slash = std::min(service.find('/'), service.size());
    const std::string_view name = service.substr(0, slash);
    std::uint32_t step = 0;
    const bool hasStep = slash < service.size() && ScalarFromText(service.substr(slash + 1), step);
    if (hasStep != (name == kPushover) || (!hasStep && slash < service.size())) return nullptr;
    const auto found =
        std::find_if(Forms().begin(), Forms().end(), [&](const StoryForm& form) { return form.service == name; });
    return found != Forms().end() ? &*found : nullptr;
}

}  // namespace zt
