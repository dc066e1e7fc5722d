#include "zt_tb/post/tb_active_new_dlg.h"

#include <algorithm>

#include "velda_base/host/message_box.h"
#include "velda_lib/comp_func.h"
#include "velda_lib/key_text.h"
#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "velda_lib/numeric_optimizer.h"
#include "zt_tb/post/result_tracer.h"

namespace zt {

using velda::KeyText;

namespace {

using Numbers = std::vector<std::uint32_t>;

/// The titles of sections that the table gives none.
constexpr std::string_view kTitleKeys[kActiveSections] = {
    "IDS_TB_ACTIVE_OBJECTS", "", "IDS_TB_ACTIVE_STORIES", "IDS_TB_ACTIVE_LOADS", "IDS_TB_ACTIVE_PARTS",
    "IDS_TB_ACTIVE_STEPS",   ""};

/// Kinds of load cases that show as long as nothing is selected; the others wait until they are asked for.
constexpr int kKindsShownFirst[] = {
    LoadCaseKind::Static,       LoadCaseKind::Spectrum,   LoadCaseKind::TimeHistory, 8,
    LoadCaseKind::Settlement,   LoadCaseKind::EsSpectrum, LoadCaseKind::Pushover,    LoadCaseKind::EsStatic,
    LoadCaseKind::NonlinearCase};

bool IsShownFirst(const LoadChoice& choice) {
    return std::find(std::begin(kKindsShownFirst), std::end(kKindsShownFirst), static_cast<int>(choice.kind)) !=
           std::end(kKindsShownFirst);
}

template <class Value>
bool Holds(const std::vector<Value>& values, const Value& value) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

bool HoldsText(std::string_view text, std::string_view part) {
    for (std::size_t at = 0; at + part.size() <= text.size(); ++at) {
        if (velda::CCompFunc::EqualNoCase(text.substr(at, part.size()), part)) return true;
    }
    return false;
}

std::string RangeText(Numbers numbers) {
    std::sort(numbers.begin(), numbers.end());
    return velda::CNumericOptimizer::OptimizeSortedArray(numbers);
}

std::string Reason(const velda::NumberListResult& result) {
    using velda::NumberListFault;
    switch (result.fault) {
        case NumberListFault::Backwards: return velda::FormatText("IDS_TB_ACTIVE_BACKWARDS", {result.badToken});
        case NumberListFault::ZeroStep: return velda::FormatText("IDS_TB_ACTIVE_ZERO_STEP", {result.badToken});
        case NumberListFault::TooMany:
            return velda::FormatText("IDS_TB_ACTIVE_TOO_MANY",
                                     {result.badToken, std::to_string(velda::CStrParser::kMaxNumbers)});
        default: return velda::FormatText("IDS_TB_ACTIVE_NOT_A_NUMBER", {result.badToken});
    }
}

std::string MissingReason(std::uint32_t domain, std::uint32_t number) {
    const std::string_view key = domain == KeyDomain::Nodes      ? "IDS_TB_ACTIVE_NO_SUCH_NODE"
                                 : domain == KeyDomain::Elements ? "IDS_TB_ACTIVE_NO_SUCH_ELEMENT"
                                                                 : "IDS_TB_ACTIVE_NO_SUCH_MEMBER";
    return velda::FormatText(key, {velda::FormatLong(number)});
}

}  // namespace

/// Calls `visit(section, list of the parameter)` for the sections whose entries have plain keys.
template <class Visitor>
void CTBActiveNewDlg::ForEachList(Visitor visit) {
    visit(ActiveSection::Kinds, param_.kinds);
    visit(ActiveSection::Stories, param_.stories);
    visit(ActiveSection::Parts, param_.parts);
    visit(ActiveSection::Steps, param_.steps);
    visit(ActiveSection::Last, param_.last);
}

void CTBActiveNewDlg::OnInitDialog() {
    objects_ = ObjectsOfModule();
    std::sort(objects_.begin(), objects_.end());
    Numbers selected = param_.selectedObjects;
    DropUntraced(selected);
    objectText = RangeText(std::move(selected));
    lists_ = {};
    ForEachList([this](ActiveSection section, const auto& list) {
        for (std::size_t i = 0; i < list.names.size(); ++i) {
            lists_[IndexOf(section)].items.push_back({list.names[i], Holds(list.selected, list.keys[i])});
        }
    });
    FillLoads();
}

void CTBActiveNewDlg::FillLoads() {
    const LoadChoiceList& loads = param_.loads;
    const auto traced = TracedLoads(loads.all);
    const bool isFirst = loads.selected.empty() && !traced;
    offeredLoads_.clear();
    const std::vector<LoadChoice>& ticked = traced ? *traced : isFirst ? loads.defaults : loads.selected;
    for (std::size_t i = 0; i < loads.names.size(); ++i) {
        const LoadChoice& choice = loads.all[i];
        const bool isTicked = isFirst && !loads.useDefaults ? IsShownFirst(choice) : Holds(ticked, choice);
        lists_[IndexOf(ActiveSection::Loads)].items.push_back({loads.names[i], isTicked});
        if (isTicked) offeredLoads_.push_back(choice);
    }
}

bool CTBActiveNewDlg::OnOK() {
    Numbers numbers;
    if (const velda::Outcome read = ReadObjects(numbers); !read) {
        velda::AfxMessageBox(read.Reason());
        return false;
    }
    if (param_.hasObjects) param_.selectedObjects = std::move(numbers);
    const auto take = [](const CheckList& list, const auto& keys, auto& selected) {
        selected.clear();
        for (std::size_t i = 0; i < list.items.size(); ++i) {
            if (list.items[i].isTicked) selected.push_back(keys[i]);
        }
    };
    ForEachList([&](ActiveSection section, auto& list) {
        if (list.isOn) take(lists_[IndexOf(section)], list.keys, list.selected);
    });
    if (param_.hasLoads) take(lists_[IndexOf(ActiveSection::Loads)], param_.loads.all, param_.loads.selected);
    return true;
}

velda::Outcome CTBActiveNewDlg::ReadObjects(Numbers& numbers) const {
    if (!param_.hasObjects) return velda::Outcome::Done();
    const velda::NumberListResult read = velda::CNumericOptimizer::SelectNumByStr(objectText, numbers);
    if (!read) return velda::Outcome::Refused(Reason(read));
    for (const std::uint32_t number : numbers) {
        if (std::binary_search(objects_.begin(), objects_.end(), number)) continue;
        return velda::Outcome::Refused(MissingReason(param_.objectDomain, number));
    }
    return velda::Outcome::Done();
}

// ---- sections ----

bool CTBActiveNewDlg::IsShown(ActiveSection section) const {
    switch (section) {
        case ActiveSection::Objects: return param_.hasObjects;
        case ActiveSection::Kinds: return param_.kinds.isOn;
        case ActiveSection::Stories: return param_.stories.isOn;
        case ActiveSection::Loads: return param_.hasLoads;
        case ActiveSection::Parts: return param_.parts.isOn;
        case ActiveSection::Steps: return param_.steps.isOn;
        case ActiveSection::Last: return param_.last.isOn;
    }
    return false;
}

std::vector<ActiveSection> CTBActiveNewDlg::Sections() const {
    std::vector<ActiveSection> sections;
    for (std::size_t i = 0; i < kActiveSections; ++i) {
        if (IsShown(static_cast<ActiveSection>(i))) sections.push_back(static_cast<ActiveSection>(i));
    }
    return sections;
}

std::string CTBActiveNewDlg::TitleOf(ActiveSection section) const {
    const std::string* titles[kActiveSections] = {nullptr,
                                                  &param_.kinds.title,
                                                  &param_.stories.title,
                                                  &param_.loads.title,
                                                  &param_.parts.title,
                                                  &param_.steps.title,
                                                  &param_.last.title};
    const std::string* title = titles[IndexOf(section)];
    const std::string_view key = kTitleKeys[IndexOf(section)];
    if (title && !title->empty()) return " " + *title;
    return key.empty() ? std::string{} : " " + KeyText(key);
}

// ---- objects ----

std::vector<CTBActiveNewDlg::ObjectKind> CTBActiveNewDlg::ObjectKinds() {
    return {{KeyDomain::None, KeyText("IDS_ACTIVE_DLG_OBJ_KIND_NO")},
            {KeyDomain::Nodes, KeyText("IDS_ACTIVE_DLG_OBJ_KIND_NODE")},
            {KeyDomain::Members, KeyText("IDS_ACTIVE_DLG_OBJ_KIND_MEMB")}};
}

std::optional<std::size_t> CTBActiveNewDlg::CurrentObjectKind() const {
    const std::vector<ObjectKind> kinds = ObjectKinds();
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        if (kinds[i].domain == param_.objectDomain) return i;
    }
    return std::nullopt;
}

