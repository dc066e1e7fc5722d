// The window of a table against the stock table view of the toolkit over a hand-written model of the same nodes: a page
// that was scrolled to is drawn anew. The first picture of a long table is measured against that of a short one, since
// no work may depend on the rows out of sight. Without a screen.

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QScrollBar>
#include <QTableView>
#include <map>

#include "desktop/grid/grid_widget.h"
#include "node_table.h"
#include "ratio_reporter.h"

namespace {

using namespace bench;

constexpr std::uint32_t kFewRows = 1000;
constexpr QSize kWindow(1600, 1000);
constexpr int kPage = 37;  ///< rows that are scrolled by
constexpr int kColumnWidth = 160;

OurModel& ModelOf(std::uint32_t rows) {
    static std::map<std::uint32_t, std::unique_ptr<OurModel>> models;
    std::unique_ptr<OurModel>& model = models[rows];
    if (!model) {
        model = std::make_unique<OurModel>(rows);
        model->Open();
        NodeTable& table = model->Table();
        for (int col = 1; col <= table.GetColCount(); ++col) {
            table.SetColWidth(col, kColumnWidth);
            const bool isDouble = col >= 4 && col <= 7;
            if (!isDouble) continue;
            table.SetStyleRange(velda::CGXRange().SetCols(static_cast<std::uint32_t>(col)),
                                velda::CGXStyle().SetFormat(velda::NumberFormat::Fixed).SetPlaces(3));
        }
    }
    return *model;
}

QImage Canvas() { return {kWindow, QImage::Format_ARGB32_Premultiplied}; }

// ---- ours ----

void FirstPaint(benchmark::State& state, std::uint32_t rows) {
    OurModel& model = ModelOf(rows);
    QImage canvas = Canvas();
    for (auto _ : state) {
        zt::GridWidget widget;
        widget.resize(kWindow);
        widget.SetGrid(&model.Table());
        widget.show();
        widget.render(&canvas);
        state.PauseTiming();
        widget.SetGrid(nullptr);
        state.ResumeTiming();
    }
}

void ScrolledPageOurs(benchmark::State& state) {
    zt::GridWidget widget;
    widget.resize(kWindow);
    widget.SetGrid(&ModelOf(kRows).Table());
    widget.show();
    QImage canvas = Canvas();
    for (auto _ : state) {
        widget.ScrollBy(kPage, 0);
        widget.render(&canvas);
    }
    widget.SetGrid(nullptr);
}

// ---- peer ----

/// The nodes in the order of the peer's table, as a careful developer hands them to the stock view.
class NodeModel : public QAbstractTableModel {
public:
    NodeModel() : order_(Nodes().size()) {
        std::iota(order_.begin(), order_.end(), 0u);
        std::sort(order_.begin(), order_.end(), [](std::uint32_t a, std::uint32_t b) {
            const Node& left = Nodes()[a];
            const Node& right = Nodes()[b];
            return left.level != right.level ? left.level < right.level : left.number < right.number;
        });
    }
    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(order_.size());
    }
    int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 9; }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        static const char* const titles[] = {"Key", "Number", "Story", "Level", "X", "Y", "Z", "Name", "Plan"};
        if (role != Qt::DisplayRole) return {};
        return orientation == Qt::Horizontal ? QVariant(QLatin1String(titles[section])) : QVariant(section + 1);
    }
    QVariant data(const QModelIndex& index, int role) const override {
        const int col = index.column();
        if (role == Qt::TextAlignmentRole) {
            return QVariant(Qt::AlignVCenter | (col == 2 || col == 7 ? Qt::AlignLeft : Qt::AlignRight));
        }
        if (role != Qt::DisplayRole) return {};
        const Node& node = Nodes()[order_[static_cast<std::size_t>(index.row())]];
        switch (col) {
            case 0: return QString::number(node.key);
            case 1: return QString::number(node.number);
            case 2: return QString::fromStdString(StoryName(node.story));
            case 3: return QString::number(node.level, 'f', 3);
            case 4: return QString::number(node.x, 'f', 3);
            case 5: return QString::number(node.y, 'f', 3);
            case 6: return QString::number(node.z, 'f', 3);
            case 7: return QString::fromStdString(node.name);
            default: return QString::number(node.plan);
        }
    }

private:
    std::vector<std::uint32_t> order_;
};

void ScrolledPagePeer(benchmark::State& state) {
    static NodeModel model;
    QTableView view;
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.verticalHeader()->setDefaultSectionSize(ModelOf(kRows).Table().GetRowHeight(1));
    view.horizontalHeader()->setDefaultSectionSize(kColumnWidth);
    view.setModel(&model);
    view.resize(kWindow);
    view.show();
    QImage canvas = Canvas();
    for (auto _ : state) {
        view.verticalScrollBar()->setValue(view.verticalScrollBar()->value() + kPage);
        view.render(&canvas);
    }
}

void RegisterAll() {
    using benchmark::RegisterBenchmark;
    const auto repeated = [](auto* registered, int iterations) {
        registered->Unit(benchmark::kMillisecond)->Repetitions(7)->Iterations(iterations)->UseRealTime();
    };
    repeated(RegisterBenchmark("first picture, 1,000,000 to 1,000/ours", &FirstPaint, kRows), 10);
    repeated(RegisterBenchmark("first picture, 1,000,000 to 1,000/peer", &FirstPaint, kFewRows), 10);
    repeated(RegisterBenchmark("scrolled page/ours", &ScrolledPageOurs), 20);
    repeated(RegisterBenchmark("scrolled page/peer", &ScrolledPagePeer), 20);
}

}  // namespace

int main(int count, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, arguments);
    benchmark::Initialize(&count, arguments);
    RegisterAll();
    return bench::RunAndReport({{"first picture, 1,000,000 to 1,000", 1.2}, {"scrolled page", 0.5}}, {}, kScale) ? 0
                                                                                                                 : 1;
}
