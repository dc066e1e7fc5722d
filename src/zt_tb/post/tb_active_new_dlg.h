#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velda_base/host/modal_dialog.h"
#include "velda_lib/outcome.h"
#include "zt_tb/post/active_param.h"
#include "zt_tb/post/object_query.h"

namespace zt {

/// The sections of the activation dialog, from left to right.
enum class ActiveSection { Objects, Kinds, Stories, Loads, Parts, Steps, Last };
inline constexpr std::size_t kActiveSections = 7;

/// The dialog in which users choose what a result table shows: objects by number, and what else by ticks in lists.
class CTBActiveNewDlg final : public velda::ModalDialog {
public:
    static constexpr std::string_view kName = "ResultActivation";

    /// An entry of a list that can be ticked.
    struct Item {
        std::string name{};
        bool isTicked = false;
    };
    /// An entry of the combo that tells what the objects are.
    struct ObjectKind {
        std::uint32_t domain;
        std::string name;
    };

    /// Both outlive the dialog. `database` is what the table reads, `mdul` the module whose members it shows, 0 for
    /// all: members are chosen among those.
    CTBActiveNewDlg(TB_ACTIVE_PARAM& param, const CPostDataBase& database, std::uint32_t mdul = 0)
        : param_(param), database_(database), mdul_(mdul) {}

    std::string_view GetName() const override { return kName; }
    void OnInitDialog() override;
    /// Puts what is chosen into the parameter. Stays open, with a message, while the numbers cannot be read; nothing is
    /// taken then.
    bool OnOK() override;

    /// The sections that are shown. Those that are hidden leave no gap.
    std::vector<ActiveSection> Sections() const;
    bool IsShown(ActiveSection section) const;
    /// What stands beside a section.
    std::string TitleOf(ActiveSection section) const;

    // ---- the objects

    /// The combo of what the objects are; it cannot be changed.
    static std::vector<ObjectKind> ObjectKinds();
    /// The place in it; none for objects that it does not tell of.
    std::optional<std::size_t> CurrentObjectKind() const;
    /// Numbers and ranges of numbers, as typed.
    std::string objectText;
    void SelectAllObjects();
    void SelectNoObject();

    /// What objects are picked by.
    QueryKind Query() const { return query_; }
    void SetQuery(QueryKind kind) { query_ = kind; }
    std::vector<ObjectQuery::Choice> QueryChoices() const { return QueryObjects().Choices(query_); }
    /// Puts the numbers of the objects of a choice in place of the text.
    void Pick(std::uint32_t choice);

    // ---- the lists

    const std::vector<Item>& Items(ActiveSection section) const { return lists_[IndexOf(section)].items; }
    void Tick(ActiveSection section, std::size_t item, bool isTicked);
    /// What the names of shown entries hold, without regard to the case of Latin letters; empty for all.
    void SetSearch(ActiveSection section, std::string text) { lists_[IndexOf(section)].search = std::move(text); }
    /// Places of the entries that the search shows.
    std::vector<std::size_t> Found(ActiveSection section) const;
    /// The load cases that were ticked as the dialog opened.
    const std::vector<LoadChoice>& OfferedLoads() const { return offeredLoads_; }
    /// Ticks all shown entries, or none of them; the others stay as they are.
    void TickFound(ActiveSection section, bool isTicked);

private:
    struct CheckList {
        std::vector<Item> items{};
        std::string search{};
    };
    static constexpr std::size_t IndexOf(ActiveSection section) { return static_cast<std::size_t>(section); }
    template <class Visitor>
    void ForEachList(Visitor visit);
    void FillLoads();
    ObjectQuery QueryObjects() const { return {database_, param_.objectDomain, objects_}; }
    std::vector<std::uint32_t> ObjectsOfModule() const;
    velda::Outcome ReadObjects(std::vector<std::uint32_t>& numbers) const;

    TB_ACTIVE_PARAM& param_;
    const CPostDataBase& database_;
    std::uint32_t mdul_;
    std::vector<std::uint32_t> objects_;  ///< all that the table can show, ascending
    QueryKind query_ = QueryKind::MemberType;
    std::array<CheckList, kActiveSections> lists_;
    std::vector<LoadChoice> offeredLoads_;
};

}  // namespace zt
