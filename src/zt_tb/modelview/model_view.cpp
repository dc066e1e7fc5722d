#include "zt_tb/modelview/model_view.h"

#include <cmath>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_db/core/change_test.h"
#include "zt_db/core/record_walk.h"
#include "zt_db/records/load.h"

namespace zt {
namespace {

/// Room around a model that is shown whole, in pixels: for the names of levels and the legend.
constexpr double kMargin = 64.0;

using Keys = std::vector<std::uint32_t>;

bool Holds(const velda::FlatIndex& set, const Keys& keys) {
    return std::all_of(keys.begin(), keys.end(), [&](std::uint32_t key) { return set.Contains(key); });
}

velda::FlatIndex SetOf(std::span<const std::uint32_t> keys) {
    velda::FlatIndex set;
    for (const std::uint32_t key : keys) set.Put(key, 0);
    return set;
}

void Remove(Keys& from, std::span<const std::uint32_t> keys) {
    const velda::FlatIndex removed = SetOf(keys);
    std::erase_if(from, [&](std::uint32_t key) { return removed.Contains(key); });
}

/// Adds the keys that are not there yet.
void Add(Keys& to, std::span<const std::uint32_t> keys) {
    velda::FlatIndex known = SetOf(to);
    for (const std::uint32_t key : keys) {
        if (known.Put(key, 0)) to.push_back(key);
    }
}

}  // namespace

void ModelView::SetDocument(CDBDoc* doc) {
    DisconnectFromDoc();
    if (doc) ConnectToDoc(doc);
    highlights_ = {};
    scene_.Build(Database());
    loads_ = {};
    DropResults();
    ++sceneRevision_;
    TellLoadCases();
    Show(StandardView::Isometric);
}

CDataBase* ModelView::Database() const { return GetDocument() ? GetDocument()->GetMDBCtrl()->GetCurrentDB() : nullptr; }

// ---- camera ----

void ModelView::SetSize(double width, double height) {
    camera_.SetSize(width, height);
    if (showsAll_) camera_.Fit(scene_.Bounds(), kMargin);
    Changed();
}

void ModelView::Fit() {
    camera_.Fit(scene_.Bounds(), kMargin);
    showsAll_ = true;
    Changed();
}

void ModelView::Show(StandardView view) {
    camera_.SetView(view);
    Fit();
}

void ModelView::Orbit(Point2 way) {
    const Rect2 frame{0.0, 0.0, camera_.Width(), camera_.Height()};
    const Point2 middle{0.5 * frame.right, 0.5 * frame.bottom};
    const bool isSeen = !scene_.IsEmpty() && frame.Holds(camera_.Project(scene_.Bounds().Center()).Flat());
    camera_.Orbit(way, isSeen ? scene_.Bounds().Center() : camera_.Unproject(middle));
    showsAll_ = false;
    Changed();
}

void ModelView::Pan(Point2 way) {
    camera_.Pan(way);
    showsAll_ = false;
    Changed();
}

void ModelView::ZoomAt(Point2 place, double factor) {
    camera_.ZoomAt(place, factor);
    showsAll_ = false;
    Changed();
}

// ---- supports and loads ----

void ModelView::ShowSupports(bool show) {
    if (show == showsSupports_) return;
    showsSupports_ = show;
    Redraw();
}

void ModelView::ShowLoads(std::uint32_t loadCase) {
    if (!Database() || loadCase == loads_.LoadCase()) return;
    loads_.Build(*Database(), loadCase);
    TellLoadCases();
    Redraw();
}

std::vector<LoadCaseName> ModelView::LoadCases() const {
    std::vector<LoadCaseName> cases;
    if (!Database()) return cases;
    for (const std::uint32_t key : KeysOf<CClassStld>(*Database())) {
        T_STLD_D record;
        if (Database()->GetClass<CClassStld>()->Get(key, record)) cases.push_back({key, record.name});
    }
    return cases;
}

// ---- results ----

void ModelView::ShowDeformed(DeformedShape shape) {
    shape_ = std::move(shape);
    BuildResults();
    Redraw();
}

void ModelView::SetDeformationFactor(double factor) {
    if (!(factor > 0.0) || !std::isfinite(factor)) return;
    deformation_.SetFactor(factor);
    Redraw();
}

std::string ModelView::DeformationText() const {
    if (deformation_.IsEmpty()) return {};
    return velda::FormatText("IDS_MODEL_VIEW_DEFORMED", {shape_.title, velda::FormatDouble(deformation_.Scale())});
}

void ModelView::ShowColours(ResultColours colours) {
    colours_ = std::move(colours);
    BuildResults();
    Redraw();
}

/// Finds the places of what has results in the scene, so that drawing looks for nothing.
void ModelView::BuildResults() {
    if (!Database()) return DropResults();
    deformation_.Build(*Database(), scene_, shape_);
    colors_.Build(*Database(), scene_, colours_);
}

void ModelView::DropResults() {
    shape_ = {};
    colours_ = {};
    deformation_.Clear();
    colors_ = {};
}

// ---- selection ----

PickedKeys ModelView::Selection() const {
    PickedKeys keys;
    if (CDataBase* database = Database()) {
        const CViewCtrl& state = *database->GetViewCtrl();
        state.GetAllSelectedPont(keys.nodes);
        state.GetAllSelectedMemb(keys.members);
    }
    return keys;
}

void ModelView::Select(const PickedKeys& keys, bool addsOrRemoves) {
    if (!Database() || (addsOrRemoves && keys.IsEmpty())) return;
    const PickedKeys before = Selection();
    PickedKeys wanted = addsOrRemoves ? before : keys;
    if (addsOrRemoves && Holds(SetOf(before.nodes), keys.nodes) && Holds(SetOf(before.members), keys.members)) {
        Remove(wanted.nodes, keys.nodes);
        Remove(wanted.members, keys.members);
    } else if (addsOrRemoves) {
        Add(wanted.nodes, keys.nodes);
        Add(wanted.members, keys.members);
    }
    if (wanted == before) return;
    Database()->GetViewCtrl()->Select(this, wanted.nodes, wanted.members);
}

void ModelView::SelectAt(Point2 place, bool addsOrRemoves) { Select(PickAt(Projection(), place), addsOrRemoves); }

void ModelView::SelectIn(const Rect2& band, BandRule rule, bool addsOrRemoves) {
    Select(PickIn(Projection(), band, rule), addsOrRemoves);
}

// ---- highlights ----

void ModelView::ResetHighlights() {
    highlights_ = {};
    Changed();
}

void ModelView::Highlight(std::span<const std::uint32_t> keys, int kind, int flag) {
    Keys& highlighted = kind == kNodeHighlights ? highlights_.nodes : highlights_.members;
    if (flag == 0) {
        Remove(highlighted, keys);
    } else {
        Add(highlighted, keys);
    }
    Changed();
}

// ---- the document ----

void ModelView::OnUpdate(CDBUpdateConnector* /*sender*/, int code, T_UPDATE_HINT* hint) {
    switch (code) {
        case HintCode::Changed0:
        case HintCode::Changed1:
        case HintCode::Changed: UpdateScene(hint); break;
        case HintCode::PostDatabaseChanged:
            DropResults();
            Redraw();
            break;
        // Nothing but the values beside loads depends on the units.
        case HintCode::Unit:
            if (loads_.LoadCase() != 0) Redraw();
            break;
        // The selection is asked for when it is drawn; a push of this view's own needs nothing more either.
        case HintCode::SelectionAdded:
        case HintCode::SelectionRemoved:
        case HintCode::Tracer:
        case HintCode::Refresh: Changed(); break;
        default: break;
    }
}

void ModelView::UpdateScene(const T_UPDATE_HINT* hint) {
    if (!hint || hint->dbIndex != CMDBCtrl::kModel) return;
    const bool wasEmpty = scene_.IsEmpty();
    scene_.Update(*Database());
    ++sceneRevision_;
    loads_.Update(*Database());
    BuildResults();
    if (Touches<T_STLD_D>(*Database()->GetViewBuff())) TellLoadCases();
    // The first nodes of a new model are brought into sight.
    if (wasEmpty && showsAll_) camera_.Fit(scene_.Bounds(), kMargin);
    Changed();
}

}  // namespace zt
