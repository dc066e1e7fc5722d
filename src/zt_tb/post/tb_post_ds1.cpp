#include "zt_tb/post/tb_post_ds1.h"

#include <algorithm>
#include <set>

namespace zt {

void ObjectSource::MakeRecords() {
    keys_.clear();
    MakeObjectKeys(keys_);
    loads_.clear();
    BuildLoadStepRows();
}

bool ObjectSource::AreObjectsSorted() const { return std::is_sorted(keys_.begin(), keys_.end()); }

void ObjectSource::ApplyObjects(const TB_ACTIVE_PARAM& param) {
    if (param.hasObjects) keys_ = param.selectedObjects;
    if (!param.stories.isOn) return;
    if (!param.hasObjects) {
        const CClassPMemb members(&Results());
        members.GetKeyList(keys_);
        FilterObjectKeys(keys_);
    }
    const std::set<std::uint32_t> stories(param.stories.selected.begin(), param.stories.selected.end());
    const CClassPMemb members(&Results());
    std::erase_if(keys_, [&](std::uint32_t key) {
        T_PMEMB_D member;
        return members.Get(key, member) && !stories.contains(member.story);
    });
}

std::vector<std::uint32_t> ObjectSource::StoriesOf(const std::vector<std::uint32_t>& members) const {
    const CClassPMemb records(&Results());
    std::set<std::uint32_t> used;
    for (const std::uint32_t key : members) {
        T_PMEMB_D member;
        if (records.Get(key, member)) used.insert(member.story);
    }
    // From the last of the list, which has the topmost story first in each module, to its first.
    std::vector<std::uint32_t> stories;
    CClassPStor(&Results()).GetKeyListReverse(stories);
    std::reverse(stories.begin(), stories.end());
    std::erase_if(stories, [&](std::uint32_t story) { return !used.contains(story); });
    return stories;
}

int ObjectSource::FillActivePartList(TB_ACTIVE_PARAM& param) {
    std::vector<std::uint32_t> all;
    CClassPMemb(&Results()).GetKeyList(all);
    FilterObjectKeys(all);
    param.stories.names.clear();
    param.stories.keys.clear();
    for (const std::uint32_t story : StoriesOf(all)) {
        T_PSTOR_D record;
        CClassPStor(&Results()).Get(story, record);
        const std::optional<ShownStory> shown = StoryOf(record.mdul, story);
        if (!shown) continue;
        param.stories.names.push_back(shown->Name());
        param.stories.keys.push_back(story);
    }
    param.stories.selected = StoriesOf(keys_);
    return 1;
}

}  // namespace zt
