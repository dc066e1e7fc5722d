#include "desktop/tour/tour.h"

#include <QDir>
#include <QKeyEvent>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTimer>
#include <cmath>
#include <functional>
#include <iostream>
#include <numeric>

#include "desktop/graph/qt_graph_view.h"
#include "desktop/grid/qt_text.h"
#include "desktop/host/qt_host.h"
#include "desktop/print/page_painter.h"
#include "desktop/print/qt_printer.h"
#include "desktop/window/main_window.h"
#include "desktop/window/theme.h"
#include "velda_base/host/cmd_dialog.h"
#include "velda_base/host/headless_host.h"
#include "velda_lib/language.h"
#include "velda_util/pref/table_registry.h"
#include "zt_db/exchange/model_exchange.h"
#include "zt_db/records/actl.h"
#include "zt_db/records/lnld.h"
#include "zt_db/records/matl.h"
#include "zt_db/records/ptld.h"
#include "zt_db/records/rstp.h"
#include "zt_db/records/sbla.h"
#include "zt_db/records/sect.h"
#include "zt_db/records/spts.h"
#include "zt_db/records/swgt.h"
#include "zt_db/records/thik.h"
#include "zt_db/records/thlc.h"
#include "zt_db/sample/sample_building.h"
#include "zt_tb/core/tb_print_preview.h"
#include "zt_tb/model/table_kinds.h"
#include "zt_tb/model/tb_display_dlg.h"
#include "zt_tb/model/tb_pre_view.h"
#include "zt_tb/model/tb_prop_view.h"
#include "zt_tb/post/story/tb_set_rmf_mini_dlg.h"
#include "zt_tb/post/tb_post_view.h"

namespace zt {
namespace {

constexpr int kName = 2;  ///< columns of the thickness table
constexpr int kThickness = 3;
constexpr int kUsualRows = 14;
constexpr int kManyRows = 100'000;

/// Where the pictures go, and what their names end with.
class Album {
public:
    Album(const QString& folder, const QString& ending) : folder_(folder), ending_(ending) {}

    void Add(const QString& name, const QPixmap& picture) {
        const QString path = folder_.filePath(name + ending_);
        if (picture.save(path)) return;
        std::cerr << FromQt(path) << '\n';
        isWhole_ = false;
    }
    void Add(const QString& name, QWidget& window) {
        Settle();
        Add(name, window.grab());
    }
    bool IsWhole() const { return isWhole_; }

    /// Lets windows draw themselves.
    static void Settle() {
        for (int round = 0; round < 5; ++round) QApplication::processEvents();
    }

private:
    QDir folder_;
    QString ending_;
    bool isWhole_ = true;
};

/// The main window with a model that has plates besides those of the sample.
class Stage {
public:
    explicit Stage(int plates, QSize size = {1000, 640}) {
        auto doc = CDBDoc::New();
        CDataBase& database = *doc->GetMDBCtrl()->GetCurrentDB();
        if (plates > 0 && BuildSample(database, "office")) AddPlates(database, plates);
        window = std::make_unique<MainWindow>(std::move(doc));
        window->resize(size);
        window->show();
        window->activateWindow();
        window->OpenTable({TableSort::Property, CTBPropView::kThickness});
        Album::Settle();
    }
    GridWidget& Grid() const { return *window->ActiveGrid(); }
    velda::CTBGrid& Table() const { return *Grid().Grid(); }
    void GoTo(int row, int col) const {
        Table().SetCurrentCell(row, col);
        Grid().Refresh();
        Grid().setFocus();
    }
    void Press(Qt::Key key, const QString& text = {}) const {
        auto* editor = Grid().findChild<CellEditor*>();
        QWidget* target = editor->isVisible() ? static_cast<QWidget*>(editor) : &Grid();
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(target, &press);
    }
    void Type(const QString& text) const {
        for (const QChar letter : text) Press(static_cast<Qt::Key>(letter.toUpper().unicode()), QString(letter));
    }