Numbers CTBActiveNewDlg::ObjectsOfModule() const {
    Numbers numbers = param_.allObjects;
    if (mdul_ == 0) return numbers;
    const CClassPMemb members(&database_);
    std::erase_if(numbers, [&](std::uint32_t number) {
        T_PMEMB_D member;
        return !members.Get(number, member) || member.mdul != mdul_;
    });
    return numbers;
}

void CTBActiveNewDlg::SelectAllObjects() { objectText = RangeText(objects_); }

void CTBActiveNewDlg::SelectNoObject() { objectText.clear(); }

void CTBActiveNewDlg::Pick(std::uint32_t choice) { objectText = RangeText(QueryObjects().Objects(query_, choice)); }

// ---- lists ----

void CTBActiveNewDlg::Tick(ActiveSection section, std::size_t item, bool isTicked) {
    lists_[IndexOf(section)].items.at(item).isTicked = isTicked;
}

std::vector<std::size_t> CTBActiveNewDlg::Found(ActiveSection section) const {
    const CheckList& list = lists_[IndexOf(section)];
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < list.items.size(); ++i) {
        if (HoldsText(list.items[i].name, list.search)) found.push_back(i);
    }
    return found;
}

void CTBActiveNewDlg::TickFound(ActiveSection section, bool isTicked) {
    for (const std::size_t item : Found(section)) Tick(section, item, isTicked);
}

}  // namespace zt
