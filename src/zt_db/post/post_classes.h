#pragma once

#include "zt_db/post/post_class.h"
#include "zt_db/records/record_list.h"

namespace zt {

// ---- the structure. Nodes and members are known by the numbers that users see.

/// A node with its place in space: `z` is the absolute height.
using T_PNODE_D = T_PONT_D;

class CClassPNode : public PostKeysOf<CClassPNode> {
public:
    using PostKeysOf::PostKeysOf;
    int Get(std::uint32_t no, T_PNODE_D& node) const;
    int Exist(std::uint32_t no) const;
    std::vector<std::uint32_t> Keys() const;
};

/// A member as it was analysed.
struct T_PMEMB_D {
    int kind = 0;  ///< type code of the member
    std::uint32_t story = 0;
    std::uint32_t mdul = 0;
    std::uint32_t prop = 0;
    std::uint32_t matl = 0;
    std::vector<std::uint32_t> nodes{};  ///< numbers
    void Initialize() { *this = {}; }
};

class CClassPMemb : public PostKeysOf<CClassPMemb> {
public:
    using PostKeysOf::PostKeysOf;
    int Get(std::uint32_t no, T_PMEMB_D& member) const;
    int Exist(std::uint32_t no) const;
    std::vector<std::uint32_t> Keys() const;
};

/// Members of some types only.
class PostMembersOfTypes : public PostKeysOf<PostMembersOfTypes> {
public:
    explicit PostMembersOfTypes(std::span<const int> types) : types_(types) {}
    int Get(std::uint32_t no, T_PMEMB_D& member) const;
    int Exist(std::uint32_t no) const;
    std::vector<std::uint32_t> Keys() const;

private:
    std::span<const int> types_;
};

class CClassPWall : public PostMembersOfTypes {
public:
    CClassPWall();
};

class CClassPSlab : public PostMembersOfTypes {
public:
    CClassPSlab();
    /// The length of the shortest edge; false when there is no such slab.
    int GetNetLength(std::uint32_t no, double& length) const;
};

/// An element of the analysis; elements count from 1.
struct T_PELEM_D {
    int kind = 0;            ///< type code of its member
    std::uint32_t memb = 0;  ///< number of the member
    std::array<std::uint32_t, 2> nodes{};
    void Initialize() { *this = {}; }
};

class CClassPElem : public PostKeysOf<CClassPElem> {
public:
    using PostKeysOf::PostKeysOf;
    int Get(std::uint32_t key, T_PELEM_D& element) const;
    int Exist(std::uint32_t key) const;
    std::vector<std::uint32_t> Keys() const;
};

/// Elastic links.
class CClassPElnk : public PostKeysOf<CClassPElnk> {
public:
    using PostKeysOf::PostKeysOf;
    int Exist(std::uint32_t key) const;
    std::vector<std::uint32_t> Keys() const;
    /// The numbers of its nodes i and j; 0 where the results do not tell them.
    std::array<std::uint32_t, 2> NodesOf(std::uint32_t key) const;
};

using T_PMDUL_D = T_MDUL_D;
class CClassPMdul : public PostTwinOf<CClassMdul> {
public:
    using PostTwinOf::PostTwinOf;
    /// The module of a name; 0 when there is none.
    std::uint32_t GetKey(std::string_view name) const;
};

using T_PSTOR_D = T_STOR_D;
class CClassPStor : public PostTwinOf<CClassStor> {
public:
    using PostTwinOf::PostTwinOf;
    /// The stories of a module, or of all modules one behind the other, the topmost first; false when there are none.
    int GetKeyListReverse(std::vector<std::uint32_t>& keys, std::uint32_t moduleKey = 0) const;
};

using CClassPSect = PostTwinOf<CClassSect>;
using CClassPMatl = PostTwinOf<CClassMatl>;
using T_PSECT_D = T_SECT_D;
using T_PMATL_D = T_MATL_D;

// ---- load cases

using T_PSTLD_D = T_STLD_D;
class CClassPStld : public PostCaseTwinOf<CClassStld, LoadCaseKind::Static> {
public:
    using PostCaseTwinOf::PostCaseTwinOf;
    using PostKeysOf::GetKeyList;
    /// The keys of the cases that are no earthquakes, of those that are, or of both; false when there are none.
    int GetKeyList(std::vector<std::uint32_t>& keys, int others, int earthquakes) const;
    /// The cases of a type, ascending.
    std::vector<std::uint32_t> KeysOfType(std::string_view type) const;

