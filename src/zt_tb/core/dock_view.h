#pragma once

#include <memory>

#include "velda_base/host/dock_view_base.h"
#include "velda_base/host/frame.h"
#include "zt_tb/core/tb_view.h"

namespace zt {

/// A docking pane that hosts a view in a frame of its own.
class CDockView : public velda::CDockViewBase, public CDBUpdateConnector {
public:
    /// Makes a view of a class; null when it cannot.
    using ViewClass = std::unique_ptr<CTBView> (*)();

    ~CDockView() override;

    /// The hosted view; null until it is made.
    virtual CTBView* GetCurrentView() { return view_.get(); }
    /// Makes the view when there is none. Null when it cannot be made.
    virtual CTBView* GetOrCreateView();
    /// The class of the view; null when it is not known.
    virtual ViewClass GetRuntimeViewClass() const = 0;
    virtual bool ShowDockView() { return CDockViewBase::ShowDockView(id_); }
    /// Gives the pane its identifier. False, and the pane keeps none, when another pane has it.
    virtual bool SetInitData(std::uint32_t id, const void* data);
    virtual void OnAfterCreateView() {}

    std::uint32_t GetId() const { return id_; }
    void OnUpdate(CDBUpdateConnector* sender, int code, T_UPDATE_HINT* hint) override;
    void OnSize() override { LayOutView(); }
    /// The window of the pane goes away.
    void OnDestroy();

protected:
    /// A view without a frame, as a direct child of the pane. Null when it cannot be made.
    std::unique_ptr<CTBView> _CreateView_sub(ViewClass viewClass);
    void OnClosed() override { _DestroyView(); }

private:
    bool _CreateView();
    void _DestroyView();
    /// Fits frame and view to the pane: the view's own border falls outside of what is visible.
    void LayOutView();

    std::uint32_t id_ = kNoId;
    std::unique_ptr<velda::IFrame> frame_;
    std::unique_ptr<CTBView> view_;
    bool inDocument_ = false;  ///< the view was made here and listens to the document
};

/// The class of the model table view.
struct PreViewClass {
    CDockView::ViewClass make = nullptr;
    void (*setTable)(CTBView& view, int kind) = nullptr;
};

/// The pane that hosts a model table view for one kind of table.
class CDockView_PreTable : public CDockView {
public:
    /// Said once by the program: the views stand on no pane.
    static void RegisterView(PreViewClass viewClass) { s_viewClass = viewClass; }

    /// `data` points to the kind of the table, an int.
    bool SetInitData(std::uint32_t id, const void* data) override;
    ViewClass GetRuntimeViewClass() const override { return s_viewClass.make; }
    void OnAfterCreateView() override;
    int GetTableKind() const { return kind_; }

private:
    static inline PreViewClass s_viewClass;
    int kind_ = 0;
};

}  // namespace zt
