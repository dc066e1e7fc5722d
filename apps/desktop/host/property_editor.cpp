#include "desktop/host/property_editor.h"

#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <algorithm>

#include "desktop/grid/qt_text.h"

namespace zt {
namespace {

using Kind = PropertyField::Kind;

constexpr int kVisibleChoices = 20;

void ShowChoices(QComboBox& box, const std::vector<std::string>& choices) {
    QStringList texts;
    for (const std::string& choice : choices) texts << ToQt(choice);
    QStringList shown;
    for (int at = 0; at < box.count(); ++at) shown << box.itemText(at);
    if (shown == texts) return;
    const QString typed = box.isEditable() ? box.currentText() : QString();
    box.clear();
    box.addItems(texts);
    if (box.isEditable()) box.setEditText(typed);
}

/// A box has its width from the choices that it begins with.
QComboBox* MakeBox(const PropertyField& field) {
    auto* box = new QComboBox;
    box->setMaxVisibleItems(kVisibleChoices);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    ShowChoices(*box, field.choices);
    if (field.kind != Kind::Suggestion) return box;
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    // What is typed is the text itself and not the beginning of a choice.
    box->setCompleter(nullptr);
    return box;
}

}  // namespace

QWidget* MakePropertyEditor(const PropertyField& field, const std::function<void(const QString&)>& typed) {
    if (field.kind == Kind::Choice || field.kind == Kind::Suggestion) {
        QComboBox* box = MakeBox(field);
        QObject::connect(box, &QComboBox::textActivated, box, typed);
        if (box->lineEdit()) QObject::connect(box->lineEdit(), &QLineEdit::textEdited, box, typed);
        return box;
    }
    auto* edit = new QLineEdit;
    if (field.kind == Kind::Number) edit->setAlignment(Qt::AlignRight);
    QObject::connect(edit, &QLineEdit::textEdited, edit, typed);
    return edit;
}

void ShowInEditor(QWidget& editor, const PropertyField& field, TypedText typedText) {
    const QString text = ToQt(field.text);
    const bool mayShow = typedText == TypedText::Replace || !editor.hasFocus();
    editor.setEnabled(field.enabled);
    if (auto* box = qobject_cast<QComboBox*>(&editor)) {
        ShowChoices(*box, field.choices);
        if (!box->isEditable() || mayShow) box->setCurrentIndex(box->findText(text));
        if (box->isEditable() && mayShow) box->setEditText(text);
    }
    auto* edit = qobject_cast<QLineEdit*>(&editor);
    if (edit && mayShow && edit->text() != text) edit->setText(text);
}

bool NeedOtherEditors(const std::vector<PropertyField>& before, const std::vector<PropertyField>& now) {
    return !std::equal(before.begin(), before.end(), now.begin(), now.end(),
                       [](const auto& a, const auto& b) { return a.label == b.label && a.kind == b.kind; });
}

}  // namespace zt
