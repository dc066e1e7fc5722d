#pragma once

#include "zt_tb/post/tb_post_ds.h"

namespace zt {

/// A source whose records are about parts of elements instead of whole objects: an element has a record for each of
/// its nodes.
class CTBPostDS2 : public CTBPostDS {
public:
    using CTBPostDS::CTBPostDS;

    /// What a record is about.
    struct ElementPart {
        std::uint32_t element = 0;
        std::uint32_t part = 0;   ///< which of its nodes, from 0
        std::uint32_t extra = 0;  ///< what the table keeps of the part
    };

    /// Each element once.
    void GetCurObjectKeys(std::vector<std::uint32_t>& keys) const override;
    void ApplyObjects(const TB_ACTIVE_PARAM& param) override;
    void MakeRecords() override;

protected:
    /// Adds the parts of elements.
    virtual void AddParts(const std::vector<std::uint32_t>& elements) = 0;
    std::size_t ObjectCount() const override { return elementParts_.size(); }
    bool AreObjectsSorted() const override;
    /// The part that the current record is about.
    const ElementPart& Part() const { return elementParts_[CurrentObject()]; }

    /// The parts of an element stand one behind the other.
    std::vector<ElementPart> elementParts_;
};

}  // namespace zt
