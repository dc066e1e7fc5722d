#pragma once

#include <algorithm>
#include <array>
#include <vector>

#include "zt_db/post/story/story_records.h"
#include "zt_db/records/rstp.h"
#include "zt_tb/post/story/story_texts.h"
#include "zt_tb/post/tb_post_ds1.h"

namespace zt {

/// Where a story table has what all of them have, by field numbers; 0 for none. Module and story come first.
struct StoryLayout {
    int level = 0;
    int height = 0;
    int load = 0;                   ///< its case decides the colour of a row
    std::array<int, 2> verdicts{};  ///< fields that tell "OK" or "NG"
    int plot = 0;                   ///< what a plot over the stories shows
    int step = 0;                   ///< tells records of one load case apart
};

/// A table of stories under load cases and steps, whatever its records are.
class StoryTable : public CTBPostDS1 {
public:
    StoryTable(int kind, const ResultDeclaration& declaration, const StoryLayout& layout)
        : CTBPostDS1(kind, KeyDomain::None, declaration), layout_(layout) {}

    const StoryLayout& Layout() const { return layout_; }
    /// Shows what is chosen; nothing is at first.
    void MakeRecords() override;
    void AfterApplyParam(const TB_ACTIVE_PARAM& /*param*/) override { ReadAgain(); }
    /// Records are kept in the units that are shown.
    void UpdateUnit() override { ReadAgain(); }
    void OnRestrictionChanged() override {
        if (FollowRestriction()) RefreshRecords();
    }
    void CustomizeCell(int row, int col, velda::CGXStyle& style) override;

protected:
    /// Records are read when the choice changes, all at once.
    void ReadRecord() override {}
    void ReadAgain();
    /// Reads again where the drift restriction is no longer what it was then; false when it is.
    bool FollowRestriction();
    /// The drift restriction that the records were read with.
    const T_RSTP_D& Restriction() const { return restriction_; }
    /// Writes module, story, level, height and load case; false, and nothing is written, when the story is not there.
    bool WriteHead(const T_STHEAD_D& head, velda::RecordCells& cells);
    /// The number by which the current record stands among its load cases.
    virtual std::int64_t RecordOrderNumber() const { return OrderOfLoad(); }

    // ---- a line above the records; both are hooks of the grid

    void InsertLineAbove();
    void WriteLineAbove(const char* textKey);

private:
    StoryLayout layout_;
    T_RSTP_D restriction_;
};

/// A table of stories whose records a story service gives: one list of them for each row of load cases and steps, the
/// stories in the order of the service.
template <class Record, class Base = StoryTable>
class StorySource : public Base {
public:
    using Base::Base;

    void MakeObjectKeys(std::vector<std::uint32_t>& keys) override {
        lists_.clear();
        CPostCtrl* control = CDBDoc::m_pDBDoc ? CDBDoc::m_pDBDoc->GetPostCtrl() : nullptr;
        for (const LoadStepRow& row : this->rows_) {
            lists_.emplace_back();
            if (control) ReadStories(*control, this->loads_[row.load], row.step, lists_.back());
        }
        PutKeys(keys);
    }
    void GetRecTexts(velda::RecordCells& cells) override {
        const Record* record = CurrentRecord();
        cells.Long(this->Declaration().loadOrderField, this->RecordOrderNumber());
        cells.Long(this->Declaration().objectField, record ? SeqOf(*record) : SeqOf(this->CurrentObject()));
        if (record && this->WriteHead(record->head, cells)) WriteRecord(*record, cells);
    }

protected:
    /// Reads the stories of a row; a list that stays empty leaves its rows without values.
    virtual void ReadStories(const CPostCtrl& control, const LoadChoice& load, int step,
                             std::vector<Record>& records) = 0;
    /// Writes what only this table has.
    virtual void WriteRecord(const Record& record, velda::RecordCells& cells) = 0;

    bool AreObjectsSorted() const override {
        const auto inOrder = [](const Record& a, const Record& b) { return a.head.seq < b.head.seq; };
        return std::all_of(lists_.begin(), lists_.end(), [&](const std::vector<Record>& list) {
            return std::is_sorted(list.begin(), list.end(), inOrder);
        });
    }
    /// Takes the records of another table of the same load cases.
    void TakeRecords(const StorySource& other, std::vector<std::uint32_t>& keys) {
        lists_ = other.lists_;
        keys = other.keys_;
    }

private:
    static std::int64_t SeqOf(const Record& record) { return record.head.seq; }
    static std::int64_t SeqOf(std::size_t object) { return static_cast<std::int64_t>(object) + 1; }
    /// The stories of the load case that has most of them.
    void PutKeys(std::vector<std::uint32_t>& keys) const {
        const auto most = std::max_element(lists_.begin(), lists_.end(),
                                           [](const auto& a, const auto& b) { return a.size() < b.size(); });
        if (most == lists_.end()) return;
        for (const Record& record : *most) keys.push_back(record.head.story);
    }
    /// Null where a row has no such story.
    const Record* CurrentRecord() const {
        const std::vector<Record>& list = lists_[this->CurrentRow()];
        return this->CurrentObject() < list.size() ? &list[this->CurrentObject()] : nullptr;
    }

    std::vector<std::vector<Record>> lists_;  ///< by row
};

}  // namespace zt
