// A table of 100,000 nodes to a spreadsheet file, against the bare writer library with the same content at hand.

#include <unistd.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "node_table.h"
#include "ratio_reporter.h"
#include "velda_lib/number_text.h"
#include "velda_util/export/grid_export_to_excel.h"

namespace {

using namespace bench;

constexpr int kColumns = 9;

std::filesystem::path FileOf(const std::string& name) {
    return std::filesystem::temp_directory_path() / ("zt_export_bench_" + std::to_string(getpid()) + "_" + name);
}

OurModel& OpenModel() {
    static OurModel& model = *[] {
        auto* made = new OurModel(kScale);
        made->Open();
        return made;
    }();
    return model;
}

void Export(benchmark::State& state, const std::string& extension) {
    const std::filesystem::path file = FileOf("ours" + extension);
    velda::CGridExportToExcel exporter;
    exporter.AddGrid(OpenModel().Table(), "Nodes");
    for (auto _ : state) {
        if (!exporter.Export(file)) state.SkipWithError("the export was refused");
    }
    std::filesystem::remove(file);
}

void ExportXlsxOurs(benchmark::State& state) { Export(state, ".xlsx"); }
void ExportCsvOurs(benchmark::State& state) { Export(state, ".csv"); }

// ---- peer

/// The nodes as the table shows them, in its order and with its digits: others take other times to write and to pack.
const std::vector<Node>& ShownNodes() {
    static const std::vector<Node> nodes = [] {
        std::vector<Node> made(Nodes().begin(), Nodes().begin() + kScale);
        for (Node& node : made) {
            for (double* number : {&node.level, &node.x, &node.y, &node.z}) *number = velda::RoundToShown(*number);
        }
        std::sort(made.begin(), made.end(), [](const Node& a, const Node& b) {
            return std::pair(a.level, a.number) < std::pair(b.level, b.number);
        });
        return made;
    }();
    return nodes;
}

lxw_format* Fixed(lxw_workbook* book) {
    lxw_format* format = workbook_add_format(book);
    format_set_num_format(format, "0.0000");
    format_set_align(format, LXW_ALIGN_RIGHT);
    return format;
}

lxw_format* Aligned(lxw_workbook* book, std::uint8_t alignment) {
    lxw_format* format = workbook_add_format(book);
    format_set_align(format, alignment);
    return format;
}

void WriteNodes(lxw_workbook* book) {
    lxw_worksheet* sheet = workbook_add_worksheet(book, "Nodes");
    lxw_format* fixed = Fixed(book);
    lxw_format* whole = Aligned(book, LXW_ALIGN_RIGHT);
    lxw_format* left = Aligned(book, LXW_ALIGN_LEFT);
    const char* titles[kColumns] = {"Key", "Number", "Story", "Level", "X", "Y", "Z", "Name", "Plan"};
    for (lxw_col_t col = 0; col < kColumns; ++col) worksheet_write_string(sheet, 0, col, titles[col], left);
    for (lxw_row_t i = 0; i < kScale; ++i) {
        const Node& node = ShownNodes()[i];
        const lxw_row_t row = i + 1;
        worksheet_write_number(sheet, row, 0, node.key, whole);
        worksheet_write_number(sheet, row, 1, node.number, whole);
        worksheet_write_string(sheet, row, 2, StoryName(node.story).c_str(), left);
        worksheet_write_number(sheet, row, 3, node.level, fixed);
        worksheet_write_number(sheet, row, 4, node.x, fixed);
        worksheet_write_number(sheet, row, 5, node.y, fixed);
        worksheet_write_number(sheet, row, 6, node.z, fixed);
        worksheet_write_string(sheet, row, 7, node.name.c_str(), left);
        worksheet_write_number(sheet, row, 8, node.plan, whole);
    }
}

void ExportXlsxPeer(benchmark::State& state) {
    const std::string file = FileOf("peer.xlsx").string();
    for (auto _ : state) {
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE;
        lxw_workbook* book = workbook_new_opt(file.c_str(), &options);
        WriteNodes(book);
        if (workbook_close(book) != LXW_NO_ERROR) state.SkipWithError("the file was not written");
    }
    std::filesystem::remove(file);
}

void RegisterAll() {
    const auto repeated = [](const char* name, auto* run) {
        benchmark::RegisterBenchmark(name, run)
            ->Unit(benchmark::kMillisecond)
            ->Repetitions(5)
            ->Iterations(1)
            ->UseRealTime();
    };
    OpenModel();
    ShownNodes();
    repeated("xlsx export 100,000 x 9/ours", &ExportXlsxOurs);
    repeated("xlsx export 100,000 x 9/peer", &ExportXlsxPeer);
    repeated("csv export 100,000 x 9/ours", &ExportCsvOurs);
}

}  // namespace

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    RegisterAll();
    return bench::RunAndReport({{"xlsx export 100,000 x 9", 1.5}}, {}, kScale) ? 0 : 1;
}
