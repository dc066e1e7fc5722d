#pragma once

#include "zt_db/post/story/story_service.h"

namespace zt {

/// Story results of time histories, of spectra beside them, and of what nonlinear analyses would give.
class CStoryResult : public StoryService {
public:
    using StoryService::StoryService;
    template <class Record>
    using List = std::vector<Record>;

    /// The allowable drift angle of the drift restriction; 0 when it allows none. The further argument is part of the
    /// interface of this class.
    int CalcAlwAngle4DFT(double& angle, int = 1) const;
    /// The allowable ratio of shear to weight. It hangs on the zone and the period by national tables that the model
    /// does not hold, so that there is none: 0, and `limit` becomes 0. The further arguments are part of the interface.
    int GetAllowShearWeightRatio(double& limit, int = 1, const void* = nullptr, int = 0, int = 0) const;

    /// Ratio of shear to weight, held against `allowable` where that is above 0.
    int GetSFC(int kind, std::uint32_t key, List<T_STSFC_D>& records, double allowable = 0.0) const;
    /// Drift of a time history.
    int GetDFT4TH(int kind, std::uint32_t key, List<T_STDFTTH_D>& records) const;
    /// Shear of a time history, of a spectrum case.
    int GetSHR4TH(int kind, std::uint32_t key, List<T_STSHRTH_D>& records) const;
    int GetSHR4RS(int kind, std::uint32_t key, List<T_STSHRRS_D>& records) const;
    /// Shears of up to three time histories beside that of a spectrum case; 0 for a case that is not there.
    int GetSSF_THRS(const List<std::uint32_t>& histories, std::uint32_t spectrum, List<T_STSSF_D>& records) const;

    // Of nonlinear histories, and of a step of a pushover: what the run has stored.
    int GetDFT4THNC(int kind, std::uint32_t key, List<T_STDFTTH_D>& records) const;
    int GetSHR4THNC(int kind, std::uint32_t key, List<T_STSHRTH_D>& records) const;
    int GetDFT4PV(int kind, std::uint32_t key, int step, List<T_STDFTTH_D>& records) const;
};

/// Modes story by story.
class CStoryDataCalc : public StoryService {
public:
    using StoryService::StoryService;
    /// A mode, from 1, at the centre of mass of each story.
    int GetMode(int mode, std::vector<T_STMODE_D>& records) const;
};

}  // namespace zt
