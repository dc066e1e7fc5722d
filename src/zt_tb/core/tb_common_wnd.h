#pragma once

#include <span>
#include <string_view>

#include "velda_util/grid/tb_common.h"
#include "zt_db/doc/doc.h"
#include "zt_tb/core/int_map.h"

namespace zt {

/// What a number in a cell stands for.
enum class ObjectKind { None, Node, Member };

/// What the tables of the model share: the database, the run mode, the replay of hints, columns that refer to other
/// records, names in cells against keys, and numbers of nodes and members over deletion and renumbering.
class CTBCommonWnd : public velda::CTBCommon {
public:
    /// How a table stands in its view.
    enum RunMode {
        kAlone = 0,
        kGroup = 1,   ///< one of several tables on tabs
        kDetail = 2,  ///< shows only the rows of selected nodes or members
    };

    /// The current model database; null while no model is open.
    static CDataBase* GetDB();
    /// A record class of the current database by its type; null while no model is open.
    template <class Class>
    static const Class* GetRecords() {
        const CDataBase* db = GetDB();
        return db ? db->GetClass<Class>() : nullptr;
    }

    int GetTableRunMode() const { return runMode_; }
    void SetTableRunMode(int mode) { runMode_ = mode; }

    /// Replays the change buffer of a hint's database on the rows.
    virtual void UpdateBuffer(T_UPDATE_HINT* hint) = 0;
    /// Adds (code 5) or removes (code 6) the rows of a detail table.
    virtual void UpdateSelInDetail(int /*code*/, const Keys& /*keys*/) {}
    void PreFilterRecord(const Keys& /*keys*/) override {}

    void OnAfterOpen() override;
    bool SetCurrentCell(int row, int col, int flags = 0) override;
    bool CanSaveData() override;
    bool OnLockedEdit() override;
    std::string GetRefusalReason() const override;

    // ---- reference columns: make a grid column a list of what can be referred to. Called again when that changed.

    /// Keys of materials, sections or thicknesses, shown by their names; the latter two as far as members of a type can
    /// have them. Left as it is when there are none.
    void SetMatlColumn(int col);
    void SetSectColumn(int col, int membType);
    void SetThikColumn(int col, int membType);
    /// Names of node groups, and of the groups of a type, behind the text for none. Row 0 stands for the whole column.
    void SetPontNameColumn(int col);
    void SetMembNameColumn(int row, int col, int type);
    /// Names of static load cases: all; or those whose type has a bit in the mask, where the column is left as it is
    /// when the model has no load case.
    void SetStldNameColumn(int col);
    void SetPartialStldNameColumn(int col, std::uint32_t typeMask);
    /// The mask of every type, those included that have no bit of their own.
    static constexpr std::uint32_t kAllLoadTypes = 0xffffffff;
    /// Stories of all modules, as GetStorName calls them.
    void SetStorColumn(int col);
    void SetYesNoColumn(int col);
    /// Keys of all sections, shown by their names, whatever members can have.
    void SetAllSectColumn(int col);
    /// The style of cells that list the keys of all thicknesses.
    static velda::CGXStyle AllThikStyle();
    /// The style of cells that list names, which stand in the cells themselves.
    static velda::CGXStyle NameListStyle(std::string_view lines);
    /// Makes the control of the current cell anew when it stands in a column whose list changed.
    void RebuildControl(int col);

    // ---- what a change touches

    /// A change of names or levels of stories, or of modules, which the names are told by.
    static bool ChangesStories(const CViewBuff& buffer);
    static bool ChangesLoadCases(const CViewBuff& buffer);
    /// A change of the types of loads on beams and slabs.
    static bool ChangesLoadTypes(const CViewBuff& buffer);
    static bool ChangesMatls(const CViewBuff& buffer);
    /// A change of sections or thicknesses.
    static bool ChangesProperties(const CViewBuff& buffer);
    /// Nodes that got another number.
    static bool ChangesPontNos(const CViewBuff& buffer);

    // ---- names in cells and keys. Without a model all give 0 or an empty text. The name of key 0 is the text for
    // none, that of a key without record is empty; an empty name and the text for none give key 0.

