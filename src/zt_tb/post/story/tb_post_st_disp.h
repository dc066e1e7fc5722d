#pragma once

#include "zt_tb/post/story/story_source.h"

namespace zt {

/// Displacements of stories in a direction: 0 X, 1 Y, 2 both together.
class CTBPostStDisp : public StorySource<T_STDSP_D> {
public:
    /// A direction that is none of these is X.
    CTBPostStDisp(int kind, int direction);
    static const ResultDeclaration& Declared();

    /// Marks the average that a finding of the model checker is about.
    void CustomizeCell(int row, int col, velda::CGXStyle& style) override;

protected:
    void ReadStories(const CPostCtrl& control, const LoadChoice& load, int step,
                     std::vector<T_STDSP_D>& records) override;
    void WriteRecord(const T_STDSP_D& record, velda::RecordCells& cells) override;

private:
    std::size_t direction_;
};

}  // namespace zt