    /// The dead and the live case that carry loads to transfer girders; no analysis stage makes them yet, so that there
    /// are none, which is 0.
    std::uint32_t GetDeadCaseKey4TG() const { return 0; }
    std::uint32_t GetLiveCaseKey4TG() const { return 0; }
};

using T_PSPLC_D = T_SPLC_D;
using CClassPSplc = PostCaseTwinOf<CClassSplc, LoadCaseKind::Spectrum>;

using T_PTHLC_D = T_THLC_D;
class CClassPThlc : public PostCaseTwinOf<CClassThlc, LoadCaseKind::TimeHistory> {
public:
    using PostCaseTwinOf::PostCaseTwinOf;
    /// The spectrum case that belongs to a time-history case: the first one of the same name; 0 when there is none.
    std::uint32_t GetPSplcKeyBySinglePThlcK(std::uint32_t key) const;
};
/// Time-history loads: each case is one.
using CClassPThld = CClassPThlc;

using T_PLCOM_D = T_LCOM_D;
class CClassPLcom : public PostTwinOf<CClassLcom> {
public:
    using PostTwinOf::PostTwinOf;
    static inline const int& UR_PLCOM_ADD = CClassLcom::UR_LCOM_ADD;
    static inline const int& UR_PLCOM_DEL = CClassLcom::UR_LCOM_DEL;
    static inline const int& UR_PLCOM_MFD = CClassLcom::UR_LCOM_MFD;
    static inline const int& UR_PLCOM_MFS = CClassLcom::UR_LCOM_MFS;

    /// Whether a combination has a greatest and a least value: it, or one that it holds, is an envelope, or it holds
    /// cases that have both.
    bool IsMaxMinComb(std::uint32_t key) const;
    bool IsMaxMinComb(const T_PLCOM_D& combination) const;

    /// The combinations that stand for earthquakes of both directions at once, with their names; no analysis stage
    /// makes them yet, so that there are none.
    int GetREKCombinedList(std::vector<std::uint32_t>& keys, std::vector<std::string>& names) const {
        keys.clear();
        names.clear();
        return 0;
    }
};

/// The control of load combinations.
struct T_LCCT_D {
    int useCombinations = 1;
    void Initialize() { *this = {}; }
};

/// The record of it; the model keeps none yet, so that its initial values hold.
class CClassLcct : public PostClass {
public:
    using PostClass::PostClass;
    int Get(T_LCCT_D&) const { return 0; }
};

using CClassPSmlc = PostCaseOf<LoadCaseKind::Settlement>;
using CClassPEspc = PostCaseOf<LoadCaseKind::EsSpectrum>;

class CClassPPolc : public PostCaseOf<LoadCaseKind::Pushover> {
public:
    using PostCaseOf::PostCaseOf;
    /// The number of load increments of a case; 0 where results do not tell it.
    int GetIncStep(std::uint32_t key) const { return static_cast<int>(RunOf(key).increments); }
    /// The case that a case starts from; 0 for none.
    std::uint32_t GetPrePolcKey(std::uint32_t key) const { return RunOf(key).previous; }
    /// Whether a case loads the structure before the others.
    bool IsInitial(std::uint32_t key) const { return RunOf(key).isInitial; }

private:
    struct Run {
        std::uint32_t increments = 0;
        std::uint32_t previous = 0;
        bool isInitial = false;
    };
    Run RunOf(std::uint32_t key) const;
};

using CClassPPtlc = PostCaseOf<LoadCaseKind::Pt>;
using CClassPEsst = PostCaseOf<LoadCaseKind::EsStatic>;
using CClassPThnl = PostCaseOf<LoadCaseKind::NonlinearLoad>;
using CClassPThnc = PostCaseOf<LoadCaseKind::NonlinearCase>;
using CClassPEclc = PostCaseOf<LoadCaseKind::EsCombination>;

/// Whether cases of a kind have a greatest and a least value.
bool HasEnvelopes(int kind);

// ---- what is one for the whole model

/// The modes: how many there are, and the share of the mass, in percent, that they should reach.
struct T_PEIGV_D {
    int modes = 0;
    double massLimit = 90.0;
    void Initialize() { *this = {}; }
};

class CClassPEigv : public PostClass {
public:
    using PostClass::PostClass;
    /// False when there are no modes.
    int Get(T_PEIGV_D& record) const;
    int GetNumEigv() const;
};

/// The control of pushover analyses.
struct T_POAS_D {
    std::vector<std::uint32_t> stages{};  ///< the case of each stage behind the last step
};

class CClassPoas : public PostClass {
public:
    using PostClass::PostClass;
    /// False when results tell no stages.
    int Get(T_POAS_D& record) const;
    /// The name of a step of an analysis of `maximum` steps: its number. Steps behind the last one have names that the
    /// control tells, by the variant of the table; as long as there is none they have no name.
    std::string GetStepName(int maximum, int step, int, int) const {
        return step >= 1 && step <= maximum ? std::to_string(step) : std::string{};
    }
};

/// Hinges of members in pushover and in nonlinear time-history analyses; no analysis stage stores them yet.
class PostHinges : public PostClass {
public:
    using PostClass::PostClass;
    int GetAssignedMembList(std::vector<std::uint32_t>& members) const {
        members.clear();
        return 0;
    }
};
using CClassPPhgt = PostHinges;
using CClassPIehp = PostHinges;

}  // namespace zt
