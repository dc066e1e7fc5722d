#pragma once

#include <optional>
#include <string>

#include "zt_tb/modelview/model_view.h"
#include "zt_tb/post/result_picture.h"

namespace zt {

/// Shows in the model view what is current in a table of results: the shape under the load case of the current row, and
/// the values of the current column in colours.
class ResultFollower {
public:
    /// The view outlives it.
    explicit ResultFollower(ModelView& view) : view_(view) {}

    void ShowDeformed(bool on) { deformed_ = on; }
    void ShowColours(bool on) { colours_ = on; }
    /// Follows a table; null for none. What is shown stays as long as nothing else is current.
    void Follow(velda::CTBCore* grid);

private:
    /// What the picture hangs on.
    struct Shown {
        const velda::CTBCore* grid = nullptr;
        std::optional<LoadChoice> load{};
        velda::ColumnId column = velda::kNoColumn;
        std::string unit{};
        long records = 0;
        bool deformed = false;
        bool colours = false;
        bool operator==(const Shown&) const = default;
    };

    ModelView& view_;
    bool deformed_ = false;
    bool colours_ = false;
    Shown shown_;
};

}  // namespace zt
