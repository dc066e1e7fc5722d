#pragma once

#include <QWidget>
#include <functional>

#include "zt_cmd/property_dialog.h"

namespace zt {

/// Whether an editor takes over a text that the user may be typing there at this moment.
enum class TypedText { Keep, Replace };

/// The editor of a field of a property dialog, a line edit or a combo box. `typed` hears what the user types or
/// chooses.
QWidget* MakePropertyEditor(const PropertyField& field, const std::function<void(const QString&)>& typed);
/// Shows text, choices and state of a field in its editor.
void ShowInEditor(QWidget& editor, const PropertyField& field, TypedText typedText);
/// Whether two lists of fields differ in more than texts, choices and states, so that they need other editors.
bool NeedOtherEditors(const std::vector<PropertyField>& before, const std::vector<PropertyField>& now);

}  // namespace zt
