#pragma once

#include "zt_tb/post/tb_post_ds2.h"

namespace zt {

/// What slabs give to their nodes: a record for each node of a slab. The elements are the slabs, by their number.
class CTBPostSlabForc : public CTBPostDS2 {
public:
    explicit CTBPostSlabForc(int kind);
    static const ResultDeclaration& Declared();

    void MakeObjectKeys(std::vector<std::uint32_t>& keys) override;
    /// Drops members that are no slabs.
    void FilterObjectKeys(std::vector<std::uint32_t>& keys) override;
    void GetRecTexts(velda::RecordCells& cells) override;

protected:
    void ReadRecord() override;
    /// Adds the nodes at which a slab has forces; a slab without results has no parts. The extra of a part is the
    /// number of the node.
    void AddParts(const std::vector<std::uint32_t>& elements) override;

private:
    std::optional<ShownStory> story_;
    T_REAC_D record_;
};

}  // namespace zt