    std::unique_ptr<MainWindow> window;

private:
    static void AddPlates(CDataBase& database, int count) {
        constexpr std::uint32_t first = 11;
        const std::string slab = velda::CurrentLanguage() == velda::Language::Korean ? "슬래브 S" : "Slab S";
        std::vector<std::uint32_t> keys(static_cast<std::size_t>(count));
        std::iota(keys.begin(), keys.end(), first);
        std::vector<T_THIK_D> plates(keys.size());
        for (std::size_t at = 0; at < plates.size(); ++at) {
            plates[at].name = slab + std::to_string(at + 1);
            plates[at].thickness = 0.15 + 0.05 * std::round(4.0 + 3.0 * std::sin(static_cast<double>(at)));
        }
        database.GetClass<CClassThik>()->TR_Add(keys, plates);
    }
};

/// Takes a picture of the dialog that an action opens, and closes it. Without a dialog there is no picture.
void AddDialog(Album& album, const QString& name, const std::function<void()>& action) {
    QTimer::singleShot(300, QApplication::instance(), [&album, name] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog) return;
        if (!name.isEmpty()) album.Add(name, *dialog);
        dialog->close();
    });
    action();
    // Lets the timer run out before the next picture where nothing was opened.
    QEventLoop wait;
    QTimer::singleShot(400, &wait, &QEventLoop::quit);
    wait.exec();
}

void TourEditing(Album& album) {
    const Stage stage(kUsualRows);
    stage.GoTo(1, kThickness);
    album.Add("properties", *stage.window);
    stage.Type("0.35");
    album.Add("open-editor", *stage.window);
    stage.Press(Qt::Key_Escape);
    stage.Press(Qt::Key_Escape);
    stage.GoTo(3, kThickness);
    stage.Type("abc");
    stage.Press(Qt::Key_Return);
    album.Add("row-with-finding", *stage.window);
    stage.Press(Qt::Key_Escape);
    stage.Press(Qt::Key_Escape);
    stage.GoTo(2, kName);
    stage.Table().ExtendSelection({7, kThickness});
    stage.Grid().Refresh();
    album.Add("selection", *stage.window);
    for (const auto& [name, command] : {std::pair("find", CommandId::EditFind), std::pair("sort", CommandId::Sort),
                                        std::pair("style", CommandId::Style), std::pair("colors", CommandId::Color)}) {
        AddDialog(album, name, [&, id = command] { stage.window->ActiveHolder()->View()->OnCommand(id); });
    }
    AddDialog(album, "displayed-tables", [] {
        CTBDisplayDlg dialog({});
        velda::DoModal(dialog);
    });
    for (const auto& [name, dialog] :
         {std::pair("dialog-materials", "CModelPropMatlDlg"), std::pair("dialog-sections", "CCMSectItemDlg"),
          std::pair("dialog-thicknesses", "CModelPropThikDlg"), std::pair("dialog-load-cases", "LoadCaseDialog"),
          std::pair("dialog-load-combinations", "LoadCombinationDialog")}) {
        AddDialog(album, name,
                  [&, box = dialog] { velda::ICmdDialog::Instance()->DoModal3(box, 1, nullptr, nullptr); });
    }
    stage.window->ToggleFilter();
    stage.window->OpenFind();
    album.Add("filter-and-find", *stage.window);
    stage.window->ToggleFilter();
    stage.window->OpenPane(kTablePont);
    stage.window->OpenTable({TableSort::Model, kTableMemb});
    stage.window->Split();
    album.Add("split-and-docked", *stage.window);
}

/// A picture of a window at a scale of its own.
QPixmap ScaledPicture(QWidget& window, double scale) {
    QPixmap picture(window.size() * scale);
    picture.setDevicePixelRatio(scale);
    Album::Settle();
    window.render(&picture);
    return picture;
}

