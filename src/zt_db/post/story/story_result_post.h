#pragma once

#include "zt_db/post/story/story_formula.h"
#include "zt_db/post/story/story_service.h"

namespace zt {

/// Story results of load cases for tables. A case is known by its kind and key; where the records do not depend on one
/// it only tells which stored records are meant. Records: one for each story, module by module, the topmost first.
class CStoryResultPost : public StoryService {
public:
    using StoryService::StoryService;
    template <class Record>
    using List = std::vector<Record>;

    /// Displacement.
    int GetDSP(int kind, std::uint32_t key, List<T_STDSP_D>& records) const;
    /// Drift.
    int GetDFT(int kind, std::uint32_t key, List<T_STDFT_D>& records) const;
    /// Irregularity in torsion, stiffness, weight, strength.
    int GetTIC(int kind, std::uint32_t key, List<T_STTIC_D>& records) const;
    int GetSIC(int kind, std::uint32_t key, List<T_STSIC_D>& records) const;
    int GetWIC(int kind, std::uint32_t key, List<T_STWIC_D>& records) const;
    int GetCIC(int kind, std::uint32_t key, List<T_STCIC_D>& records) const;
    /// Shear and its shares.
    int GetSFR(int kind, std::uint32_t key, List<T_STSFR_D>& records) const;
    /// Torsional amplification.
    int GetTAF(int kind, std::uint32_t key, List<T_STTAF_D>& records) const;
    /// Stability coefficient.
    int GetStbCoeff(int kind, std::uint32_t key, List<T_STBCF_D>& records) const;
    /// Structural stability.
    int GetSTC(int kind, std::uint32_t key, List<T_STSTC_D>& records) const;
    /// Overturning moment.
    int GetOTM(int kind, std::uint32_t key, List<T_STOTM_D>& records) const;
    /// Eccentricity, by an estimate of the stiffness of each story.
    int GetECC(int kind, std::uint32_t key, List<T_STECC_D>& records) const;
    /// Weights of members; masses; loads of a static case or a sum of such.
    int GetSWT(int kind, std::uint32_t key, List<T_STSWT_D>& records) const;
    int GetSMS(int kind, std::uint32_t key, List<T_STSMS_D>& records) const;
    int GetSLD(int kind, std::uint32_t key, List<T_STSLD_D>& records) const;
    /// Sum of vertical forces.
    int GetAFS(int kind, std::uint32_t key, List<T_STAFS_D>& records) const;
    /// Yield strength.
    int GetYSC(int kind, std::uint32_t key, List<T_STYSC_D>& records) const;
    /// Least shear of the frame.
    int Get02Q0(int kind, std::uint32_t key, List<T_ST02Q_D>& records,
                const StoryFormula::FrameShearShares& shares = {}) const;

    /// The allowable ratio of drift to height.
    double GetAllowDrftRatio() const { return Restriction().allowableRatio; }

    // ---- load cases that tables of stories offer

    /// Static cases of wind, static cases of earthquake, spectrum cases; false when there are none.
    int GetLoadCaseKeyList4WindSeis(List<std::uint32_t>& wind, List<std::uint32_t>& seismic,
                                    List<std::uint32_t>& spectra) const;
    int GetLoadCaseKeyList4DrftAng(List<std::uint32_t>& wind, List<std::uint32_t>& seismic,
                                   List<std::uint32_t>& spectra) const;
    /// Spectrum cases, static cases of earthquake, ES combinations, and active combinations that hold either.
    int GetLoadCaseKeyList4StTIC(List<std::uint32_t>& spectra, List<std::uint32_t>& seismic,
                                 List<std::uint32_t>& esCombinations, List<std::uint32_t>& combinations) const;
    int ExistPEclcLoadCase() const;
    int GetLoadCaseKeyList4ECLC(List<std::uint32_t>& keys) const;

private:
    std::vector<std::optional<double>> VerticalLoads() const;
    bool HoldsEarthquake(const T_PLCOM_D& combination, std::size_t depth) const;
    bool LoadsOf(int kind, std::uint32_t key, double factor, std::vector<Vector3>& loads, std::size_t depth) const;
};

}  // namespace zt
