#pragma once

#include <cstdint>
#include <span>

namespace velda {

/// The view of the model beside the tables.
class I_ModelBase {
public:
    virtual ~I_ModelBase() = default;

    /// Takes all highlights away.
    virtual void ResetHighlights() = 0;
    /// Highlights records by key; `kind` tells what they are, as the model view counts it.
    virtual void Highlight(std::span<const std::uint32_t> keys, int kind, int flag) = 0;
    /// Draws the model anew.
    virtual void Refresh() = 0;
};

}  // namespace velda
