#pragma once

namespace zt {

/// What the model table view passes on to the table of the model checker.
class ICheckSheet {
public:
    virtual ~ICheckSheet() = default;

    /// Another check item was chosen.
    virtual void UpdateChk() = 0;
    /// The view has another size.
    virtual void LayoutCheckColumns() = 0;
};

}  // namespace zt
