#include "zt_tb/post/tb_post_ds2.h"

#include <algorithm>

namespace zt {

void CTBPostDS2::GetCurObjectKeys(std::vector<std::uint32_t>& keys) const {
    keys.clear();
    for (const ElementPart& part : elementParts_) {
        if (keys.empty() || keys.back() != part.element) keys.push_back(part.element);
    }
}

void CTBPostDS2::ApplyObjects(const TB_ACTIVE_PARAM& param) {
    if (!param.hasObjects) return;
    elementParts_.clear();
    AddParts(param.selectedObjects);
}

void CTBPostDS2::MakeRecords() {
    std::vector<std::uint32_t> elements;
    MakeObjectKeys(elements);
    elementParts_.clear();
    AddParts(elements);
    loads_.clear();
    BuildLoadStepRows();
}

bool CTBPostDS2::AreObjectsSorted() const {
    return std::is_sorted(elementParts_.begin(), elementParts_.end(),
                          [](const ElementPart& a, const ElementPart& b) { return a.element < b.element; });
}

}  // namespace zt
