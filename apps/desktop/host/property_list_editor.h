#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "desktop/host/property_editor.h"

namespace zt {

/// The editor of a list of the record in a property dialog.
class PropertyListEditor : public QWidget {
public:
    /// Hears each change of the list after the dialog has it, or why there was none.
    using Changed = std::function<void(const velda::Outcome& outcome)>;

    /// Shows the rows as they are now; true when they are others than before, with other editors.
    virtual bool ShowRows(TypedText typedText) = 0;
    /// All that takes the focus, in the order of the tab key.
    virtual std::vector<QWidget*> TabOrder() const = 0;
};

}  // namespace zt