void TourSizes(Album& album) {
    album.Add("empty-table", *Stage(0).window);
    {
        const Stage stage(kManyRows);
        stage.GoTo(kManyRows / 2, kThickness);
        album.Add("100000-rows", *stage.window);
    }
    album.Add("narrow", *Stage(kUsualRows, {300, 420}).window);
    const Stage stage(kUsualRows);
    stage.GoTo(1, kThickness);
    stage.Grid().SetZoom(1.5);
    album.Add("zoom-150", *stage.window);
    stage.Grid().SetZoom(1.0);
    album.Add("screen-150", ScaledPicture(*stage.window, 1.5));
}

/// The tables of nodes and members on their tabs.
void TourModel(Album& album) {
    const Stage stage(kUsualRows, {1300, 640});
    stage.window->OpenTable({.kind = kTablePont});
    album.Add("nodes", *stage.window);
    stage.window->OpenTable({.kind = kTableMemb});
    album.Add("members", *stage.window);
}

/// The building: whole, from its sides, with selected and highlighted members.
void TourBuilding(Album& album) {
    const Stage stage(kUsualRows, {1300, 720});
    MainWindow& window = *stage.window;
    ModelView& view = window.Model().View();
    album.Add("building", window);
    view.Select({.nodes = {30}, .members = {1, 2, 3, 4}}, false);
    const std::uint32_t highlighted[] = {20, 21, 22};
    view.Highlight(highlighted, 0, 1);
    window.OpenTable({.kind = kTableMembDetail});
    album.Add("building-selection", window);
    album.Add("building-150", ScaledPicture(window.Model(), 1.5));
    view.Show(StandardView::FrontElevation);
    album.Add("building-elevation", window.Model());
    view.Show(StandardView::Plan);
    album.Add("building-plan", window.Model());
}

/// Loads of all kinds on the small sample: dead loads on a beam and a slab, wind on nodes and a column.
void AddFrameLoads(CDataBase& database) {
    constexpr std::uint32_t dead = 1;
    constexpr std::uint32_t wind = 3;
    constexpr std::uint32_t column = 1;
    constexpr std::uint32_t beam = 2;
    constexpr std::uint32_t slab = 4;
    T_LNLD_D single{.memb = beam, .stld = dead, .type = LoadType::ConcentratedForces, .x = {0.33, 0.67}};
    single.p = {-30.0, -20.0};
    database.GetClass<CClassLnld>()->TR_Add(100, single);
    database.GetClass<CClassSwgt>()->TR_Add(1, {.stld = dead, .z = -1.0});
    database.GetClass<CClassSltp>()->TR_Add(1, {.dl = 1.5, .ll = 2.5});
    database.GetClass<CClassSbla>()->TR_Add(slab, {.type = 1, .dl = 1.5, .ll = 2.5});
    for (const std::uint32_t node : {5U, 7U}) {
        database.GetClass<CClassPtld>()->TR_Add(node, {.node = node, .stld = wind, .fx = 25.0});
        database.GetClass<CClassPtld>()->TR_Add(node + 4, {.node = node + 4, .stld = wind, .fx = 40.0});
    }
    database.GetClass<CClassPtld>()->TR_Add(1, {.node = 6, .stld = wind, .my = 15.0});
    T_CMLD_D pressure{.memb = column, .stld = wind, .direction = LoadDirection::GlobalX, .x = {0.0, 1.0}};
    pressure.p = {12.0, 4.0};
    database.GetClass<CClassCmld>()->TR_Add(1, pressure);
}

/// A small frame with loads.
std::unique_ptr<CDBDoc> SmallFrame() {
    auto doc = CDBDoc::New();
    CDataBase& database = *doc->GetMDBCtrl()->GetCurrentDB();
    if (BuildSample(database, "small")) AddFrameLoads(database);
    return doc;
}

