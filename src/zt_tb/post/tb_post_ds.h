#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "velda_util/result/tb_core.h"
#include "zt_db/doc/doc.h"
#include "zt_db/post/post_ctrl.h"
#include "zt_tb/post/active_param.h"
#include "zt_tb/post/load_step_rows.h"
#include "zt_tb/post/result_declaration.h"

namespace zt {

/// A source of results: which load cases, steps, parts and objects a table shows, and how its grid is set up. A record
/// is an object under one of the rows of load cases and steps; objects and rows count from 0, records from 1, object
/// after object.
class CTBPostDS : public velda::CTBDataSrc {
public:
    /// The declaration outlives the source.
    CTBPostDS(int kind, std::uint32_t keyDomain, const ResultDeclaration& declaration);

    // ---- what the grid asks

    void Initialize(velda::CTBCore& grid) override;
    void InitColHeader() override;
    void InitRecFields() override;
    void AppendPreferences(std::vector<velda::STBPrefItem>& items) const override;
    int UserDefinedInit() override;
    int SeekRec(long record) override;
    bool GetOrder(std::span<const velda::STBSortItem> items, velda::RecordOrder& order) override;
    void UpdateLanguage() override { ForgetTexts(); }
    std::string GetUnitText(int unitKind) const override;
    double GetUnitFactor(int unitKind) const override;

    // ---- what is shown, and what could be

    /// Takes load cases and objects from another table, where the table follows others.
    virtual void ApplyExternalActive(const TB_ACTIVE_PARAM& /*param*/) {}
    /// The objects of the table.
    virtual void MakeObjectKeys(std::vector<std::uint32_t>& keys) = 0;
    /// Drops the objects that the table does not show.
    virtual void FilterObjectKeys(std::vector<std::uint32_t>& /*keys*/) {}
    virtual void GetCurObjectKeys(std::vector<std::uint32_t>& keys) const = 0;
    void GetCurLoadCases(std::vector<LoadChoice>& loads) const { loads = loads_; }
    /// Shows the records anew.
    void RefreshRecords();
    /// Says what is shown and what could be; false when there is nothing to choose.
    virtual int GetActiveParam(TB_ACTIVE_PARAM& param);
    /// What a table without objects of its own offers instead.
    virtual int FillActiveExtra(TB_ACTIVE_PARAM& param);
    /// The stories that members can be filtered by.
    virtual int FillActivePartList(TB_ACTIVE_PARAM& /*param*/) { return 1; }
    /// Shows what was chosen. Parts come first, then objects, load cases and steps: objects may depend on parts, rows
    /// on load cases and steps.
    void SetActiveParam(const TB_ACTIVE_PARAM& param);
    virtual void ApplyObjects(const TB_ACTIVE_PARAM& param) = 0;
    virtual void ApplyLoadCases(const TB_ACTIVE_PARAM& param);
    virtual void ApplySteps(const TB_ACTIVE_PARAM& param);
    virtual void ApplyParts(const TB_ACTIVE_PARAM& param);
    virtual void OnBeforeApply() {}
    /// The choice was taken over: records are read anew where the table keeps them.
    virtual void AfterApplyParam(const TB_ACTIVE_PARAM& /*param*/) {}
    /// Restricts the steps that are offered to those of the table.
    virtual int PrepareActiveSteps(TB_ACTIVE_PARAM& /*param*/) { return 1; }
    virtual void OnDgnForceChanged() {}
    /// The drift restriction of the model is another one.
    virtual void OnRestrictionChanged() { RefreshRecords(); }
    virtual bool HasModuleChoice() const { return false; }
    virtual std::uint32_t GetCurModuleKey() const { return 0; }

    /// Whether the table has to be activated before it is shown for the first time.
    bool GetNeedsActivation() const { return needsActivation_; }
    void SetNeedsActivation(bool needs) { needsActivation_ = needs; }
    void BuildLoadStepRows();

    // ---- flags that the view sets and reads

    std::uint32_t KeyDomainOf() const { return keyDomain_; }
    bool HasParts() const { return partsOn_; }
    void SetDialogSeen() { dialogSeen_ = true; }
    bool WasDialogSeen() const { return dialogSeen_; }
    /// An activation of a sibling does not reach this table.
    bool IsPrivate() const { return isPrivate_; }
    void SetReRead(bool reRead) { reRead_ = reRead; }
    bool IsReRead() const { return reRead_; }
    /// Does a command of the view that shows the table; the view sets it.
    std::function<void(int)> onCommand;
    void SetStepListOff(bool off) { stepSettings_.listOff = off; }

    // ---- for tests and for the surroundings of a table