    /// The first material, section or thickness of exactly this name, in the order of iteration.
    static std::uint32_t GetMatlKey(std::string_view name);
    static std::uint32_t GetSectKey(std::string_view name);
    static std::uint32_t GetThikKey(std::string_view name);
    static std::string GetMatlName(std::uint32_t key);
    static std::string GetSectName(std::uint32_t key);
    static std::string GetThikName(std::uint32_t key);
    static std::uint32_t GetPontNameKey(std::string_view name);
    static std::uint32_t GetMembNameKey(std::string_view name, int type);
    static std::string GetPontNameName(std::uint32_t key);
    static std::string GetMembNameName(std::uint32_t key);
    static std::uint32_t GetStldKey(std::string_view name);
    static std::string GetStldName(std::uint32_t key);
    /// A story by its name; by "module : story" in a model of several modules.
    static std::uint32_t GetStorKey(std::string_view text);
    static std::string GetStorName(std::uint32_t key);

    // ---- flags in cells

    /// 1 for "Yes" without regard to case, in every language.
    static int GetYesNo(std::string_view text);
    static std::string GetYesNoName(int value);
    /// A text of flags, the first character lowest: each that is not "0" counts. Flags behind the 32nd do not count.
    static int GetValueNum(std::string_view text);
    /// The flags of a value as a text of `width` characters.
    static std::string GetValueStr(int value, int width);

    // ---- deleted nodes and members, as long as a change is replayed: the database knows their numbers no longer

    void MakeDeletedPontMap(const CViewBuff& buffer);
    void MakeDeletedMembMap(const CViewBuff& buffer);
    void RemoveAllDeletedPontMap() { deletedPonts_.RemoveAll(); }
    void RemoveAllDeletedMembMap();
    int IsDeletedPont(std::uint32_t key) const;
    int IsDeletedMemb(std::uint32_t key) const;
    /// The number that a deleted node or member had; 0 for any other key.
    std::uint32_t GetPontNoByDeletedKey(std::uint32_t key) const;
    std::uint32_t GetMembNoByDeletedKey(std::uint32_t key) const;
    /// The deleted member that member type data belonged to; 0 for any other key.
    std::uint32_t GetDeletedMembKByMbtpK(std::uint32_t key) const;

    // ---- nodes and members by their numbers in cells

    /// The number of a node or member; of a deleted one as long as a change is replayed; 0 for any other key.
    std::uint32_t GetObjectNo(ObjectKind kind, std::uint32_t key) const;
    /// The node or member of a number, in a text or as it stands; 0 when there is none.
    static std::uint32_t GetObjectKey(ObjectKind kind, std::uint32_t number);
    static std::uint32_t GetObjectKey(ObjectKind kind, std::string_view text);
    /// The story that a node or member stands in; 0 for none.
    static std::uint32_t GetObjectStory(ObjectKind kind, std::uint32_t key);

    // ---- renumbering: changes the numbers that the rows show in place and sorts the rows, or has them sorted when the
    // row that is being edited is closed. False when nothing was renumbered or the column does not exist.

    int ConvOldMembNo2NewMembNo(const CViewBuff& buffer, velda::ColumnId colId);
    /// With two columns, only the first of a row that shows an old number is changed.
    int ConvOldPontNo2NewPontNo(const CViewBuff& buffer, velda::ColumnId colId1,
                                velda::ColumnId colId2 = velda::kNoColumn);

protected:
    bool BeginStep(const std::string& name) override;
    bool EndStep() override;
    void CancelStep() override;
    std::string GetUnitText(velda::ColumnId column) const override;

private:
    void SetReferenceStyle(int row, int col, const velda::CGXStyle& style);
    int Renumber(const IntMap& numbers, std::span<const velda::ColumnId> columns);
    void RenumberRow(int row, std::span<const int> cols, const IntMap& numbers);

    int runMode_ = kAlone;
    IntMap deletedPonts_;         ///< node key to number
    IntMap deletedMembs_;         ///< member key to number
    IntMap membsOfDeletedMbtps_;  ///< key of member type data to member key
};

}  // namespace zt
