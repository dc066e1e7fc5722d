#pragma once

#include <array>
#include <memory>

#include "zt_db/post/load_cursor.h"
#include "zt_db/post/story/story_records.h"

namespace zt {

class CMDBCtrl;

/// Displacements of a node: three translations, then three rotations in rad.
struct T_DISP_D {
    std::array<double, 6> value{};
};
/// Forces and moments of a reaction along the global axes.
struct T_REAC_D {
    std::array<double, 6> value{};
};
/// Forces of a link at its end i, then at its end j.
struct T_ELNK_D {
    std::array<double, 12> value{};
};
/// What a section carries: N (tension positive), Vy, Vz, T, My, Mz in local axes.
using T_FORCE_D = std::array<double, 6>;
/// Forces of a beam at the eighths of its length, from end i to end j.
struct T_FBEM_D {
    std::array<T_FORCE_D, 9> part{};
};
/// Forces of a column: at its bottom, at its top, and at the first and second third of its height.
struct T_FCOL_D {
    std::array<T_FORCE_D, 4> part{};
};
/// Forces of a brace at its ends.
struct T_FBRC_D {
    std::array<T_FORCE_D, 2> part{};
};
/// Shares of the total mass that a mode moves along and about the global axes, in percent, and their sums up to it.
struct T_MPAM_D {
    std::array<double, 6> mass{};
    std::array<double, 6> sum{};
};
/// How much of a mode goes along and about each global axis, in percent, and the greatest of them.
struct T_MDRF_D {
    std::array<double, 6> factor{};
    double value = 0.0;
};

/// Reads results for tables: node and member numbers in, values in the user's current units out. A getter returns 0,
/// and leaves what it was given alone, when there is no such result.
class CPostCtrl {
public:
    CPostCtrl(const CMDBCtrl& databases, const CUnitCtrl& units);

    /// Whether there are current results.
    int IsPostEnable() const;

    /// Makes a combination of a single case with factor 1, which takes the case's name; 0 when there is no such case.
    int MakeLoadComb(int kind, std::uint32_t key, T_PLCOM_D& combination) const;
    /// Opens a combination for the getters. The further arguments are part of the interface of this class.
    int SelectLoadComb(const T_PLCOM_D& combination, int = 0, int = 0);
    int SelectLoadComb(int kind, std::uint32_t key);
    /// Whether the opened combination has a greatest and a least value.
    bool HasEnvelope() const { return cursor_.HasEnvelope(); }

    // ---- of the opened combination. Each has three outputs that may be null: the governing value, that of greater
    // magnitude, then the greatest and the least.

    int GetDisp(std::uint32_t node, T_DISP_D* all, T_DISP_D* max = nullptr, T_DISP_D* min = nullptr) const;
    /// The reaction of a node; of node 0 the sum over all, its moments about the origin.
    int GetReac(std::uint32_t node, T_REAC_D* all, T_REAC_D* max = nullptr, T_REAC_D* min = nullptr) const;
    int GetElnk(std::uint32_t link, T_ELNK_D* all, T_ELNK_D* max = nullptr, T_ELNK_D* min = nullptr) const;
    // Girders, ground beams, wall beams, steel beams of stairs: they differ in what carries them, not in what is read.
    int GetMbgd(std::uint32_t memb, T_FBEM_D* all, T_FBEM_D* max = nullptr, T_FBEM_D* min = nullptr) const;
    int GetMbcg(std::uint32_t memb, T_FBEM_D* all, T_FBEM_D* max = nullptr, T_FBEM_D* min = nullptr) const;
    int GetMbwg(std::uint32_t memb, T_FBEM_D* all, T_FBEM_D* max = nullptr, T_FBEM_D* min = nullptr) const;
    int GetStwt(std::uint32_t memb, T_FBEM_D* all, T_FBEM_D* max = nullptr, T_FBEM_D* min = nullptr) const;
    // Columns and wall columns.
    int GetMbcl(std::uint32_t memb, T_FCOL_D* all, T_FCOL_D* max = nullptr, T_FCOL_D* min = nullptr) const;
    int GetMbwc(std::uint32_t memb, T_FCOL_D* all, T_FCOL_D* max = nullptr, T_FCOL_D* min = nullptr) const;
    int GetMbbr(std::uint32_t memb, T_FBRC_D* all, T_FBRC_D* max = nullptr, T_FBRC_D* min = nullptr) const;
    /// The forces that a member was designed for; 0 when it was not. See CPostCtrl4Dgn.
    int GetDesignForce(std::uint32_t memb, T_FBEM_D* all, T_FBEM_D* max = nullptr, T_FBEM_D* min = nullptr) const;
    int GetDesignForce(std::uint32_t memb, T_FCOL_D* all, T_FCOL_D* max = nullptr, T_FCOL_D* min = nullptr) const;
    int GetDesignForce(std::uint32_t memb, T_FBRC_D* all, T_FBRC_D* max = nullptr, T_FBRC_D* min = nullptr) const;
    /// What a slab gives to one of its nodes, along the global axes.
    int GetSlabForce(std::uint32_t slab, std::uint32_t node, T_REAC_D* all, T_REAC_D* max = nullptr,
                     T_REAC_D* min = nullptr) const;

