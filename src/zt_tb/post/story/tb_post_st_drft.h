#pragma once

#include <optional>

#include "zt_tb/post/story/story_source.h"

namespace zt {

/// The limits of drift that a table is held against, for stories without walls and with them. An angle is limited by
/// its denominator.
struct DriftLimits {
    struct Limit {
        double ratio = 0.015;
        double denominator = 550.0;
        bool operator==(const Limit&) const = default;
    };
    std::array<Limit, 2> limit{};
    bool operator==(const DriftLimits&) const = default;

    /// The denominator for the type of a story record.
    double DenominatorOf(int type) const { return limit[type == 0 ? 0 : 1].denominator; }
};

/// What all drift tables have: limits that users set.
class CTBPostStDrftBase : public StoryTable {
public:
    using StoryTable::StoryTable;

    const DriftLimits& Limits() const { return limits_; }
    /// Holds the records against other limits, and shows them.
    void SetLimits(const DriftLimits& limits);
    /// Whether the drift restriction of the model allows any drift.
    static bool HasAllowableAngle();

protected:
    /// The limits that a user has set; none before.
    const DriftLimits* GivenLimits() const { return areGiven_ ? &limits_ : nullptr; }

private:
    DriftLimits limits_;
    bool areGiven_ = false;
};

/// Drift of static and spectrum cases, in the direction in which a case moves the building more.
class StaticDrift : public StorySource<T_STDFT_D, CTBPostStDrftBase> {
public:
    using StorySource::StorySource;

protected:
    void ReadStories(const CPostCtrl& control, const LoadChoice& load, int step,
                     std::vector<T_STDFT_D>& records) override;
    static const T_STDFT_PART& PartOf(const T_STDFT_D& record) {
        return record.part[record.head.direction == 1 ? 1 : 0];
    }
};

/// Drift angles. Several such tables may stand side by side: those that follow take over what the leading one has read,
/// as long as they show the same load cases.
class CTBPostStDrftAng : public StaticDrift {
public:
    /// The table leads, once it has a grid, where `follows` is not 1.
    CTBPostStDrftAng(int kind, int follows);
    ~CTBPostStDrftAng() override;
    static const ResultDeclaration& Declared();

    void Initialize(velda::CTBCore& grid) override;
    void MakeRecords() override;
    void MakeObjectKeys(std::vector<std::uint32_t>& keys) override;
    void UpdateUnit() override;
    void AfterSetRecCount() override { InsertLineAbove(); }
    void AfterRedrawTable() override { WriteLineAbove("IDS_TB_POSTDISP_Drift_Ang_Descri"); }

protected:
    void WriteRecord(const T_STDFT_D& record, velda::RecordCells& cells) override;

private:
    bool Follows() const { return follows_ && !IsReRead() && leader_; }

    static inline const CTBPostStDrftAng* leader_ = nullptr;
    bool follows_;
};

/// Drift by a seismic code: amplified drift at the line of nodes that drifts most and at the centre of mass.
class CTBPostStDrftQorv : public StaticDrift {
public:
    explicit CTBPostStDrftQorv(int kind);
    static const ResultDeclaration& Declared();

    /// The drift restriction may have changed: limits and verdicts follow.
    void AfterRedrawTable() override;

protected:
    void WriteRecord(const T_STDFT_D& record, velda::RecordCells& cells) override;

private:
    /// Writes drift, modified drift, ratio and verdict into neighbouring fields.
    void WritePoint(const T_STDFT_POINT& point, int firstField, velda::RecordCells& cells) const;
};

}  // namespace zt