/// Supports and loads: those of a small frame by cases, and the beam loads of the building.
void TourLoads(Album& album) {
    const Stage stage(kUsualRows, {1300, 720});
    {
        MainWindow& window = *stage.window;
        window.Model().View().ShowLoads(1);
        album.Add("building-loads", window);
    }
    MainWindow window(SmallFrame());
    window.resize({1300, 720});
    window.show();
    for (const auto& [name, loadCase] :
         {std::pair("frame-dead-loads", 1U), std::pair("frame-live-loads", 2U), std::pair("frame-wind-loads", 3U)}) {
        window.Model().View().ShowLoads(loadCase);
        album.Add(name, window.Model());
    }
    for (const auto& [name, kind] : {std::pair("supports", kTableSpts), std::pair("nodal-loads", kTablePtld),
                                     std::pair("beam-loads", kTableBeamld), std::pair("slab-loads", kTableSbla)}) {
        window.OpenTable({.kind = kind});
        album.Add(name, window);
    }
}

/// Shows the load cases that a table of results shows by itself, or all that it offers where it shows none.
void ActivateAll(CTBPostView& view) {
    TB_ACTIVE_PARAM param;
    if (!view.GetActivation(param)) return;
    param.loads.selected = param.loads.defaults.empty() ? param.loads.all : param.loads.defaults;
    view.Activate(param);
}

/// Tables of results: the dialog in which load cases are chosen, and what they show of all load cases.
void TourResultTables(Album& album, MainWindow& window, const QString& prefix = QStringLiteral("results-")) {
    const auto open = [&window](int id) {
        window.OpenTable({TableSort::Result, id});
        return dynamic_cast<CTBPostView*>(window.ActiveHolder()->View());
    };
    // The dialog opens as soon as the table does.
    AddDialog(album, prefix + "activation", [&] { open(2); });
    for (const auto& [name, id] :
         {std::pair("displacements", 2), std::pair("reactions", 3), std::pair("member-forces", 48),
          std::pair("story-displacement", 15), std::pair("story-drift", 14)}) {
        AddDialog(album, {}, [&, table = id] { open(table); });
        ActivateAll(*open(id));
        window.ActiveGrid()->Grid()->SetCurrentCell(1, 3);
        window.ActiveGrid()->Refresh();
        album.Add(prefix + name, window);
    }
    for (const auto& [name, command] : {std::pair("style", CommandId::Style), std::pair("sort", CommandId::Sort)}) {
        AddDialog(album, prefix + name, [&, id = command] { window.ActiveHolder()->View()->OnCommand(id); });
    }
}

/// The whole way of a building: imported, a section renamed, analysed, read by node, member and storey in two units.
/// Without the sample it is passed over.
void TourWalk(Album& album) {
    auto doc = CDBDoc::New();
    CDataBase& database = *doc->GetMDBCtrl()->GetCurrentDB();
    ExchangeReport report;
    if (!ImportModel(database, "samples/steel_frame_3_storeys", {}, report)) return;
    MainWindow window(std::move(doc));
    window.resize({1400, 760});
    window.show();
    album.Add("walk-imported", window);
    window.OpenTable({TableSort::Property, CTBPropView::kSection});
    auto& sections = dynamic_cast<velda::CTBBrowserWnd&>(*window.ActiveGrid()->Grid());
    if (sections.EditCell(1, 2, "C-1")) sections.LeaveRow();
    album.Add("walk-section", window);
    window.RunAnalysis();
    window.Log().show();
    album.Add("walk-analysed", window);
    window.Log().hide();
    window.Model().Deformed().setChecked(true);
    window.Model().Colours().setChecked(true);
    TourResultTables(album, window, "walk-");
    AddDialog(album, "walk-drift-limits", [] {
        DriftLimits limits;
        CTBSetRMFMiniDlg dialog(limits);
        velda::DoModal(dialog);
    });
    T_UNIT_INDEX units;
    CUnitCtrl& control = *window.Document().GetUnitCtrl();
    control.GetUnitIndexCurrent(units);
    units.length = units.modelLength = CUnitCtrl::FindChoice(UnitQuantity::Length, "mm");
    control.SetUnitIndexCurrent(units, 1);
    album.Add("walk-millimetres", window);
}

