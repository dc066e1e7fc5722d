#include "desktop/host/activation_dialog.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include "desktop/grid/qt_text.h"

namespace zt {
namespace {

constexpr int kSectionWidth = 210;

QGroupBox* MakeBox(const CTBActiveNewDlg& block, ActiveSection section) {
    auto* box = new QGroupBox(ToQt(block.TitleOf(section)).trimmed());
    box->setMinimumWidth(kSectionWidth);
    new QVBoxLayout(box);
    return box;
}

QPushButton* AddButton(QHBoxLayout& line, std::string_view textKey) {
    auto* button = new QPushButton(Word(textKey));
    button->setAutoDefault(false);
    line.addWidget(button);
    return button;
}

/// Two buttons in a line: everything, nothing.
template <class All, class None>
QHBoxLayout* MakeAllAndNone(All all, None none) {
    auto* line = new QHBoxLayout;
    QObject::connect(AddButton(*line, "IDS_DESKTOP_ALL"), &QPushButton::clicked, all);
    QObject::connect(AddButton(*line, "IDS_DESKTOP_NONE"), &QPushButton::clicked, none);
    return line;
}

// ---- objects ----

QGroupBox* MakeObjects(CTBActiveNewDlg& block) {
    QGroupBox* box = MakeBox(block, ActiveSection::Objects);
    auto* layout = static_cast<QVBoxLayout*>(box->layout());
    if (const auto kind = block.CurrentObjectKind()) {
        auto* kinds = new QComboBox;
        for (const auto& entry : CTBActiveNewDlg::ObjectKinds()) kinds->addItem(ToQt(entry.name));
        kinds->setCurrentIndex(static_cast<int>(*kind));
        kinds->setEnabled(false);
        layout->addWidget(kinds);
    }
    auto* numbers = new QPlainTextEdit(ToQt(block.objectText));
    numbers->setTabChangesFocus(true);
    const auto show = [numbers, &block] {
        const QSignalBlocker quiet(numbers);
        numbers->setPlainText(ToQt(block.objectText));
    };
    QObject::connect(numbers, &QPlainTextEdit::textChanged, box,
                     [numbers, &block] { block.objectText = FromQt(numbers->toPlainText()); });

    auto* queries = new QComboBox;
    auto* choices = new QComboBox;
    for (const QueryKindName& entry : kQueryKinds) queries->addItem(Word(entry.nameKey), static_cast<int>(entry.kind));
    queries->setCurrentIndex(std::max(0, queries->findData(static_cast<int>(block.Query()))));
    const auto fill = [choices, &block] {
        const QSignalBlocker quiet(choices);
        choices->clear();
        for (const ObjectQuery::Choice& choice : block.QueryChoices()) choices->addItem(ToQt(choice.name), choice.key);
        choices->setCurrentIndex(-1);
    };
    fill();
    QObject::connect(queries, &QComboBox::currentIndexChanged, box, [queries, fill, &block] {
        block.SetQuery(static_cast<QueryKind>(queries->currentData().toInt()));
        fill();
    });
    QObject::connect(choices, &QComboBox::activated, box, [choices, show, &block] {
        block.Pick(choices->currentData().toUInt());
        show();
    });
    layout->addWidget(queries);
    layout->addWidget(choices);
    layout->addWidget(numbers, 1);
    layout->addLayout(MakeAllAndNone(
        [show, &block] {
            block.SelectAllObjects();
            show();
        },
        [show, &block] {
            block.SelectNoObject();
            show();
        }));
    return box;
}

// ---- lists ----

void ShowItems(QListWidget& list, const CTBActiveNewDlg& block, ActiveSection section) {
    const QSignalBlocker quiet(&list);
    list.clear();
    for (const std::size_t at : block.Found(section)) {
        const CTBActiveNewDlg::Item& item = block.Items(section)[at];
        auto* line = new QListWidgetItem(ToQt(item.name), &list);
        line->setData(Qt::UserRole, static_cast<qulonglong>(at));
        line->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        line->setCheckState(item.isTicked ? Qt::Checked : Qt::Unchecked);
    }
}

QGroupBox* MakeList(CTBActiveNewDlg& block, ActiveSection section) {
    QGroupBox* box = MakeBox(block, section);
    auto* layout = static_cast<QVBoxLayout*>(box->layout());
    auto* search = new QLineEdit;
    search->setPlaceholderText(Word("IDS_DESKTOP_SEARCH"));
    search->setClearButtonEnabled(true);
    auto* list = new QListWidget;
    list->setUniformItemSizes(true);
    ShowItems(*list, block, section);
    QObject::connect(search, &QLineEdit::textChanged, box, [list, section, &block](const QString& text) {
        block.SetSearch(section, FromQt(text));
        ShowItems(*list, block, section);
    });
    QObject::connect(list, &QListWidget::itemChanged, box, [section, &block](const QListWidgetItem* item) {
        block.Tick(section, static_cast<std::size_t>(item->data(Qt::UserRole).toULongLong()),
                   item->checkState() == Qt::Checked);
    });
    const auto tickAll = [list, section, &block](bool isTicked) {
        block.TickFound(section, isTicked);
        ShowItems(*list, block, section);
    };
    layout->addWidget(search);
    layout->addWidget(list, 1);
    layout->addLayout(MakeAllAndNone([tickAll] { tickAll(true); }, [tickAll] { tickAll(false); }));
    return box;
}

}  // namespace

std::unique_ptr<BlockDialog> MakeActivationDialog(CTBActiveNewDlg& block, QWidget* parent) {
    auto dialog = std::make_unique<BlockDialog>(block, "IDS_DESKTOP_ACTIVATION_TITLE", parent);
    auto* line = new QHBoxLayout;
    for (const ActiveSection section : block.Sections()) {
        line->addWidget(section == ActiveSection::Objects ? MakeObjects(block) : MakeList(block, section), 1);
    }
    dialog->Controls().addLayout(line, 1);
    const auto sections = static_cast<int>(block.Sections().size());
    dialog->resize(std::max(1, sections) * (kSectionWidth + 30) + 20, 460);
    return dialog;
}

}  // namespace zt
