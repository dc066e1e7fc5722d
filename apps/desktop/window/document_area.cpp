#include "desktop/window/document_area.h"

#include <QApplication>

namespace zt {

DocumentArea::DocumentArea(QWidget* parent) : QSplitter(parent), groups_{MakeGroup(), MakeGroup()}, used_(groups_[0]) {
    setChildrenCollapsible(false);
    groups_[1]->hide();
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget* /*from*/, const QWidget* to) {
        for (QTabWidget* group : groups_) {
            if (to && group->isAncestorOf(to)) Use(group);
        }
    });
}

QTabWidget* DocumentArea::MakeGroup() {
    auto* group = new QTabWidget;
    group->setDocumentMode(true);
    group->setTabsClosable(true);
    group->setMovable(true);
    addWidget(group);
    connect(group, &QTabWidget::currentChanged, this, [this, group] {
        if (group->count() > 0) used_ = group;
        emit ActiveChanged();
    });
    connect(group, &QTabWidget::tabCloseRequested, this, [this, group](int tab) {
        if (auto* document = qobject_cast<TableDocument*>(group->widget(tab))) emit CloseRequested(document);
    });
    return group;
}

void DocumentArea::Use(QTabWidget* group) {
    if (used_ == group) return;
    used_ = group;
    emit ActiveChanged();
}

QTabWidget* DocumentArea::GroupOf(const TableDocument& document) const {
    return groups_[1]->indexOf(&document) >= 0 ? groups_[1] : groups_[0];
}

void DocumentArea::Add(TableDocument* document) {
    QTabWidget* group = used_;
    const int tab = group->addTab(document, document->Title());
    connect(document, &TableDocument::TitleChanged, this, [this, document](const QString& title) {
        QTabWidget* holder = GroupOf(*document);
        holder->setTabText(holder->indexOf(document), title);
    });
    connect(document, &TableDocument::ActivationRequested, this, [this, document] { BringToFront(*document); });
    connect(document, &TableDocument::CloseRequested, this, [this, document] { emit CloseRequested(document); });
    group->setCurrentIndex(tab);
    document->setFocus();
}

void DocumentArea::BringToFront(TableDocument& document) {
    QTabWidget* group = GroupOf(document);
    group->setCurrentWidget(&document);
    Use(group);
    document.setFocus();
}

void DocumentArea::MoveToOtherGroup() {
    TableDocument* document = Active();
    if (!document) return;
    QTabWidget* from = GroupOf(*document);
    QTabWidget* to = from == groups_[0] ? groups_[1] : groups_[0];
    // The first group is never empty while the second one is not.
    if (from == groups_[0] && from->count() == 1) return;
    to->show();
    to->addTab(document, document->Title());
    Settle();
    if (IsSplit()) setSizes({width() / 2, width() / 2});
    BringToFront(*document);
}

void DocumentArea::Settle() {
    while (groups_[0]->count() == 0 && groups_[1]->count() > 0) {
        groups_[0]->addTab(groups_[1]->widget(0), groups_[1]->tabText(0));
    }
    groups_[1]->setVisible(groups_[1]->count() > 0);
    if (used_->count() == 0) used_ = groups_[0];
}

TableDocument* DocumentArea::Active() const { return qobject_cast<TableDocument*>(used_->currentWidget()); }

std::vector<TableDocument*> DocumentArea::Documents() const {
    std::vector<TableDocument*> documents;
    for (const QTabWidget* group : groups_) {
        for (int tab = 0; tab < group->count(); ++tab) {
            documents.push_back(qobject_cast<TableDocument*>(group->widget(tab)));
        }
    }
    return documents;
}

void DocumentArea::Remove(TableDocument* document) {
    delete document;
    Settle();
    emit ActiveChanged();
}

}  // namespace zt
