#pragma once

#include "zt_tb/post/tb_post_ds.h"

namespace zt {

/// A source whose records are about objects with a key: nodes, elements, members, links, stories.
class ObjectSource : public CTBPostDS {
public:
    using CTBPostDS::CTBPostDS;

    void GetCurObjectKeys(std::vector<std::uint32_t>& keys) const override { keys = keys_; }
    /// Takes the chosen objects; with a story filter, only the members of the chosen stories. A member that cannot be
    /// read stays.
    void ApplyObjects(const TB_ACTIVE_PARAM& param) override;
    /// Offers the stories of all members, from the lowest up, and chooses those of the current ones.
    int FillActivePartList(TB_ACTIVE_PARAM& param) override;
    void MakeRecords() override;

    std::size_t ObjectCount() const override { return keys_.size(); }
    std::uint32_t ObjectNumber(std::size_t object) const override { return keys_[object]; }

protected:
    bool AreObjectsSorted() const override;
    /// The key of the current record's object.
    std::uint32_t Key() const { return keys_[CurrentObject()]; }

    std::vector<std::uint32_t> keys_;

private:
    std::vector<std::uint32_t> StoriesOf(const std::vector<std::uint32_t>& members) const;
};

/// Nearly all result tables.
class CTBPostDS1 : public ObjectSource {
public:
    using ObjectSource::ObjectSource;
};

}  // namespace zt
