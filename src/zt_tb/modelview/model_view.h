#pragma once

#include <functional>

#include "velda_base/host/model_view.h"
#include "zt_db/doc/doc.h"
#include "zt_tb/modelview/scene_loads.h"
#include "zt_tb/modelview/scene_picking.h"

namespace zt {

struct LoadCaseName {
    std::uint32_t key = 0;
    std::string name;
};

/// The view of the model beside the tables, without its window: the scene of the open document, the loads that are
/// shown, the camera, what is highlighted. It follows the document, and shows and drives the selection that the
/// document's view state keeps.
class ModelView final : public CDBUpdateConnector, public velda::I_ModelBase {
public:
    /// The kind of highlights that are nodes. Those of all other kinds are members.
    static constexpr int kNodeHighlights = 1;

    /// Shows a document; null for none.
    void SetDocument(CDBDoc* doc);
    /// Told that the picture is another one.
    std::function<void()> onChanged;
    /// Told that there are other load cases to choose from, or that another one is chosen.
    std::function<void()> onLoadCases;

    const ModelScene& Scene() const { return scene_; }
    /// Another number for every other content of the scene, of its loads included.
    std::uint64_t SceneRevision() const { return sceneRevision_; }
    const Camera& View() const { return camera_; }

    // ---- camera

    /// Gives the picture a size in pixels. A model that was shown whole stays so.
    void SetSize(double width, double height);
    void Fit();
    /// Shows the whole model from a side.
    void Show(StandardView view);
    /// Turns the model about its middle, or about that of the picture when the model's is out of sight.
    void Orbit(Point2 way);
    void Pan(Point2 way);
    void ZoomAt(Point2 place, double factor);

    // ---- supports and loads

    void ShowSupports(bool show);
    bool ShowsSupports() const { return showsSupports_; }
    /// Shows the loads of a load case as long as it exists; 0 for none.
    void ShowLoads(std::uint32_t loadCase);
    const SceneLoads& Loads() const { return loads_; }
    /// The load cases to choose from, in their order.
    std::vector<LoadCaseName> LoadCases() const;
    /// The current units; null without a document.
    const CUnitCtrl* Units() const { return Database() ? &Database()->Units() : nullptr; }

    // ---- results. They are given as values; what is drawn of them goes when they are no longer current

    /// Draws the model as it moves under a load case; a shape without nodes has it drawn as it stands.
    void ShowDeformed(DeformedShape shape);
    /// Draws displacements larger by a factor than they are drawn by themselves; of 0 or less nothing changes.
    void SetDeformationFactor(double factor);
    const SceneDeformation& Deformation() const { return deformation_; }
    /// What the picture tells of the deformed shape; empty when none is shown.
    std::string DeformationText() const;
    /// Draws nodes and members in the colours of their values; without any values those of their kinds.
    void ShowColours(ResultColours colours);
    const SceneColors& Colors() const { return colors_; }
    /// The scene as it is drawn, and taken by the mouse.
    SceneProjection Projection() const { return {scene_, camera_, &deformation_}; }

    // ---- selection

    /// Makes keys the selection. To add or remove: adds them, or removes them when all are selected already.
    void Select(const PickedKeys& keys, bool addsOrRemoves);
    /// Selects what is seen at a place; nothing is seen beside the model.
    void SelectAt(Point2 place, bool addsOrRemoves);
    void SelectIn(const Rect2& band, BandRule rule, bool addsOrRemoves);
    void ClearSelection() { Select({}, false); }
    PickedKeys Selection() const;

    // ---- highlights

    const PickedKeys& Highlights() const { return highlights_; }
    void ResetHighlights() override;
    /// Highlights records, or with the flag 0 takes their highlights away.
    void Highlight(std::span<const std::uint32_t> keys, int kind, int flag) override;
    void Refresh() override { Changed(); }

    void OnUpdate(CDBUpdateConnector* sender, int code, T_UPDATE_HINT* hint) override;

private:
    CDataBase* Database() const;
    void UpdateScene(const T_UPDATE_HINT* hint);
    void BuildResults();
    void DropResults();
    /// Has the building drawn anew.
    void Redraw() {
        ++sceneRevision_;
        Changed();
    }
    void TellLoadCases() const {
        if (onLoadCases) onLoadCases();
    }
    void Changed() const {
        if (onChanged) onChanged();
    }

    ModelScene scene_;
    SceneLoads loads_;
    DeformedShape shape_;
    SceneDeformation deformation_;
    ResultColours colours_;
    SceneColors colors_;
    bool showsSupports_ = true;
    Camera camera_;
    std::uint64_t sceneRevision_ = 0;
    PickedKeys highlights_;
    bool showsAll_ = true;  ///< the user has not moved the model since it was shown whole
};

}  // namespace zt
