#pragma once

#include <memory>

#include "desktop/host/widget_window.h"
#include "desktop/window/table_holder.h"
#include "desktop/window/table_id.h"
#include "velda_base/host/frame.h"

namespace zt {

/// A view of the open model on a tab of the main window.
class TableDocument : public TableHolder {
    Q_OBJECT

public:
    /// Opens a table of the current document.
    explicit TableDocument(TableId id, QWidget* parent = nullptr);
    ~TableDocument() override;

    TableId Id() const { return id_; }
    QString Title() const { return title_; }
    /// Whether the document shows this table or can bring it to the front of its tabs.
    bool Shows(TableId id) const;
    /// Brings a table that it shows to the front of its tabs.
    void BringToFront(TableId id);
    /// Takes all texts in the current language.
    void UseLanguage();

signals:
    void TitleChanged(const QString& title);
    /// The view asks to be brought to the front, or to be closed.
    void ActivationRequested();
    void CloseRequested();

private:
    /// The tab as the view sees it; its window is the table.
    class Frame final : public WidgetWindow<velda::IFrame> {
    public:
        explicit Frame(TableDocument& owner) : WidgetWindow(owner.Grid().viewport()), owner_(owner) {}
        std::string GetTitle() const override;
        void SetTitle(const std::string& title) override;
        void Activate() override { emit owner_.ActivationRequested(); }
        /// The view may be at work: the tab goes when it has returned.
        void Close() override;
        void SetFocus() override { owner_.Grid().setFocus(); }
        IFrame* GetParentFrame() override { return this; }

    protected:
        void OnCommand(const velda::CommandMessage& command) override { owner_.view_->OnCommand(command.id); }

    private:
        TableDocument& owner_;
    };

    void MakeView();
    /// Makes the view anew, with the same tab and cell in front.
    void Reopen();

    TableId id_;
    QString title_;
    Frame frame_{*this};
    std::unique_ptr<CTBView> view_;
};

}  // namespace zt