/// An analysed building as it moves under wind, and the displacements of its nodes and columns in colours.
void TourResults(Album& album) {
    MainWindow window(SmallFrame());
    window.resize({1300, 720});
    window.show();
    window.RunAnalysis();
    constexpr std::uint32_t wind = 3;
    ModelView& view = window.Model().View();
    const DeformedShape shape = DeformedShapeOf(*window.Document().GetPostCtrl(), {.key = wind});
    view.ShowDeformed(shape);
    album.Add("model_deformed", window);
    ResultColours colours{.title = "|D|", .unit = "mm"};
    for (const NodeShift& node : shape.nodes) {
        colours.nodes.push_back({node.no, 1000.0 * std::sqrt(Dot(node.move, node.move))});
    }
    for (std::uint32_t member = 1; member <= 8; ++member) colours.members.push_back({member, 0.1 * member});
    view.ShowColours(std::move(colours));
    album.Add("model_colors", window.Model());
    TourResultTables(album, window);
}

/// Materials of all types, and sections of all kinds of shapes.
void AddProperties(CDataBase& database) {
    T_MATL_D composite{.name = "SRC400", .type = "SRC", .dampingRatio = 0.03};
    composite.analysis[0] = {26702.0, 0.18, 1.0e-5, 2400.0, "KDS 14 20 10", "C27"};
    composite.analysis[1] = {210000.0, 0.3, 1.2e-5, 7850.0, "KDS 14 31 05", "SM355"};
    T_MATL_D own{.name = "AL6061", .type = "U", .dampingRatio = 0.02};
    own.analysis[0] = {68900.0, 0.33, 2.36e-5, 2700.0, {}, {}};
    database.GetClass<CClassMatl>()->TR_Add(std::vector<std::uint32_t>{11, 12}, {composite, own});
    std::vector<std::uint32_t> keys;
    std::vector<T_SECT_D> sections;
    const auto add = [&](int kind, std::string_view shape, const std::array<double, 9>& size) {
        keys.push_back(static_cast<std::uint32_t>(11 + keys.size()));
        sections.push_back({.name = "S" + std::to_string(keys.back()), .kind = kind, .shape = std::string(shape)});
        sections.back().base.size = size;
    };
    for (const char* shape : {"Angle", "Channel", "H Section", "T Section", "Box", "Double Angle", "Double Channel"}) {
        add(1, shape, {0.4, 0.2, 0.01, 0.014});
    }
    add(1, "Pipe", {0.4, 0.012});
    add(1, "Lipped Channel", {0.2, 0.075, 0.02, 0.0032});
    add(1, "Cross", {0.4, 0.4, 0.04, 0.04});
    add(2, "Rect-HBeam", {0.8, 0.8, 0.4, 0.4, 0.013, 0.021});
    add(2, "Circle-Pipe-Open", {0.8, 0.0, 0.5, 0.0, 0.012});
    add(4, "4-Angle", {0.5, 0.5, 0.1, 0.1, 0.01});
    add(4, "I-C Combined Shape", {0.4, 0.2, 0.008, 0.013, 0.3, 0.09, 0.009, 0.013});
    add(3, {}, {});
    database.GetClass<CClassSect>()->TR_Add(keys, sections);
}

void TourProperties(Album& album) {
    const Stage stage(kUsualRows, {1300, 640});
    AddProperties(*CDBDoc::m_pDBDoc->GetMDBCtrl()->GetCurrentDB());
    stage.window->OpenTable({.sort = TableSort::Property, .kind = CTBPropView::kMaterial});
    album.Add("materials", *stage.window);
    stage.window->OpenTable({.sort = TableSort::Property, .kind = CTBPropView::kSection});
    album.Add("sections", *stage.window);
}

