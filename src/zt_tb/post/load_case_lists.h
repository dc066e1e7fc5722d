#pragma once

#include <span>

#include "zt_db/post/story/story_result_post.h"
#include "zt_tb/post/load_choice.h"

namespace zt {

/// Lists the load cases that result tables offer. A list operation puts its cases behind those that are there already;
/// those that are default are chosen as long as the user has chosen none.
class LoadCaseLister {
public:
    /// `database` is what the table reads: the results, or the model where a table stands before any analysis. Both
    /// outlive the lister.
    LoadCaseLister(const CPostDataBase& database, const CPostCtrl& control) : database_(database), control_(control) {}

    /// What the table `id` offers with `tab` in front, instead of what was in `list`. What is selected stays.
    void GetAllLoadcaseForActiveNew(int id, int tab, LoadChoiceList& list) const;

    // ---- static cases. Types that other programs of the family make for their own use are left out.

    void GetAllStld(LoadChoiceList& list, bool isDefault = false) const;
    /// Without a type besides.
    void GetAllStldWithoutSType(std::string_view type, LoadChoiceList& list, bool isDefault = false) const;
    /// Of one type only.
    void GetPartStld(std::string_view type, LoadChoiceList& list, bool isDefault = false) const;
    /// Earthquake cases that have no twin of the ES kind.
    void GetAllSeisWithoutES(LoadChoiceList& list, bool isDefault = false) const;
    void GetAllEsst(LoadChoiceList& list, bool isDefault = false) const;

    // ---- spectrum cases. `withSeismic` takes those that serve the seismic design only.

    void GetAllSplc(LoadChoiceList& list, bool isDefault = false, bool withSeismic = true) const;
    /// Those that have no twin of the ES kind.
    void GetAllSplcWithoutES(LoadChoiceList& list, bool isDefault = false, bool withSeismic = true) const;
    void GetAllEspc(LoadChoiceList& list, bool isDefault = false) const;

    // ---- cases with envelopes: an entry for the whole, the greatest and the least

    void GetAllPtlc(LoadChoiceList& list, bool isDefault = false) const;
    void GetAllSmlc(LoadChoiceList& list, bool isDefault = false) const;
    void GetAllThlc(LoadChoiceList& list, bool isDefault = false) const;
    void GetAllThld(LoadChoiceList& list, bool isDefault = false) const;
    void GetAllThnl(LoadChoiceList& list, bool isDefault = false) const;
    /// `dataOnly` takes the entry for the whole only.
    void GetAllThnc(LoadChoiceList& list, bool isDefault = false, bool dataOnly = false) const;
    /// The greatest only.
    void GetSingleThldMax(LoadChoiceList& list, bool isDefault = false) const;
    void GetSingleThnlMax(LoadChoiceList& list, bool isDefault = false) const;
    /// Pushover cases, each once.
    void GetAllPolc(LoadChoiceList& list, bool isDefault = false) const;
    void GetMinMaxAllPolc(LoadChoiceList& list, bool isDefault = false) const;

    // ---- combinations. Those that have envelopes have an entry for the greatest and one for the least.

    void GetAllLcom(LoadChoiceList& list, bool isDefault = false) const;
    /// Without those of civil defence and of transfer girders.
    void GetAllLcomWithoutInbang(LoadChoiceList& list, bool isDefault = false) const;
    /// Some of them, with an entry for the whole besides.
    void GetPartLcom(std::span<const std::uint32_t> keys, LoadChoiceList& list, bool isDefault = false) const;
    void GetESCombinedLcom(LoadChoiceList& list, bool isDefault = false) const;
    void GetREKCombinedLcom(LoadChoiceList& list, bool isDefault = false) const;
    void GetREKCombinedLcomWithoutES(LoadChoiceList& list, bool isDefault = false) const;
    /// Whether a combination holds a case of the ES kind, directly or through others.
    bool IsExistES(std::uint32_t key) const;

    // ---- cases by their keys

    void GetActiveParam_ST(std::span<const std::uint32_t> keys, LoadChoiceList& list, bool isDefault = false) const;
    void GetActiveParam_RS(std::span<const std::uint32_t> keys, LoadChoiceList& list, bool isDefault = false) const;
    void GetActiveParam_ECLC(std::span<const std::uint32_t> keys, LoadChoiceList& list, bool isDefault = false) const;
    void GetActiveParam_STRN(std::span<const std::uint32_t> keys, LoadChoiceList& list, bool isDefault = false) const;

    // ---- what tables of stories offer

    /// What the check of torsional irregularity takes.
    void GetLoadcase4StTIC(LoadChoiceList& list) const;
    /// Static cases of wind and earthquake and spectrum cases; which of them are default.
    struct WindSeisDefaults {
        bool offersWind = true;
        bool wind = false;
        bool seismic = false;
        bool spectra = false;
    };
    void GetWindSeis(LoadChoiceList& list, WindSeisDefaults defaults) const;
    /// The same for drift angles: combinations of the ES kind alone where there are any.
    void GetDrftAng(LoadChoiceList& list) const;

private:
    std::vector<std::uint32_t> SpectrumCases(bool withSeismic) const;
    void AddRek(LoadChoiceList& list, bool isDefault, bool withEs) const;

    const CPostDataBase& database_;
    const CPostCtrl& control_;
};

}  // namespace zt
