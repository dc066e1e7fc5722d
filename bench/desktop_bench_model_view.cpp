// The pane that draws the model: the picture of a moment in which the user turns the model, the whole picture when it
// stands still, a click, and what one changed node costs. Without a screen.

#include <QApplication>
#include <QImage>
#include <map>

#include "desktop/modelview/model_painter.h"
#include "ratio_reporter.h"
#include "zt_db/records/lnld.h"
#include "zt_db/records/memb.h"

namespace {

using namespace zt;

constexpr long kMembers = 100'000;
constexpr QSize kPane(800, 800);
constexpr double kBay = 7.0;
constexpr double kStoryHeight = 3.5;

/// Frames of columns and beams with slabs, until there are as many members as were asked for.
class Building {
public:
    explicit Building(long members) : doc(CDBDoc::New()) {
        doc->MakeCurrent();
        CDataBase& database = *doc->GetMDBCtrl()->GetCurrentDB();
        std::vector<std::uint32_t> nodeKeys;
        std::vector<T_PONT_D> nodes;
        for (std::uint32_t floor = 0; floor < kFloors; ++floor) {
            for (std::uint32_t at = 0; at < kSide * Depth(members); ++at) {
                T_PONT_D node{.x = at % kSide * kBay, .y = at / kSide * kBay, .z = floor * kStoryHeight};
                node.no = static_cast<std::uint32_t>(nodes.size() + 1);
                nodes.push_back(node);
                nodeKeys.push_back(node.no);
            }
        }
        database.GetClass<CClassPont>()->TR_Add(nodeKeys, nodes);
        AddMembers(members, static_cast<std::uint32_t>(kSide * Depth(members)));
        database.GetClass<CClassMemb>()->TR_Add(keys_, members_);
        AddLoads(database);
        view.SetSize(kPane.width(), kPane.height());
        view.SetDocument(doc.get());
    }

    std::unique_ptr<CDBDoc> doc;
    ModelView view;
    static constexpr std::uint32_t kLoadCase = 1;

private:
    static constexpr std::uint32_t kFloors = 30;
    static constexpr std::uint32_t kSide = 40;

    static std::uint32_t Depth(long members) {
        return static_cast<std::uint32_t>(members) / (4 * kSide * (kFloors - 1)) + 2;
    }
    void Add(int type, std::vector<std::uint32_t> nodes) {
        T_MEMB_D member{.type = type, .no = static_cast<std::uint32_t>(members_.size() + 1)};
        member.nodes = std::move(nodes);
        keys_.push_back(member.no);
        members_.push_back(std::move(member));
    }
    void AddMembers(long count, std::uint32_t perFloor) {
        for (std::uint32_t floor = 1; floor < kFloors; ++floor) {
            for (std::uint32_t at = 1; at + kSide < perFloor; ++at) {
                if (static_cast<long>(members_.size()) + 4 > count * floor / (kFloors - 1)) break;
                const std::uint32_t node = floor * perFloor + at;
                Add(MembType::Column, {node - perFloor, node});
                if (at % kSide == 0) continue;
                Add(201, {node, node + 1});
                Add(201, {node, node + kSide});
                Add(MembType::Slab, {node, node + 1, node + kSide + 1, node + kSide});
            }
        }
    }

    /// A line load on every beam.
    void AddLoads(CDataBase& database) const {
        database.GetClass<CClassStld>()->TR_Add(kLoadCase, {.name = "DL", .type = "D"});
        std::vector<std::uint32_t> keys;
        std::vector<T_LNLD_D> loads;
        for (std::size_t at = 0; at < members_.size(); ++at) {
            if (members_[at].type != 201) continue;
            keys.push_back(static_cast<std::uint32_t>(keys.size() + 1));
            loads.push_back({.memb = keys_[at], .stld = kLoadCase, .x = {0.0, 1.0}, .p = {-7.5, -7.5}});
        }
        database.GetClass<CClassLnld>()->TR_Add(keys, loads);
    }

    std::vector<std::uint32_t> keys_;
    std::vector<T_MEMB_D> members_;
};

Building& BuildingOf(long members) {
    static std::map<long, std::unique_ptr<Building>> buildings;
    std::unique_ptr<Building>& building = buildings[members];
    if (!building) building = std::make_unique<Building>(members);
    return *building;
}

void Picture(benchmark::State& state, bool isMoving, std::uint32_t loadCase) {
    ModelView& view = BuildingOf(state.range(0)).view;
    view.ShowLoads(loadCase);
    const ModelColors colors = ModelColors::Of(QPalette());
    QImage canvas(kPane, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        view.Orbit({3.0, 0.0});
        canvas.fill(colors.background);
        ModelPainter(canvas, QFont(), colors).PaintBuilding(view, isMoving);
        ModelPainter(canvas, QFont(), colors).PaintMarks(view);
    }
    state.counters["members"] = static_cast<double>(view.Scene().MemberCount());
    view.ShowLoads(0);
    view.Show(StandardView::Isometric);
}

void Click(benchmark::State& state) {
    const ModelView& view = BuildingOf(state.range(0)).view;
    for (auto _ : state) {
        const SceneProjection projection(view.Scene(), view.View());
        benchmark::DoNotOptimize(PickAt(projection, {0.5 * kPane.width() + 0.3, 0.5 * kPane.height() + 0.3}));
    }
}

void ChangedNode(benchmark::State& state) {
    Building& building = BuildingOf(state.range(0));
    auto& nodes = *building.doc->GetMDBCtrl()->GetCurrentDB()->GetClass<CClassPont>();
    T_PONT_D node;
    nodes.Get(1, node);
    for (auto _ : state) {
        node.x += 0.001;
        nodes.TR_Modify(1, 1, node);
    }
}

void RegisterAll() {
    using benchmark::RegisterBenchmark;
    const auto scaled = [](auto* registered, int iterations) {
        for (const long size : {kMembers, 2 * kMembers, 4 * kMembers}) registered->Arg(size);
        registered->Unit(benchmark::kMillisecond)->Repetitions(5)->Iterations(iterations)->UseRealTime();
    };
    scaled(RegisterBenchmark("turned picture/scale", &Picture, true, 0), 5);
    scaled(RegisterBenchmark("whole picture/scale", &Picture, false, 0), 2);
    scaled(RegisterBenchmark("turned picture with loads/scale", &Picture, true, Building::kLoadCase), 5);
    scaled(RegisterBenchmark("whole picture with loads/scale", &Picture, false, Building::kLoadCase), 2);
    scaled(RegisterBenchmark("click/scale", &Click), 5);
    scaled(RegisterBenchmark("changed node/scale", &ChangedNode), 20);
}

}  // namespace

int main(int count, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, arguments);
    benchmark::Initialize(&count, arguments);
    RegisterAll();
    return bench::RunAndReport({},
                               {"turned picture", "whole picture", "turned picture with loads",
                                "whole picture with loads", "click", "changed node"},
                               kMembers)
               ? 0
               : 1;
}