/// What an analysis of the sample building is told: spectra, time histories and the control.
void AddAnalysisInput(CDataBase& database) {
    constexpr int kPoints = 1559;
    T_THFC_D quake{.name = "El Centro NS", .description = "0.02 s"};
    for (int at = 0; at < kPoints; ++at) {
        const double time = 0.02 * at;
        const double value = 0.35 * std::exp(-0.1 * time) * std::sin(9.0 * time) * std::cos(2.3 * time);
        quake.points.push_back({time, std::round(value * 1.0e5) / 1.0e5});
    }
    database.GetClass<CClassSpfc>()->TR_Add(
        1, {.name = "KDS 17 S3", .points = {{0.0, 0.224}, {0.07, 0.56}, {0.35, 0.56}, {0.7, 0.28}, {1.4, 0.14}}});
    database.GetClass<CClassSplc>()->TR_Add(1, {.name = "RX", .spfc = 1, .scale = 0.24});
    database.GetClass<CClassThfc>()->TR_Add(1, quake);
    database.GetClass<CClassThlc>()->TR_Add(
        1, {.name = "TH1", .items = {{.thfc = 1}, {.thfc = 1, .angle = 90.0, .scale = 0.3, .arrival = 0.5}}});
    database.GetClass<CClassActl>()->TR_Add(T_ACTL_D::kKey, {.massLoads = {{1, 1.0}, {2, 0.25}},
                                                             .secondOrder = SecondOrder::GivenLoads,
                                                             .secondOrderLoads = {{1, 1.2}, {2, 1.0}}});
    T_RSTP_D drift{.amplification = 4.5, .importance = 1.2, .responseFactor = 5.0};
    drift.verticalLoads = {{LoadCaseKind::Static, 1, 1.0}, {LoadCaseKind::Static, 2, 1.0}};
    database.GetClass<CClassRstp>()->TR_Add(T_RSTP_D::kKey, drift);
}

/// Drift angles of a time history, with the line above them that leads to their limits.
void TourHistoryDrift(Album& album) {
    auto doc = SmallFrame();
    AddAnalysisInput(*doc->GetMDBCtrl()->GetCurrentDB());
    MainWindow window(std::move(doc));
    window.resize({1600, 720});
    window.show();
    window.RunAnalysis();
    constexpr int kDriftAngles = 27;
    AddDialog(album, "results-history-activation", [&] { window.OpenTable({TableSort::Result, kDriftAngles}); });
    ActivateAll(dynamic_cast<CTBPostView&>(*window.ActiveHolder()->View()));
    window.ActiveGrid()->Refresh();
    album.Add("results-history-drift", window);
}

/// The dialogs of the input of an analysis, and the log of one that has warnings and of one that is refused.
void TourAnalysis(Album& album) {
    const Stage stage(kUsualRows, {1200, 720});
    MainWindow& window = *stage.window;
    CDataBase& database = *window.Document().GetMDBCtrl()->GetCurrentDB();
    AddAnalysisInput(database);
    for (const auto& [name, dialog] :
         {std::pair("dialog-analysis-control", "AnalysisControlDialog"), std::pair("dialog-spectra", "SpectrumDialog"),
          std::pair("dialog-spectrum-cases", "SpectrumCaseDialog"),
          std::pair("dialog-time-functions", "TimeFunctionDialog"),
          std::pair("dialog-time-history-cases", "TimeHistoryCaseDialog"),
          std::pair("dialog-drift-restriction", "DriftRestrictionDialog")}) {
        AddDialog(album, name,
                  [&, box = dialog] { velda::ICmdDialog::Instance()->DoModal3(box, 1, nullptr, nullptr); });
    }
    // A load on a node that no member meets is a warning.
    constexpr std::uint32_t loose = 90001;
    database.GetClass<CClassPont>()->TR_Add(loose, {.x = -5.0});
    database.GetClass<CClassPtld>()->TR_Add(loose, {.node = loose, .stld = 1, .fz = -10.0});
    window.RunAnalysis();
    window.Log().show();
    album.Add("analysis-log", window);
    std::vector<std::uint32_t> supports;
    database.GetClass<CClassSpts>()->GetKeyList(supports);
    database.GetClass<CClassSpts>()->TR_Del(supports);
    AddDialog(album, "analysis-refused", [&] { window.RunAnalysis(); });
    album.Add("analysis-log-refused", window);
}

