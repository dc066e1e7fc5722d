#pragma once

#include <map>

#include "zt_db/post/story/story_result.h"
#include "zt_tb/post/story/tb_post_st_drft.h"

namespace zt {

/// Drift that a run tells by its greatest value: of time histories and of pushover steps. Limits that a user has set
/// take the place of those that the records tell.
class GreatestDrift : public StorySource<T_STDFTTH_D, CTBPostStDrftBase> {
public:
    /// What a table without a direction of its own shows: that in which a case moves the building more.
    static constexpr int kGoverning = -1;

    /// The direction is 0 for X, 1 for Y.
    GreatestDrift(int kind, const ResultDeclaration& declaration, const StoryLayout& layout, int direction);

protected:
    void ReadStories(const CPostCtrl& control, const LoadChoice& load, int step,
                     std::vector<T_STDFTTH_D>& records) final;
    /// Reads what the service of the table has.
    virtual void ReadService(const CStoryResult& service, const LoadChoice& load, int step,
                             std::vector<T_STDFTTH_D>& records) const;
    const T_STDFTTH_PART& PartOf(const T_STDFTTH_D& record) const;

private:
    int direction_;
};

/// Drift angles of linear time histories in a direction.
class CTBPostStDrftTH : public GreatestDrift {
public:
    CTBPostStDrftTH(int kind, int direction) : CTBPostStDrftTH(kind, Declared(), direction) {}
    static const ResultDeclaration& Declared();

    void AfterSetRecCount() override { InsertLineAbove(); }
    void AfterRedrawTable() override { WriteLineAbove("IDS_TB_POSTDISP_PRESS_MOUSE_Drift_Ang_TH"); }
    /// A click on the line above the records sets the limits.
    void OnEvent(const velda::T_TB_EVENT_D& event) override;

protected:
    /// `step` is the field that tells records of one case apart; 0 for none.
    CTBPostStDrftTH(int kind, const ResultDeclaration& declaration, int direction, int step = 0)
        : GreatestDrift(kind, declaration, {.height = 3, .load = 4, .verdicts = {kRemark}, .plot = 6, .step = step},
                        direction) {}
    void WriteRecord(const T_STDFTTH_D& record, velda::RecordCells& cells) override;
    /// Writes when the drift was greatest into field 5.
    virtual void WriteMoment(const T_STDFTTH_PART& part, velda::RecordCells& cells) { cells.Number(5, part.time); }

private:
    static constexpr int kRemark = 9;
};

/// Drift angles of linear time histories at the edge of a story beside those of its average.
class CTBPostStDrftTH2 : public GreatestDrift {
public:
    explicit CTBPostStDrftTH2(int kind)
        : GreatestDrift(kind, Declared(), {.height = 3, .load = 4, .verdicts = {kRemark}, .plot = 9}, kGoverning) {}
    static const ResultDeclaration& Declared();

protected:
    void WriteRecord(const T_STDFTTH_D& record, velda::RecordCells& cells) override;

private:
    static constexpr int kRemark = 8;
};

/// Drift angles of nonlinear time histories in a direction.
class CTBPostStDrftTHNL : public CTBPostStDrftTH {
public:
    CTBPostStDrftTHNL(int kind, int direction) : CTBPostStDrftTH(kind, Declared(), direction) {}
    static const ResultDeclaration& Declared();

protected:
    void ReadService(const CStoryResult& service, const LoadChoice& load, int step,
                     std::vector<T_STDFTTH_D>& records) const override;
};

/// Drift angles of the steps of pushover cases.
class CTBPostStDrftPO : public CTBPostStDrftTH {
public:
    explicit CTBPostStDrftPO(int kind);
    static const ResultDeclaration& Declared();

    void ApplySteps(const TB_ACTIVE_PARAM& param) override;
    /// Offers the steps that a case reaches.
    int PrepareActiveSteps(TB_ACTIVE_PARAM& param) override;
    /// Several steps of a case have one place among the load cases.
    bool GetOrder(std::span<const velda::STBSortItem> /*items*/, velda::RecordOrder& /*order*/) override {
        return false;
    }

protected:
    void ReadService(const CStoryResult& service, const LoadChoice& load, int step,
                     std::vector<T_STDFTTH_D>& records) const override;
    void WriteMoment(const T_STDFTTH_PART& part, velda::RecordCells& cells) override;
    std::int64_t RecordOrderNumber() const override {
        return LoadOrder(Load().key, Load().kind, LoadCaseSubKind::Single);
    }

private:
    std::map<int, std::string> stepNames_;
};

}  // namespace zt
