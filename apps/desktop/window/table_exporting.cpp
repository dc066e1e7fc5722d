#include "desktop/window/table_exporting.h"

#include <filesystem>

#include "desktop/grid/qt_text.h"
#include "velda_base/host/progress.h"
#include "velda_util/export/grid_export_to_excel.h"

namespace zt {

velda::Outcome ExportTables(const std::vector<TableToExport>& tables, const QString& path, bool& stopped) {
    constexpr int kSteps = 1000;
    velda::CGridExportToExcel exporter;
    for (const TableToExport& table : tables) exporter.AddGrid(*table.grid, table.title);
    velda::Progress progress(FromQt(Word("IDS_DESKTOP_EXPORTING")), kSteps);
    int shown = -1;
    exporter.SetProgress([&](std::uint64_t done, std::uint64_t total) {
        const int step = total == 0 ? kSteps : static_cast<int>(done * kSteps / total);
        if (step == shown) return true;
        shown = step;
        return progress.Step(step);
    });
    velda::Outcome outcome = exporter.Export(std::filesystem::path(path.toStdU16String()));
    stopped = exporter.WasStopped();
    return outcome;
}

}  // namespace zt