    /// The length of a member between the faces of its joints.
    int GetMembNetLength(std::uint32_t memb, double& length) const;

    // ---- modes, from 1

    /// rad/s, cycles/s, period in s, and the error bound of the frequency.
    int GetEiFreq(int mode, double* values) const;
    int GetEiMpam(int mode, T_MPAM_D& masses) const;
    int GetEiMdrf(int mode, T_MDRF_D& factors) const;
    /// The shape of a mode at a node, as the run scaled it.
    int GetEiMode(int mode, std::uint32_t node, T_DISP_D& shape) const;

    /// Shear stiffnesses of stories; no analysis stage stores them yet, so that there are none.
    int GetTRST(int, std::uint32_t, std::vector<T_SSIT_D>& records) const {
        records.clear();
        return 0;
    }

    // ---- time histories and steps

    /// Opens a time-history case; 0 when it has no results.
    int SelectThlc(std::uint32_t key);
    /// The opened case; 0 when there is none.
    std::uint32_t SelectedThlc() const { return history_; }
    int SelectThnc(std::uint32_t key);
    /// The number of steps of the longest pushover case; 0 without.
    int GetMaxStep_PO() const;
    /// The number of steps of nonlinear analyses; no analysis stage stores them yet, so that there are none.
    int GetMaxStep_NL() const { return 0; }
    /// Names of the stages behind the last step of pushover analyses, each that of its case; false without.
    int GetCaseStep_AS(std::vector<std::string>& stages) const;

    const CPostDataBase& Database() const;
    const CUnitCtrl& Units() const { return units_; }
    /// The cursor of the opened combination, for services that read many rows; values in SI units.
    const LoadCursor& Cursor() const { return cursor_; }

private:
    template <class Record>
    using Outputs = std::array<Record*, 3>;

    /// What the values of a row measure.
    enum class RowUnits { Displacements, Forces, LinkForces };

    template <std::size_t Count, class Record>
    int GetRow(ResultQuantity quantity, std::uint32_t place, RowUnits units, const Outputs<Record>& outputs) const;
    /// The sizes of the current units of a row.
    const double* SizesOf(RowUnits units) const {
        T_UNIT_INDEX current;
        units_.GetUnitIndexCurrent(current);
        if (current != sizedUnits_) PutSizes(current);
        return sizes_[static_cast<std::size_t>(units)].data();
    }
    void PutSizes(const T_UNIT_INDEX& current) const;
    template <class Record>
    int GetParts(ResultQuantity quantity, std::uint32_t memb, std::span<const double> positions,
                 const Outputs<Record>& outputs) const;
    std::span<const double> HeightsOf(std::uint32_t memb) const;
    int SumOfReactions(const Outputs<T_REAC_D>& outputs) const;
    bool ForcesAt(ResultQuantity quantity, std::span<const CPostDataBase::Element> elements, double position,
                  LoadCursor::Row& bounds) const;
    bool IsUpsideDown(std::uint32_t memb) const;

    const CMDBCtrl& databases_;
    const CUnitCtrl& units_;
    LoadCursor cursor_;
    /// The results that the cursor reads; another run closes it.
    const ResultSource* opened_ = nullptr;
    std::uint32_t history_ = 0;
    /// Sizes of the units of rows, and the units that they are those of: results are read in millions.
    mutable std::array<std::array<double, LoadCursor::kMostColumns>, 3> sizes_{};
    mutable T_UNIT_INDEX sizedUnits_{.mass = -1};
};

}  // namespace zt
