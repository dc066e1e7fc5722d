#include "desktop/host/drift_limits_dialog.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

#include "desktop/grid/qt_text.h"

namespace zt {
namespace {

constexpr std::string_view kGroupKeys[] = {"IDS_DESKTOP_DRIFT_WITHOUT_WALLS", "IDS_DESKTOP_DRIFT_WITH_WALLS"};

void AddEntry(QFormLayout& form, std::string_view labelKey, std::string& text) {
    auto* field = new QLineEdit(ToQt(text));
    QObject::connect(field, &QLineEdit::textChanged, field, [&text](const QString& typed) { text = FromQt(typed); });
    form.addRow(Word(labelKey), field);
}

}  // namespace

std::unique_ptr<BlockDialog> MakeDriftLimitsDialog(CTBSetRMFMiniDlg& block, QWidget* parent) {
    auto dialog = std::make_unique<BlockDialog>(block, "IDS_DESKTOP_DRIFT_LIMITS", parent);
    dialog->Controls().addWidget(new QLabel(ToQt(CTBSetRMFMiniDlg::Title())));
    for (std::size_t at = 0; at < block.entries.size(); ++at) {
        auto* group = new QGroupBox(Word(kGroupKeys[at]));
        auto* form = new QFormLayout(group);
        AddEntry(*form, "IDS_DESKTOP_DRIFT_RATIO", block.entries[at].ratio);
        AddEntry(*form, "IDS_DESKTOP_DRIFT_DENOMINATOR", block.entries[at].denominator);
        dialog->Controls().addWidget(group);
    }
    return dialog;
}

}  // namespace zt
