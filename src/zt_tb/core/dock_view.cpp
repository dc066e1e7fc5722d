#include "zt_tb/core/dock_view.h"

#include <exception>
#include <utility>

#include "velda_base/host/application_host.h"

namespace zt {
namespace {

/// What the frame stands out over the pane, and the view less, in pixels.
constexpr int kFrameOverlap = 4;
constexpr int kViewInset = 2;

}  // namespace

CDockView::~CDockView() { _DestroyView(); }

CTBView* CDockView::GetOrCreateView() {
    if (view_ && !frame_->IsOpen()) _DestroyView();
    if (view_ && id_ != kNoId) return view_.get();
    if (!_CreateView()) return nullptr;
    OnAfterCreateView();
    return view_.get();
}

bool CDockView::SetInitData(std::uint32_t id, const void* /*data*/) {
    if (!SetDockViewWithID(id, this)) return false;
    id_ = id;
    if (CDBDoc::m_pDBDoc) ConnectToDoc(CDBDoc::m_pDBDoc);
    return true;
}

bool CDockView::_CreateView() {
    if (view_ || !HasWindow()) return false;
    frame_ = velda::ApplicationHost::Current().GetFrames().CreateChildFrame(*Window());
    std::unique_ptr<CTBView> view = frame_ ? _CreateView_sub(GetRuntimeViewClass()) : nullptr;
    if (!view || !CDBDoc::m_pDBDoc) {
        if (frame_) std::exchange(frame_, nullptr)->Close();
        return false;
    }
    view_ = std::move(view);
    view_->SetWindow(frame_.get());
    view_->ConnectToDoc(CDBDoc::m_pDBDoc);
    inDocument_ = true;
    // The pane may be older than the model.
    if (GetDocument() != CDBDoc::m_pDBDoc) {
        DisconnectFromDoc();
        ConnectToDoc(CDBDoc::m_pDBDoc);
    }
    LayOutView();
    return true;
}

std::unique_ptr<CTBView> CDockView::_CreateView_sub(ViewClass viewClass) {
    try {
        return viewClass ? viewClass() : nullptr;
    } catch (const std::exception&) {
        return nullptr;
    }
}

void CDockView::LayOutView() {
    if (!view_ || !HasWindow()) return;
    velda::WindowRect place = Window()->GetClientRect();
    place.right += kFrameOverlap;
    place.bottom += kFrameOverlap;
    frame_->MoveWindow(place);
    place.right -= kViewInset;
    place.bottom -= kViewInset;
    view_->OnWindowPosChanging(place);
}

void CDockView::OnUpdate(CDBUpdateConnector* /*sender*/, int code, T_UPDATE_HINT* /*hint*/) {
    if (code == HintCode::ClosePanes && HasWindow()) CloseDockViewImpl();
}

void CDockView::_DestroyView() {
    std::unique_ptr<CTBView> view = std::move(view_);
    const std::unique_ptr<velda::IFrame> frame = std::move(frame_);
    if (view && std::exchange(inDocument_, false)) {
        CDBDoc* doc = view->GetDocument();
        view->OnDestroy();
        view->SetWindow(nullptr);
        if (doc) doc->DeleteView(std::move(view));
    }
    if (frame && frame->IsOpen()) frame->Close();
}

void CDockView::OnDestroy() {
    velda::ApplicationHost& host = velda::ApplicationHost::Current();
    host.HoldIdle(true);
    _DestroyView();
    AttachWindow(nullptr);
    host.HoldIdle(false);
}

bool CDockView_PreTable::SetInitData(std::uint32_t id, const void* data) {
    const bool registered = CDockView::SetInitData(id, data);
    if (data) kind_ = *static_cast<const int*>(data);
    return registered;
}

void CDockView_PreTable::OnAfterCreateView() {
    if (s_viewClass.setTable) s_viewClass.setTable(*GetCurrentView(), kind_);
}

}  // namespace zt