    const ResultDeclaration& Declaration() const { return declaration_; }
    const std::vector<LoadStepRow>& Rows() const { return rows_; }
    /// The load case of a record; none for a number without one.
    std::optional<LoadChoice> LoadOfRecord(long record) const;
    /// The objects that the records count, and the number of one, by its place from 0, as users see it; 0 where objects
    /// have none.
    virtual std::size_t ObjectCount() const = 0;
    virtual std::uint32_t ObjectNumber(std::size_t /*object*/) const { return 0; }
    /// What the current record is about; an object and a row from 0.
    std::size_t CurrentObject() const { return object_; }
    std::size_t CurrentRow() const { return row_; }

protected:
    /// Whether the objects stand in the order of the field that the table is sorted by.
    virtual bool AreObjectsSorted() const = 0;
    /// Rows that a record takes.
    virtual int RecordRows() const;
    /// Reads the result of the current record; what cannot be read is left at zero.
    virtual void ReadRecord() = 0;
    long GetRecCount() override;

    /// The model that results are of; empty without results.
    static const CPostDataBase& Results();
    /// The results of a load case of the selection, opened; null when it has none.
    CPostCtrl* PostOf(std::size_t load);
    /// Of the current record.
    CPostCtrl* Post() { return PostOf(rows_[row_].load); }
    const LoadChoice& Load() const { return loads_[rows_[row_].load]; }
    /// Asks the results for the number of steps of the longest case.
    void RefreshMaxStep();
    /// How the load case of a record is called.
    const std::string& LoadText(std::size_t load);
    const std::string& LoadText() { return LoadText(rows_[row_].load); }
    std::int64_t OrderOfLoad() const { return LoadOrder(Load()); }
    /// What a table adds to the name of a case of a kind.
    virtual std::string TextOfKind(std::uint32_t /*kind*/) const { return {}; }

    /// Reads the value that the sub-kind of the current record means, with a getter of CPostCtrl or a function that is
    /// called like one.
    template <class Record, class Getter>
    int ReadEnvelope(Getter getter, std::uint32_t object, Record& record) {
        record = {};
        CPostCtrl* post = Post();
        return post ? ReadEnvelopeOf(*post, Load(), getter, object, record) : 0;
    }
    /// The same of an opened load case: all, the greatest, or the least; a case without envelopes has the greatest.
    template <class Record, class Getter>
    static int ReadEnvelopeOf(CPostCtrl& post, const LoadChoice& load, Getter getter, std::uint32_t object,
                              Record& record) {
        const bool isAll = load.subKind == LoadCaseSubKind::All;
        const bool isMin = load.subKind == LoadCaseSubKind::Min;
        Record* const none = nullptr;
        return std::invoke(getter, post, object, isAll ? &record : none, isAll || isMin ? none : &record,
                           isMin ? &record : none);
    }

    /// A story as tables show it.
    struct ShownStory {
        std::string mdul{};
        std::string story{};
        double level = 0.0;  ///< current length unit

        std::string Name() const { return mdul + " : " + story; }
    };
    /// None, and the record stays empty, when the module or the story cannot be read.
    static std::optional<ShownStory> StoryOf(std::uint32_t mdul, std::uint32_t story);
    /// Colours rows by their load case, which stands in a field: every other case has another colour.
    void BandByLoadCase(int row, int col, int loadField, velda::CGXStyle& style);
    /// Colours a cell that holds a verdict.
    void ColourVerdict(int row, int col, velda::CGXStyle& style) const;
    std::string TextAt(int row, int fieldNo) const;
    /// The text of a cell that cannot be computed.
    static std::string GetErrorText();

    std::vector<LoadChoice> loads_;
    std::vector<std::int16_t> steps_;
    std::vector<std::int16_t> parts_;
    std::vector<LoadStepRow> rows_;
    StepSettings stepSettings_;
    bool loadsOn_ = true;
    bool stepsOn_ = false;
    bool partsOn_ = false;
    bool hasStoryFilter_ = false;
    bool isPrivate_ = false;
    bool needsActivation_ = false;
    bool reRead_ = false;

private:
    void PutColumnStyles();
    void ForgetTexts() {
        loadTexts_.clear();
        bands_.clear();
    }
    /// The title of a column, behind that of the group over it.
    std::string TitleInGroup(int fieldNo) const;
    /// The number of a load case, by its text, in the order in which the table shows them.
    int BandOf(const std::string& loadText);

    const ResultDeclaration& declaration_;
    std::uint32_t keyDomain_;
    bool dialogSeen_ = false;
    std::size_t object_ = 0;
    std::size_t row_ = 0;
    std::vector<std::unique_ptr<CPostCtrl>> posts_;  ///< by load case, made when first read
    std::vector<std::string> loadTexts_;             ///< likewise
    std::map<std::string, int> bands_;               ///< numbers of load case texts, made when first asked for
};

/// The source of a grid of results; null without a grid, and in one without a source.
CTBPostDS* PostSourceOf(const velda::CTBCore* grid);

}  // namespace zt
