#include "zt_cmd/record_choice.h"

#include <algorithm>
#include <set>

#include "velda_lib/number_text.h"

namespace zt {

std::vector<RecordChoice::Named> RecordChoice::All() const {
    std::vector<Named> all;
    if (!identity_) return all;
    const RecordStoreBase& store = database_->StoreAt(static_cast<std::uint16_t>(identity_->index));
    std::set<std::string> taken;
    for (const std::uint32_t key : store.SortedKeys()) {
        std::string text = store.NameOfKey(key);
        // Records of other origin may have one name twice, or none.
        if (text.empty() || !taken.insert(text).second) text += "#" + velda::FormatLong(key);
        all.push_back({key, text});
    }
    return all;
}

std::vector<std::string> RecordChoice::Texts() const {
    std::vector<std::string> texts;
    for (const Named& one : All()) texts.push_back(one.text);
    return texts;
}

std::string RecordChoice::TextOf(std::uint32_t key) const {
    for (const Named& one : All()) {
        if (one.key == key) return one.text;
    }
    return key == 0 ? std::string() : velda::FormatLong(key);
}

std::uint32_t RecordChoice::KeyOf(const std::string& text, std::uint32_t before) const {
    for (const Named& one : All()) {
        if (one.text == text) return one.key;
    }
    return before;
}

std::uint32_t RecordChoice::FirstFree(velda::FunctionRef<bool(std::uint32_t key)> isTaken) const {
    const std::vector<Named> all = All();
    const auto free = std::find_if(all.begin(), all.end(), [&](const Named& one) { return !isTaken(one.key); });
    if (free != all.end()) return free->key;
    return all.empty() ? 0 : all.front().key;
}

}  // namespace zt
