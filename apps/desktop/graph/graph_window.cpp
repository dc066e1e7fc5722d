#include "desktop/graph/graph_window.h"

#include <QActionGroup>
#include <QBarSeries>
#include <QBarSet>
#include <QCategoryAxis>
#include <QFileDialog>
#include <QLegend>
#include <QLineSeries>
#include <QMessageBox>
#include <QToolBar>
#include <QValueAxis>
#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

#include "desktop/grid/qt_text.h"

namespace zt {
namespace {

/// Labels along the axis, as many as can be read.
constexpr int kMostLabels = 8;
/// Points of a line that are drawn; of more, the least and the greatest of each stretch stand for the stretch.
constexpr std::size_t kMostPoints = 4000;
/// Points up to which each is marked.
constexpr int kMostMarks = 60;

/// Colours that are told apart on light and dark ground, and by eyes that see no red or green.
QColor ColorOf(std::size_t item, bool dark) {
    static const char* const light[] = {"#0072b2", "#d55e00", "#009e73", "#a0569b", "#a67c00", "#3d9fd6"};
    static const char* const onDark[] = {"#56b4e9", "#ff8f42", "#2fc79b", "#dd95c2", "#f0c84a", "#8fd0f7"};
    return {dark ? onDark[item % std::size(onDark)] : light[item % std::size(light)]};
}

bool IsDark(const QPalette& palette) { return palette.color(QPalette::Base).lightness() < 128; }

QList<QPointF> PointsOf(const std::vector<double>& values) {
    const std::size_t stretch = values.size() <= kMostPoints ? 1 : values.size() / (kMostPoints / 2) + 1;
    QList<QPointF> points;
    for (std::size_t at = 0; at < values.size(); at += stretch) {
        const std::size_t end = std::min(values.size(), at + stretch);
        std::vector<QPointF> found;
        for (std::size_t i = at; i < end; ++i) {
            if (!std::isnan(values[i])) found.emplace_back(static_cast<double>(i), values[i]);
        }
        if (found.empty()) continue;
        const auto lower = [](const QPointF& a, const QPointF& b) { return a.y() < b.y(); };
        const auto [least, greatest] = std::minmax_element(found.begin(), found.end(), lower);
        points.append(least->x() < greatest->x() ? *least : *greatest);
        if (least != greatest) points.append(least->x() < greatest->x() ? *greatest : *least);
    }
    return points;
}

/// What the numbers are: the name of the only item, or the unit that all items share.
QString ValueTitle(const velda::T_GRAPH_D& data) {
    if (data.items.size() == 1) return ToQt(data.items[0]->name);
    const auto unit = [](const auto& item) {
        const QString name = ToQt(item->name);
        const auto at = name.lastIndexOf(QLatin1Char('('));
        return at < 0 ? QString() : name.mid(at);
    };
    const QString shared = unit(data.items[0]);
    const bool all =
        std::all_of(data.items.begin(), data.items.end(), [&](const auto& i) { return unit(i) == shared; });
    return all ? shared : QString();
}

/// Room below and above the values, so that the outermost ones do not lie on the edge.
double RoomAround(double least, double greatest) {
    if (greatest > least) return 0.02 * (greatest - least);
    return least == 0.0 ? 1.0 : std::abs(least) / 2.0;
}

}  // namespace

GraphWindow::GraphWindow(const QString& title, QWidget* parent) : QMainWindow(parent), view_(new QChartView(this)) {
    setWindowTitle(title);
    view_->setRenderHint(QPainter::Antialiasing);
    view_->setFrameShape(QFrame::NoFrame);
    setCentralWidget(view_);
    QToolBar* tools = addToolBar(title);
    tools->setMovable(false);
    auto* group = new QActionGroup(this);
    lines_ = tools->addAction(Word("IDS_DESKTOP_GRAPH_LINES"), this, &GraphWindow::Draw);
    bars_ = tools->addAction(Word("IDS_DESKTOP_GRAPH_BARS"), this, &GraphWindow::Draw);
    for (QAction* kind : {lines_, bars_}) {
        kind->setCheckable(true);
        group->addAction(kind);
    }
    lines_->setChecked(true);
    tools->addSeparator();
    tools->addAction(Word("IDS_DESKTOP_GRAPH_SAVE"), this, &GraphWindow::AskAndSave);
}

int GraphWindow::LabelCount() const { return data_ ? static_cast<int>(data_->labels.size()) : 0; }

void GraphWindow::SetGraphData(std::unique_ptr<velda::T_GRAPH_D> data) {
    data_ = std::move(data);
    bars_->setEnabled(LabelCount() <= kMostBars);
    Draw();
}

bool GraphWindow::ShowsBars() const { return bars_->isChecked() && bars_->isEnabled(); }

void GraphWindow::ShowBars(bool bars) {
    (bars ? bars_ : lines_)->setChecked(true);
    Draw();
}

void GraphWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && data_) Draw();
}

