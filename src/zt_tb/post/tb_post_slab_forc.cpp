#include "zt_tb/post/tb_post_slab_forc.h"

#include "zt_tb/post/result_columns.h"

namespace zt {
namespace {

constexpr int kPlaces = 4;
constexpr int kFirstValueField = 6;

}  // namespace

const ResultDeclaration& CTBPostSlabForc::Declared() {
    static constexpr ResultColumn kColumns[] = {
        CounterColumn("IDS_TB_POSTDISP_Elem"),
        StoryColumn(),
        LevelColumn(),
        LoadColumn(),
        CounterColumn("IDS_TB_POSTDISP_Node"),
        ValueColumn("IDS_TB_POSTDISP_Fx", Unit::Force, kPlaces),
        ValueColumn("IDS_TB_POSTDISP_Fy", Unit::Force, kPlaces),
        ValueColumn("IDS_TB_POSTDISP_Fz", Unit::Force, kPlaces),
        ValueColumn("IDS_TB_POSTDISP_Mx", Unit::Moment, kPlaces),
        ValueColumn("IDS_TB_POSTDISP_My", Unit::Moment, kPlaces),
        ValueColumn("IDS_TB_POSTDISP_Mz", Unit::Moment, kPlaces),
        LoadOrderColumn(),
    };
    static constexpr ResultDeclaration kDeclaration{
        .name = "TBPostSlabForc", .columns = kColumns, .loadOrderField = 12, .objectField = 1};
    return kDeclaration;
}

CTBPostSlabForc::CTBPostSlabForc(int kind) : CTBPostDS2(kind, KeyDomain::Members, Declared()) {}

void CTBPostSlabForc::MakeObjectKeys(std::vector<std::uint32_t>& keys) {
    CClassPSlab slabs;
    slabs.ConnectToDB(&Results());
    slabs.GetKeyList(keys);
}

void CTBPostSlabForc::FilterObjectKeys(std::vector<std::uint32_t>& keys) {
    CClassPSlab slabs;
    slabs.ConnectToDB(&Results());
    std::erase_if(keys, [&](std::uint32_t key) { return !slabs.Exist(key); });
}

void CTBPostSlabForc::AddParts(const std::vector<std::uint32_t>& elements) {
    const CClassPMemb members(&Results());
    for (const std::uint32_t element : elements) {
        T_PMEMB_D slab;
        members.Get(element, slab);
        for (std::uint32_t part = 0; part < slab.nodes.size(); ++part) {
            const std::uint32_t node = slab.nodes[part];
            if (Results().PlaceOfSlabNode(element, node) == CPostDataBase::kNoPlace) continue;
            elementParts_.push_back({element, part, node});
        }
    }
}

void CTBPostSlabForc::ReadRecord() {
    T_PMEMB_D slab;
    CClassPMemb(&Results()).Get(Part().element, slab);
    story_ = StoryOf(slab.mdul, slab.story);
    const std::uint32_t node = Part().extra;
    const auto forceAtNode = [node](const CPostCtrl& post, std::uint32_t element, T_REAC_D* all, T_REAC_D* max,
                                    T_REAC_D* min) { return post.GetSlabForce(element, node, all, max, min); };
    ReadEnvelope(forceAtNode, Part().element, record_);
}

void CTBPostSlabForc::GetRecTexts(velda::RecordCells& cells) {
    if (!story_) return;
    cells.Long(1, Part().element);
    cells.Text(2, story_->Name());
    cells.Number(3, story_->level);
    cells.Text(4, LoadText());
    cells.Long(5, Part().extra);
    int field = kFirstValueField;
    for (const double value : record_.value) cells.Number(field++, value);
    cells.Long(12, OrderOfLoad());
}

}  // namespace zt