/// The table of a view of its own, which paper and graphs need.
class PropertyTable {
public:
    PropertyTable() { view.OpenProperties(CTBPropView::kThickness); }
    ~PropertyTable() { view.OnDestroy(); }
    CTBPropView view;
};

QPixmap FirstPage(const velda::CTBGrid& table, const std::string& title) {
    constexpr double dotsPerPoint = 1.5;
    velda::PrintSettings settings;
    auto& margins = settings.margins;
    CTBPrintPreview::GetMarginDPUnit(margins.left, margins.top, margins.right, margins.bottom);
    settings.fontSize = CTBPrintPreview::m_nPrintFontSize;
    settings.titles = {title, PrintHeading(), {}};
    settings.textWidth = &PagePainter::TextWidth;
    QImage page(qRound(settings.paper.width * dotsPerPoint), qRound(settings.paper.height * dotsPerPoint),
                QImage::Format_RGB32);
    const int dotsPerMeter = qRound(dotsPerPoint * 72.0 / 0.0254);
    page.setDotsPerMeterX(dotsPerMeter);
    page.setDotsPerMeterY(dotsPerMeter);
    page.fill(Qt::white);
    QPainter painter(&page);
    const velda::PrintLayout pages(table, settings);
    PagePainter(painter, table, settings.fontSize).Paint(pages.Page(1));
    painter.end();
    return QPixmap::fromImage(page);
}

/// A host that shows previews and graphs.
class PaperHost : public velda::HeadlessHost {
public:
    explicit PaperHost(const CTBView& view) : printer_([&view] { return view.GetActiveGrid(); }) {}
    velda::IPrinter& GetPrinter() override { return printer_; }
    velda::IGraphView* GetGraphView() override { return &graphs_; }
    GraphWindow& Graph() {
        const std::string title = velda::CMsgDll::pfuncLoadStr("IDS_TB__Table_Graph_View", 0);
        return dynamic_cast<GraphWindow&>(*graphs_.GetView(title));
    }

private:
    QtPrinter printer_;
    QtGraphView graphs_;
};

void TourPaperAndGraphs(Album& album) {
    const Stage stage(60);
    PropertyTable table;
    PaperHost host(table.view);
    const velda::UseHost use(host);
    velda::CTBGrid& grid = *table.view.GetActiveGrid();
    album.Add("printed-page", FirstPage(grid, table.view.GetTabLabel(table.view.GetCurrentTab())));
    AddDialog(album, "print-preview", [&] { table.view.OnFilePrintPreview(); });
    grid.SelectRange({1, kName, 20, kThickness});
    table.view.OnTbGvGraphView();
    album.Add("graph-lines", host.Graph());
    host.Graph().ShowBars(true);
    album.Add("graph-bars", host.Graph());
}

}  // namespace

bool TakeTour(QApplication& application, const QString& folder) {
    if (!QDir().mkpath(folder)) return false;
    QtHost host;
    const velda::UseHost use(host);
    CTBPreView::RegisterWithPanes();
    // The tour neither reads nor changes what the user has set.
    const QTemporaryDir preferences;
    velda::TableRegistry::OfProcess().UseFile(velda::PreferenceFile(FromQt(preferences.filePath("preferences"))));
    bool isWhole = true;
    for (const char* language : {"en", "ko"}) {
        for (const auto& [name, theme] : {std::pair("light", Theme::Light), std::pair("dark", Theme::Dark)}) {
            velda::SetCurrentLanguage(*velda::LanguageOfCode(language));
            UseTheme(application, theme);
            Album album(folder, QStringLiteral("-%1-%2.png").arg(QLatin1String(language), QLatin1String(name)));
            TourEditing(album);
            TourSizes(album);
            TourModel(album);
            TourBuilding(album);
            TourLoads(album);
            TourResults(album);
            TourWalk(album);
            TourHistoryDrift(album);
            TourProperties(album);
            TourAnalysis(album);
            TourPaperAndGraphs(album);
            isWhole = isWhole && album.IsWhole();
        }
    }
    return isWhole;
}

}  // namespace zt