void GraphWindow::Draw() {
    auto* chart = new QChart;
    if (data_ && !data_->items.empty()) {
        chart->setTitle(ToQt(data_->title).toHtmlEscaped());
        if (ShowsBars()) {
            AddBars(*chart);
        } else {
            AddLines(*chart);
        }
        AddAxes(*chart);
        chart->legend()->setVisible(data_->items.size() > 1);
    }
    Dress(*chart);
    const std::unique_ptr<QChart> before(view_->chart());
    view_->setChart(chart);
}

void GraphWindow::AddLines(QChart& chart) const {
    for (std::size_t at = 0; at < data_->items.size(); ++at) {
        auto* series = new QLineSeries;
        series->setName(ToQt(data_->items[at]->name));
        series->replace(PointsOf(data_->items[at]->values));
        series->setPen(QPen(ColorOf(at, IsDark(palette())), 2));
        series->setPointsVisible(LabelCount() <= kMostMarks);
        chart.addSeries(series);
    }
}

void GraphWindow::AddBars(QChart& chart) const {
    auto* series = new QBarSeries;
    for (std::size_t at = 0; at < data_->items.size(); ++at) {
        auto* set = new QBarSet(ToQt(data_->items[at]->name));
        for (const double value : data_->items[at]->values) set->append(std::isnan(value) ? 0.0 : value);
        set->setColor(ColorOf(at, IsDark(palette())));
        set->setBorderColor(Qt::transparent);
        series->append(set);
    }
    series->setBarWidth(0.7);
    chart.addSeries(series);
}

void GraphWindow::AddAxes(QChart& chart) const {
    auto* labels = new QCategoryAxis;
    labels->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    labels->setRange(-0.5, LabelCount() - 0.5);
    labels->setStartValue(-0.5);
    std::set<QString> used;
    for (int at = 0; at < LabelCount(); at += (LabelCount() - 1) / kMostLabels + 1) {
        QString text = ToQt(data_->labels[static_cast<std::size_t>(at)]);
        // The axis wants each label once; the mark has no width.
        while (!used.insert(text).second) text += QChar(0x200B);
        labels->append(text, at);
    }
    labels->setTitleText(data_->labelTitle.empty() ? Word("IDS_DESKTOP_GRAPH_ROW") : ToQt(data_->labelTitle));
    labels->setGridLineVisible(false);

    double least = ShowsBars() ? 0.0 : std::numeric_limits<double>::infinity();
    double greatest = -least;
    for (const auto& item : data_->items) {
        for (const double value : item->values) {
            if (std::isnan(value)) continue;
            least = std::min(least, value);
            greatest = std::max(greatest, value);
        }
    }
    auto* values = new QValueAxis;
    const double room = RoomAround(least, greatest);
    // Bars stand on the zero line.
    values->setRange(ShowsBars() && least == 0.0 ? least : least - room, greatest + room);
    values->applyNiceNumbers();
    values->setTitleText(ValueTitle(*data_));

    chart.addAxis(labels, Qt::AlignBottom);
    chart.addAxis(values, Qt::AlignLeft);
    for (QAbstractSeries* series : chart.series()) {
        series->attachAxis(labels);
        series->attachAxis(values);
    }
}

void GraphWindow::Dress(QChart& chart) const {
    const QColor text = palette().color(QPalette::Active, QPalette::Text);
    const QColor ground = palette().color(QPalette::Active, QPalette::Base);
    QColor faint = text;
    faint.setAlphaF(0.18F);
    chart.setBackgroundBrush(ground);
    chart.setBackgroundRoundness(0);
    view_->setBackgroundBrush(ground);
    chart.setTitleBrush(text);
    QFont title = font();
    title.setPointSizeF(title.pointSizeF() * 1.3);
    title.setBold(true);
    chart.setTitleFont(title);
    chart.legend()->setLabelColor(text);
    chart.legend()->setAlignment(Qt::AlignBottom);
    for (QAbstractAxis* axis : chart.axes()) {
        axis->setLabelsColor(text);
        axis->setTitleBrush(text);
        axis->setTitleFont(font());
        axis->setLabelsFont(font());
        axis->setLinePen(QPen(faint, 1));
        axis->setGridLinePen(QPen(faint, 1));
    }
}

bool GraphWindow::SavePicture(const QString& path) const { return view_->grab().save(path, "PNG"); }

void GraphWindow::AskAndSave() {
    QString path = QFileDialog::getSaveFileName(this, Word("IDS_DESKTOP_GRAPH_SAVE"), {}, QStringLiteral("*.png"));
    if (path.isEmpty()) return;
    if (!path.endsWith(QLatin1String(".png"), Qt::CaseInsensitive)) path += QStringLiteral(".png");
    if (SavePicture(path)) return;
    QMessageBox::warning(this, windowTitle(), ToQt(velda::FormatText("IDS_DESKTOP_GRAPH_SAVE_FAILED", {FromQt(path)})));
}

}  // namespace zt
